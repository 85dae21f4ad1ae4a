// The rules as controls: what they begin with, what depends on what, and what OK writes back.
#include "FRules.h"
#include "../vocabulary/Ids.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

class FRulesTest : public DialogTest {
 protected:
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
};

TEST_F(FRulesTest, EachTabShowsItsPageAndTheButtonsComeLast) {
  Open(FRules(moToolkit), [](FRules& o) {
    for (std::int32_t i = 5; i >= 1; --i) {
      SCOPED_TRACE(i);
      Do(o, "tabOption=" + std::to_string(i));
      for (std::int32_t j = 0; j <= 5; ++j) EXPECT_EQ(o.fraOption(j).Visible(), i == j);
      Do(o, "cmdHelp; Tab");
      EXPECT_TRUE(o.tabOption.HasFocus());
    }
    Do(o, "Alt+N");
    EXPECT_TRUE(o.fraOption(4).Visible());
    const Rect &oGap = o.oNumbering.txtWhatLines.Bounds(), &oRow = o.oNumbering.optWhat(1).Bounds();
    EXPECT_GT(oGap.lLeft, oRow.lLeft + o.TextWidth(u"Every"));
    EXPECT_LT(oGap.lLeft + oGap.lWidth, oRow.lLeft + 330 + o.TextWidth(u"Every          "));
    EXPECT_LT(std::abs(oGap.lTop + oGap.lHeight / 2 - oRow.lTop - oRow.lHeight / 2), 60);
    Do(o, "close");
  });
}

TEST_F(FRulesTest, OkWritesEachRuleAndNothingElseDoes) {
  MRules::oRules.sDefaultModTemplate = u"Mod Two";
  const MRules::Values oBefore = MRules::oRules;
  // What is done, the tab that is left with OK, and what differs from the usual then.
  for (const auto& as : Rows(R"(
         nothing       | tabOption=1 | 1 | Mod Two,
         module        | tabOption=1; cboModSeverity=2; cboModRetry=1; cboModTemplate=0 | 1
                       | Module Severity Default=3;Module Retry Default=2;,
         procedure     | tabOption=1; cboProcTemplate=2; cboSeverity=2; cboRetry=1; cboTrace=1 | 1
                       | Severity Default=3;Retry Default=2;Trace Default=1;Mod Two,Beta
         precedences   | tabOption=2; optTemplatePrecedence(1); optRetryPrecedence(1) | 2
                       | Template Precedence=-1;Retry Precedence=-1;Mod Two,
         others        | tabOption=2; optTemplatePrecedence(1); optSeverityPrecedence(1) | 2
                       | Template Precedence=-1;Severity Precedence=-1;Mod Two,
         tracing       | tabOption=2; optTracePrecedence(1) | 2 | Trace Precedence=-1;Mod Two,
         boundaries    | tabOption=3; chkFirewall; chkBoundaryExpert; cboBoundary=2 | 3
         | Boundary Expert=0;Boundary Default=3;Boundary Firewall Precedence=-1;Mod Two,
         every fifth   | tabOption=4; optAction(0); optWhat(1); txtWhatLines=5 | 4
                       | Line Number Action=0;Line Number What=1;Line Number Interval=5;Mod Two,
         no interval   | tabOption=4; optAction(2); optWhat(1); txtWhatLines=; optWhat(2) | 4
                       | Line Number Action=2;Line Number What=2;Line Number Interval=0;Mod Two,
         some skips    | tabOption=4; chkSkipData; txtSkipShort=7 or so; chkSkipShort | 4
         | Line Number Skip Data=0;Line Number Skip Short=0;Line Number Skip Short Size=7;Mod Two,
         other skips   | tabOption=4; chkSkipEnd; chkSkipData; tabOption=5; chkSkipReadOnly | 5
         | Line Number Skip Data=0;Line Number Skip End=0;Skip ReadOnly=0;Mod Two,
         names         | tabOption=5; chkHandlersIgnoreCase; chkInterfaceOwnName | 5
         | Event Handlers Ignore Case=-1;Interface Own Name=-1;Mod Two,
         one of them   | tabOption=5; chkInterfaceOwnName | 5 | Interface Own Name=-1;Mod Two,)")) {
    for (const bool bOk : {false, true}) {
      SCOPED_TRACE(as[0] + (bOk ? ", OK" : ", Cancel"));
      MRules::oRules = oBefore;
      MRules::SetRules();
      moStore.SetLong(Key(u"FRules"), u"Current Tab", 9);
      if (as[0] == "boundaries") User().MsgBox(MsgBoxResult::Ok);
      EXPECT_EQ(Open(FRules(moToolkit), Deeds(as[1] + (bOk ? "; cmdOK" : "; cmdCancel"))), bOk);
      EXPECT_EQ(Stored(), bOk ? as[3] : "Mod Two,");
      EXPECT_EQ(moStore.GetLong(Key(u"FRules"), u"Current Tab"), bOk ? std::stoi(as[2]) : 9);
    }
  }
}

TEST_F(FRulesTest, ControlsThatDependOnOthers) {
  Open(FRules(moToolkit), [&](FRules& o) {
    EXPECT_TRUE(o.oBoundary.chkFirewall.Checked() && o.oBoundary.chkBoundary.Checked());
    for (const auto& as : Rows(R"(
           cboModTemplate=1  | +lblModSeverity +cboModSeverity +lblModRetry +cboModRetry
           cboModTemplate=0  | -lblModSeverity -cboModSeverity -lblModRetry -cboModRetry
           cboProcTemplate=1 | +lblSeverity +cboSeverity +lblRetry +cboRetry +lblTrace +cboTrace
           tabOption=4; optWhat(1)  | +txtWhatLines
           optWhat(2); optAction(2) | -txtWhatLines
           chkSkipShort             | -txtSkipShort)"))
      EXPECT_EQ(Switched(o, as[0]), " " + as[1]);
    Do(o, "close");
  });
}

TEST_F(FRulesTest, TheExpertAndThePrecedenceWarn) {
  // Whether expert and precedence are on; the click, the warning, what it switches, and what is on
  // then.
  for (const auto& as : Rows(R"(
         expert off     | EP | chkBoundaryExpert | Switching off the Property Expert
                        | +lblBoundary +cboBoundary | P
         expert on brings the other |  | chkBoundaryExpert | | -lblBoundary -cboBoundary | EP
         expert on, other there | P | chkBoundaryExpert | | -lblBoundary -cboBoundary | EP
         precedence off | EP | chkBoundary | Switching off this option | | E
         precedence off without the expert | P | chkBoundary | | |
         precedence on  | E  | chkBoundary | | | EP)")) {
    SCOPED_TRACE(as[0]);
    MRules::oRules.bExpertEnabled = as[1].starts_with('E');
    MRules::oRules.bBoundaryReplace = as[1].ends_with('P');
    Open(FRules(moToolkit), [&](FRules& o) {
      Do(o, "tabOption=3");
      EXPECT_EQ(o.oBoundary.cboBoundary.Enabled(), !as[1].starts_with('E'));
      if (!as[3].empty()) {
        User().MsgBox([&](const MsgBoxRequest& oBox) {
          EXPECT_EQ(ToUtf8(oBox.sPrompt).find(as[3] + " may cause Tarvane\r\nError"), 0U);
          EXPECT_EQ(oBox.eIcon, MsgBoxIcon::Exclamation);
          return MsgBoxResult::Ok;
        });
      }
      EXPECT_EQ(Switched(o, as[2]), (as[4].empty() ? "" : " ") + as[4]);
      Do(o, "cmdOK");
    });
    EXPECT_EQ(std::string(MRules::oRules.bExpertEnabled ? "E" : "") +
                  (MRules::oRules.bBoundaryReplace ? "P" : ""),
              as[5]);
  }
}

TEST_F(FRulesTest, DamagedStoredValuesDoNoHarm) {
  for (const auto& [lStored, lShown] : {std::pair{0, 1}, {-3, 1}, {5, 5}, {6, 1}}) {
    SCOPED_TRACE(lStored);
    moStore.SetLong(Key(u"FRules"), u"Current Tab", lStored);
    Open(FRules(moToolkit), [lTab = lShown](FRules& o) {
      EXPECT_TRUE(o.fraOption(lTab).Visible());
      Do(o, "close");
    });
  }
  MRules::oRules.eLineNumAction = Id{77};
  MRules::oRules.eLineNumWhat = Id{-2};
  MRules::oRules.eSeverityDefault =
      Id{9};  // of a newer release, or damaged: stays until one is picked
  MRules::oRules.sDefaultProcTemplate = u"Gone";
  Open(FRules(moToolkit), [](FRules& o) {
    EXPECT_TRUE(o.oNumbering.optAction(1).Value() && o.oNumbering.optWhat(0).Value());
    EXPECT_FALSE(o.oDefaults.cboSeverity.Enabled());
    Do(o, "cmdOK");
  });
  EXPECT_EQ(Stored(), "Severity Default=9;,Gone");
}

TEST_F(FRulesTest, TheIntervalTakesFewCharactersAndNothingPasted) {
  moToolkit.Clipboard().SetText(u"99");
  MRules::oRules.eLineNumWhat = Id{1};
  Open(FRules(moToolkit), [](FRules& o) {
    Do(o, "tabOption=4; txtWhatLines=");
    auto& oBox = o.oNumbering.txtWhatLines;
    oBox.SetFocus();
    oBox.UserType(u"1a2-,3. %'x");
    oBox.UserKey(u'V', Shift::Ctrl);
    oBox.UserKey(Key::Insert, Shift::Shift);
    EXPECT_EQ(oBox.Text(), u"123.%'");
    oBox.UserKey(Key::Back);
    Do(o, "cmdOK");
  });
  EXPECT_EQ(Stored(), "Line Number What=1;Line Number Interval=123;,");
}

TEST_F(FRulesTest, NumbersAtTheStartOfATextAreRoundedAndHeld) {
  std::string sNumbers;
  for (const TextView s : {u"", u"  12 lines", u"2.6", u"2.5", u".7", u"+4", u"-3", u"x5", u"inf",
                           u"nan1", u"5e3", u"99999999999999999999999999999999", u"-99999999999"})
    sNumbers += std::to_string(RulesPage::NumberAtStart(s)) + " ";
  EXPECT_EQ(sNumbers, "0 12 3 2 1 4 -3 0 0 0 5 2147483647 -2147483648 ");
}

}  // namespace
