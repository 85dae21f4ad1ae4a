// What is selected, the sheet of it, the edits in it, and the Code tab.
#include "../vocabulary/Ids.h"
#include "FMainTest.h"
#include "FSelectCustom.h"
#include "PropertySheet.h"

namespace {

using namespace Forms;
using PropertySheet::Subject;

/// A line per row: headings as they are, the others as `name=value [note]` with * when enabled.
std::string Show(const Subject& oSubject) {
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
  o.SeteLocked(Id{eLocked});
  o.SeteBoundary(Id{eBoundary});
  o.SeteSeverity(Id{2});
  o.SeteRetry(Id{1});
  o.SeteTrace(Id{eTrace});
  o.SetsTemplate(sTemplate);
  return o;
}

class SheetTest : public FMainTest {
 protected:
  SheetTest() { MQuillon::LoadLookups({u"", u"Mod"}, {u"", u"Std"}); }
  ~SheetTest() override { MQuillon::ReleaseLookups(); }
};

TEST_F(SheetTest, RowsOfOneProcedureAndOfSeveral) {
  const auto Std = Settings(u"Std", 1, 2), None = Settings(u"", 1, 0),
             Locked = Settings(u"Std", 2, 2), Own = Settings(u"(bespoke)", 1, 2),
             Foreign = Settings(u"[Other]", 1, 2);
  const std::string sValues = "Boundary=VB; Severity=Normal; Retry=Line; Trace=False;",
                    sCurrent = "Current; Template=Std; Locked=False; " + sValues,
                    sSuggested = "Suggested; Template=Std; " + sValues,
                    sRest = sCurrent + sSuggested,
                    sNoValues = "Boundary=; Severity=Normal; Retry=Line; Trace=False;",
                    sNoCurrent = "Current; Template=(none); Locked=False; " + sNoValues;
  const auto Check = [](const char* sName, const Subject& o, const std::string& sRows) {
    EXPECT_EQ(Show(o), sRows) << sName;
  };
  Check("nothing pending", {Std, Std, Std},
        "Pending;*Template=;*Locked=;*Boundary=;*Severity=;*Retry=;*Trace=;" + sRest);
  Check("read-only", {Std, Std, Std, false, false, true}, sCurrent);
  Check("pending differs", {Settings(u"Std", 1, 3, 2), Std, Std},
        "Pending;*Template=;*Locked=;*Boundary=Firewall;*Severity=;*Retry=;*Trace=True;" + sRest);
  Check("no template asked for", {None, Std, Std},
        "Pending;*Template=(none);*Locked=; Boundary=; Severity=; Retry=; Trace=;" + sRest);
  Check("locked", {Locked, Std, Std},
        "Pending; Template=;*Locked=True; Boundary=; Severity=; Retry=; Trace=;" + sRest);
  Check("own handler", {Own, Own, Std},
        "Current; Template=(bespoke); Locked=False; " + sValues + sSuggested);
  Check("of another program", {Foreign, Std, Std},
        "Pending; Template=[Other]; Locked=; Boundary=; Severity=; Retry=; Trace=;" + sRest);
  Check("declarations", {Std, Std, Std, false, true},
        "Pending;*Template= (module);*Locked=;*Boundary=;*Severity=;*Retry=;"
        "Current; Template=Std; Locked=False; Boundary=VB; Severity=Normal; Retry=Line;"
        "Suggested; Template=Std; Boundary=VB; Severity=Normal; Retry=Line;");
  Check("several, where the lock isn't tested", {Locked, None, Std, true},
        "Pending; Template=Std;*Locked=True;*Boundary=VB;*Severity=;*Retry=;*Trace=;" + sNoCurrent +
            sSuggested);
  Check("several, nor the template", {None, None, None, true},
        "Pending;*Template=;*Locked=;*Boundary=;*Severity=;*Retry=;*Trace=;" + sNoCurrent +
            "Suggested; Template=(none); " + sNoValues);
  Check("several with declarations", {None, None, Std, true, true},
        "Pending; Template=;*Locked=;*Boundary=;*Severity=;*Retry=;*Trace=;" + sNoCurrent +
            sSuggested);
}

TEST_F(SheetTest, NotesTellWhyAValueStands) {
  using S = CProcSettings;
  const auto Firewall = &S::bFirewallLeave, Boundary = &S::bBoundaryLeave,
             Expert = &S::bBoundaryExpert;
  const struct {
    bool bSeveral;
    std::vector<bool S::*> oFlags;
    const char* sNotes;
  } aoRow[] = {
      {false, {}, ""},
      {false, {Firewall, Boundary, Expert}, "Suggested Boundary[Leave Firewall]"},
      {false, {Boundary, Expert}, "Suggested Boundary[Leave Boundary]"},
      {false, {Expert}, "Suggested Boundary[Property Expert]"},
      {true, {Boundary, Expert}, ""},
      {true, {Boundary}, "Suggested Boundary[Leave Boundary]"},
      {false, {&S::bTemplateLeave}, "Suggested Template[Leave]"},
      {false, {&S::bSeverityLeave}, "Suggested Severity[Leave]"},
      {false, {&S::bRetryLeave}, "Suggested Retry[Leave]"},
      {false, {&S::bTraceLeave}, "Suggested Trace[Leave]"},
      {false, {&S::BoundaryInherited}, "Current Boundary[Inherited]"},
      {false, {&S::SeverityInherited}, "Current Severity[Inherited]"},
      {false, {&S::RetryInherited}, "Current Retry[Inherited]"},
  };
  const CProcSettings Std = Settings(u"Std", 1, 2);
  for (const auto& oRow : aoRow) {
    Subject o{Std, Std, Std, oRow.bSeveral};
    for (CProcSettings* po : {&o.oPending, &o.oCurrent, &o.oSuggest})
      for (const auto oFlag : oRow.oFlags) po->*oFlag = true;
    Text sHeading, sNotes;
    for (const auto& oShown : PropertySheet::Rows(o)) {
      if (oShown.bHeading) sHeading = oShown.sName;
      if (!oShown.sNote.empty()) sNotes += sHeading + u" " + oShown.sName + oShown.sNote;
    }
    EXPECT_EQ(ToUtf8(sNotes), oRow.sNotes);
  }
}

constexpr TextView Code =
    u"Sub a()\n'@ Std\n    On Error GoTo Trap\n    x = 1\nTrap:\n    Fail tvnSeverityNormal\nEnd "
    u"Sub\nSub b()\n'@ Std&Locked\n    On Error GoTo Trap\nTrap:\n    Fail tvnSeverityNormal\nEnd "
    u"Sub\nSub c()\nOn Error Resume Next\nEnd Sub";

TEST_F(FMainTest, SelectionFillsSheetCodeAndCount) {
  Add(u"MOne", Code);
  Run([&] {
    Click(u"MOne");
    Pick(u"ViewCode");
    const auto Check = [&](const std::vector<std::int32_t>& alRow, const std::string& sTitle,
                           const char* sPanelAndTab, std::int16_t nRows, bool bCode) {
      SCOPED_TRACE(sTitle);
      Select(oMain.lvwProcs, alRow);
      EXPECT_EQ(ToUtf8(oMain.lblProperties.GetCaption()), sTitle);
      EXPECT_EQ(Panel(1) + " " + Tab(), sPanelAndTab);
      EXPECT_EQ(oMain.prlProperties.RowCount(), nRows);
      EXPECT_EQ(!oMain.txtCode.Text().empty(), bCode);
      EXPECT_EQ(ToUtf8(oMain.lblCode.GetCaption()), alRow.size() == 1 ? sTitle : "");
    };
    Check({}, "", "4 Object(s) Code", 0, false);
    Check({1}, "MOne.(declarations)", "1 Object(s) Selected Code", 17, false);
    Check({2}, "MOne.a", "1 Object(s) Selected Code", 20, true);
    Check({4}, "MOne.c", "1 Object(s) Selected Code", 13, true);  // has its own handler
    Check({2, 3}, "Selection", "2 Object(s) Selected Properties", 20, false);
    Check({2, 4}, "Selection", "2 Object(s) Selected Properties", 20, false);
  });
}

TEST_F(FMainTest, AnEditReachesWhoCanTakeItAndOnlyPending) {
  FakeComponent& oModule = Add(u"MOne", Code);
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
    ExpectHolds(Tree(), "MOne[Standard ModuleDirty]");
    EXPECT_EQ(oMain.prlProperties.Row(), 4);
    EXPECT_EQ(oMain.Model()->Trace(oMain.lvwProcs.ListItems().Item(1).Tag()),
              MQuillon::TriState::Unset)
        << "no trace in declarations";
    Edit(u"Locked", u"True");
    EXPECT_TRUE(Rows(oMain.lvwProcs).ends_with("*Method|c|Sub|Public|(bespoke)\n"));
    Edit(u"Locked", u"False");
    Edit(u"Template", u"(none)");
    Edit(u"Severity", u"Fatal");
    Edit(u"Retry", u"Procedure");
    EXPECT_EQ(Rows(oMain.lvwProcs),
              "*DeclarationsDirty|(declarations)|Firewall|Fatal|Procedure\n"
              "*MethodDirty|a|Sub|Public|Firewall|Fatal|Procedure|Trace\n"
              "*MethodDirty|b|Sub|Public|Fatal|Procedure\n"
              "*Method|c|Sub|Public|(bespoke)\n");
    Leave();
  });
  EXPECT_EQ(oModule.Code(), sBefore);
}

TEST_F(FMainTest, TheSelectMenuWorksOnTheListInFront) {
  Add(u"MOne", u"Sub a()\nEnd Sub\nSub b()\nEnd Sub\nSub c()\nEnd Sub\nFunction d()\nEnd Function");
  Run([&] {
    Click(u"MOne");
    User().Modal<FSelectCustom>(
        [](FSelectCustom& o) { o.chkFunction.UserClick(), o.cmdOK.UserClick(); });
    const auto Check = [&](TextView sItem, TextView sNode, const char* sShown) {
      Click(sNode);
      Pick(sItem);
      EXPECT_EQ(Panel(1) + " " + ToUtf8(oMain.lblProperties.GetCaption()), sShown);
    };
    Check(u"SelectInvert", u"MOne", "4 Object(s) Selected Selection");
    Check(u"SelectAll", u"MOne", "5 Object(s) Selected Selection");
    Check(u"SelectCustom", u"MOne", "1 Object(s) Selected MOne.d");
    Check(u"SelectNone", u"MOne", "5 Object(s) ");
    Check(u"SelectNone", u"P", "1 Object(s) ");
    Check(u"SelectAll", u"P", "1 Object(s) ");
    EXPECT_EQ(Rows(oMain.lvwMods).front(), '*');
    Pick(u"SelectInvert");
    EXPECT_EQ(Rows(oMain.lvwMods).front(), 'S') << "not selected";
    Select(oMain.lvwMods, {1});
    EXPECT_EQ(Panel(1), "1 Object(s) Selected");
  });
}

TEST_F(FMainTest, PendingCodeShowsWhatApplyingWouldWrite) {
  FakeComponent& oModule = Add(u"MOne",
                               u"Sub a()\n    x = 1\nEnd Sub\nSub b()\n'@ Vague\n    x = "
                               u"1\n    y\n    x = 9\nEnd Sub");
  const Text sBefore = oModule.Code();
  const auto Shown = [&] {
    const Forms::CodePane& o = oMain.txtCode;
    return Each(1, o.LineCount(),
                [&](auto i) { return (o.LineNumbers() ? o.LineNumber(i) : u"") + o.Line(i); });
  };
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2});
    Edit(u"Template", u"Std");
    EXPECT_EQ(Shown(), "Sub a()|    x = 1|End Sub|") << "not asked for";
    Pick(u"ViewPending");
    EXPECT_EQ(Tab(), "Code");
    EXPECT_EQ(Shown(), "Sub a()|+'@ Std|+    On Error GoTo Trap|    x = 1|+Trap:|End Sub|");
    EXPECT_EQ(oMain.txtCode.Mark(2), LineMark::Added);
    EXPECT_EQ(oModule.Code(), sBefore);
    const std::string sResults = Lines(oMain.srlResults);
    Select(oMain.lvwProcs, {3});
    Edit(u"Template", u"(none)");
    EXPECT_TRUE(Shown().starts_with("Can't be applied: ")) << Shown();
    EXPECT_EQ(Lines(oMain.srlResults), sResults) << "looking says nothing there";
    Leave();
  });
}

}  // namespace
