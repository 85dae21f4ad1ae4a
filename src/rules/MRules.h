// The user's rules: what the system suggests for each property, when a value found in the code
// gives way to that, and how lines are numbered. Registry key "Rules"; the two template names are
// kept in the recent list instead, beside the template file.
//
// The process-wide set is oRules; code that works with rules takes a const Values&, so that a
// test makes its own.
#pragma once

#include <cstdint>
#include <vector>

#include "Text.h"

namespace MRules {

struct Values {
  Text sDefaultModTemplate;
  std::int32_t eModSeverityDefault = 2;
  std::int32_t eModRetryDefault = 1;
  Text sDefaultProcTemplate;
  std::int32_t eSeverityDefault = 2;
  std::int32_t eRetryDefault = 1;
  std::int32_t eTraceDefault = 2;
  bool bTemplateReplace = false;
  bool bSeverityReplace = false;
  bool bRetryReplace = false;
  bool bTraceReplace = false;
  bool bExpertEnabled = true;
  std::int32_t eBoundaryDefault = 1;
  bool bBoundaryReplace = true;
  bool bFirewallReplace = false;
  std::int32_t eLineNumAction = 1;    ///< 0 insert or refresh, 1 leave, 2 remove
  std::int32_t eLineNumWhat = 0;      ///< 0 every statement, 1 every n-th, 2 logic statements
  std::int32_t lLineNumInterval = 2;  ///< n for eLineNumWhat 1
  bool bLineNumSkipData = true;
  bool bLineNumSkipEnd = true;
  bool bLineNumSkipShort = true;
  std::int32_t lLineNumSkipShortSize = 2;
  bool bSkipReadOnly = true;
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

}  // namespace MRules
