// What tests of windows share: a toolkit without a display, the script of its user, and a log of
// events.
//
//   class RulesTest : public FormsTest { ... };
//   TEST_F(RulesTest, CancelKeepsTheRules) {
//     User().Modal<FRules>([](FRules& o) { o.cmdCancel.UserClick(); });
//     EXPECT_FALSE(FRules(moToolkit).Display());
//   }
//
// Each test ends with a look at the script: no question without an answer, no answer left.
#pragma once

#include <gtest/gtest.h>

#include "FailureOf.h"
#include "HeadlessRenderer.h"
#include "Signal.h"
#include "Toolkit.h"

class FormsTest : public testing::Test {
 protected:
  void TearDown() override {
    for (const auto& sFault : User().Faults()) ADD_FAILURE() << sFault;
    EXPECT_EQ(User().Unused(), 0U) << "the script has answers that nobody asked for";
  }
  Forms::Script& User() { return moRenderer.User(); }

  Forms::HeadlessRenderer moRenderer;
  Forms::Toolkit moToolkit{moRenderer};
};

/// Writes down the names of events as they come.
class EventLog {
 public:
  template <class... Args>
  void Watch(Signal<Args...>& oSignal, const std::string& sName) {
    moLinks.push_back(oSignal.Connect([this, sName](Args...) { Note(sName); }));
  }
  void Note(const std::string& sName) { msLog += (msLog.empty() ? "" : " ") + sName; }
  /// What came since the last call, parted by blanks.
  std::string Take() { return std::exchange(msLog, {}); }

 private:
  std::string msLog;
  std::vector<Connection> moLinks;
};
