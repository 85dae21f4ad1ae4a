// Keeps the signals that ask a program to end (INT, TERM, HUP; on
// Windows the events of its console) waiting for the life of the object,
// so that what has begun is ended in good order. Behind it the signal does what it always does.
//
//   const SignalHold hold;
//   for (...) SignalHold::Check(), Write(...);   // throws when one waits: undo what was done
#pragma once

#include <memory>

class SignalHold {
 public:
  SignalHold();
  ~SignalHold();
  SignalHold(const SignalHold&) = delete;
  SignalHold& operator=(const SignalHold&) = delete;

  /// Failure 18 when a signal waits that a hold keeps back.
  static void Check();

 private:
  struct Before;
  std::unique_ptr<Before> mBefore;
};
