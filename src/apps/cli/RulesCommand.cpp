// rules show, set and reset: the rules by their registry names.
#include <algorithm>
#include <charconv>

#include "CXRecent.h"
#include "Commands.h"
#include "Display.h"
#include "MRules.h"
#include "RegistryStore.h"

namespace {

const MRules::Rule& RuleByName(const std::string& sName) {
  std::vector<std::string> asName;
  for (const MRules::Rule& oRule : MRules::Table()) {
    asName.push_back(ToUtf8(oRule.sName));
    if (SameWord(asName.back(), sName)) return oRule;
  }
  throw Stop{"There is no rule " + sName + ": the rules are " + Alternatives(asName)};
}

std::string Allowed(const MRules::Rule& oRule) {
  if (oRule.bBoolean) return "-1 (true) or 0 (false)";
  return std::to_string(oRule.lLow) + " to " + std::to_string(oRule.lHigh);
}

std::optional<std::int32_t> Number(const std::string& sText) {
  std::int32_t lNumber = 0;
  auto oResult = std::from_chars(sText.data(), sText.data() + sText.size(), lNumber);
  if (oResult.ec != std::errc() || oResult.ptr != sText.data() + sText.size()) return std::nullopt;
  return lNumber;
}

/// A boolean is also taken as true or false, and 1 counts as true.
std::optional<std::int32_t> Value(const MRules::Rule& oRule, const std::string& sText) {
  if (oRule.bBoolean && SameWord(sText, "true")) return -1;
  if (oRule.bBoolean && SameWord(sText, "false")) return 0;
  std::optional<std::int32_t> oNumber = Number(sText);
  if (oRule.bBoolean && oNumber == 1) return -1;
  bool bInRange = oNumber && (oRule.bBoolean ? *oNumber == 0 || *oNumber == -1
                                             : *oNumber >= oRule.lLow && *oNumber <= oRule.lHigh);
  return bInRange ? oNumber : std::nullopt;
}

void Set(const std::string& sSet, MRules::Values& oValues) {
  std::size_t lEquals = sSet.find('=');
  if (lEquals == std::string::npos) throw Stop{"rules set takes NAME=VALUE, not " + sSet};
  const MRules::Rule& oRule = RuleByName(sSet.substr(0, lEquals));
  std::string sText = sSet.substr(lEquals + 1);
  std::optional<std::int32_t> oValue = Value(oRule, sText);
  if (!oValue) throw Stop{ToUtf8(oRule.sName) + " can't be " + sText + ": it is " + Allowed(oRule)};
  oRule.Set(oValues, *oValue);
}

void Show(Session& oSession) {
  for (const MRules::Rule& oRule : MRules::Table()) {
    std::int32_t lValue = oRule.Get(MRules::oRules);
    if (oRule.bBoolean) lValue = lValue != 0 ? -1 : 0;
    oSession.oOutput.Put(ToUtf8(oRule.sName) + '=' + std::to_string(lValue) + '\n');
  }
}

/// The rules as set or reset asks for them.
MRules::Values Wanted(const Arguments& oArguments) {
  MRules::Values oValues = oArguments.sAction == "set" ? MRules::oRules : MRules::Values();
  for (const std::string& sSet : oArguments.asValue) Set(sSet, oValues);
  return oValues;
}

/// All rules are written, so they are read again first: another program may have set one since.
/// The names of the default templates are stored with the rules, beside the most recent template
/// file. They are known only while that file is open, so they go back as they were.
void Store(const Arguments& oArguments) {
  RegistryStore::Batch oBatch(*goRegistry);
  oBatch.LockAndRead();
  ResetRecentFiles();
  MRules::GetRules();
  MRules::oRules = Wanted(oArguments);
  MRules::oRules.sDefaultModTemplate = RecentFiles().Property(1, u"DefaultModTemplate");
  MRules::oRules.sDefaultProcTemplate = RecentFiles().Property(1, u"DefaultProcTemplate");
  MRules::SetRules();
  oBatch.Commit();
}

}  // namespace

int RulesCommand(Session& oSession) {
  const Arguments& oArguments = oSession.oArguments;
  if (oArguments.sAction == "show") {
    Show(oSession);
    return 0;
  }
  if (goRegistry->Path().empty() && !oArguments.oSettingsFile)
    throw Stop{"There is no home folder to keep the rules in: name a file with --settings FILE"};
  Wanted(oArguments);  // refuses what can't be before anything is locked
  if (!oArguments.bDryRun) Store(oArguments);
  return 0;
}
