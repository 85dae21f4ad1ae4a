// The commands on many procedures: what their dialogs offer, what they reach, what is shown then.
#include <sys/stat.h>

#include "FMainTest.h"
#include "FPrintOption.h"

namespace {

using namespace Forms;

constexpr TextView Bare = u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n    y = 1\nEnd Sub";

class BulkTest : public FMainTest {
 protected:
  /// Picks the command and answers its dialog by that button, 0 is Cancel; notes what was offered.
  template <class Dialog>
  void Command(TextView sItem, std::int32_t nButton) {
    User().Modal<Dialog>([this, nButton](Dialog& o) {
      sOffered = Each(1, 4, [&](auto i) { return Text(o.cmdAction(i).Enabled() ? u"on" : u""); });
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
      nButton == 0 ? o.cmdCancel.UserClick() : o.cmdAction(nButton).UserClick();
    });
    sItem.empty() ? Press(ToolbarButton::Apply) : Pick(sItem);
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  }
  void Apply(std::int32_t nButton) { Command<FApplyPending>(u"ToolsApplyPending", nButton); }
  void Copy(std::int32_t nButton) { Command<FCopySuggest>(u"PropsCopySuggest", nButton); }
  void Undo(std::int32_t nButton) { Command<FUndoPending>(u"PropsUndoPending", nButton); }
  void Refresh(std::int32_t nButton) { Command<FRefreshTemplates>(u"ToolsRefresh", nButton); }
  bool AnyDirty() { return (Tree() + Rows(oMain.lvwProcs)).find("Dirty") != std::string::npos; }
  std::string sOffered;
};

TEST_F(BulkTest, DialogsOfferTheScopesThatAreThere) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  const std::string sFixed = oFolder / "MFix.bas";
  TempFolder::Write(sFixed, "x");
  ASSERT_EQ(chmod(sFixed.c_str(), 0444), 0);
  Add(u"MFix", u"Sub b()\nEnd Sub").asFile = {FromUtf8(sFixed)};
  const auto Check = [&](TextView sNode, const std::vector<std::int32_t>& alRow,
                         const char* sExpected) {
    Run([&] {
      Click(sNode);
      Select(oMain.lvwMods.Visible() ? oMain.lvwMods : oMain.lvwProcs, alRow);
      Undo(0);
      EXPECT_EQ(sOffered, sExpected) << ToUtf8(sNode);
    });
  };
  Check(u"P", {}, "||on||");
  Check(u"P", {1}, "on||on||");
  Check(u"MOne", {1}, "on|on|on||");
  Check(u"MOne", {}, "|on|on||");
  Check(u"MFix", {1}, "||on||");  // passed over by the rules
  MRules::oRules.bSkipReadOnly = false;
  Check(u"MFix", {1}, "on|on|on||");
  oIDE.AddProject(u"Q");
  Check(u"MOne", {1}, "on|on|on|on|");
}

TEST_F(BulkTest, ApplyRewritesTheScopeAndShowsTheNewState) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2, 3});
    Edit(u"Template", u"Std");
    Select(oMain.lvwProcs, {2});
    Command<FApplyPending>(u"", 1);
    EXPECT_EQ(oModule.Code(),
              u"Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\nTrap:\nEnd Sub\n"
              u"Sub b()\n    y = 1\nEnd Sub");
    EXPECT_EQ(Tab(), "Results");
    ExpectHolds(Rows(oMain.lvwProcs), "*Method|a|Sub|Public|Std\nMethodDirty|b");
    EXPECT_EQ(oMain.txtCode.LineCount(), 6) << "the sheet shows the new text";
    ExpectHolds(Lines(oMain.srlResults), "Processing MOne.a");
    Apply(3);
    EXPECT_FALSE(AnyDirty());
  });
  EXPECT_TRUE(oModule.Code().ends_with(u"Trap:\nEnd Sub")) << ToUtf8(oModule.Code());
}

TEST_F(BulkTest, CopyAndDiscardChangePendingAlone) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  oIDE.AddProject(u"Q");
  Add(u"MTwo", Bare);
  Run([&] {
    Click(u"MOne");
    Copy(4);
    ExpectHolds(Tree(), "MTwo[Standard ModuleDirty]");
    Undo(4);
    EXPECT_FALSE(AnyDirty());
    Copy(2);
    ExpectHolds(Rows(oMain.lvwProcs), "MethodDirty|b|Sub|Public|Std|");
    EXPECT_EQ(Tree().find("MTwo[Standard ModuleDirty]"), std::string::npos);
    Select(oMain.lvwProcs, {1, 2});
    Undo(1);
    ExpectHolds(Rows(oMain.lvwProcs), "*Method|a|Sub|Public\nMethodDirty|b");
    Click(u"P");
    Select(oMain.lvwMods, {1});
    Undo(1);
    EXPECT_EQ(Rows(oMain.lvwMods).find("Dirty"), std::string::npos);
    EXPECT_EQ(Tab(), "Results") << "as before";
  });
  EXPECT_EQ(oModule.Code(), Bare);
}

TEST_F(BulkTest, RefreshAndLineNumbersRewriteWhatHasATemplate) {
  FakeComponent& oModule = Add(
      u"MOne",
      u"Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\n    y = 1\n    z = 1\nTrap:\nEnd Sub");
  MRules::oRules.bLineNumSkipShort = false;
  const auto Numbered = [&] { return oModule.Code().find(u"\n3   z") != Text::npos; };
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2});
    Command<FInsertLine>(u"ToolsLineAdd", 1);
    EXPECT_TRUE(Numbered()) << ToUtf8(oModule.Code());
    EXPECT_NE(oMain.txtCode.Text().find(u"3   z"), Text::npos);
    Command<FRemoveLine>(u"ToolsLineRemove", 1);
    EXPECT_FALSE(Numbered()) << ToUtf8(oModule.Code());
    for (const auto eRule : {MQuillon::LineNumAction::Insert, MQuillon::LineNumAction::Remove}) {
      MRules::oRules.eLineNumAction = eRule;
      Refresh(3);
      EXPECT_EQ(Numbered(), eRule == MQuillon::LineNumAction::Insert) << "as the rule says";
      EXPECT_FALSE(AnyDirty());
    }
  });
}

TEST_F(BulkTest, CancelLeavesAZeroSummaryAndNoChange) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Click(u"MOne");
    Pick(u"ViewProperties");
    Copy(0);
    User().Modal<FCopySuggest>([](FCopySuggest& o) { o.UserClose(); });
    Press(ToolbarButton::Copy);
    EXPECT_EQ(Tab(), "Properties");
    Refresh(0);
    EXPECT_EQ(Tab(), "Results");
    ExpectHolds(Lines(oMain.srlResults), "0 Procedures Processed - No Failures");
  });
  EXPECT_EQ(oModule.Code(), Bare);
}

TEST_F(BulkTest, AFailingProcedureDoesNotStopTheOthers) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2, 3});
    Edit(u"Template", u"Std");
    oIDE.oLog.Fail("InsertLines", 1, FakeLog::Half::Done);
    Apply(1);
    ExpectHolds(Lines(oMain.srlResults), "InsertLines failed");
    ExpectHolds(Rows(oMain.lvwProcs), "*MethodDirty|a");
    ExpectHolds(Rows(oMain.lvwProcs), "*Method|b");
    Leave();
  });
  EXPECT_TRUE(oModule.Code().starts_with(u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n'@ Std"))
      << ToUtf8(oModule.Code());
}

TEST_F(BulkTest, ProvingIsARuleThatLasts) {
  oIDE.AddProject(u"P");
  Run([&] {
    EXPECT_FALSE(oMain.oMenu.mnuToolsProve.Checked() || oMain.Model()->bProve);
    Pick(u"ToolsProve");
    EXPECT_TRUE(oMain.Model()->bProve);
  });
  MRules::oRules = {};
  MRules::GetRules();
  Run([&] {
    oMain.oMenu.mnuTools.UserDrop();
    EXPECT_TRUE(oMain.oMenu.mnuToolsProve.Checked() && oMain.Model()->bProve);
  });
}

TEST_F(BulkTest, PrintsWhatWasTickedOfTheProject) {
  Add(u"MOne", Bare);
  Run([&] {
    for (const bool bOk : {false, true}) {
      User().Modal<FPrintOption>([bOk](FPrintOption& o) {
        o.chkProjectSummary.UserClick();
        o.chkProcSettings.UserClick();
        (bOk ? o.cmdOK : o.cmdCancel).UserClick();
      });
      bOk ? Press(ToolbarButton::Print) : Pick(u"FilePrint");
      EXPECT_EQ(sPrinted, bOk ? "Project Summary - P;Procedure Properties - P;" : "");
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    }
    oQueues.bFails = true;
    EXPECT_EQ(FailureOf([&] { oPrinters.Refresh(); }), 482);
    Press(ToolbarButton::Print);
    EXPECT_FALSE(oMain.oToolbar.ButtonEnabled(1)) << "no dialog without a printer";
  });
}

}  // namespace
