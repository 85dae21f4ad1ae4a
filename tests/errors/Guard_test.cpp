// The guard against a run-time that answers from a list and records what it was asked.
#include "Guard.h"

#include <gtest/gtest.h>

#include <deque>
#include <new>
#include <stdexcept>

#include "ErrorRuntimeFake.h"

namespace {

using namespace ErrorIds;
using Answers = std::deque<std::int32_t>;

class ScriptedRuntime : public AnswersWith {
 public:
  explicit ScriptedRuntime(Answers alAnswer = {})
      : AnswersWith(ActionLeave), malAnswer(std::move(alAnswer)) {}
  std::string sCalls;

  bool BreakRequested() override { return sCalls += "break? ", false; }
  void CloseError(std::int16_t nBoundary) override {
    sCalls += "close" + std::to_string(nBoundary) + ' ';
  }
  void ReportError(const Failure& oFailure, std::u16string_view, std::u16string_view sProcedure,
                   std::u16string_view, std::int32_t, std::int32_t, std::int32_t eRetry,
                   std::int32_t& eAction) override {
    sCalls += std::to_string(oFailure.Number()) + " in " + Narrow(sProcedure);
    if (eRetry == RetryNone) sCalls += "once ";
    eAction = malAnswer.empty() ? ActionLeave : malAnswer.front();
    if (!malAnswer.empty()) malAnswer.pop_front();
  }
  void TraceEnter(std::u16string_view, std::u16string_view sProcedure) override {
    sCalls += "<" + Narrow(sProcedure);
  }
  void TraceExit(std::u16string_view, std::u16string_view) override { sCalls += "> "; }

 private:
  static std::string Narrow(std::u16string_view sText) {
    return std::string(sText.begin(), sText.end()) + ' ';
  }
  Answers malAnswer;
};

TEST(Guard, AnswersOfTheRuntimeDecideWhereAStepGoesOn) {
  struct Row {
    const char* name;
    Answers answers;
    int failures;      ///< how often the step fails before it works
    const char* left;  ///< the trace of the work, whether it was done, and the calls
  } const rows[] = {
      {"works at once", {}, 0, "S+ done "},
      {"is repeated", {4, 4}, 2, "SSS+ done 53 in P break? 53 in P break? "},
      {"is passed over", {5}, 9, "S- done 53 in P "},
      {"leaves at action 1", {1}, 9, "S left 53 in P close3 "},
      {"leaves at an unknown action", {17}, 9, "S left 53 in P close3 "},
      {"is repeated, then left", {4, 1}, 9, "SS left 53 in P break? 53 in P close3 "},
  };
  for (const auto& [name, answers, failures, left] : rows) {
    ScriptedRuntime runtime(answers);
    std::string trace;
    auto step = [&, fails = failures]() mutable {
      trace += 'S';
      if (fails-- > 0) throw Failure(53);
    };
    const auto work = [&](GuardScope& scope) { trace += scope.Step(step) ? '+' : '-'; };
    const bool done = Guard({u"M", u"P", BoundaryFirewall}, work);
    EXPECT_EQ(trace + (done ? " done " : " left ") + runtime.sCalls, left) << name;
  }
}

TEST(Guard, FailureOutsideAStepCanNotBeRepeatedOrPassedOver) {
  for (const std::int32_t eAction : {ActionLeave, ActionRetry, ActionNext}) {
    ScriptedRuntime oRuntime({eAction});
    EXPECT_FALSE(Guard({u"M", u"P", BoundaryVB}, [](GuardScope&) { throw Failure(9); }));
    EXPECT_EQ(oRuntime.sCalls, "9 in P once close2 ");
  }
}

TEST(Guard, FailureGoesUpThroughBoundaryNoneAndIsReportedOnce) {
  ScriptedRuntime oRuntime;
  oRuntime.SetTraceEnabled(true);
  const auto inner = [](GuardScope& oScope) { oScope.Step([] { throw Failure(70); }); };
  const auto middle = [&](GuardScope&) { Guard({u"M", u"Inner"}, inner); };
  EXPECT_FALSE(Guard({u"M", u"Outer", BoundaryActiveX}, [&](GuardScope& oScope) {
    oScope.Step([&] { Guard({u"M", u"Middle"}, middle); });
    ADD_FAILURE() << "went on behind a failure that nobody passed over";
  }));
  EXPECT_EQ(oRuntime.sCalls, "<Outer <Middle <Inner 70 in Inner close1 > close1 > close4 > ");
}

TEST(Guard, ExceptionsOfTheLibraryBecomeFailures) {
  const auto thrown = [](void (*oThrow)()) {
    try {
      Guard({u"M", u"P"}, [&](GuardScope&) { oThrow(); });
    } catch (const Failure& oFailure) {
      EXPECT_TRUE(oFailure.Reported());
      return std::to_string(oFailure.Number()) + ' ' + oFailure.what();
    }
    return std::string("nothing");
  };
  EXPECT_EQ(thrown([] { throw std::bad_alloc(); }), "7 Out of memory");
  EXPECT_EQ(thrown([] { throw std::out_of_range("caf\xC3\xA9 \xFF"); }),
            "51 Internal error: caf\xC3\xA9 \xEF\xBF\xBD");
  EXPECT_EQ(thrown([] { throw 1; }), "51 Internal error");
  EXPECT_EQ(thrown([] { throw Failure(35, u"No \U0001F600 \xD800", u"host"); }),
            "35 No \xF0\x9F\x98\x80 \xEF\xBF\xBD");
}

TEST(Failure, NumbersThatTheRuntimeDoesNotUseHaveTheGeneralText) {
  for (const std::int32_t lNumber : {0, 56, 60, 64, 72, 485, -2147221504})
    EXPECT_EQ(FailureText(lNumber), u"Application-defined or object-defined error") << lNumber;
  EXPECT_EQ(Failure(3).Description(), u"Return without GoSub");
  EXPECT_EQ(FailureText(484).substr(0, 13), u"Problem getti");
}

}  // namespace
