// The user's rules: what the system suggests for each property, when a value found in the code
// gives way to that, and how lines are numbered. Registry key "Rules"; the two template names are
// kept in the recent list instead, beside the template file.
//
// The process-wide set is oRules; code that works with rules takes a const Values&, so that a
// test makes its own.
#pragma once

#include <cstdint>
#include <vector>

#include "Choices.h"
#include "Text.h"

namespace MRules {

struct Values {
  Text sDefaultModTemplate;
  MQuillon::Severity eModSeverityDefault = MQuillon::Severity::Normal;
  MQuillon::Retry eModRetryDefault = MQuillon::Retry::Line;
  Text sDefaultProcTemplate;
  MQuillon::Severity eSeverityDefault = MQuillon::Severity::Normal;
  MQuillon::Retry eRetryDefault = MQuillon::Retry::Line;
  MQuillon::TriState eTraceDefault = MQuillon::TriState::True;
  bool bTemplateReplace = false;
  bool bSeverityReplace = false;
  bool bRetryReplace = false;
  bool bTraceReplace = false;
  bool bExpertEnabled = true;
  MQuillon::Boundary eBoundaryDefault = MQuillon::Boundary::None;
  bool bBoundaryReplace = true;
  bool bFirewallReplace = false;
  MQuillon::LineNumAction eLineNumAction = MQuillon::LineNumAction::Leave;
  MQuillon::LineNumWhat eLineNumWhat = MQuillon::LineNumWhat::EveryStatement;
  std::int32_t lLineNumInterval = 2;  ///< n for EveryNth
  bool bLineNumSkipData = true;
  bool bLineNumSkipEnd = true;
  bool bLineNumSkipShort = true;
  std::int32_t lLineNumSkipShortSize = 2;
  bool bSkipReadOnly = true;
  /// Names of event handlers fit their source without regard to case, as the language binds them.
  bool bHandlersIgnoreCase = false;
  /// A member of `Implements Library.Interface` is known by the interface's own name.
  bool bInterfaceOwnName = false;
  bool bProve = false;  ///< the window proves each rewrite before it is written
};

/// The process-wide rules; written by the operations below and the rules' dialog only.
extern Values oRules;

/// Opens the key and reads the rules. Called once at start-up.
void Initialize();
void GetRules();
void SetRules();
/// Reads the two template names of recent entry 1 against the lookups: a name that the lookup
/// doesn't hold gives way to the lookup's item 2, if there is one.
void GetDefaultTemplates();
/// Keeps the two names beside recent entry 1; nothing happens while the list is empty.
void SetDefaultTemplates();

/// One stored rule by its registry name, for programs that show or set rules as text.
struct Rule {
  TextView sName;            ///< registry value name
  bool bBoolean;             ///< stored as -1 or 0
  std::int32_t lLow, lHigh;  ///< what is sensible, both ends included
  /// A boolean goes out as it is stored; any number but 0 comes in as true.
  std::int32_t (*Get)(const Values&);
  void (*Set)(Values&, std::int32_t);
};
/// All rules in the order of Values.
const std::vector<Rule>& Table();
inline constexpr TextView HandlersIgnoreCaseName = u"Event Handlers Ignore Case",
                          InterfaceOwnNameName = u"Interface Own Name";

}  // namespace MRules
