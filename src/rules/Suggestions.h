// The decisions of the Property Expert as pure functions: facts about a procedure, its Current
// settings and the rules give its Suggested settings and the seven flags that say how.
//
//   Suggestions::Suggest({.eKind = Suggestions::Kind::Method, .sName = u"Class_Terminate", ...},
//                        oCurrent, MRules::oRules, oSuggest);
#pragma once

#include <cstdint>
#include <span>

#include "CProcSettings.h"
#include "Choices.h"
#include "MRules.h"
#include "Text.h"

namespace Suggestions {

enum class Kind { Method, Property, Declarations };

struct Facts {
  Kind eKind = Kind::Method;
  TextView sName = {};  ///< the member's name; unused for declarations
  MQuillon::MemberScope nScope = MQuillon::MemberScope::Unset;
  bool bEventHandler = false;
  bool bPublicClass = false;     ///< class of an ActiveX project with instancing 2 or more
  bool bHasEventSource = false;  ///< the component has an entry in the event source list
  bool bHasDesigner = false;     ///< the component has a designer object name
  /// Lower-case names of the component's implemented interfaces from outside the group.
  std::span<const Text> asForeignInterface = {};
};

/// The Boundary that the analysis gives, whatever the rules say: None, VB or ActiveX.
MQuillon::Boundary BoundaryCandidate(const Facts& oFacts);

/// Fills oSuggest. It is the same object at every pass: once it has taken over a foreign template
/// it ignores every later write, as its setters say.
void Suggest(const Facts& oFacts, const CProcSettings& oCurrent, const MRules::Values& oRules,
             CProcSettings& oSuggest);

}  // namespace Suggestions
