// The rules as controls: what they begin with, what depends on what, and what OK writes back.
#include "FRules.h"

#include "CXRecent.h"
#include "DialogTest.h"

namespace {

using namespace Forms;

class FRulesTest : public DialogTest {
 protected:
  FRulesTest() {
    ResetRecentFiles();
    RecentFiles().Add(u"Template.dat");
    MRules::Initialize();
  }
  ~FRulesTest() override {
    ResetRecentFiles();
    MRules::oRules = {};
  }
  bool Show(std::function<void(FRules&)> oAct) {
    User().Modal<FRules>(std::move(oAct));
    return FRules(moToolkit).Display();
  }
  /// The stored rules that differ from the usual ones, and the two stored template names.
  std::string Stored() const {
    std::string s;
    for (const auto& oRule : MRules::Table()) {
      const auto lStored = moStore.GetLong(Key(u"Rules"), oRule.sName);
      if (lStored && *lStored != oRule.Get({}))
        s += ToUtf8(oRule.sName) + "=" + std::to_string(*lStored) + ";";
    }
    return s + ToUtf8(RecentFiles().Property(1, u"DefaultModTemplate")) + "," +
           ToUtf8(RecentFiles().Property(1, u"DefaultProcTemplate"));
  }
  static void SelectTab(FRules& o, std::int32_t lTab) { o.tabOption.UserSelect(lTab); }
};

TEST_F(FRulesTest, Captions) {
  Show([](FRules& o) {
    EXPECT_EQ(
        Captions(o),
        "Rules; tabOption &Defaults|Pre&cedence|Boundary &Management|Line &Numbering|&General; "
        "cmdOK OK; cmdCancel Cancel; cmdHelp &Help; "
        "lblDefaults What Default Values do you want Quillon to suggest for Properties?; "
        "fraModule Module Defaults; lblModTemplate &Template; "
        "lblModSeverity &Severity; lblModRetry &Retry; fraProc Procedure Defaults; lblProcTemplate "
        "T&emplate; "
        "lblSeverity Se&verity; lblRetry Retr&y; lblTrace Tra&cing; "
        "lblPrecedence Do you want Quillon to suggest Leaving Current Property values or to "
        "suggest Replacing values according to the Default Value Rules?; "
        "fraPrecedence Property Value Precedence; lblTemplatePrecedence &Template; "
        "optTemplatePrecedence(0) Leave Current; optTemplatePrecedence(1) Replace with Default; "
        "lblSeverityPrecedence &Severity; optSeverityPrecedence(0) Leave; "
        "optSeverityPrecedence(1) Replace; lblRetryPrecedence &Retry; "
        "optRetryPrecedence(0) Leave; optRetryPrecedence(1) Replace; lblTracePrecedence Tra&cing; "
        "optTracePrecedence(0) Leave; optTracePrecedence(1) Replace; fraDefault Boundary Default; "
        "chkBoundaryExpert Do you want Quillons' Property "
        "&Expert to suggest Boundary Property Values based on Project Analysis (recommended)?; "
        "lblBoundary Or do you want Quillon to suggest &this Default Boundary?; "
        "fraPrecedence Boundary Precedence; chkFirewall Do you want Quillon to suggest Leaving "
        "Current &Firewall Boundary Values "
        "that you have set?; chkBoundary Do you want Quillon to suggest Replacing &Other Current "
        "Boundary Values (recommended with Property Expert)?; fraAction Line Numbering Action; "
        "optAction(0) &Insert/Refresh; "
        "optAction(1) &Leave; optAction(2) &Remove; fraWhat What to Line Number; optWhat(0) &Every "
        "Line; "
        "optWhat(1) E&very          Lines; optWhat(2) L&ogic Control Statements Only; "
        "fraSkip What to Skip; chkSkipData D&ata Declarations; chkSkipEnd &Simple End Statements; "
        "chkSkipShort Procedures s&horter than            Lines; fraReadOnly ReadOnly Files; "
        "chkSkipReadOnly Always &Skip ReadOnly Files");
    o.cmdCancel.UserClick();
  });
}

TEST_F(FRulesTest, EachTabShowsItsPageWithRoomForAllAndItsHelp) {
  Show([](FRules& o) {
    EXPECT_EQ(o.Bounds(), (Rect{4440, 2394, 6480, 4680}));
    for (std::int32_t i = 5; i >= 1; --i) {
      SCOPED_TRACE(i);
      SelectTab(o, i);
      for (std::int32_t j = 0; j <= 5; ++j) EXPECT_EQ(o.fraOption(j).Visible(), i == j);
      ExpectRoom(o);
      o.cmdHelp.UserClick();
      EXPECT_TRUE(o.cmdHelp.HasFocus());
      o.UserKey(Key::Tab, 0);
      EXPECT_TRUE(o.tabOption.HasFocus());  // the buttons come last
    }
    o.UserKey(u'N', Shift::Alt);
    EXPECT_TRUE(o.fraOption(4).Visible());
    const Rect &oGap = o.oNumbering.txtWhatLines.Bounds(), &oRow = o.oNumbering.optWhat(1).Bounds();
    EXPECT_GT(oGap.lLeft, oRow.lLeft + o.TextWidth(u"Every"));
    EXPECT_LT(oGap.lLeft + oGap.lWidth, oRow.lLeft + 330 + o.TextWidth(u"Every          "));
    EXPECT_LT(oGap.lTop, oRow.lTop + oRow.lHeight / 2);
    EXPECT_GT(oGap.lTop + oGap.lHeight, oRow.lTop + oRow.lHeight / 2);
    o.UserKey(Key::Escape, 0);
  });
  EXPECT_EQ(Help(), "2750 2740 2730 2720 2710 ");
  SetHelp(false);
  Show([](FRules& o) {
    EXPECT_FALSE(o.cmdHelp.Visible());
    o.UserClose();
  });
}

TEST_F(FRulesTest, OkWritesEachRuleAndNothingElseDoes) {
  MRules::oRules.sDefaultModTemplate = u"Mod Two";
  const struct {
    const char* sName;
    std::int32_t lTab;
    void (*Act)(FRules&);
    const char* sStored;
  } aoRow[] = {
      {"nothing", 1, [](FRules&) {}, "Mod Two,"},
      {"module", 1,
       [](FRules& o) {
         o.oDefaults.cboModSeverity.UserSelect(2);
         o.oDefaults.cboModRetry.UserSelect(1);
         o.oDefaults.cboModTemplate.UserSelect(0);
       },
       "Module Severity Default=3;Module Retry Default=2;,"},
      {"procedure", 1,
       [](FRules& o) {
         o.oDefaults.cboProcTemplate.UserSelect(2);
         o.oDefaults.cboSeverity.UserSelect(0);
         o.oDefaults.cboRetry.UserSelect(2);
         o.oDefaults.cboTrace.UserSelect(1);
       },
       "Severity Default=1;Retry Default=3;Trace Default=1;Mod Two,Beta"},
      {"two precedences", 2,
       [](FRules& o) {
         o.oPrecedence.optTemplatePrecedence(1).UserClick();
         o.oPrecedence.optRetryPrecedence(1).UserClick();
       },
       "Template Precedence=-1;Retry Precedence=-1;Mod Two,"},
      {"the other two", 2,
       [](FRules& o) {
         o.oPrecedence.optSeverityPrecedence(1).UserClick();
         o.oPrecedence.optTracePrecedence(1).UserClick();
       },
       "Severity Precedence=-1;Trace Precedence=-1;Mod Two,"},
      {"firewalls", 3, [](FRules& o) { o.oBoundary.chkFirewall.UserClick(); },
       "Boundary Firewall Precedence=-1;Mod Two,"},
      {"insert, every fifth", 4,
       [](FRules& o) {
         o.oNumbering.optAction(0).UserClick();
         o.oNumbering.optWhat(1).UserClick();
         o.oNumbering.txtWhatLines.SetText(u"5");
       },
       "Line Number Action=0;Line Number What=1;Line Number Interval=5;Mod Two,"},
      {"no interval, some skips", 4,
       [](FRules& o) {
         o.oNumbering.optAction(2).UserClick();
         o.oNumbering.txtWhatLines.SetText(u"");
         o.oNumbering.chkSkipData.UserClick();
         o.oNumbering.txtSkipShort.SetText(u"7 or so");
       },
       "Line Number Action=2;Line Number Interval=0;Line Number Skip Data=0;"
       "Line Number Skip Short Size=7;Mod Two,"},
      {"the other skips", 4,
       [](FRules& o) {
         o.oNumbering.chkSkipEnd.UserClick();
         o.oNumbering.chkSkipShort.UserClick();
       },
       "Line Number Skip End=0;Line Number Skip Short=0;Mod Two,"},
      {"read-only files", 5, [](FRules& o) { o.oGeneral.chkSkipReadOnly.UserClick(); },
       "Skip ReadOnly=0;Mod Two,"},
  };
  const MRules::Values oBefore = MRules::oRules;
  for (const auto& oRow : aoRow) {
    for (const bool bOk : {false, true}) {
      SCOPED_TRACE(oRow.sName + std::string(bOk ? ", OK" : ", Cancel"));
      MRules::oRules = oBefore;
      MRules::SetRules();
      moStore.SetLong(Key(u"FRules"), u"Current Tab", 9);
      EXPECT_EQ(Show([&](FRules& o) {
                  SelectTab(o, oRow.lTab);
                  oRow.Act(o);
                  (bOk ? o.cmdOK : o.cmdCancel).UserClick();
                }),
                bOk);
      EXPECT_EQ(Stored(), bOk ? oRow.sStored : "Mod Two,");
      EXPECT_EQ(moStore.GetLong(Key(u"FRules"), u"Current Tab"), bOk ? oRow.lTab : 9);
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
    }
  }
}

TEST_F(FRulesTest, ControlsThatDependOnOthers) {
  Show([](FRules& o) {
    auto& oDefaults = o.oDefaults;
    EXPECT_FALSE(oDefaults.lblModRetry.Enabled() || oDefaults.cboTrace.Enabled());  // "(none)"
    oDefaults.cboModTemplate.UserSelect(1);
    EXPECT_TRUE(oDefaults.lblModSeverity.Enabled() && oDefaults.cboModSeverity.Enabled() &&
                oDefaults.lblModRetry.Enabled() && oDefaults.cboModRetry.Enabled());
    EXPECT_FALSE(oDefaults.lblSeverity.Enabled());
    oDefaults.cboProcTemplate.UserSelect(1);
    EXPECT_TRUE(oDefaults.lblTrace.Enabled() && oDefaults.cboTrace.Enabled() &&
                oDefaults.cboSeverity.Enabled() && oDefaults.lblRetry.Enabled());
    EXPECT_FALSE(o.oBoundary.cboBoundary.Enabled() || o.oBoundary.lblBoundary.Enabled());
    EXPECT_TRUE(o.oBoundary.chkFirewall.Checked() && o.oBoundary.chkBoundary.Checked());
    SelectTab(o, 4);
    EXPECT_FALSE(o.oNumbering.txtWhatLines.Enabled());
    o.oNumbering.optWhat(1).UserClick();
    EXPECT_TRUE(o.oNumbering.txtWhatLines.Enabled() && o.oNumbering.txtSkipShort.Enabled());
    o.oNumbering.optWhat(2).UserClick();
    o.oNumbering.chkSkipShort.UserClick();
    EXPECT_FALSE(o.oNumbering.txtWhatLines.Enabled() || o.oNumbering.txtSkipShort.Enabled());
    o.cmdCancel.UserClick();
  });
}

TEST_F(FRulesTest, TheExpertAndThePrecedenceWarn) {
  const std::string sEnd =
      " may cause Tarvane\r\nError Handling to function inappropriately for your Project!";
  const std::string sExpert = "Switching off the Property Expert" + sEnd;
  const std::string sOption = "Switching off this option" + sEnd;
  const struct {
    const char* sName;
    bool bExpert, bBoundary, bClickExpert;
    std::string sWarning;
    bool bExpertAfter, bBoundaryAfter;
  } aoRow[] = {{"expert off", true, true, true, sExpert, false, true},
               {"expert on brings the other", false, false, true, "", true, true},
               {"expert on, other there", false, true, true, "", true, true},
               {"precedence off", true, true, false, sOption, true, false},
               {"precedence off without the expert", false, true, false, "", false, false},
               {"precedence on", true, false, false, "", true, true}};
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    MRules::oRules.bExpertEnabled = oRow.bExpert;
    MRules::oRules.bBoundaryReplace = oRow.bBoundary;
    Show([&](FRules& o) {
      SelectTab(o, 3);
      EXPECT_EQ(o.oBoundary.cboBoundary.Enabled(), !oRow.bExpert);
      if (!oRow.sWarning.empty()) {
        User().MsgBox([&](const MsgBoxRequest& oBox) {
          EXPECT_EQ(ToUtf8(oBox.sPrompt), oRow.sWarning);
          EXPECT_EQ(oBox.eIcon, MsgBoxIcon::Exclamation);
          return MsgBoxResult::Ok;
        });
      }
      (oRow.bClickExpert ? o.oBoundary.chkBoundaryExpert : o.oBoundary.chkBoundary).UserClick();
      EXPECT_EQ(o.oBoundary.cboBoundary.Enabled(), !oRow.bExpertAfter);
      o.cmdOK.UserClick();
    });
    EXPECT_EQ(MRules::oRules.bExpertEnabled, oRow.bExpertAfter);
    EXPECT_EQ(MRules::oRules.bBoundaryReplace, oRow.bBoundaryAfter);
  }
}

TEST_F(FRulesTest, DamagedStoredValuesDoNoHarm) {
  const std::pair<std::int32_t, std::int32_t> alTab[] = {{0, 1}, {-3, 1}, {5, 5}, {6, 1}};
  for (const auto& [lStored, lShown] : alTab) {
    SCOPED_TRACE(lStored);
    moStore.SetLong(Key(u"FRules"), u"Current Tab", lStored);
    Show([lTab = lShown](FRules& o) {
      EXPECT_TRUE(o.fraOption(lTab).Visible());
      o.UserClose();
    });
  }
  MRules::oRules.eLineNumAction = 77;
  MRules::oRules.eLineNumWhat = -2;
  MRules::oRules.eSeverityDefault =
      9;  // of a newer release, or damaged: it stays until one is picked
  MRules::oRules.sDefaultProcTemplate = u"Gone";
  Show([](FRules& o) {
    EXPECT_TRUE(o.oNumbering.optAction(1).Value() && o.oNumbering.optWhat(0).Value());
    EXPECT_FALSE(o.oDefaults.cboSeverity.Enabled());
    o.cmdOK.UserClick();
  });
  EXPECT_EQ(Stored(), "Severity Default=9;,Gone");
}

TEST_F(FRulesTest, TheIntervalTakesFewCharactersAndNothingPasted) {
  moToolkit.Clipboard().SetText(u"99");
  MRules::oRules.eLineNumWhat = 1;
  Show([](FRules& o) {
    SelectTab(o, 4);
    auto& oBox = o.oNumbering.txtWhatLines;
    oBox.SetText(u"");
    oBox.SetFocus();
    oBox.UserType(u"1a2-,3. %'x");
    EXPECT_EQ(oBox.Text(), u"123.%'");
    oBox.UserKey(u'V', Shift::Ctrl);
    oBox.UserKey(Key::Insert, Shift::Shift);
    EXPECT_EQ(oBox.Text(), u"123.%'");
    oBox.UserKey(Key::Back);
    EXPECT_EQ(oBox.Text(), u"123.%");
    o.oNumbering.txtSkipShort.SetText(u"");
    o.oNumbering.txtSkipShort.UserType(u"4x");
    o.cmdOK.UserClick();
  });
  EXPECT_EQ(Stored(),
            "Line Number What=1;Line Number Interval=123;Line Number Skip Short Size=4;,");
}

TEST_F(FRulesTest, NumbersAtTheStartOfATextAreRoundedAndHeld) {
  const std::pair<TextView, std::int32_t> aoRow[] = {
      {u"", 0},
      {u"  12 lines", 12},
      {u"2.6", 3},
      {u"2.5", 2},
      {u".7", 1},
      {u"+4", 4},
      {u"-3", -3},
      {u"x5", 0},
      {u"inf", 0},
      {u"nan1", 0},
      {u"5e3", 5},
      {u"99999999999999999999999999999999", 2147483647},
      {u"-99999999999", -2147483647 - 1}};
  for (const auto& [sText, lNumber] : aoRow) {
    EXPECT_EQ(RulesPage::NumberAtStart(sText), lNumber) << ToUtf8(sText);
  }
}

}  // namespace
