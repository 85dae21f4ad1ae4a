#include <windows.h>

#include <atomic>

#include "Failure.h"
#include "SignalHold.h"

namespace {

std::atomic<int> holds = 0;
std::atomic<bool> waits = false;

/// The exit status that the system itself gives a program which such an event ends.
constexpr UINT EndedByEvent = 0xC000013A;

/// Runs in a thread of its own. After closing the window or logging off, the system ends the
/// program as soon as this returns, and by itself after a few seconds.
BOOL WINAPI OnEvent(DWORD event) {
  waits = true;
  const bool endsAnyway = event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT;
  while (endsAnyway && holds > 0) Sleep(10);
  return TRUE;
}

}  // namespace

struct SignalHold::Before {};

SignalHold::SignalHold() {
  if (holds++ == 0) SetConsoleCtrlHandler(OnEvent, TRUE);
}

SignalHold::~SignalHold() {
  if (--holds > 0) return;
  SetConsoleCtrlHandler(OnEvent, FALSE);
  if (waits) ExitProcess(EndedByEvent);
}

void SignalHold::Check() {
  if (holds > 0 && waits)
    throw Failure(18, FailureText(18) + u": nothing was written", u"SignalHold");
}
