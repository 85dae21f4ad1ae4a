#include "MRules.h"

#include <gtest/gtest.h>

#include "CXRecent.h"
#include "MQuillon.h"
#include "RegistryStore.h"

namespace {

constexpr TextView Key = u"HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\Rules";

class Rules : public testing::Test {
 protected:
  Rules() {
    goRegistry = &moStore;
    ResetRecentFiles();
  }
  ~Rules() override {
    goRegistry = nullptr;
    ResetRecentFiles();
    MQuillon::ReleaseLookups();
    MRules::oRules = {};
  }
  static std::vector<std::int32_t> All(const MRules::Values& oValues) {
    std::vector<std::int32_t> lAll;
    for (const auto& oRule : MRules::Table()) lAll.push_back(oRule.Get(oValues));
    return lAll;
  }
  /// The two names after opening a file that holds the module template M and the given ones.
  static Text Opened(const TextArray& asProcTemplate) {
    MQuillon::LoadLookups({u"", u"M"}, asProcTemplate);
    MRules::GetDefaultTemplates();
    return MRules::oRules.sDefaultModTemplate + u'/' + MRules::oRules.sDefaultProcTemplate;
  }
  RegistryStore moStore;
};

TEST_F(Rules, AreTheDefaultsWithoutAKeyAndComeBackAsTheyWereWritten) {
  for (const auto& oRule : MRules::Table()) oRule.Set(MRules::oRules, 77);
  MRules::Initialize();
  EXPECT_EQ(All(MRules::oRules), All({}));
  // One rule at a time, so that two rules under one name or in one place show up.
  for (const auto& oRule : MRules::Table()) {
    SCOPED_TRACE(ToUtf8(oRule.sName));
    MRules::Values oChanged;
    oRule.Set(oChanged, oRule.Get(oChanged) == oRule.lLow ? oRule.lHigh : oRule.lLow);
    ASSERT_NE(All(oChanged), All({}));
    MRules::oRules = oChanged;
    MRules::SetRules();
    EXPECT_EQ(moStore.GetLong(Key, oRule.sName), oRule.Get(oChanged));
    MRules::oRules = {};
    MRules::GetRules();
    EXPECT_EQ(All(MRules::oRules), All(oChanged));
  }
}

TEST_F(Rules, TakeDamagedValuesAsMissing) {
  moStore.SetLong(Key, u"Boundary Expert", 1);
  moStore.SetString(Key, u"Template Precedence", u"-1");
  moStore.SetString(Key, u"Line Number Interval", u"9");
  MRules::Initialize();
  EXPECT_EQ(All(MRules::oRules), All({}));
  MRules::SetRules();
  EXPECT_EQ(moStore.GetLong(Key, u"Boundary Expert"), -1);
  EXPECT_EQ(moStore.GetLong(Key, u"Line Number Interval"), 2);
}

TEST_F(Rules, KeepTheTemplateNamesBesideTheFile) {
  EXPECT_EQ(Opened({u"", u"", u"Alpha", u"Beta"}), u"M/Alpha") << "no file was opened before";
  RecentFiles().Add(u"C:\\a.dat");
  MRules::oRules.sDefaultModTemplate = u"";
  MRules::oRules.sDefaultProcTemplate = u"beta";
  MRules::SetRules();
  const std::tuple<const char*, TextArray, const char*> Rows[] = {
      {"the file itself; an empty name is no item", {u"", u"Alpha", u"Beta"}, "M/beta"},
      {"another file with that name", {u"", u"Other", u"BETA"}, "M/beta"},
      {"another file without it", {u"", u"Other"}, "M/Other"},
      {"a file without procedure templates", {u""}, "M/beta"}};
  for (const auto& [sName, asProcTemplate, sNames] : Rows) {
    EXPECT_EQ(ToUtf8(Opened(asProcTemplate)), sNames) << sName;
  }
}

}  // namespace
