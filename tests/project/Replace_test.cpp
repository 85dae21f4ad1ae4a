// Every call of a rewrite fails once, wholly or half done: the old lines are there again, the
// failure is told, the settings stay, and the next procedure is rewritten.
#include <gtest/gtest.h>

#include "ErrorRuntimeFake.h"
#include "Model.h"

namespace {

constexpr TextView Before = u"' one\nSub A()\n    x = 1\nEnd Sub\nSub B()\n    y = 2\nEnd Sub\n\n";
constexpr TextView NewB =
    u"' one\nSub A()\n    x = 1\nEnd Sub\nSub B()\n'@ Std\n    On Error GoTo Trap\n    y = 2\n"
    u"Trap:\nEnd Sub\n\n";
constexpr FakeLog::Half None = FakeLog::Half::None, Half = FakeLog::Half::Done;

const struct FaultRow {
  const char* sOperation;
  int nCall;
  FakeLog::Half eHalf;
} Faults[] = {{"CodeModule", 3, None},  {"ProcStartLine", 2, None}, {"ProcCountLines", 1, None},
              {"Lines", 1, None},       {"CountOfLines", 2, None},  {"DeleteLines", 1, None},
              {"DeleteLines", 1, Half}, {"InsertLines", 1, None},   {"InsertLines", 1, Half}};

TEST(ReplaceProcedure, GivesTheOldLinesBackWhicheverCallFails) {
  for (const FaultRow& oRow : Faults) {
    SCOPED_TRACE(std::string(oRow.sOperation) + " " + std::to_string(oRow.nCall));
    for (const std::int32_t eAction : {ErrorIds::ActionLeave, ErrorIds::ActionNext}) {
      Model m;
      AnswersWith oAnswers(eAction);
      FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentStdModule, Before);
      FakeMember& oMember = oMain.oModule.MemberOf(u"A");
      oMember.oAttributes[MemberAttribute::Description].sText = u"kept";
      m.Open();
      m.oHandler.SetProcTemplate(2, u"Std");
      m.oHandler.SetProcTemplate(3, u"Std");
      m.oIDE.oLog.Fail(oRow.sOperation, oRow.nCall, 70, oRow.eHalf);
      m.Apply();
      EXPECT_EQ(ToUtf8(oMain.Code()), ToUtf8(NewB));
      EXPECT_EQ(m.sRefused, "2 " + std::string(oRow.sOperation) + " failed|");
      EXPECT_EQ(m.sAccount, "Processing MMain.A|    " + std::string(oRow.sOperation) +
                                " failed|Processing MMain.B|");
      EXPECT_EQ(m.Current(2) + Model::Show(m.oHandler.Procedure(2).oPending),
                " 1 0 0 0 0Std 1 0 0 0 0");
      EXPECT_EQ(oAnswers.nReports, 1);
    }
  }
}

TEST(ReplaceProcedure, RepeatsAStepThatTheAnswerRepeats) {
  Model m;
  AnswersWith oAnswers(ErrorIds::ActionRetry);
  FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentStdModule, Before);
  m.Open();
  m.oHandler.SetProcTemplate(3, u"Std");
  m.oIDE.oLog.Fail("InsertLines");
  m.Apply();
  EXPECT_EQ(ToUtf8(oMain.Code()), ToUtf8(NewB));
  EXPECT_EQ(m.oTemplate.BatchErrors(), 0);
}

TEST(ReplaceProcedure, TellsTheLinesThatNobodyTakesBack) {
  Model m;
  m.oIDE.Add(u"MMain", ComponentStdModule, Before);
  m.Open();
  m.oHandler.SetProcTemplate(2, u"Std");
  m.oIDE.oLog.Fail("InsertLines", 0);
  m.Apply();
  EXPECT_NE(m.sRefused.find("they read:\r\n' one\r\nSub A()\r\n    x = 1\r\nEnd Sub|"),
            std::string::npos);
}

TEST(ReplaceProcedure, SetsTheAttributesThatItCouldRead) {
  using enum MemberAttribute;
  Model m;
  FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentStdModule, Before);
  auto& oAttributes = oMain.oModule.MemberOf(u"A").oAttributes;
  oAttributes = {{Description, {u"text", 0}},
                 {StandardMethod, {u"", 1}},
                 {Hidden, {u"", -1}},
                 {UIDefault, {u"", -1}}};
  m.Open();
  m.oHandler.SetProcTemplate(2, u"Std");
  m.oIDE.oLog.Fail("SetAttribute", 2);
  m.Apply();
  EXPECT_EQ(m.oIDE.oLog.Count("SetAttribute"), 3);  // not the standard method
  EXPECT_EQ(m.sAccount, "Processing MMain.A|    Attributes could not be set again: Hidden|");
  EXPECT_FALSE(m.oHandler.GroupIsDirty());
}

}  // namespace
