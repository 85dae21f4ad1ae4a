// The command-line program: start-up in its order, one command, the exit status.
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
#include "ProgramStart.h"
#include "RegistryStore.h"
#include "Session.h"
#include "TeamFile.h"

namespace {

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

/// What the file of the team adds. Explain without a path is about rules alone.
void AddTeamFile(Arguments& arguments) {
  using Group = Command::Group;
  const Group group = arguments.command->group;
  if (group == Group::None) return;
  if (group == Group::Here && arguments.asPath.empty()) arguments.asPath = {"."};
  if (group == Group::Optional && arguments.asPath.empty()) return;
  const auto file = TeamFile::Find(arguments.asPath.empty() ? "." : arguments.asPath.front());
  if (file) {
    file->ApplyTo(arguments);
    file->ApplyRules(arguments);
  }
  if (arguments.asPath.empty()) throw Stop{"PATH is required, or groups in quillon.toml"};
}

int Run(Arguments& arguments, Console& console, Output& output) {
  try {
    RegistryStore store(arguments.oSettingsFile.value_or(DefaultSettingsPath()));
    goRegistry = &store;
    StartUp(arguments, store, console);
    AddTeamFile(arguments);
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
  PrepareStreams();
  InstallExceptionFilter();
  std::vector<std::string> arguments = ProgramArguments(argc, argv);
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  return Main(static_cast<int>(arguments.size()), pointers.data());
}
