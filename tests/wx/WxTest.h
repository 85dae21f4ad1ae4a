// What tests on a screen share. A test that fails leaves a picture of the screen in the current
// folder, named after it.
#pragma once

#include <gtest/gtest.h>

#include "FEverything.h"
#include "Robot.h"
#include "Toolkit.h"

class WxTest : public testing::Test {
 public:
  static inline Forms::Toolkit* poToolkit = nullptr;

 protected:
  void SetUp() override {
    moForm.Show();
    moRobot.Settle();
    moForm.oLog.Take();
  }
  void TearDown() override {
    const auto* poInfo = testing::UnitTest::GetInstance()->current_test_info();
    if (HasFailure()) Robot::Photograph(std::string("failed-") + poInfo->name() + ".png");
    moForm.Unload();
    moRobot.Settle();
  }
  std::string Take() { return moForm.oLog.Take(); }

  Robot moRobot{*poToolkit};
  FEverything moForm{*poToolkit};
};
