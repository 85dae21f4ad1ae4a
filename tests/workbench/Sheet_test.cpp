// What is selected, the sheet of it, the edits in it, and the Code tab.
#include "../vocabulary/Ids.h"
#include "FMainTest.h"
#include "FSelectCustom.h"
#include "PropertySheet.h"

namespace {

using namespace Forms;
using PropertySheet::Subject;

/// A word per row of each heading: its value and note, with * when enabled.
std::map<std::string, std::string> Show(const Subject& oSubject) {
  std::map<std::string, std::string> sShown;
  std::string sHeading;
  for (const auto& o : PropertySheet::Rows(oSubject)) {
    if (o.bHeading) sHeading = ToUtf8(o.sName);
    if (o.bHeading) continue;
    const bool bModule = o.poLookup && o.poLookup == MQuillon::oLookupModTemplate.get();
    sShown[sHeading] += (sShown[sHeading].empty() ? "" : " ") + std::string(o.bEnabled ? "*" : "") +
                        ToUtf8(o.sName.substr(0, 2) + u"=" + o.sValue + o.sNote) +
                        (bModule ? "(module)" : "");
  }
  return sShown;
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
  const std::map<std::string, CProcSettings> oSettings = {
      {"Std", Settings(u"Std", 1, 2)},         {"None", Settings(u"", 1, 0)},
      {"Locked", Settings(u"Std", 2, 2)},      {"Own", Settings(u"(bespoke)", 1, 2)},
      {"Foreign", Settings(u"[Other]", 1, 2)}, {"Other", Settings(u"Std", 1, 3, 2)}};
  // Pending, current and suggested settings, flags; then what shows as pending, and the templates
  // of what shows as current and suggested, with the usual values behind them.
  for (const auto& as : ::Rows(R"(
         nothing pending       | Std | Std | Std | | *Te= *Lo= *Bo= *Se= *Re= *Tr= | Std | Std
         read-only             | Std | Std | Std | read-only | | Std |
         pending differs       | Other | Std | Std | | *Te= *Lo= *Bo=Firewall *Se= *Re= *Tr=True
                               | Std | Std
         no template asked for | None | Std | Std | | *Te=(none) *Lo= Bo= Se= Re= Tr= | Std | Std
         locked                | Locked | Std | Std | | Te= *Lo=True Bo= Se= Re= Tr= | Std | Std
         own handler           | Own | Own | Std | | | (bespoke) | Std
         of another program    | Foreign | Std | Std | | Te=[Other] Lo= Bo= Se= Re= Tr= | Std | Std
         declarations          | Std | Std | Std | declarations
                               | *Te=(module) *Lo= *Bo= *Se= *Re= | Std | Std
         several, where the lock isn't tested | Locked | None | Std | several
                               | Te=Std *Lo=True *Bo=VB *Se= *Re= *Tr= | (none) | Std
         several, nor the template | None | None | None | several
                               | *Te= *Lo= *Bo= *Se= *Re= *Tr= | (none) | (none)
         several with declarations | None | None | Std | several declarations
                               | Te= *Lo= *Bo= *Se= *Re= *Tr= | (none) | Std)")) {
    SCOPED_TRACE(as[0]);
    const auto Has = [&](const char* s) { return as[4].find(s) != std::string::npos; };
    const auto Values = [&](const std::string& sTemplate, const char* sLocked) {
      if (sTemplate.empty()) return sTemplate;
      return "Te=" + sTemplate + sLocked + (sTemplate == "(none)" ? " Bo=" : " Bo=VB") +
             " Se=Normal Re=Line" + (as[4] == "declarations" ? "" : " Tr=False");
    };
    auto sShown = Show({oSettings.at(as[1]), oSettings.at(as[2]), oSettings.at(as[3]),
                        Has("several"), Has("declarations"), Has("read-only")});
    EXPECT_EQ(sShown["Pending"], as[5]);
    EXPECT_EQ(sShown["Current"], Values(as[6], " Lo=False"));
    EXPECT_EQ(sShown["Suggested"], Values(as[7], ""));
  }
}

TEST_F(SheetTest, NotesTellWhyAValueStands) {
  using S = CProcSettings;
  const struct {
    bool bSeveral;
    std::vector<bool S::*> oFlags;
    const char* sNotes;
  } aoRow[] = {
      {false, {}, ""},
      {false, {&S::bBoundaryLeave, &S::bBoundaryExpert}, "Suggested Boundary[Leave Boundary]"},
      {true, {&S::bBoundaryLeave, &S::bBoundaryExpert}, ""},
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
    for (const char* s : {">MOne", "ViewCode"}) Does(s);
    Play(R"(
        none | # | count, tab, title, codetitle, sheet, code | 4 Object(s), Code, , , 0,
        declarations | #1 | count, tab, title, codetitle, sheet, code
            | 1 Object(s) Selected, Code, MOne.(declarations), MOne.(declarations), 17,
        one | #2 | count, tab, title, codetitle, sheet
            | 1 Object(s) Selected, Code, MOne.a, MOne.a, 20
        its own handler | #4 | count, tab, title, codetitle, sheet, code
            | 1 Object(s) Selected, Code, MOne.c, MOne.c, 13,
            \ Sub c() / On Error Resume Next / End Sub
        several | #2 3 | count, tab, title, codetitle, sheet, code
            | 2 Object(s) Selected, Properties, Selection, , 20,
        others | #2 4 | count, title, sheet | 2 Object(s) Selected, Selection, 20)");
  });
}

TEST_F(FMainTest, AnEditReachesWhoCanTakeItAndOnlyPending) {
  FakeComponent& oModule = Add(u"MOne", Code);
  const Text sBefore = oModule.Code();
  Run([&] {
    for (const char* s : {">MOne", "#1 2 3 4"}) Does(s);
    oMain.prlProperties.SetRow(4);
    Play(R"(
        b is locked, c has its own handler | Boundary=Firewall; Trace=True | rows
            | *DeclarationsDirty,(declarations),Firewall /
            \ *MethodDirty,a,Sub,Public,Std,Firewall,Normal,Trace /
            \ *Method,b,Sub,Public,Std,Locked,Normal / *Method,c,Sub,Public,(bespoke) /)");
    ExpectHolds(Tree(), "MOne[Standard ModuleDirty]");
    EXPECT_EQ(oMain.prlProperties.Row(), 4);
    EXPECT_EQ(oMain.Model()->Trace(ProcedureHandle(oMain.lvwProcs.ListItems().Item(1).Tag())),
              MQuillon::TriState::Unset)
        << "no trace in declarations";
    Play(R"(
        all locked but c, and unlocked | Locked=True; Locked=False; Template=(none); Severity=Fatal;
            \ Retry=Procedure | rows
            | *DeclarationsDirty,(declarations),Firewall,Fatal,Procedure /
            \ *MethodDirty,a,Sub,Public,Firewall,Fatal,Procedure,Trace /
            \ *MethodDirty,b,Sub,Public,Fatal,Procedure / *Method,c,Sub,Public,(bespoke) /)");
    Leave();
  });
  EXPECT_EQ(oModule.Code(), sBefore);
}

TEST_F(FMainTest, TheSelectMenuWorksOnTheListInFront) {
  Add(u"MOne", u"Sub a()\nEnd Sub\nSub b()\nEnd Sub\nSub c()\nEnd Sub\nFunction d()\nEnd Function");
  Run([&] {
    User().Modal<FSelectCustom>(
        [](FSelectCustom& o) { o.chkFunction.UserClick(), o.cmdOK.UserClick(); });
    Play(R"(
        all but the first | >MOne; SelectInvert | count, title | 4 Object(s) Selected, Selection
        all               | SelectAll    | count, title | 5 Object(s) Selected, Selection
        by type           | SelectCustom | count, title | 1 Object(s) Selected, MOne.d
        none              | SelectNone   | count, title | 5 Object(s),
        no module         | >P; SelectNone | count, title | 1 Object(s),
        all modules       | SelectAll    | count, rows
            | 1 Object(s), *Standard Module,MOne,Standard Module,/src/MOne.bas /
        not this one      | SelectInvert | rows
            | Standard Module,MOne,Standard Module,/src/MOne.bas /
        by the mouse      | #1           | count | 1 Object(s) Selected)");
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
    for (const char* s : {">MOne", "#2", "Template=Std"}) Does(s);
    EXPECT_EQ(Shown(), "Sub a()|    x = 1|End Sub|") << "not asked for";
    Play("the tab comes to the front | ViewPending | tab | Code");
    EXPECT_EQ(Shown(), "Sub a()|+'@ Std|+    On Error GoTo Trap|    x = 1|+Trap:|End Sub|");
    EXPECT_EQ(oMain.txtCode.Mark(2), LineMark::Added);
    EXPECT_EQ(oModule.Code(), sBefore);
    const std::string sResults = Lines(oMain.srlResults);
    Does("#3");
    EXPECT_FALSE(oMain.txtCode.LineNumbers()) << "nothing is pending for it";
    Does("Template=(none)");
    EXPECT_TRUE(Shown().starts_with("Can't be applied: ")) << Shown();
    EXPECT_EQ(Lines(oMain.srlResults), sResults) << "looking says nothing there";
    Leave();
  });
}

}  // namespace
