#include "ProgramStart.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "IErrorRuntime.h"

namespace {

constexpr std::array FatalSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
std::array<struct sigaction, FatalSignals.size()> oldActions;

/// Hands the end of the program to the error log, then to whoever handled it before.
extern "C" void OnFatalSignal(int signalNumber) {
  for (std::size_t i = 0; i < FatalSignals.size(); ++i)
    if (FatalSignals[i] == signalNumber) sigaction(signalNumber, &oldActions[i], nullptr);
  switch (signalNumber) {
    case SIGSEGV:
      goError->HandleException(u"Signal SIGSEGV");
      break;
    case SIGBUS:
      goError->HandleException(u"Signal SIGBUS");
      break;
    case SIGFPE:
      goError->HandleException(u"Signal SIGFPE");
      break;
    case SIGILL:
      goError->HandleException(u"Signal SIGILL");
      break;
    default:
      goError->HandleException(u"Signal SIGABRT");
      break;
  }
  raise(signalNumber);
}

/// A file that is opened while one of the three standard streams is closed would take its place,
/// and messages would be written into it. Output to these stand-ins fails, as it has to.
void KeepStandardStreams() {
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1 && errno == EBADF)
      while (open("/dev/null", O_RDONLY) < stream && fcntl(stream, F_GETFD) == -1) {
      }
}

}  // namespace

void PrepareStreams() {
  KeepStandardStreams();
  signal(SIGPIPE, SIG_IGN);
}

void InstallExceptionFilter() {
  struct sigaction action = {};
  action.sa_handler = OnFatalSignal;
  for (std::size_t i = 0; i < FatalSignals.size(); ++i)
    sigaction(FatalSignals[i], &action, &oldActions[i]);
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv, argv + argc};
}
