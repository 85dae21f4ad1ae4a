// The commands on many procedures: what their dialogs offer, what they reach, what is shown then.
#include <sys/stat.h>

#include "FMainTest.h"
#include "FPrintOption.h"

namespace {

using namespace Forms;

class BulkTest : public FMainTest {
 protected:
  /// Answers the next scope dialog by that button, or the close box, and notes what was offered.
  template <class Dialog>
  void Choose(std::int32_t nButton) {
    User().Modal<Dialog>([this, nButton](Dialog& o) {
      sOffered.clear();
      for (std::int32_t i = 1; i <= 4; ++i) sOffered += o.cmdAction(i).Enabled() ? '1' : '0';
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
      nButton == 0 ? o.cmdCancel.UserClick() : o.cmdAction(nButton).UserClick();
    });
  }
  void Leave() {
    User().MsgBox(MsgBoxResult::Ok);
    oMain.oMenu.mnuFileExit.UserPick();
  }
  std::string sOffered;
};

TEST_F(BulkTest, DialogsOfferTheScopesThatAreThere) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub a()\nEnd Sub");
  const std::string sFixed = oFolder / "MFix.bas";
  TempFolder::Write(sFixed, "x");
  ASSERT_EQ(chmod(sFixed.c_str(), 0444), 0);
  Add(u"MFix", u"Sub b()\nEnd Sub").asFile = {FromUtf8(sFixed)};
  struct Row {
    const char* sName;
    const char* sNode;
    std::vector<std::int32_t> alRow;
    bool bSecondProject;
    const char* sOffered;
  };
  for (const Row& oRow : {
           Row{"modules, none selected", "P", {}, false, "0010"},
           Row{"modules, one selected", "P", {1}, false, "1010"},
           Row{"procedures", "MOne", {1}, false, "1110"},
           Row{"procedures, none selected", "MOne", {}, false, "0110"},
           Row{"of a module that is passed over", "MFix", {1}, false, "0010"},
           Row{"two projects", "MOne", {1}, true, "1111"},
       }) {
    SCOPED_TRACE(oRow.sName);
    if (oRow.bSecondProject) oIDE.AddProject(u"Q", 0);
    Run([&] {
      Click(FromUtf8(oRow.sNode));
      Select(oMain.lvwMods.Visible() ? oMain.lvwMods : oMain.lvwProcs, oRow.alRow);
      Choose<FUndoPending>(0);
      EXPECT_TRUE(oMain.oMenu.mnuPropsUndoPending.UserPick());
      EXPECT_EQ(sOffered, oRow.sOffered);
    });
  }
}

constexpr TextView Bare = u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n    y = 1\nEnd Sub";

TEST_F(BulkTest, ApplyRewritesTheScopeAndShowsTheNewState) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2, 3});
    Edit(u"Template", u"Std");
    Select(oMain.lvwProcs, {2});
    Choose<FApplyPending>(1);
    oMain.oToolbar.picButton(5).UserMouseDown(Button::Left, 0, 0, 0);
    oMain.oToolbar.picButton(5).UserMouseUp(Button::Left, 0, 0, 0);
    EXPECT_EQ(oModule.Code(),
              u"Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\nTrap:\nEnd Sub\n"
              u"Sub b()\n    y = 1\nEnd Sub");
    EXPECT_EQ(Tab(), "Results");
    const std::string sRows = Rows(oMain.lvwProcs);
    EXPECT_NE(sRows.find("*Method|a|Sub|Public|Std\nMethodDirty|b"), std::string::npos) << sRows;
    EXPECT_EQ(oMain.txtCode.LineCount(), 6) << "the sheet shows the new text";
    EXPECT_NE(Lines(oMain.srlResults).find("Processing MOne.a"), std::string::npos)
        << Lines(oMain.srlResults);
    Choose<FApplyPending>(3);
    EXPECT_TRUE(oMain.oMenu.mnuToolsApplyPending.UserPick());
    EXPECT_EQ(Tree().find("Dirty"), std::string::npos);
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  });
  EXPECT_TRUE(oModule.Code().ends_with(u"Trap:\nEnd Sub")) << ToUtf8(oModule.Code());
}

TEST_F(BulkTest, CopyAndDiscardChangePendingAlone) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(u"MOne", Bare);
  oIDE.AddProject(u"Q", 0);
  Add(u"MTwo", Bare);
  Run([&] {
    Click(u"MOne");
    Choose<FCopySuggest>(4);
    EXPECT_TRUE(oMain.oMenu.mnuPropsCopySuggest.UserPick());
    EXPECT_NE(Tree().find("MTwo[Standard ModuleDirty]"), std::string::npos) << Tree();
    Choose<FUndoPending>(4);
    EXPECT_TRUE(oMain.oMenu.mnuPropsUndoPending.UserPick());
    EXPECT_EQ(Tree().find("Dirty"), std::string::npos) << Tree();
    Choose<FCopySuggest>(2);
    EXPECT_TRUE(oMain.oMenu.mnuPropsCopySuggest.UserPick());
    EXPECT_NE(Rows(oMain.lvwProcs).find("MethodDirty|b|Sub|Public|Std|"), std::string::npos)
        << Rows(oMain.lvwProcs);
    Select(oMain.lvwProcs, {1, 2});
    Choose<FUndoPending>(1);
    EXPECT_TRUE(oMain.oMenu.mnuPropsUndoPending.UserPick());
    EXPECT_NE(Rows(oMain.lvwProcs).find("*Method|a|Sub|Public\nMethodDirty|b"), std::string::npos)
        << Rows(oMain.lvwProcs);
    Click(u"P");
    Select(oMain.lvwMods, {1});
    Choose<FUndoPending>(1);
    EXPECT_TRUE(oMain.oMenu.mnuPropsUndoPending.UserPick());
    EXPECT_EQ(Rows(oMain.lvwMods).find("Dirty"), std::string::npos);
    EXPECT_EQ(Tab(), "Results") << "as before";
  });
  EXPECT_EQ(oModule.Code(), Bare);
}

TEST_F(BulkTest, RefreshAndLineNumbersRewriteWhatHasATemplate) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(
      u"MOne",
      u"Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\n    y = 1\n    z = 1\nTrap:\nEnd Sub");
  MRules::oRules.bLineNumSkipShort = false;
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2});
    Choose<FInsertLine>(1);
    EXPECT_TRUE(oMain.oMenu.mnuToolsLineAdd.UserPick());
    EXPECT_NE(oModule.Code().find(u"\n3   z"), Text::npos) << ToUtf8(oModule.Code());
    EXPECT_NE(oMain.txtCode.Text().find(u"3   z"), Text::npos);
    Choose<FRemoveLine>(1);
    EXPECT_TRUE(oMain.oMenu.mnuToolsLineRemove.UserPick());
    EXPECT_EQ(oModule.Code().find(u"\n3   z"), Text::npos) << ToUtf8(oModule.Code());
    Choose<FRefreshTemplates>(3);
    EXPECT_TRUE(oMain.oMenu.mnuToolsRefresh.UserPick());
    EXPECT_EQ(Rows(oMain.lvwProcs).find("Dirty"), std::string::npos);
  });
}

TEST_F(BulkTest, CancelLeavesAZeroSummaryAndNoChange) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Click(u"MOne");
    oMain.oMenu.mnuViewProperties.UserPick();
    Choose<FCopySuggest>(0);
    oMain.oMenu.mnuPropsCopySuggest.UserPick();
    EXPECT_EQ(Tab(), "Properties");
    Choose<FRefreshTemplates>(0);
    oMain.oMenu.mnuToolsRefresh.UserPick();
    EXPECT_EQ(Tab(), "Results");
    EXPECT_NE(Lines(oMain.srlResults).find("0 Procedures Processed - No Failures"),
              std::string::npos)
        << Lines(oMain.srlResults);
  });
  EXPECT_EQ(oModule.Code(), Bare);
}

TEST_F(BulkTest, AFailingProcedureDoesNotStopTheOthers) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2, 3});
    Edit(u"Template", u"Std");
    oIDE.oLog.Fail("InsertLines", 1, FakeLog::Half::Done);
    Choose<FApplyPending>(1);
    EXPECT_TRUE(oMain.oMenu.mnuToolsApplyPending.UserPick());
    EXPECT_NE(Lines(oMain.srlResults).find("InsertLines failed"), std::string::npos);
    const std::string sRows = Rows(oMain.lvwProcs);
    EXPECT_NE(sRows.find("*MethodDirty|a"), std::string::npos) << sRows;
    EXPECT_NE(sRows.find("*Method|b"), std::string::npos) << sRows;
    Leave();
  });
  EXPECT_TRUE(oModule.Code().starts_with(u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n'@ Std"))
      << ToUtf8(oModule.Code());
}

TEST_F(BulkTest, ProvingIsARuleThatLasts) {
  oIDE.AddProject(u"P", 0);
  Run([&] {
    EXPECT_FALSE(oMain.oMenu.mnuToolsProve.Checked() || oMain.Model()->bProve);
    EXPECT_TRUE(oMain.oMenu.mnuToolsProve.UserPick());
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
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", Bare);
  Run([&] {
    User().Modal<FPrintOption>([](FPrintOption& o) {
      o.chkProjectSummary.UserClick();
      o.cmdCancel.UserClick();
    });
    EXPECT_TRUE(oMain.oMenu.mnuFilePrint.UserPick());
    EXPECT_EQ(sPrinted, "");
    User().Modal<FPrintOption>([](FPrintOption& o) {
      o.chkProjectSummary.UserClick();
      o.chkProcSettings.UserClick();
      o.cmdOK.UserClick();
    });
    EXPECT_TRUE(oMain.oMenu.mnuFilePrint.UserPick());
    EXPECT_EQ(sPrinted, "Project Summary - P;Procedure Properties - P;");
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  });
}

}  // namespace
