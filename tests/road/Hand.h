// A user at a real window: the mouse and the keyboard as the window system delivers them, step by
// step while the program runs in its own event loops.
//
//   Hand oHand("road");
//   oHand.Await("the window stands", [&] { return Find(...); });
//   oHand.Do("its button", [&] { oHand.Click(oButton); });
//   oHand.Start();  // inside RunDesktop, ahead of the program's main loop
//   ...
//   oHand.Stop();   // behind it
//
// A step waits until its condition holds, and then acts. One that waits too long ends the process
// with a failure, behind a picture of the screen (as `xwud` shows it) in the folder of the test
// programs. With QUILLON_PICTURES in the environment there is a picture ahead of each step.
#pragma once

#include <wx/timer.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "Control.h"
#include "Toolkit.h"

class Hand {
 public:
  /// sName: of the pictures.
  explicit Hand(std::string sName);

  void Step(std::string sWhat, std::function<bool()> oReady, std::function<void()> oAct);
  void Await(std::string sWhat, std::function<bool()> oReady) {
    Step(std::move(sWhat), std::move(oReady), [] {});
  }
  void Do(std::string sWhat, std::function<void()> oAct) {
    Step(
        std::move(sWhat), [] { return true; }, std::move(oAct));
  }
  /// Presses a key again and again until the condition holds.
  void KeyUntil(std::string sWhat, int nKey, std::function<bool()> oHolds);
  void Start();
  void Stop() { mpClock.reset(); }
  /// Steps that haven't been done.
  std::size_t Left() const { return moSteps.size(); }

  /// In the middle of a control.
  void Click(const Forms::Control& oControl);
  /// On a row of a list or a tree, from 0 in the order shown. nModifier: such as wxMOD_CONTROL.
  void ClickRow(const Forms::Control& oControl, int nRow, int nModifier = wxMOD_NONE);
  /// A key with modifiers (wxMOD_...), for the window in front.
  void Key(int nKey, int nModifiers = wxMOD_NONE);
  /// Whether a menu has dropped.
  bool MenuShows() const { return mbMenu; }
  /// The whole screen.
  void TakePicture(const std::string& sName) const;

 private:
  static constexpr int lTickMilliseconds = 25;
  static constexpr int lPatience = 1200, lSettling = 3;  ///< in ticks
  struct OneStep {
    std::string sWhat;
    std::function<bool()> oReady;
    std::function<void()> oAct;
  };
  void Tick();
  [[noreturn]] void Fail(const std::string& sWhat) const;
  void ClickAt(const wxPoint& oPlace, int nModifier);

  std::string msName;
  std::deque<OneStep> moSteps;
  int mnWaited = 0, mnReady = 0;
  int mnPicture = 0;
  bool mbMenu = false;
  std::unique_ptr<wxTimer> mpClock;
};
