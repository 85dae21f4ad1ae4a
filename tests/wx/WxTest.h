// What tests on a screen share: tables that play on a form by mouse and keys, where a deed that is
// no verb is a control to click. A test that fails leaves a picture of the screen (as `xwud` shows
// it) in the current folder, named after it.
#pragma once

#include <gtest/gtest.h>

#include <fstream>

#include "FEverything.h"
#include "Robot.h"
#include "Toolkit.h"

class WxTest : public testing::Test, protected Player {
 public:
  static inline Forms::Toolkit* poToolkit = nullptr;

 protected:
  WxTest() {
    Can("key", [this](auto& o) {
      // The window system has End to Down in the same order, and Alt where Shift is here.
      const int key = o.Number(1), with = o.Number(2);
      moRobot.Key(
          key >= Forms::Key::End && key <= Forms::Key::Down ? key - Forms::Key::End + WXK_END : key,
          (with & 2) | (with & 1 ? wxMOD_SHIFT : 0) | (with & 4 ? wxMOD_ALT : 0));
    });
    Can("type", [this](auto& o) { moRobot.Type(o.Word(1)); });
    Can("at", [this](auto& o) { moRobot.ClickAt(At(o), {o.Number(2), o.Number(3)}); });
    Can("double", [this](auto& o) { moRobot.DoubleClickAt(At(o), {o.Number(2), o.Number(3)}); });
    Can("focus", [this](auto& o) { At(o).SetFocus(); });
  }
  void SetUp() override {
    moForm.Show();
    moRobot.Settle();
    log.Take();
  }
  void TearDown() override {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    if (const char* screen = std::getenv("SCREEN_FILE"); screen && HasFailure())
      std::ofstream("failed-" + test + ".xwd") << std::ifstream(screen).rdbuf();
    moForm.Unload();
    moRobot.Settle();
  }
  bool Other(const std::string& deed) override { return moRobot.Click(Find(moForm, deed)), true; }
  std::string Look() override { return look(); }
  Forms::Control& At(const Deed& o) { return Find(moForm, o.Word(1)); }

  Robot moRobot{*poToolkit};
  Forms::FEverything moForm{*poToolkit, log};
  /// The control with the focus, unless a test looks at something else.
  std::function<std::string()> look = [this] {
    return moForm.ActiveControl() ? NameOf(*moForm.ActiveControl()) : "none";
  };
};
