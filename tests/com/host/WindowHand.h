// A user at the windows of this thread: steps that are done one by one from a timer, inside
// whatever message loop runs meanwhile. A step waits until it can be done; one that waits too long
// fails the test and closes all windows from then on.
//
//   WindowHand hand(mainWindow);
//   hand.Choose("Tarvane Quillon", "Copy Suggested");   // an item of the window's menu
//   hand.Press("Copy Suggested", "All Projects");       // a button of the dialog
//   hand.Close("Tarvane Quillon");
//   ... what opens the window and returns when it closes ...
//   EXPECT_TRUE(hand.IsDone());
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>

class WindowHand {
 public:
  /// home: a window that isn't closed; the timer is its own.
  explicit WindowHand(HWND home);
  ~WindowHand();
  WindowHand(const WindowHand&) = delete;
  WindowHand& operator=(const WindowHand&) = delete;

  /// Windows by the start of their titles; items and buttons by the start of their captions,
  /// without the marks of access keys.
  void Choose(std::string window, std::string item);
  void Press(std::string window, std::string button);
  void Close(std::string window);
  /// does: gives false as long as the step can't be done.
  void Step(std::string name, std::function<bool()> does);
  bool IsDone() const { return mSteps.empty(); }

 private:
  static constexpr int TickMilliseconds = 50, Patience = 300,
                       Settling = 10;  // the last two in ticks
  static void CALLBACK Tick(HWND window, UINT, UINT_PTR timer, DWORD);
  void Tick();

  HWND mHome;
  std::deque<std::pair<std::string, std::function<bool()>>> mSteps;
  int mWaited = 0;
  bool mGaveUp = false;
};
