// The guard against a run-time that answers from a list and records what it was asked.
#include "Guard.h"

#include <gtest/gtest.h>

#include <deque>
#include <new>
#include <string>
#include <vector>

namespace {

using namespace ErrorIds;

class ScriptedRuntime : public IErrorRuntime {
 public:
  ScriptedRuntime() : mpoOld(goError) { goError = this; }
  ~ScriptedRuntime() override { goError = mpoOld; }

  std::deque<std::int32_t> alAnswer;
  std::vector<std::string> asCall;
  bool bTrace = false;

  void SetErrorClient(IErrorClient*) override {}
  void SetDevelopmentMode(bool) override {}
  bool BreakRequested() override { return asCall.push_back("break?"), false; }
  void Start() override {}
  void CloseError(std::int16_t nBoundary) override {
    asCall.push_back("close " + std::to_string(nBoundary));
  }
  void ReportError(const Failure& oFailure, std::u16string_view, std::u16string_view sProcedure,
                   std::u16string_view, std::int32_t, std::int32_t, std::int32_t,
                   std::int32_t& eAction) override {
    asCall.push_back("report " + std::to_string(oFailure.Number()) + " in " + Narrow(sProcedure));
    eAction = alAnswer.empty() ? ActionLeave : alAnswer.front();
    if (!alAnswer.empty()) alAnswer.pop_front();
  }
  void CheckResult(std::u16string_view, std::int32_t) override {}
  void CheckResultEx(std::u16string_view, std::int32_t,
                     std::initializer_list<std::int32_t>) override {}
  void SetApplicationName(std::u16string_view) override {}
  void SetApplicationPath(std::u16string_view) override {}
  void SetTraceEnabled(bool) override {}
  bool TraceEnabled() const override { return bTrace; }
  void WriteDiagnostic(std::u16string_view) override {}
  void SetEnding(bool) override {}
  std::int32_t HandleException(std::u16string_view) override { return 0; }
  void TraceEnter(std::u16string_view, std::u16string_view sProcedure) override {
    asCall.push_back("enter " + Narrow(sProcedure));
  }
  void TraceExit(std::u16string_view, std::u16string_view sProcedure) override {
    asCall.push_back("exit " + Narrow(sProcedure));
  }

 private:
  static std::string Narrow(std::u16string_view sText) { return {sText.begin(), sText.end()}; }
  IErrorRuntime* mpoOld;
};

using Calls = std::vector<std::string>;

TEST(Guard, AnswersOfTheRuntimeDecideWhereAStepGoesOn) {
  struct Row {
    const char* sName;
    std::deque<std::int32_t> alAnswer;
    int lFailures;  ///< how often the step fails before it works
    Calls asCall;
    std::string sWork;  ///< the trace that the work leaves
    bool bDone;
  } const aoRow[] = {
      {"works at once", {}, 0, {}, "S+", true},
      {"is repeated till it works",
       {4, 4},
       2,
       {"report 53 in P", "break?", "report 53 in P", "break?"},
       "SSS+",
       true},
      {"is passed over", {5}, 9, {"report 53 in P"}, "S-", true},
      {"leaves at action 1", {1}, 9, {"report 53 in P", "close 3"}, "S", false},
      {"leaves at an unknown action", {17}, 9, {"report 53 in P", "close 3"}, "S", false},
      {"is repeated, then left",
       {4, 1},
       9,
       {"report 53 in P", "break?", "report 53 in P", "close 3"},
       "SS",
       false},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    ScriptedRuntime oRuntime;
    oRuntime.alAnswer = oRow.alAnswer;
    std::string sWork;
    int lLeft = oRow.lFailures;
    const bool bDone = Guard({u"M", u"P", BoundaryFirewall}, [&](GuardScope& oScope) {
      sWork += oScope.Step([&] {
        sWork += 'S';
        if (lLeft-- > 0) throw Failure(53);
      })
                   ? '+'
                   : '-';
    });
    EXPECT_EQ(bDone, oRow.bDone);
    EXPECT_EQ(sWork, oRow.sWork);
    EXPECT_EQ(oRuntime.asCall, oRow.asCall);
  }
}

TEST(Guard, FailureOutsideAStepCanNotBeRepeatedOrPassedOver) {
  for (const std::int32_t eAction : {ActionLeave, ActionRetry, ActionNext}) {
    ScriptedRuntime oRuntime;
    oRuntime.alAnswer = {eAction};
    EXPECT_FALSE(Guard({u"M", u"P", BoundaryVB}, [](GuardScope&) { throw Failure(9); }));
    EXPECT_EQ(oRuntime.asCall, (Calls{"report 9 in P", "close 2"}));
  }
}

TEST(Guard, FailureGoesUpThroughBoundaryNoneAndIsReportedOnce) {
  ScriptedRuntime oRuntime;
  oRuntime.bTrace = true;
  const bool bDone = Guard({u"M", u"Outer", BoundaryActiveX}, [](GuardScope& oOuter) {
    oOuter.Step([] {
      Guard({u"M", u"Middle"}, [](GuardScope&) {
        Guard({u"M", u"Inner"}, [](GuardScope& oInner) { oInner.Step([] { throw Failure(70); }); });
      });
    });
    ADD_FAILURE() << "went on behind a failure that nobody passed over";
  });
  EXPECT_FALSE(bDone);
  EXPECT_EQ(oRuntime.asCall,
            (Calls{"enter Outer", "enter Middle", "enter Inner", "report 70 in Inner", "close 1",
                   "exit Inner", "close 1", "exit Middle", "close 4", "exit Outer"}));
}

TEST(Guard, ExceptionsOfTheLibraryBecomeFailures) {
  const auto thrown = [](void (*oThrow)()) {
    try {
      Guard({u"M", u"P"}, [&](GuardScope&) { oThrow(); });
    } catch (const Failure& oFailure) {
      return std::to_string(oFailure.Number()) + (oFailure.Reported() ? "r " : " ") +
             oFailure.what();
    }
    return std::string("nothing");
  };
  EXPECT_EQ(thrown([] { throw std::bad_alloc(); }), "7r Out of memory");
  EXPECT_EQ(thrown([] { throw std::out_of_range("caf\xC3\xA9 \xFF"); }),
            "51r Internal error: caf\xC3\xA9 \xEF\xBF\xBD");
  EXPECT_EQ(thrown([] { throw 1; }), "51r Internal error");
  EXPECT_EQ(thrown([] { throw Failure(35, u"No \U0001F600 \xD800", u"host"); }),
            "35r No \xF0\x9F\x98\x80 \xEF\xBF\xBD");
}

TEST(Failure, NumbersThatTheRuntimeDoesNotUseHaveTheGeneralText) {
  for (const std::int32_t lNumber : {0, 1, 56, 60, 64, 72, 73, 485, 32767, -2147221504}) {
    EXPECT_EQ(FailureText(lNumber), u"Application-defined or object-defined error") << lNumber;
  }
  EXPECT_EQ(Failure(3).Description(), u"Return without GoSub");
  EXPECT_EQ(Failure(76).Description(), u"Path not found");
  EXPECT_EQ(FailureText(484).substr(0, 36), u"Problem getting printer information ");
}

}  // namespace
