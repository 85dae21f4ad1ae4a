#include "ExceptionFilter.h"

#include <signal.h>

#include <array>

#include "IErrorRuntime.h"
#include "UncaughtException.h"

namespace {

struct FatalSignal {
  int nSignal;
  std::u16string_view sRecord;
};
constexpr std::array Fatal = {
    FatalSignal{SIGSEGV, u"Signal SIGSEGV"}, FatalSignal{SIGBUS, u"Signal SIGBUS"},
    FatalSignal{SIGFPE, u"Signal SIGFPE"},   FatalSignal{SIGILL, u"Signal SIGILL"},
    FatalSignal{SIGABRT, u"Signal SIGABRT"},
};

// A stack for the handler, which can't run on a stack that overflowed. 64 KB is a choice.
alignas(16) std::array<char, 1 << 16> acStack;

/// SA_RESETHAND has restored the default handler, so that raising the signal again ends the
/// program.
extern "C" void OnFatal(int nSignal) {
  for (const FatalSignal& oFatal : Fatal)
    if (oFatal.nSignal == nSignal) goError->HandleException(oFatal.sRecord);
  raise(nSignal);
}

}  // namespace

void ExceptionFilter::Install() {
  LogUncaughtExceptions();
  stack_t oStack = {};
  oStack.ss_sp = acStack.data();
  oStack.ss_size = acStack.size();
  sigaltstack(&oStack, nullptr);
  struct sigaction oAction = {};
  oAction.sa_handler = OnFatal;
  oAction.sa_flags = static_cast<int>(SA_ONSTACK | SA_RESETHAND | SA_NODEFER);
  for (const FatalSignal& oFatal : Fatal) sigaction(oFatal.nSignal, &oAction, nullptr);
}

// A program keeps its filter until it ends.
void ExceptionFilter::Remove() {}
