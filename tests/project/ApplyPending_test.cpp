// From what was asked to the code that stands in the module: text to text.
#include <gtest/gtest.h>

#include "Model.h"

namespace {

constexpr TextView Plain = u"Option Explicit\nSub Run()\n    x = 1\nEnd Sub";
constexpr TextView Handled =
    u"Option Explicit\nSub Run()\n'@ Std\n    On Error GoTo Trap\n    x = 1\nTrap:\nEnd Sub";

using Step = void (*)(Model&);

struct Row {
  const char* sName;
  TextView sBefore;
  Step oDo;
  TextView sAfter;
  const char* sAccount;
  const char* sCurrent;  ///< of the last procedure
};

void Set(Model& m, ProcedureHandle h, TextView sTemplate) {
  m.oHandler.SetProcTemplate(h, sTemplate);
}

const Row Rows[] = {
    {"a template goes in", Plain,
     [](Model& m) {
       Set(m, 2_procedure, u"Std");
       m.Apply();
     },
     Handled, "Processing MMain.Run|", "Std 1 0 0 0 0"},
    {"and comes out again, ids and all", Handled,
     [](Model& m) {
       m.oHandler.SetSeverityId(2_procedure, Id{3});
       Set(m, 2_procedure, u"");
       m.Apply();
     },
     Plain, "Processing MMain.Run|", " 1 0 0 0 0"},
    {"a lock stays when its template goes", Handled,
     [](Model& m) {
       Set(m, 2_procedure, u"");
       m.oHandler.SetLocked(2_procedure, Id{2});
       m.Apply();
     },
     u"Option Explicit\nSub Run()\n'@ Locked\n    x = 1\nEnd Sub", "Processing MMain.Run|",
     " 2 0 0 0 0"},
    {"a lock's signature gives way to the template's",
     u"Sub Run()\n'@ Locked\n\n    x = 1\nEnd Sub",
     [](Model& m) {
       Set(m, 2_procedure, u"Std");
       m.Apply();
     },
     u"Sub Run()\n'@ Std&Locked\n    On Error GoTo Trap\n\n    x = 1\nTrap:\nEnd Sub",
     "Processing MMain.Run|", "Std 2 0 0 0 0"},
    {"a lock goes and leaves the blank line behind it",
     u"Sub Run()\n'@ Locked\n\n    x = 1\nEnd Sub",
     [](Model& m) {
       m.oHandler.SetLocked(2_procedure, Id{1});
       m.Apply();
     },
     u"Sub Run()\n\n    x = 1\nEnd Sub", "Processing MMain.Run|", " 1 0 0 0 0"},
    {"a module's lock that would fall to its first procedure", u"Sub Run()\nEnd Sub",
     [](Model& m) {
       m.oHandler.SetLocked(1_procedure, Id{2});
       m.Apply();
       m.Apply();
     },
     u"Sub Run()\nEnd Sub",
     "Processing MMain.(declarations)|    These lines would fall to the first procedure: no "
     "declaration keeps them from it|"
     "Processing MMain.(declarations)|    These lines would fall to the first procedure: no "
     "declaration keeps them from it|",
     " 1 0 0 0 0"},
    {"a procedure states only what differs from its module",
     u"'@ Mod\nConst Sev = tvnSeverityFatal\nSub A()\nEnd Sub\nSub B()\nEnd Sub",
     [](Model& m) {
       for (const auto h : {2_procedure, 3_procedure}) Set(m, h, u"Std");
       m.oHandler.SetSeverityId(2_procedure, Id{3});
       m.oHandler.SetSeverityId(3_procedure, Id{1});
       m.Apply();
     },
     u"'@ Mod\nConst Sev = tvnSeverityFatal\n"
     u"Sub A()\n'@ Std\n    On Error GoTo Trap\nTrap:\nEnd Sub\n"
     u"Sub B()\n'@ Std\n    On Error GoTo Trap\nTrap:\n    Fail tvnSeverityCosmetic\nEnd Sub",
     "Processing MMain.A|Processing MMain.B|", "Std 1 0 1 0 0"},
    {"declarations go between options and the rest",
     u"Option Explicit\nDim x\n\nSub Run()\nEnd Sub",
     [](Model& m) {
       Set(m, 1_procedure, u"Mod");
       m.oHandler.SetSeverityId(1_procedure, Id{2});
       m.Apply();
     },
     u"Option Explicit\n'@ Mod\nConst Sev = tvnSeverityNormal\nDim x\n\nSub Run()\nEnd Sub",
     "Processing MMain.(declarations)|", " 1 0 0 0 0"},
    {"a module template leaves no blank line behind",
     u"Option Explicit\n'@ Mod\nConst Sev = tvnSeverityNormal\nSub Run()\nEnd Sub",
     [](Model& m) {
       Set(m, 1_procedure, u"");
       m.Apply();
     },
     u"Option Explicit\nSub Run()\nEnd Sub", "Processing MMain.(declarations)|", " 1 0 2 0 0"},
    {"nor in a section that held nothing else",
     u"'@ Mod\nConst Sev = tvnSeverityNormal\n\n\nSub Run()\nEnd Sub",
     [](Model& m) {
       Set(m, 1_procedure, u"");
       m.Apply();
     },
     u"\n\nSub Run()\nEnd Sub", "Processing MMain.(declarations)|", " 1 0 2 0 0"},
    {"foreign code stays, its lock dirty", u"Sub Run()\nOn Error GoTo X\nX: End Sub\nEnd Sub",
     [](Model& m) {
       m.oHandler.SetLocked(2_procedure, Id{2});
       m.Apply(true);
       EXPECT_TRUE(m.oHandler.ProcedureIsDirty(2_procedure));
     },
     u"Sub Run()\nOn Error GoTo X\nX: End Sub\nEnd Sub", "", "(bespoke) 1 0 0 0 0"},
    {"a locked one is left out of a refresh", u"Sub Run()\n'@ Std&Locked\nEnd Sub",
     [](Model& m) { m.Apply(true); }, u"Sub Run()\n'@ Std&Locked\nEnd Sub", "", "Std 2 0 0 0 1"},
    {"a refresh of sound code touches nothing", Handled,
     [](Model& m) {
       m.Apply(true);
       m.Apply(true);
       EXPECT_EQ(m.oIDE.oLog.Count("DeleteLines") + m.oIDE.oLog.Count("InsertLines"), 0);
     },
     Handled, "Processing MMain.Run|Processing MMain.Run|", "Std 1 0 0 0 1"},
    {"a refresh writes numbers whatever the rule",
     u"Sub Run()\n'@ Std\n    On Error GoTo Trap\n    x = 1\n    y = 2\nTrap:\nEnd Sub",
     [](Model& m) {
       m.oHandler.bProve = true;
       m.Apply(true, Id{0});
       m.Apply(true, Id{0});
     },
     u"Sub Run()\n'@ Std\n    On Error GoTo Trap\n1   x = 1\n2   y = 2\nTrap:\nEnd Sub",
     "Processing MMain.Run|Processing MMain.Run|", "Std 1 0 0 0 1"},
    {"code that fits no template is refused whole",
     u"Sub Run()\n'@ Std\n    On Error GoTo Trap\n    Mine\nTrap:\n    Odd\nEnd Sub",
     [](Model& m) {
       Set(m, 2_procedure, u"");
       m.Apply();
       EXPECT_EQ(m.sRefused, "2 Code does not match Template; Line=6 [    Odd]|");
       EXPECT_TRUE(m.oHandler.ProcedureIsDirty(2_procedure));
     },
     u"Sub Run()\n'@ Std\n    On Error GoTo Trap\n    Mine\nTrap:\n    Odd\nEnd Sub",
     "Processing MMain.Run|    Code does not match Template; Line=6 [    Odd]|", "Std 1 0 0 0 1"},
    {"a vanished procedure doesn't stop the next", u"Sub Gone()\nEnd Sub\nSub Run()\nEnd Sub",
     [](Model& m) {
       Set(m, 2_procedure, u"Std");
       Set(m, 3_procedure, u"Std");
       m.oIDE.oLog.Fail("ProcStartLine");
       m.Apply();
       EXPECT_EQ(m.oTemplate.BatchErrors(), 1);
     },
     u"Sub Gone()\nEnd Sub\nSub Run()\n'@ Std\n    On Error GoTo Trap\nTrap:\nEnd Sub",
     "Processing MMain.Gone|    ProcStartLine failed|Processing MMain.Run|", "Std 1 0 0 0 0"},
    {"what the code became is read anew, and the wish kept", Plain,
     [](Model& m) {
       Set(m, 2_procedure, u"");
       m.oHandler.SetLocked(2_procedure, Id{2});
       m.oIDE.Component(1).SetCode(Handled);
       m.Apply();
     },
     u"Option Explicit\nSub Run()\n'@ Locked\n    x = 1\nEnd Sub", "Processing MMain.Run|",
     " 2 0 0 0 0"},
    {"a clean procedure follows its code, and isn't counted when nothing is left to do", Handled,
     [](Model& m) {
       m.oIDE.Component(1).SetCode(Plain);
       m.Apply(true);
       EXPECT_FALSE(m.oHandler.GroupIsDirty());
     },
     Plain, "", " 1 0 0 0 0"},
    {"a jump's line number isn't taken away",
     u"Sub Run()\n'@ Std\n    On Error GoTo Trap\n"
     u"10  x = 1\n    GoTo 10\nTrap:\nEnd Sub",
     [](Model& m) {
       m.oHandler.bProve = true;
       m.Apply(true, Id{2});
       EXPECT_EQ(m.oTemplate.BatchErrors(), 1);
     },
     u"Sub Run()\n'@ Std\n    On Error GoTo Trap\n10  x = 1\n    GoTo 10\nTrap:\nEnd Sub",
     "Processing MMain.Run|    Line number 10 is the target of a jump|", "Std 1 0 0 0 1"},
    {"what can't be taken out again isn't put in", u"Sub Run()\n    x = 2\n    y\nEnd Sub",
     [](Model& m) {
       m.oHandler.bProve = true;
       Set(m, 2_procedure, u"Vague");
       m.Apply();
       EXPECT_TRUE(m.oHandler.ProcedureIsDirty(2_procedure));
     },
     u"Sub Run()\n    x = 2\n    y\nEnd Sub",
     "Processing MMain.Run|    The template could not be taken out again: Code does not match "
     "Template; Line=5 [    y]|",
     " 1 0 0 0 0"},
};

TEST(Apply, MakesTheCodeAgreeAndTellsWhatItDid) {
  for (const Row& oRow : Rows) {
    SCOPED_TRACE(oRow.sName);
    Model m;
    FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentType::StdModule, oRow.sBefore);
    m.Open();
    oRow.oDo(m);
    EXPECT_EQ(ToUtf8(oMain.Code()), ToUtf8(oRow.sAfter));
    EXPECT_EQ(m.sAccount, oRow.sAccount);
    EXPECT_EQ(m.Current(m.oHandler.LastProcedure()), oRow.sCurrent);
  }
}

TEST(Apply, RewritesAFileOfTwoComponentsOnce) {
  Model m;
  FakeComponent& oFirst = m.oIDE.Add(u"MShared", ComponentType::StdModule, Plain);
  m.oIDE.AddShared(u"MOther", oFirst);
  m.Open();
  for (const auto h : {2_procedure, 4_procedure}) Set(m, h, u"Std");
  m.Apply();
  EXPECT_EQ(ToUtf8(oFirst.Code()), ToUtf8(Handled));
  EXPECT_EQ(m.sAccount, "Processing MShared.Run|Processing MOther.Run|");
  EXPECT_EQ(m.oIDE.oLog.Count("InsertLines"), 1);
  m.Apply(true);
  EXPECT_EQ(ToUtf8(oFirst.Code()), ToUtf8(Handled));
  EXPECT_EQ(m.oTemplate.BatchErrors(), 0);
  EXPECT_EQ(m.Current(2_procedure), m.Current(4_procedure));
}

TEST(Apply, MovesPendingButNeverTheLock) {
  Model m;
  m.oIDE.Add(u"MMain", ComponentType::StdModule, Plain);
  m.Open();
  MRules::oRules.sDefaultProcTemplate = u"Std";
  m.oHandler.RefreshSuggestions();
  m.oHandler.ApplySuggestedSettings(2_procedure);
  EXPECT_EQ(Model::Show(m.oHandler.Procedure(2_procedure).oPending), "Std 1 1 2 1 2");
  m.oHandler.SetLocked(2_procedure, Id{2});
  m.oHandler.ApplyCurrentSettings(2_procedure);
  EXPECT_EQ(m.oHandler.ProcTemplate(2_procedure), u"Std");
  m.oHandler.SetLocked(2_procedure, Id{0});
  m.oHandler.ApplyCurrentSettings(1_project);
  m.oHandler.ApplySuggestedSettings(1_component);
  EXPECT_EQ(Model::Show(m.oHandler.Procedure(2_procedure).oPending), " 0 0 0 0 0");
}

}  // namespace
