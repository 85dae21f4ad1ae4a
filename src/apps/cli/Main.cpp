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
std::array<struct sigaction, FatalSignals.size()> aoOldActions;

/// Hands the end of the program to the error log, then to whoever handled it before.
extern "C" void OnFatalSignal(int nSignal) {
  for (std::size_t i = 0; i < FatalSignals.size(); ++i)
    if (FatalSignals[i] == nSignal) sigaction(nSignal, &aoOldActions[i], nullptr);
  switch (nSignal) {
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
  raise(nSignal);
}

void InstallExceptionFilter() {
  struct sigaction oAction = {};
  oAction.sa_handler = OnFatalSignal;
  for (std::size_t i = 0; i < FatalSignals.size(); ++i)
    sigaction(FatalSignals[i], &oAction, &aoOldActions[i]);
}

/// A file that is opened while one of the three standard streams is closed would take its place,
/// and messages would be written into it. Output to these stand-ins fails, as it has to.
void KeepStandardStreams() {
  for (int hStream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(hStream, F_GETFD) == -1 && errno == EBADF)
      while (open("/dev/null", O_RDONLY) < hStream && fcntl(hStream, F_GETFD) == -1) {
      }
}

/// Messages of the error run-time, in their place among those of the command.
class ConsoleDialog : public PrintedErrorDialog {
 public:
  explicit ConsoleDialog(Console& oConsole) : PrintedErrorDialog(stderr), moConsole(oConsole) {}
  void Tell(std::string_view sMessage) override {
    moConsole.ProgressEnd();
    moConsole.Flush();
    PrintedErrorDialog::Tell(sMessage);
  }

 private:
  Console& moConsole;
};

void StartErrorRuntime(ErrorRuntime& oRuntime, const Arguments& oArguments, const char* sProgram) {
  oRuntime.SetApplicationName(u"TarvaneQuillon");
  oRuntime.SetApplicationPath(TextOfPath(sProgram));
  oRuntime.SetDevelopmentMode(false);
  oRuntime.SetTraceEnabled(oArguments.bTrace);
  oRuntime.Start();
  goError = &oRuntime;
}

void StartUp(const Arguments& oArguments, const RegistryStore& oStore, Console& oConsole) {
  for (const RegistryStore::Problem& oProblem : oStore.Problems())
    oConsole.Error(Finding(ShownPath(oStore.Path()), static_cast<std::int64_t>(oProblem.lLine),
                           ToUtf8(oProblem.sMessage)));
  bool bNamed = oArguments.oSettingsFile && !oArguments.oSettingsFile->empty();
  if (bNamed && !oArguments.command->makesSettings &&
      !MXFile::FileExists(TextOfPath(oStore.Path())))
    oConsole.Say(ShownPath(oStore.Path()) + ": there is no such settings file, the defaults apply");
  MQuillon::Initialize();
  MRules::Initialize();
  MOptions::Initialize();
}

int Run(const Arguments& oArguments, Console& oConsole, Output& oOutput) {
  try {
    RegistryStore oStore(oArguments.oSettingsFile.value_or(DefaultSettingsPath()));
    goRegistry = &oStore;
    StartUp(oArguments, oStore, oConsole);
    // Never freed: a hundred thousand records would be taken apart one by one just before the end.
    static Session* const poSession =
        std::make_unique<Session>(oArguments, oConsole, oOutput).release();
    return oArguments.command->run(*poSession);
  } catch (const Stop& oStop) {
    oConsole.Error("quillon: " + oStop.sMessage);
    return oStop.nExit;
  } catch (const Failure& oFailure) {
    oConsole.Error("quillon: " + ToUtf8(oFailure.Description()));
  } catch (const std::bad_alloc&) {
    oConsole.Error("quillon: Out of memory");
  } catch (const std::exception& oError) {
    oConsole.Error(std::string("quillon: ") + oError.what());
  }
  return 2;
}

Console::Level LevelOf(const Arguments& oArguments) {
  if (oArguments.bQuiet) return Console::Level::Quiet;
  return oArguments.bVerbose ? Console::Level::Verbose : Console::Level::Normal;
}

int Main(int argc, char** argv) {
  Arguments oArguments;
  if (std::optional<int> oExit = ReadArguments(argc, argv, oArguments)) return *oExit;
  Console oConsole(LevelOf(oArguments));
  ConsoleDialog oDialog(oConsole);
  ErrorRuntime oRuntime(oDialog, oArguments.sLogFile);
  StartErrorRuntime(oRuntime, oArguments, argv[0]);
  Output oOutput;
  int nExit = Run(oArguments, oConsole, oOutput);
  oOutput.Flush();
  if (int nError = oOutput.Error()) {
    oConsole.Error(std::string("quillon: The result can't be written: ") + std::strerror(nError));
    nExit = 2;
  }
  return nExit;
}

}  // namespace

int main(int argc, char** argv) {
  KeepStandardStreams();
  signal(SIGPIPE, SIG_IGN);
  InstallExceptionFilter();
  return Main(argc, argv);
}
