// The decisions of the Property Expert as pure functions: facts about a procedure, its Current
// settings and the rules give its Suggested settings, each value with its reason.
//
//   Suggestions::Suggest({.eKind = Suggestions::Kind::Method, .sName = u"Class_Terminate", ...},
//                        oCurrent, MRules::oRules, oSuggest);
#pragma once

#include <span>
#include <vector>

#include "CProcSettings.h"
#include "Choices.h"
#include "MRules.h"
#include "Reasons.h"
#include "Text.h"

namespace Suggestions {

enum class Kind { Method, Property, Declarations };

struct Facts {
  Kind eKind = Kind::Method;
  TextView sName = {};  ///< the member's name; unused for declarations
  MQuillon::MemberScope nScope = MQuillon::MemberScope::Unset;
  bool bEventHandler = false;
  /// Its name fits an event source, but not in letter case; never beside bEventHandler.
  bool bHandlerNoCase = false;
  bool bPublicClass = false;     ///< class of an ActiveX project with instancing 2 or more
  bool bHasEventSource = false;  ///< the component has an entry in the event source list
  bool bHasDesigner = false;     ///< the component has a designer object name
  /// Lower-case names of the component's implemented interfaces from outside the group, with their
  /// library where the code states it: `excel.iview`.
  std::span<const Text> asForeignInterface = {};
  /// The code reads Err, handles no errors itself, and the default template would.
  bool bClearsErr = false;
};

/// What decides about the boundary when the Property Expert is asked; never Fact::None or
/// Fact::ClearsErr.
Fact DecidingFact(const Facts& facts, const MRules::Values& rules = {});
/// None, VB or ActiveX.
MQuillon::Boundary BoundaryBy(Fact fact);

/// Works out the suggestion. keepsForeign: it is for settings that have taken over a foreign
/// template and so keep it, whatever the rules say.
Suggestion SuggestionFor(const Facts& facts, const CProcSettings& current,
                         const MRules::Values& rules, bool keepsForeign = false);

/// The rules that are off and would give another boundary if they were on, by their stored names.
std::vector<TextView> RulesJudgingOtherwise(const Facts& facts, const CProcSettings& current,
                                            const MRules::Values& rules);

/// Works out the suggestion and writes it into settings, the same object at every pass.
void Suggest(const Facts& facts, const CProcSettings& current, const MRules::Values& rules,
             CProcSettings& settings);

}  // namespace Suggestions
