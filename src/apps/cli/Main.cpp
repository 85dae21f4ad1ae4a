// The command-line program: start-up in its order, one command, the exit status.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstring>
#include <memory>

#include "Arguments.h"
#include "CXRecent.h"
#include "CommandTable.h"
#include "ErrorRuntime.h"
#include "Failure.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "PrintedErrorDialog.h"
#include "RegistryStore.h"
#include "Session.h"

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

void InstallExceptionFilter() {
  struct sigaction action = {};
  action.sa_handler = OnFatalSignal;
  for (std::size_t i = 0; i < FatalSignals.size(); ++i)
    sigaction(FatalSignals[i], &action, &oldActions[i]);
}

/// A file that is opened while one of the three standard streams is closed would take its place,
/// and messages would be written into it. Output to these stand-ins fails, as it has to.
void KeepStandardStreams() {
  for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1 && errno == EBADF)
      while (open("/dev/null", O_RDONLY) < stream && fcntl(stream, F_GETFD) == -1) {
      }
}

/// Messages of the error run-time, in their place among those of the command.
class ConsoleDialog : public PrintedErrorDialog {
 public:
  explicit ConsoleDialog(Console& console) : PrintedErrorDialog(stderr), mConsole(console) {}
  void Tell(std::string_view message) override {
    mConsole.ProgressEnd();
    mConsole.Flush();
    PrintedErrorDialog::Tell(message);
  }

 private:
  Console& mConsole;
};

void StartErrorRuntime(ErrorRuntime& runtime, const Arguments& arguments, const char* program) {
  runtime.SetApplicationName(u"TarvaneQuillon");
  runtime.SetApplicationPath(TextOfPath(program));
  runtime.SetDevelopmentMode(false);
  runtime.SetTraceEnabled(arguments.bTrace);
  runtime.Start();
  goError = &runtime;
}

void StartUp(const Arguments& arguments, const RegistryStore& store, Console& console) {
  for (const RegistryStore::Problem& problem : store.Problems())
    console.Error(Placed(ShownPath(store.Path()), static_cast<std::int64_t>(problem.lLine),
                         ToUtf8(problem.sMessage)));
  bool isNamed = arguments.oSettingsFile && !arguments.oSettingsFile->empty();
  if (isNamed && !arguments.command->makesSettings && !MXFile::FileExists(TextOfPath(store.Path())))
    throw Stop{ShownPath(store.Path()) +
               ": there is no such settings file; --settings \"\" takes the defaults"};
  MQuillon::Initialize();
  MRules::Initialize();
  MOptions::Initialize();
}

int Run(const Arguments& arguments, Console& console, Output& output) {
  try {
    RegistryStore store(arguments.oSettingsFile.value_or(DefaultSettingsPath()));
    goRegistry = &store;
    StartUp(arguments, store, console);
    // Never freed: a hundred thousand records would be taken apart one by one just before the end.
    static Session* const session = std::make_unique<Session>(arguments, console, output).release();
    return arguments.command->run(*session);
  } catch (const Stop& stop) {
    console.Error("quillon: " + stop.sMessage);
    return stop.nExit;
  } catch (const Failure& failure) {
    console.Error("quillon: " + ToUtf8(failure.Description()));
  } catch (const std::bad_alloc&) {
    console.Error("quillon: Out of memory");
  } catch (const std::exception& error) {
    console.Error(std::string("quillon: ") + error.what());
  }
  return 2;
}

Console::Level LevelOf(const Arguments& arguments) {
  if (arguments.bQuiet) return Console::Level::Quiet;
  return arguments.bVerbose ? Console::Level::Verbose : Console::Level::Normal;
}

int Main(int argc, char** argv) {
  Arguments arguments;
  if (std::optional<int> ended = ReadArguments(argc, argv, arguments)) return *ended;
  Console console(LevelOf(arguments));
  ConsoleDialog dialog(console);
  ErrorRuntime runtime(dialog, arguments.sLogFile);
  StartErrorRuntime(runtime, arguments, argv[0]);
  Output output;
  int exitStatus = Run(arguments, console, output);
  output.Flush();
  if (int error = output.Error()) {
    console.Error(std::string("quillon: The result can't be written: ") + std::strerror(error));
    exitStatus = 2;
  }
  return exitStatus;
}

}  // namespace

int main(int argc, char** argv) {
  KeepStandardStreams();
  signal(SIGPIPE, SIG_IGN);
  InstallExceptionFilter();
  return Main(argc, argv);
}
