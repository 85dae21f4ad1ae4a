#include "MRules.h"

#include "../vocabulary/TextRows.h"
#include "CXRecent.h"
#include "ErrorRuntimeFake.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "RegistryStore.h"

namespace {

constexpr TextView Key = u"HKEY_CURRENT_USER\\Software\\Morvelle\\Tarvane\\Quillon\\Rules";

struct Rules : testing::Test {
  Rules() {
    goRegistry = &oStore;
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
  RegistryStore oStore;
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
    EXPECT_EQ(oStore.GetLong(Key, oRule.sName), oRule.Get(oChanged));
    MRules::oRules = {};
    MRules::GetRules();
    EXPECT_EQ(All(MRules::oRules), All(oChanged));
  }
}

TEST_F(Rules, TakeDamagedValuesAsMissing) {
  oStore.SetLong(Key, u"Boundary Expert", 1);
  oStore.SetString(Key, u"Template Precedence", u"-1");
  oStore.SetString(Key, u"Line Number Interval", u"9");
  MRules::Initialize();
  EXPECT_EQ(All(MRules::oRules), All({}));
  MRules::SetRules();
  EXPECT_EQ(oStore.GetLong(Key, u"Boundary Expert"), -1);
  EXPECT_EQ(oStore.GetLong(Key, u"Line Number Interval"), 2);
}

TEST_F(Rules, KeepTheTemplateNamesBesideTheFile) {
  // The procedure templates of a file that is opened: the two names that come into force.
  const auto Opened = [](TextView sProcTemplates) {
    TextArray asProcTemplate;
    MXString::StringTokenize(sProcTemplates, asProcTemplate, u",", false);
    MQuillon::LoadLookups({u"", u"M"}, asProcTemplate);
    MRules::GetDefaultTemplates();
    return MRules::oRules.sDefaultModTemplate + u'/' + MRules::oRules.sDefaultProcTemplate;
  };
  EXPECT_EQ(Opened(u",Alpha,Beta"), u"M/Alpha") << "no file was opened before";
  RecentFiles().Add(u"C:\\a.dat");
  MRules::oRules.sDefaultModTemplate = u"";
  MRules::oRules.sDefaultProcTemplate = u"beta";
  MRules::SetRules();
  ExpectRows(u",Alpha,Beta~M/beta; Other,BETA~M/beta; Other~M/Other; ~M/beta", Opened);
}

TEST_F(Rules, RoutinesOfSettingsReportUnderTheirOwnNames) {
  struct Traced : AnswersWith {
    Traced() : AnswersWith(ErrorIds::ActionLeave) { SetTraceEnabled(true); }
    void TraceEnter(std::u16string_view sModule, std::u16string_view sProcedure) override {
      sEntered += ToUtf8(Text(sModule) + u"." + Text(sProcedure)) + "; ";
    }
    void TraceExit(std::u16string_view, std::u16string_view) override {}
    std::string sEntered;
  } oTraced;
  MRules::Initialize();
  MOptions::Initialize();
  RecentFiles().Add(u"a");
  MRules::SetRules();
  MRules::GetDefaultTemplates();
  MOptions::SetOptions();
  MOptions::SetPage();
  const std::string sSave = "CXRecent.SaveToRegistry; ", sSet = "CXRecent.Property [Let]; " + sSave;
  EXPECT_EQ(oTraced.sEntered,
            "MRules.Initialize; MRules.GetRules; MOptions.Initialize; MOptions.GetOptions; "
            "MOptions.GetPage; CXRecent.Initialize; CXRecent.Add; " +
                sSave + "MRules.SetRules; MRules.SetDefaultTemplates; " + sSet + sSet +
                "MRules.GetDefaultTemplates; MOptions.SetOptions; MOptions.SetPage; ");
}

}  // namespace
