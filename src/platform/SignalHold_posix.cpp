#include <signal.h>

#include "SignalHold.h"

#include "Failure.h"

namespace {

constexpr int Kept[] = {SIGINT, SIGTERM, SIGHUP};

}  // namespace

struct SignalHold::Before {
  sigset_t signals;
};

SignalHold::SignalHold() : mBefore(std::make_unique<Before>()) {
  sigset_t kept;
  sigemptyset(&kept);
  for (const int number : Kept) sigaddset(&kept, number);
  pthread_sigmask(SIG_BLOCK, &kept, &mBefore->signals);
}

SignalHold::~SignalHold() {
  pthread_sigmask(SIG_SETMASK, &mBefore->signals, nullptr);
}

void SignalHold::Check() {
  sigset_t waiting, blocked;
  if (sigpending(&waiting) != 0 || pthread_sigmask(SIG_BLOCK, nullptr, &blocked) != 0) return;
  for (const int number : Kept)
    if (sigismember(&waiting, number) == 1 && sigismember(&blocked, number) == 1)
      throw Failure(18, FailureText(18) + u": nothing was written", u"SignalHold");
}
