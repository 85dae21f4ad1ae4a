// The commands on many procedures: what their dialogs offer, what they reach, what is shown then.
#include <sys/stat.h>

#include "FMainTest.h"
#include "FPrintOption.h"
#include "MXDate.h"

namespace {

using namespace Forms;

constexpr TextView Bare = u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n    y = 1\nEnd Sub";

class BulkTest : public FMainTest {
 protected:
  bool AnyDirty() { return (Tree() + Rows(oMain.lvwProcs)).find("Dirty") != std::string::npos; }
};

TEST_F(BulkTest, DialogsOfferTheScopesThatAreThere) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  const std::string sFixed = oFolder / "MFix.bas";
  TempFolder::Write(sFixed, "x");
  ASSERT_EQ(chmod(sFixed.c_str(), 0444), 0);
  Add(u"MFix", u"Sub b()\nEnd Sub").asFile = {FromUtf8(sFixed)};
  Run([&] {
    Play(R"(
        none of the modules | >P; #; PropsUndoPending(0)  | offered | FUndoPending - - on -
        a module     | >P; #1; PropsUndoPending(0)        | offered | FUndoPending on - on -
        a procedure  | >MOne; #1; PropsUndoPending(0)     | offered | FUndoPending on on on -
        no procedure | >MOne; #; PropsUndoPending(0)      | offered | FUndoPending - on on -
        passed over  | >MFix; #1; PropsUndoPending(0)     | offered | FUndoPending - - on -)");
  });
  MRules::oRules.bSkipReadOnly = false;
  Run([&] {
    Play("read-only | >MFix; #1; PropsUndoPending(0) | offered | FUndoPending on on on -");
  });
  oIDE.AddProject(u"Q");
  Run([&] {
    Play("several | >MOne; #1; PropsUndoPending(0) | offered | FUndoPending on on on on");
  });
}

TEST_F(BulkTest, ApplyRewritesTheScopeAndShowsTheNewState) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    Play(R"(
        one of two | >MOne; #2 3; Template=Std; #2; !Apply(1) | tab, rows, code
            | Results, Declarations,(declarations) / *Method,a,Sub,Public,Std /
            \ MethodDirty,b,Sub,Public,Std / ,
            \ Sub a() / '@ Std /     On Error GoTo Trap /     x = 1 / Trap: / End Sub)");
    EXPECT_TRUE(oModule.Code().ends_with(u"Trap:\nEnd Sub\nSub b()\n    y = 1\nEnd Sub"));
    ExpectHolds(Lines(oMain.srlResults), "Processing MOne.a");
    Play("the project | ToolsApplyPending(3) | offered | FApplyPending on on on -");
    EXPECT_FALSE(AnyDirty());
  });
  EXPECT_TRUE(oModule.Code().ends_with(u"Trap:\nEnd Sub")) << ToUtf8(oModule.Code());
}

TEST_F(BulkTest, CopyAndDiscardChangePendingAlone) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  oIDE.AddProject(u"Q");
  Add(u"MTwo", Bare);
  Run([&] {
    Play("all | >MOne; PropsCopySuggest(4) | offered | FCopySuggest on on on on");
    ExpectHolds(Tree(), "MTwo[Standard ModuleDirty]");
    Does("PropsUndoPending(4)");
    EXPECT_FALSE(AnyDirty());
    Does("PropsCopySuggest(2)");
    ExpectHolds(Rows(oMain.lvwProcs), "MethodDirty|b|Sub|Public|Std|");
    EXPECT_EQ(Tree().find("MTwo[Standard ModuleDirty]"), std::string::npos);
    for (const char* s : {"#1 2", "PropsUndoPending(1)"}) Does(s);
    ExpectHolds(Rows(oMain.lvwProcs), "*Method|a|Sub|Public\nMethodDirty|b");
    Play("a module | >P; #1; PropsUndoPending(1) | tab | Results");  // as before
    EXPECT_EQ(Rows(oMain.lvwMods).find("Dirty"), std::string::npos);
  });
  EXPECT_EQ(oModule.Code(), Bare);
}

TEST_F(BulkTest, RefreshAndLineNumbersRewriteWhatHasATemplate) {
  FakeComponent& oModule = Add(
      u"MOne",
      u"Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\n    y = 1\n    z = 1\nTrap:\nEnd Sub");
  MRules::oRules.bLineNumSkipShort = false;
  Run([&] {
    for (const char* s : {">MOne", "#2"}) Does(s);
    const auto Check = [&](const std::string& sDeed, const char* sDialog, bool bNumbered) {
      Does(sDeed);
      EXPECT_EQ(sOffered, std::string(sDialog) + " on on on -");
      EXPECT_EQ(oModule.Code().find(u"\n3   z") != Text::npos, bNumbered) << ToUtf8(oModule.Code());
      EXPECT_EQ(oMain.txtCode.Text().find(u"3   z") != Text::npos, bNumbered);
      EXPECT_FALSE(AnyDirty());
    };
    Check("ToolsLineAdd(1)", "FInsertLine", true);
    Check("ToolsLineRemove(1)", "FRemoveLine", false);
    for (const auto eRule : {MQuillon::LineNumAction::Insert, MQuillon::LineNumAction::Remove}) {
      MRules::oRules.eLineNumAction = eRule;
      Check("ToolsRefresh(3)", "FRefreshTemplates", eRule == MQuillon::LineNumAction::Insert);
    }
    Play("over modules | >P; #1; ToolsLineAdd(3) | count | 1 Object(s) Selected");
  });
}

TEST_F(BulkTest, CancelLeavesAZeroSummaryAndNoChange) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    for (const char* s : {">MOne", "ViewProperties", "PropsCopySuggest(0)"}) Does(s);
    User().Modal<FCopySuggest>([](FCopySuggest& o) { o.UserClose(); });
    Press(u"Wand");
    Play(R"(none yet | | tab | Properties
            shown    | ToolsRefresh(0) | tab | Results)");
    ExpectHolds(Lines(oMain.srlResults), "0 Procedures Processed - No Failures");
  });
  EXPECT_EQ(oModule.Code(), Bare);
}

TEST_F(BulkTest, AFailingProcedureDoesNotStopTheOthers) {
  FakeComponent& oModule = Add(u"MOne", Bare);
  Run([&] {
    for (const char* s : {">MOne", "#2 3", "Template=Std"}) Does(s);
    oIDE.oLog.Fail("InsertLines", 1, FakeLog::Half::Done);
    Play(R"(both | ToolsApplyPending(1) | rows | Declarations,(declarations) /
            \ *MethodDirty,a,Sub,Public,Std / *Method,b,Sub,Public,Std /)");
    ExpectHolds(Lines(oMain.srlResults), "InsertLines failed");
    Leave();
  });
  EXPECT_TRUE(oModule.Code().starts_with(u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n'@ Std"))
      << ToUtf8(oModule.Code());
}

TEST_F(BulkTest, ProvingIsARuleThatLasts) {
  oIDE.AddProject(u"P");
  Run([&] {
    EXPECT_FALSE(oMain.oMenu[u"mnuToolsProve"].Checked() || oMain.Model()->bProve);
    Pick(u"ToolsProve");
    EXPECT_TRUE(oMain.Model()->bProve);
  });
  MRules::oRules = {};
  MRules::GetRules();
  Run([&] {
    oMain.oMenu[u"mnuTools"].UserDrop();
    EXPECT_TRUE(oMain.oMenu[u"mnuToolsProve"].Checked() && oMain.Model()->bProve);
  });
}

TEST_F(BulkTest, PrintsWhatWasTickedOfTheProject) {
  Add(u"MOne", Bare);
  const auto fnOldNow = std::exchange(MXDate::fnNow, [] { return 1717609509; });
  Run([&] {
    for (const bool bOk : {false, true}) {
      User().Modal<FPrintOption>([bOk](FPrintOption& o) {
        o.chkProjectSummary.UserClick();
        o.chkProcSettings.UserClick();
        (bOk ? o.cmdOK : o.cmdCancel).UserClick();
      });
      bOk ? Press(u"Print") : Pick(u"FilePrint");
      EXPECT_EQ(sPrinted, bOk ? "Project Summary - P;Procedure Properties - P;" : "");
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    }
    oPrintTo = File("out.pdf");
    const auto Printed = [&] {
      User().Modal<FPrintOption>(
          [](FPrintOption& o) { o.chkProjectSummary.UserClick(), o.cmdOK.UserClick(); });
      Pick(u"FilePrint");
      return TempFolder::Read(oFolder / "out.pdf");
    };
    const std::string sFirst = Printed();
    oMain.lvwProcs.ColumnHeaders().Item(1).SetWidth(3000);
    EXPECT_TRUE(Printed() == sFirst);
    oMain.lvwMods.ColumnHeaders().Item(1).SetWidth(3000);
    EXPECT_FALSE(Printed() == sFirst) << "the summary has the widths of the list of modules";
    oQueues.bFails = true;
    EXPECT_EQ(FailureOf([&] { oPrinters.Refresh(); }), 482);
    Press(u"Print");
    EXPECT_FALSE(oMain.oToolbar.ButtonEnabled(1)) << "no dialog without a printer";
  });
  MXDate::fnNow = fnOldNow;
}

}  // namespace
