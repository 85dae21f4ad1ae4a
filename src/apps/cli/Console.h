// Standard error: messages for people, and below them the progress bar while a terminal is there.
// Messages are collected and written in large pieces, but to a terminal at once.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "Text.h"

/// Ends the command with a message and an exit status; caught in Main.
struct Stop {
  std::string sMessage;
  int nExit = 2;
};

class Console {
 public:
  enum class Level { Quiet, Normal, Verbose };

  explicit Console(Level level);
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  /// Something went wrong: always written.
  void Error(std::string_view message);
  /// The account of the work: not with -q.
  void Say(std::string_view message);
  /// With -v only.
  void Detail(std::string_view message);
  bool IsVerbose() const { return mLevel == Level::Verbose; }
  bool IsQuiet() const { return mLevel == Level::Quiet; }

  /// Shows how far long work has come; nothing in the first moments and without a terminal.
  void Progress(std::size_t done, std::size_t total, TextView caption);
  void ProgressEnd();
  void Flush();

 private:
  void Line(std::string_view message);
  void EraseBar();

  Level mLevel;
  bool mIsTerminal;
  bool mHasBar = false;
  bool mIsWorking = false;
  std::chrono::steady_clock::time_point mNextBar;
  std::string mPending;
};
