// rules show, set and reset: the rules by their registry names.
#include "CXRecent.h"
#include "Commands.h"
#include "MRules.h"
#include "RegistryStore.h"
#include "RuleText.h"

namespace {

void Set(const std::string& sSet, MRules::Values& oValues) {
  std::size_t lEquals = sSet.find('=');
  if (lEquals == std::string::npos) throw Stop{"rules set takes NAME=VALUE, not " + sSet};
  SetRule(sSet.substr(0, lEquals), sSet.substr(lEquals + 1), oValues);
}

void Show(Session& oSession) {
  for (const MRules::Rule& oRule : MRules::Table())
    oSession.oOutput.Put(ToUtf8(oRule.sName) + '=' + RuleValue(oRule, MRules::oRules) + '\n');
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
