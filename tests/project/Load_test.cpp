// How a group comes into the model, and what its walks tell.
#include <gtest/gtest.h>

#include "Model.h"

namespace {

/// Declared type, event or shown type, boundary suggested; one procedure after the other.
std::string Procedures(const CIDEHandler& oHandler) {
  std::string s;
  for (const ProcedureHandle h : oHandler.Procedures()) {
    const ProcedureRecord& o = oHandler.Procedure(h);
    s += ToUtf8(oHandler.ProcName(h)) + ":" + ToUtf8(o.sDeclType) + ":" + ToUtf8(o.sProcType) +
         ":" + std::to_string(MQuillon::ToNumber(o.oSuggest.eBoundary())) + "|";
  }
  return s;
}

const struct LoadRow {
  const char* sName;
  ComponentType nType;
  const char16_t* sDesigner;
  std::vector<Text> asControl;
  TextView sCode;
  const char* sExpected;
} Loads[] = {
    {"an empty module has its declarations",
     ComponentType::StdModule,
     u"",
     {},
     u"",
     "(declarations):::1|"},
    {"events of a form and its controls",
     ComponentType::VBForm,
     u"VB.Form",
     {u"cmd", u"cmd_A"},
     u"Sub Form_Load()\nEnd Sub\nSub Form_()\nEnd Sub\nSub cmd_A_Click()\nEnd Sub\n"
     u"Function cmd_Click()\nEnd Function\nSub other_Click()\nEnd Sub",
     "(declarations):::2|Form_Load:Sub:Load:2|Form_:Sub:Sub:1|cmd_A_Click:Sub:A_Click:2|"
     "cmd_Click:Function:Function:1|other_Click:Sub:Sub:1|"},
    {"an event variable of a public class",
     ComponentType::Class,
     u"",
     {},
     u"Public WithEvents oTimer As Timer\nDim oOther As Timer\nSub oTimer_Timer()\nEnd Sub\n"
     u"Public Sub Go()\nEnd Sub\nSub Class_Terminate()\nEnd Sub\nSub oOther_Tick()\nEnd Sub",
     "(declarations):::4|oTimer_Timer:Sub:Timer:2|Go:Sub:Sub:1|Class_Terminate:Sub:Terminate:2|"
     "oOther_Tick:Sub:Sub:1|"},
    {"an interface from outside, one of the group, one commented out",
     ComponentType::Class,
     u"",
     {},
     u"  IMPLEMENTS IFoo ' from a reference\nImplements IOwn\n'Implements IGone\n"
     u"Private Sub IFoo_Do()\nEnd Sub\nPrivate Sub IOwn_Do()\nEnd Sub\nPrivate Sub IGone_Do()\n"
     u"End Sub\nPrivate Property Get IFoo_It()\nEnd Property",
     "(declarations):::4|IFoo_Do:Sub:Sub:4|IOwn_Do:Sub:Sub:1|IGone_Do:Sub:Sub:1|"
     "IFoo_It:Property Get:Property Get:4|"},
    {"an event variable that no editor has tidied",
     ComponentType::Class,
     u"",
     {},
     u"Private a,withevents\toTimer As Timer ' WITHEVENTS x\nPublic b ' by withevents c\n"
     u"Sub oTimer_Timer()\nEnd Sub\nSub OTIMER_Timer2()\nEnd Sub\nSub b_c()\nEnd Sub",
     "(declarations):::4|oTimer_Timer:Sub:Timer:2|OTIMER_Timer2:Sub:Sub:1|b_c:Sub:Sub:1|"},
    {"interfaces behind a colon",
     ComponentType::Class,
     u"",
     {},
     u"Implements IOwn: Implements\tIFoo\t:\tImplements IBar ': Implements IGone\n"
     u"Const s = \"a: Implements ILit\"\nPrivate Sub IFoo_Do()\nEnd Sub\n"
     u"Private Sub IBar_Do()\nEnd Sub\nPrivate Sub IGone_Do()\nEnd Sub\n"
     u"Private Sub ILit_Do()\nEnd Sub",
     "(declarations):::4|IFoo_Do:Sub:Sub:4|IBar_Do:Sub:Sub:4|IGone_Do:Sub:Sub:1|"
     "ILit_Do:Sub:Sub:1|"},
    {"kinds of a property, each once, and no external functions",
     ComponentType::StdModule,
     u"",
     {},
     u"Declare Sub Sleep Lib \"kernel32\" ()\nProperty Get P()\nEnd Property\nSub S()\nEnd Sub\n"
     u"Property Let P(v)\nEnd Property",
     "(declarations):::1|P:Property Let:Property Let:1|P:Property Get:Property Get:1|S:Sub:Sub:1|"},
    {"heads that no editor has tidied",
     ComponentType::StdModule,
     u"",
     {},
     u"private sub Low()\nend sub\nPublic Sub\tTabbed()\nEnd Sub\nPublic _\n  Static _\n"
     u"  Function Long()\nEnd Function\nproperty  get P()\nEnd Property",
     "(declarations):::1|Low:Sub:Sub:1|Tabbed:Sub:Sub:1|Long:Function:Function:1|"
     "P:Property Get:Property Get:1|"},
    {"an external function behind a procedure in line 1",
     ComponentType::StdModule,
     u"",
     {},
     u"Sub First()\nEnd Sub\nDeclare Sub Beep Lib \"kernel32\" ()\nSub Last()\nEnd Sub",
     "(declarations):::1|First:Sub:Sub:1|Last:Sub:Sub:1|"},
};

TEST(LoadComponent, FindsProceduresEventsAndInterfaces) {
  for (const LoadRow& oRow : Loads) {
    SCOPED_TRACE(oRow.sName);
    Model m;
    MRules::oRules.sDefaultModTemplate = u"Mod";
    MRules::oRules.sDefaultProcTemplate = u"Std";
    m.oIDE.AddProject(u"Group", ProjectType::ActiveXDll);
    FakeComponent& oComponent = m.oIDE.Add(u"CMain", oRow.nType, oRow.sCode);
    oComponent.sDesignerID = oRow.sDesigner;
    oComponent.asControl = oRow.asControl;
    oComponent.nInstancing = 5;
    m.oIDE.Add(u"iown", ComponentType::Class, u"");
    m.Open(false);
    m.oHandler.LoadComponent(1_component);
    m.oHandler.LoadComponent(1_component);
    EXPECT_EQ(Procedures(m.oHandler), oRow.sExpected);
  }
}

TEST(LoadComponent, RulesThatAreOffTellWhatTheyWouldJudgeOtherwise) {
  Model m;
  MRules::oRules.sDefaultProcTemplate = u"Std";
  m.oIDE.AddProject(u"Group", ProjectType::ActiveXDll);
  FakeComponent& o =
      m.oIDE.Add(u"FMain", ComponentType::VBForm,
                 u"Implements Excel.IView\nImplements Lib.IOwn\nSub FORM_load()\nEnd Sub\n"
                 u"Sub Form_Unload()\nEnd Sub\nFunction form_Click()\nEnd Function\n"
                 u"Private Property Get iview_P()\nEnd Property\nSub IOwn_Do()\nEnd Sub");
  o.sDesignerID = u"VB.Form";
  m.oIDE.Add(u"iown", ComponentType::Class, u"");
  m.Open(false);
  m.oHandler.LoadComponent(1_component);
  for (const auto& [bOn, sExpected] :
       {std::pair{false, "1 Event Handlers Ignore Case, 2 , 1 , 1 Interface Own Name, 1 , "},
        {true, "2 , 2 , 1 , 4 , 1 , "}}) {
    MRules::oRules.bHandlersIgnoreCase = MRules::oRules.bInterfaceOwnName = bOn;
    m.oHandler.RefreshSuggestions();
    std::string s;
    for (const ProcedureHandle h : m.oHandler.Procedures()) {
      if (!m.oHandler.Procedure(h).oMember) continue;
      s += std::to_string(MQuillon::ToNumber(m.oHandler.Procedure(h).oSuggest.eBoundary())) + " ";
      for (const TextView sRule : m.oHandler.RulesJudgingOtherwise(h)) s += ToUtf8(sRule);
      s += ", ";
    }
    EXPECT_EQ(s, sExpected);
  }
  MRules::oRules = {};
}

TEST(LoadComponent, APropertyShowsTheScopeOfItsOwnHead) {
  Model m;
  m.oIDE.Add(
      u"M", ComponentType::StdModule,
      u"Const K = 1\nprivate _\n  property get P()\nEnd Property\nProperty Let P(v)\nEnd Property\n"
      u"Static Friend Property Set P(v)\nEnd Property\nPrivate Sub S()\nEnd Sub");
  m.Open();
  std::string s;
  const auto o = m.oHandler.EnumProceduresProc.Connect([&](const ProcedureRow& oRow) {
    s += ToUtf8(oRow.sProcType) + std::to_string(MQuillon::ToNumber(oRow.nScope)) + " ";
  });
  m.oHandler.EnumProcedures(1_component);
  EXPECT_EQ(s, "0 Property Let2 Property Set3 Property Get1 Sub1 ");
}

TEST(LoadComponent, InheritsWhatOnlyTheModuleStates) {
  Model m;
  m.oIDE.Add(u"M", ComponentType::StdModule,
             u"'@ Mod\nConst Sev = tvnSeverityFatal\nSub A()\n'@ Std\nFail tvnSeverityCosmetic\n"
             u"End Sub\nSub B()\nEnd Sub");
  m.Open();
  EXPECT_EQ(m.Current(2_procedure) + "," + m.Current(3_procedure), "Std 1 0 1 0 1, 1 0 3 0 0");
  EXPECT_FALSE(m.oHandler.Procedure(2_procedure).oPending.SeverityInherited);
  EXPECT_TRUE(m.oHandler.Procedure(3_procedure).oPending.SeverityInherited);
}

TEST(LoadComponent, ReportsProgressFromThirtyMembers) {
  for (const int n : {29, 30}) {
    Model m;
    Text sCode = u"Const K0 = 0";
    for (int i = 1; i < n; ++i) sCode += u"\nConst K" + ToText(i) + u" = 0";
    m.oIDE.Add(u"M", ComponentType::StdModule, sCode);
    m.Open(false);
    std::string s;
    const auto o1 = m.oHandler.ProgressStart.Connect([&] { s += "<"; });
    const auto o2 = m.oHandler.ProgressEnd.Connect([&] { s += ">"; });
    const auto o3 = m.oHandler.Progress.Connect([&](std::int16_t nPercent, TextView sCaption) {
      if (nPercent == 50) s += ToUtf8(sCaption);
    });
    m.oHandler.LoadComponent(1_component);
    EXPECT_EQ(s, n == 30 ? "<M.K14>" : ">");
  }
}

const struct FailRow {
  const char* sOperation;
  int nCall;
  const char* sContext;
  std::int32_t lError;
  std::int32_t lProcedures;
} LoadFaults[] = {
    {"CodeModule of FBad", 1, "CodeModule Property of VBComponent Object", 70, 0},
    {"CodeModule of FBad", 3, "CodeModule Property of VBComponent Object", 70, 0},
    {"DesignerControls", 1, "VBControls Property of VBComponent Object", 0, 2},
    {"ProcBodyLine", 1, "Procedures of CodeModule Object", 70, 1},
};

TEST(LoadComponent, OneThatFailsDoesNotStopTheOthers) {
  for (const FailRow& oRow : LoadFaults) {
    SCOPED_TRACE(std::string(oRow.sOperation) + " " + std::to_string(oRow.nCall));
    Model m;
    m.oIDE.Add(u"FBad", ComponentType::VBForm, u"Sub A()\nEnd Sub");
    m.oIDE.Add(u"MGood", ComponentType::StdModule, u"Sub B()\nEnd Sub");
    m.oIDE.oLog.Fail(oRow.sOperation, oRow.nCall);
    m.Open();
    std::string s;
    const auto oError =
        m.oHandler.EnumProceduresError.Connect([&](ComponentHandle h, const LoadError& o) {
          s += std::to_string(h.Number()) + ToUtf8(o.sErrorContext) + std::to_string(o.lError);
        });
    const auto oEnd = m.oHandler.EnumProceduresEOF.Connect([&] { s += ";"; });
    m.oHandler.EnumProcedures(1_component);
    EXPECT_EQ(s, "1" + std::string(oRow.sContext) + std::to_string(oRow.lError));
    m.oHandler.LoadComponent(1_component);
    EXPECT_EQ(m.oHandler.LastProcedure().Number(), oRow.lProcedures + 2);
    m.oHandler.EnumProcedures(2_component);
    EXPECT_TRUE(s.ends_with(";"));
  }
}

TEST(Walks, TellProjectsAndComponents) {
  Model m;
  m.oIDE.AddProject(u"Empty");
  m.oIDE.Add(u"Res", ComponentType::ResFile, u"");
  m.oIDE.Add(u"Doc", ComponentType::RelatedDocument, u"");
  m.oIDE.AddProject(u"Full", ProjectType::ActiveXControl);
  m.oIDE.Add(u"FMain", ComponentType::VBForm, u"");
  m.oIDE.Add(u"CMain", ComponentType::Class, u"").asFile = {u"/vanished/C.cls"};
  m.Open(false);
  std::string s;
  auto& o = m.oHandler;
  const auto o1 = o.EnumProjectsProc.Connect([&](ProjectHandle h, TextView sTitle, ProjectType e) {
    s += std::to_string(h.Number()) + ToUtf8(sTitle) + std::to_string(MQuillon::ToNumber(e)) + "(";
  });
  const auto o2 = o.EnumComponentsProc.Connect([&](ProjectHandle, ComponentHandle h, TextView sName,
                                                   ComponentType e) {
    s += std::to_string(h.Number()) + ToUtf8(sName) + std::to_string(MQuillon::ToNumber(e)) + " ";
  });
  const auto o3 =
      o.EnumComponentsEOF.Connect([&](ProjectHandle h) { s += ")" + std::to_string(h.Number()); });
  const auto o4 = o.EnumComponentsExProc.Connect([&](const ComponentRow& oRow) {
    s += ToUtf8(oRow.sName + oRow.sFileName) + std::to_string(oRow.dModified) + " ";
  });
  o.EnumProjects();
  EXPECT_EQ(s, "1Empty0()12Full3(1FMain5 2CMain2 )2");
  s.clear();
  o.EnumComponentsEx(2_project, 0);
  o.EnumComponentsEx(2_project, 3);
  EXPECT_EQ(s, "FMain0 CMain/vanished/C.cls0 CMain/vanished/C.cls0 ");
  EXPECT_EQ(o.ComponentFolderName(2_component) + o.ComponentType(1_component), u"Class5");
  EXPECT_THROW(o.EnumComponentsEx(3_project, 0), Failure);
  EXPECT_THROW(o.SetLocked(1_procedure, Id{2}), Failure);
}

TEST(ReadOnlyRule, PassesOverEveryWalk) {
  Model m;
  m.oIDE.Add(u"M", ComponentType::StdModule, u"Sub A()\nEnd Sub").asFile = {u"/proc/version"};
  m.Open(false);
  m.oHandler.LoadComponent(1_component);
  m.oHandler.SetProcTemplate(2_procedure, u"Std");
  for (const bool bSkip : {true, false}) {
    MRules::oRules.bSkipReadOnly = bSkip;
    m.oHandler.ApplyPendingSettings(2_procedure, false, Id{-1});
    m.oHandler.ApplySuggestedSettings(1_component);
    EXPECT_EQ(m.oTemplate.BatchItems(), bSkip ? 0 : 1);
    EXPECT_EQ(m.oHandler.ProcTemplate(2_procedure), bSkip ? u"Std" : u"");
  }
}

TEST(GetProcCode, CountsTheCommentsAheadOfTheHead) {
  Model m;
  m.oIDE.Add(u"M", ComponentType::StdModule, u"' a\n' b\nSub A()\nEnd Sub\nSub B()\nEnd Sub");
  m.Open();
  const std::pair<std::int32_t, TextView> Expected[] = {
      {1, u""}, {3, u"' a\r\n' b\r\nSub A()\r\nEnd Sub"}, {1, u"Sub B()\r\nEnd Sub"}};
  std::int32_t lBody = 0;
  ProcedureHandle h;
  for (const auto& [lBodyStart, sCode] : Expected) {
    EXPECT_EQ(m.oHandler.GetProcCode(++h, lBody), sCode);
    EXPECT_EQ(lBody, lBodyStart);
  }
  Text sModule, sName, sType;
  m.oHandler.GetProcDetails(3_procedure, sModule, sName, sType);
  EXPECT_EQ(sModule + sName + sType, u"MBSub");
}

}  // namespace
