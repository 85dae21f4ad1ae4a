// What is selected, the sheet of it, the edits in it, and the Code tab.
#include "CodeDiff.h"
#include "FMainTest.h"
#include "PropertySheet.h"

namespace {

using namespace Forms;

/// A line per row: headings as they are, the others as `name=value [note]` with * when enabled.
std::string Show(const PropertySheet::Subject& oSubject) {
  std::string s;
  for (const auto& o : PropertySheet::Rows(oSubject)) {
    s += (o.bHeading ? "" : o.bEnabled ? "*" : " ") + ToUtf8(o.sName);
    if (!o.bHeading) s += "=" + ToUtf8(o.sValue) + ToUtf8(o.sNote);
    if (o.poLookup == MQuillon::oLookupModTemplate.get() && o.poLookup) s += " (module)";
    s += ";";
  }
  return s;
}

CProcSettings Settings(TextView sTemplate, std::int32_t eLocked, std::int32_t eBoundary,
                       std::int32_t eTrace = 1) {
  CProcSettings o;
  o.SeteLocked(eLocked);
  o.SeteBoundary(eBoundary);
  o.SeteSeverity(2);
  o.SeteRetry(1);
  o.SeteTrace(eTrace);
  o.SetsTemplate(sTemplate);
  return o;
}

class SheetTest : public FMainTest {
 protected:
  SheetTest() { MQuillon::LoadLookups({u"", u"Mod"}, {u"", u"Std"}); }
  ~SheetTest() override { MQuillon::ReleaseLookups(); }
};

TEST_F(SheetTest, RowsOfOneProcedure) {
  using PropertySheet::Subject;
  const auto Std = Settings(u"Std", 1, 2), None = Settings(u"", 1, 0),
             Locked = Settings(u"Std", 2, 2), Own = Settings(u"(bespoke)", 1, 2);
  const std::string sCurrent =
      "Current; Template=Std; Locked=False; Boundary=VB; Severity=Normal; Retry=Line; "
      "Trace=False;";
  const std::string sSuggested =
      "Suggested; Template=Std; Boundary=VB; Severity=Normal; Retry=Line; Trace=False;";
  struct Row {
    const char* sName;
    Subject oSubject;
    std::string sRows;
  };
  for (const Row& oRow : {
           Row{"nothing pending",
               {Std, Std, Std},
               "Pending;*Template=;*Locked=;*Boundary=;*Severity=;*Retry=;*Trace=;" + sCurrent +
                   sSuggested},
           Row{"read-only", {Std, Std, Std, false, false, true}, sCurrent},
           Row{"pending differs",
               {Settings(u"Std", 1, 3, 2), Std, Std},
               "Pending;*Template=;*Locked=;*Boundary=Firewall;*Severity=;*Retry=;*Trace=True;" +
                   sCurrent + sSuggested},
           Row{"no template asked for",
               {None, Std, Std},
               "Pending;*Template=(none);*Locked=; Boundary=; Severity=; Retry=; Trace=;" +
                   sCurrent + sSuggested},
           Row{"locked",
               {Locked, Std, Std},
               "Pending; Template=;*Locked=True; Boundary=; Severity=; Retry=; Trace=;" + sCurrent +
                   sSuggested},
           Row{"own handler",
               {Own, Own, Std},
               "Current; Template=(bespoke); Locked=False; Boundary=VB; Severity=Normal; "
               "Retry=Line; Trace=False;" +
                   sSuggested},
       }) {
    SCOPED_TRACE(oRow.sName);
    EXPECT_EQ(Show(oRow.oSubject), oRow.sRows);
  }
  const std::string sModule = Show({Std, Std, Std, false, true});
  EXPECT_NE(sModule.find("*Template= (module);"), std::string::npos) << sModule;
  EXPECT_EQ(sModule.find("Trace"), std::string::npos) << sModule;
}

TEST_F(SheetTest, RowsOfSeveralTestNeitherLockNorTemplate) {
  const auto Locked = Settings(u"Std", 2, 2), None = Settings(u"", 1, 0);
  std::string s = Show({Locked, None, None, true});
  EXPECT_TRUE(
      s.starts_with("Pending; Template=Std;*Locked=True;*Boundary=VB;*Severity=;"
                    "*Retry=;*Trace=;"))
      << s;
  s = Show({None, None, None, true, true});
  EXPECT_TRUE(s.starts_with("Pending; Template=;*Locked=;*Boundary=;")) << s;
  EXPECT_NE(s.find(" Trace=False;"), std::string::npos) << "though declarations are among them";
}

TEST_F(SheetTest, NotesTellWhyAValueStands) {
  struct Row {
    const char* sName;
    bool bFirewall, bBoundary, bExpert, bSeveral;
    const char* sNote;
  };
  for (const Row& oRow : {
           Row{"one, all", true, true, true, false, "[Leave Firewall]"},
           Row{"one, boundary", false, true, true, false, "[Leave Boundary]"},
           Row{"one, expert", false, false, true, false, "[Property Expert]"},
           Row{"several, more than one", false, true, true, true, ""},
           Row{"several, exactly one", false, true, false, true, "[Leave Boundary]"},
           Row{"none", false, false, false, false, ""},
       }) {
    SCOPED_TRACE(oRow.sName);
    PropertySheet::Subject o{Settings(u"Std", 1, 2), Settings(u"Std", 1, 2), Settings(u"Std", 1, 2),
                             oRow.bSeveral};
    o.oSuggest.bFirewallLeave = oRow.bFirewall;
    o.oSuggest.bBoundaryLeave = oRow.bBoundary;
    o.oSuggest.bBoundaryExpert = oRow.bExpert;
    o.oSuggest.bTraceLeave = o.oCurrent.RetryInherited = true;
    const std::string s = Show(o);
    EXPECT_NE(s.find("Suggested; Template=Std; Boundary=VB" + std::string(oRow.sNote) + ";"),
              std::string::npos)
        << s;
    EXPECT_NE(s.find("Retry=Line[Inherited];"), std::string::npos) << s;
    EXPECT_TRUE(s.ends_with("Trace=False[Leave];")) << s;
  }
}

constexpr const char* Code =
    "Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\nTrap:\n    Fail tvnSeverityNormal\nEnd "
    "Sub\nSub b()\n'@ Std&Locked\n    On Error GoTo Trap\nTrap:\n    Fail tvnSeverityNormal\nEnd "
    "Sub\nSub c()\nOn Error Resume Next\nEnd Sub";

TEST_F(FMainTest, SelectionFillsSheetCodeAndCount) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", FromUtf8(Code));
  Run([&] {
    Click(u"MOne");
    oMain.oMenu.mnuViewCode.UserPick();
    struct Row {
      const char* sName;
      std::vector<std::int32_t> alRow;
      const char *sTitle, *sPanel, *sTab;
      std::int16_t nRows;
      bool bCode;
    };
    for (const Row& oRow : {
             Row{"none", {}, "", "4 Object(s)", "Code", 0, false},
             Row{"declarations",
                 {1},
                 "MOne.(declarations)",
                 "1 Object(s) Selected",
                 "Code",
                 17,
                 false},
             Row{"one", {2}, "MOne.a", "1 Object(s) Selected", "Code", 20, true},
             Row{"own handler", {4}, "MOne.c", "1 Object(s) Selected", "Code", 13, true},
             Row{"several", {2, 3}, "Selection", "2 Object(s) Selected", "Properties", 20, false},
             Row{"one of them an own handler",
                 {2, 4},
                 "Selection",
                 "2 Object(s) Selected",
                 "Properties",
                 20,
                 false},
         }) {
      SCOPED_TRACE(oRow.sName);
      Select(oMain.lvwProcs, oRow.alRow);
      EXPECT_EQ(ToUtf8(oMain.lblProperties.GetCaption()), oRow.sTitle);
      EXPECT_EQ(Panel(1), oRow.sPanel);
      EXPECT_EQ(Tab(), oRow.sTab);
      EXPECT_EQ(oMain.prlProperties.RowCount(), oRow.nRows);
      EXPECT_EQ(!oMain.txtCode.Text().empty(), oRow.bCode);
      EXPECT_EQ(ToUtf8(oMain.lblCode.GetCaption()),
                oRow.alRow.size() == 1 ? oRow.sTitle : std::string());
    }
  });
}

TEST_F(FMainTest, AnEditReachesWhoCanTakeItAndOnlyPending) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(u"MOne", FromUtf8(Code));
  const Text sBefore = oModule.Code();
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {1, 2, 3, 4});
    oMain.prlProperties.SetRow(4);
    Edit(u"Boundary", u"Firewall");
    Edit(u"Trace", u"True");
    EXPECT_EQ(Rows(oMain.lvwProcs),
              "*DeclarationsDirty|(declarations)|Firewall\n"
              "*MethodDirty|a|Sub|Public|Std|Firewall|Normal|Trace\n"
              "*Method|b|Sub|Public|Std|Locked|Normal\n"
              "*Method|c|Sub|Public|(bespoke)\n")
        << "b is locked, c has its own handler";
    EXPECT_NE(Tree().find("MOne[Standard ModuleDirty]"), std::string::npos);
    EXPECT_EQ(oMain.prlProperties.Row(), 4);
    EXPECT_EQ(oMain.Model()->Trace(oMain.lvwProcs.ListItems().Item(1).Tag()), 0)
        << "no trace in declarations";
    Edit(u"Locked", u"True");
    EXPECT_TRUE(Rows(oMain.lvwProcs).ends_with("*Method|c|Sub|Public|(bespoke)\n"));
    Edit(u"Locked", u"False");
    Edit(u"Template", u"(none)");
    EXPECT_EQ(Rows(oMain.lvwProcs),
              "*DeclarationsDirty|(declarations)|Firewall\n"
              "*MethodDirty|a|Sub|Public|Firewall|Normal|Trace\n"
              "*MethodDirty|b|Sub|Public|Normal\n"
              "*Method|c|Sub|Public|(bespoke)\n");
    User().MsgBox(MsgBoxResult::Ok);
    oMain.oMenu.mnuFileExit.UserPick();
  });
  EXPECT_EQ(oModule.Code(), sBefore);
}

TEST_F(FMainTest, TheSelectMenuWorksOnTheListInFront) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub a()\nEnd Sub\nSub b()\nEnd Sub\nSub c()\nEnd Sub\nSub d()\nEnd Sub");
  Run([&] {
    Click(u"MOne");
    EXPECT_TRUE(oMain.oMenu.mnuSelectInvert.UserPick());
    EXPECT_EQ(Panel(1), "4 Object(s) Selected");
    EXPECT_TRUE(oMain.oMenu.mnuSelectAll.UserPick());
    EXPECT_EQ(Panel(1), "5 Object(s) Selected");
    EXPECT_TRUE(oMain.oMenu.mnuSelectNone.UserPick());
    EXPECT_EQ(Panel(1) + ToUtf8(oMain.lblProperties.GetCaption()), "5 Object(s)");
    Click(u"P");
    EXPECT_TRUE(oMain.oMenu.mnuSelectNone.UserPick());
    EXPECT_EQ(Rows(oMain.lvwMods).front(), 'S') << "not selected";
    EXPECT_EQ(Panel(1), "1 Object(s)");
    Select(oMain.lvwMods, {1});
    EXPECT_EQ(Panel(1), "1 Object(s) Selected");
  });
}

TEST(CodeDiff, TellsWhichLinesStay) {
  struct Row {
    const char *sName, *sOld, *sNew, *sLines;
  };
  for (const Row& oRow : {
           Row{"same", "a b", "a b", " a b"},
           Row{"one replaced", "a b c", "a x c", " a-b+x c"},
           Row{"around", "b", "a b c", "+a b+c"},
           Row{"all gone", "a b", "", "-a-b"},
           Row{"all new", "", "a", "+a"},
           Row{"twice the same", "a a", "a", " a-a"},
           Row{"moved", "a b c", "c a b", "+c a b-c"},
       }) {
    SCOPED_TRACE(oRow.sName);
    const auto Lines = [](TextView s) {
      Text sLines;
      for (const char16_t c : s) sLines += c == u' ' ? Text(CrLf) : Text(1, c);
      return sLines;
    };
    const Text sOld = Lines(FromUtf8(oRow.sOld)), sNew = Lines(FromUtf8(oRow.sNew));
    std::string s;
    for (const auto& o : CodeDiff::Compare(sOld, sNew))
      s += " -+"[static_cast<int>(o.eFate)] + ToUtf8(o.sText);
    EXPECT_EQ(s, oRow.sLines);
  }
}

TEST_F(FMainTest, PendingCodeShowsWhatApplyingWouldWrite) {
  oIDE.AddProject(u"P", 0);
  FakeComponent& oModule = Add(u"MOne",
                               u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n'@ Vague\n    x = "
                               u"1\n    y\n    x = 9\nEnd Sub");
  const Text sBefore = oModule.Code();
  const auto Shown = [&] {
    std::string s;
    for (std::int32_t i = 1; i <= oMain.txtCode.LineCount(); ++i)
      s += ToUtf8((oMain.txtCode.LineNumbers() ? oMain.txtCode.LineNumber(i) : u"") +
                  oMain.txtCode.Line(i)) +
           "|";
    return s;
  };
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2});
    Edit(u"Template", u"Std");
    EXPECT_EQ(Shown(), "Sub a()|    x = 1|End Sub|") << "not asked for";
    EXPECT_TRUE(oMain.oMenu.mnuViewPending.UserPick());
    EXPECT_EQ(Tab(), "Code");
    EXPECT_EQ(Shown(), "Sub a()|+'@ Std|+    On Error GoTo Trap|    x = 1|+Trap:|End Sub|");
    EXPECT_EQ(oMain.txtCode.Mark(2), LineMark::Added);
    EXPECT_EQ(oModule.Code(), sBefore);
    const std::string sResults = Lines(oMain.srlResults);
    Select(oMain.lvwProcs, {3});
    Edit(u"Template", u"(none)");
    EXPECT_TRUE(Shown().starts_with("Can't be applied: ")) << Shown();
    EXPECT_EQ(Lines(oMain.srlResults), sResults) << "looking says nothing there";
    User().MsgBox(MsgBoxResult::Ok);
    oMain.oMenu.mnuFileExit.UserPick();
  });
}

}  // namespace
