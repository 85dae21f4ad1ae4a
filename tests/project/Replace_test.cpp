// Every call of a rewrite fails once, wholly or half done: the old lines are there again, the
// failure is told, the settings stay, and the next procedure is rewritten.
#include <gtest/gtest.h>

#include "ErrorRuntimeFake.h"
#include "Model.h"

namespace {

constexpr TextView Before = u"' one\nSub A()\n    x = 1\nEnd Sub\nSub B()\n    y = 2\nEnd Sub\n\n";
constexpr TextView NewB =
    u"' one\nSub A()\n    x = 1\nEnd Sub\nSub B()\n'@ Std\n    On Error GoTo Trap\n    y = 2\n"
    u"Trap:\nEnd Sub\n";
constexpr FakeLog::Half None = FakeLog::Half::None, Half = FakeLog::Half::Done;

const struct FaultRow {
  const char* sOperation;
  int nCall;
  FakeLog::Half eHalf;
} Faults[] = {{"CodeModule of MMain", 3, None}, {"ProcStartLine", 2, None},
              {"ProcCountLines", 1, None},      {"Lines", 1, None},
              {"CountOfLines", 1, None},        {"DeleteLines", 1, None},
              {"DeleteLines", 1, Half},         {"InsertLines", 1, None},
              {"InsertLines", 1, Half}};

TEST(ReplaceProcedure, GivesTheOldLinesBackWhicheverCallFails) {
  for (const FaultRow& oRow : Faults) {
    SCOPED_TRACE(std::string(oRow.sOperation) + " " + std::to_string(oRow.nCall));
    for (const std::int32_t eAction : {ErrorIds::ActionLeave, ErrorIds::ActionNext}) {
      Model m;
      AnswersWith oAnswers(eAction);
      FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentType::StdModule, Before);
      m.Open();
      m.oHandler.SetProcTemplate(2_procedure, u"Std");
      m.oHandler.SetProcTemplate(3_procedure, u"Std");
      m.oIDE.oLog.Fail(oRow.sOperation, oRow.nCall, oRow.eHalf);
      m.Apply();
      EXPECT_EQ(ToUtf8(oMain.Code()), ToUtf8(NewB));
      EXPECT_EQ(m.sRefused, "2 " + std::string(oRow.sOperation) + " failed|");
      EXPECT_EQ(m.sAccount, "Processing MMain.A|    " + std::string(oRow.sOperation) +
                                " failed|Processing MMain.B|");
      EXPECT_EQ(m.Current(2_procedure) + Model::Show(m.oHandler.Procedure(2_procedure).oPending),
                " 1 0 0 0 0Std 1 0 0 0 0");
      EXPECT_EQ(oAnswers.nReports, 1);
    }
  }
}

TEST(ReplaceProcedure, RepeatsAStepThatTheAnswerRepeats) {
  Model m;
  AnswersWith oAnswers(ErrorIds::ActionRetry);
  FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentType::StdModule, Before);
  m.Open();
  m.oHandler.SetProcTemplate(3_procedure, u"Std");
  m.oIDE.oLog.Fail("InsertLines");
  m.Apply();
  EXPECT_EQ(ToUtf8(oMain.Code()), ToUtf8(NewB));
  EXPECT_EQ(m.oTemplate.BatchErrors(), 0);
}

TEST(ReplaceProcedure, TellsTheLinesThatNobodyTakesBack) {
  Model m;
  m.oIDE.Add(u"MMain", ComponentType::StdModule, Before);
  m.Open();
  m.oHandler.SetProcTemplate(2_procedure, u"Std");
  m.oIDE.oLog.Fail("InsertLines", 0);
  m.Apply();
  EXPECT_NE(m.sRefused.find("they read:\r\n' one\r\nSub A()\r\n    x = 1\r\nEnd Sub|"),
            std::string::npos);
}

TEST(ReplaceProcedure, SetsTheAttributesThatItCouldRead) {
  Model m;
  FakeComponent& oMain = m.oIDE.Add(u"MMain", ComponentType::StdModule, Before);
  Member& oMember = oMain.CodeModule()->Members().Item(1);
  const auto Set = [&](MemberAttribute e, AttributeValue o) { oMember.SetAttribute(e, o); };
  Set(MemberAttribute::Description, {u"text", 0});
  Set(MemberAttribute::StandardMethod, {u"", 1});
  m.Open();
  m.oHandler.SetProcTemplate(2_procedure, u"Std");
  m.oIDE.oLog.Fail("Attribute", 2);
  m.oIDE.oLog.Fail("SetAttribute", 3);
  const int nBefore = m.oIDE.oLog.Count("SetAttribute");
  m.Apply();
  // Twelve but for the one that can't be read and the standard method's own number.
  EXPECT_EQ(m.oIDE.oLog.Count("SetAttribute") - nBefore, 10);
  EXPECT_EQ(oMember.Attribute(MemberAttribute::Description).sText, u"text");
  EXPECT_EQ(m.sAccount, "Processing MMain.A|    Attributes could not be set again: PropertyPage|");
  EXPECT_EQ(m.sRefused, "2 Attributes could not be set again: PropertyPage|") << "tells the place";
  EXPECT_FALSE(m.oHandler.GroupIsDirty());
}

}  // namespace
