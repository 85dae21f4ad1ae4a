// undo: takes recorded runs back, or lists them.
#include <algorithm>
#include <charconv>

#include "Commands.h"
#include "Differences.h"
#include "LocalTime.h"
#include "SignalHold.h"
#include "Table.h"
#include "VisibleText.h"
#include "WritingRun.h"

namespace {

using Run = RunStore::Run;
using Runs = std::vector<Run>;

std::string Files(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " file" : " files");
}

std::vector<std::string> PathsOf(const Arguments& arguments) {
  return arguments.asPath.empty() ? std::vector<std::string>{"."} : arguments.asPath;
}

/// A record that can't be read keeps its place, so that the numbers of the others stay.
std::string FilesIn(const Run& run) {
  try {
    return Files(UserRuns().Read(run).files.size());
  } catch (const Failure&) {
    return "damaged";
  }
}

void List(Session& session, const Runs& runs) {
  std::vector<std::vector<std::string>> rows;
  for (const Run& run : runs)
    rows.push_back({std::to_string(rows.size() + 1), LocalTime(run.head.startedAt), FilesIn(run),
                    run.state == RunStore::State::TakenBack ? "taken back" : "",
                    VisibleText(ShownPath(run.head.command))});
  TextTable table(5);
  for (const auto& row : rows) table.Measure(row);
  for (const auto& row : rows) table.Append(row, session.oOutput.Buffer());
  session.oOutput.Flush();
}

/// The run that was asked for, else the latest that wasn't taken back yet.
const Run& Chosen(const Arguments& arguments, const Runs& runs) {
  const std::string& text = arguments.sRun;
  if (text.empty()) {
    const auto run = std::find_if(runs.begin(), runs.end(), [](const Run& candidate) {
      return candidate.state == RunStore::State::Complete;
    });
    if (run != runs.end()) return *run;
    throw Stop{"There is no run to take back in " + ShownPath(PathsOf(arguments).front()) +
               "; quillon undo --list shows those that were"};
  }
  std::size_t number = 0;
  const auto end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number > 0 && number <= runs.size())
    return runs[number - 1];
  throw Stop{"There is no run " + text + ": quillon undo --list shows their numbers"};
}

void TellMessages(Session& session, const std::vector<std::string>& messages) {
  for (const std::string& message : messages) session.oConsole.Error("quillon: " + message);
}

TakenBack Try(Session& session, const Run& run) {
  const bool shows = session.oArguments.bDiff;
  const TakenBack result =
      TryTakeBack(UserRuns().Read(run), SystemFileOps(),
                  [&](const std::string& path, const std::string& now, const std::string& before) {
                    if (shows) PutDifference(session, path, now, before);
                  });
  if (shows) EndDifferences(session);
  return result;
}

int Account(Session& session, const TakenBack& result, const char* what) {
  for (const std::string& path : result.restored)
    session.oConsole.Detail("Taken back: " + ShownFile(path));
  for (const TakenBack::Left& left : result.left)
    session.oConsole.Error(
        Placed(ShownFile(left.path), 0, "not taken back: " + ToUtf8(left.why.Description())));
  std::string total = Files(result.restored.size()) + what;
  if (result.unchanged > 0) total += ", " + Files(result.unchanged) + " as before already";
  if (!result.left.empty()) total += ", " + Files(result.left.size()) + " left alone";
  session.oConsole.Say(total);
  return result.left.empty() ? 0 : 1;
}

std::string Title(const Run& run) {
  return ShownPath(run.head.command) + " of " + LocalTime(run.head.startedAt);
}

int TakeBackRun(Session& session) {
  const Arguments& arguments = session.oArguments;
  WritingRun own(PathsOf(arguments), arguments.sCommandLine, arguments.WaitSeconds());
  TellMessages(session, own.Messages());
  // The run that was broken off was the last one; what came before it wasn't meant.
  if (own.HasMended()) return own.HasLeft() ? 1 : 0;
  const Runs runs = own.Runs();
  const Run& run = Chosen(arguments, runs);
  session.oConsole.Say("Taking back: " + Title(run));
  if (arguments.bDiff) Try(session, run);
  const SignalHold hold;
  const int status = Account(session, own.Undo(run), " taken back");
  session.oConsole.Flush();
  return status;
}

}  // namespace

int UndoCommand(Session& session) {
  const Arguments& arguments = session.oArguments;
  if (!arguments.bList && !arguments.bDryRun) return TakeBackRun(session);
  TellMessages(session, TellKilledRuns(PathsOf(arguments)));
  const Runs runs = RunsToTakeBack(PathsOf(arguments));
  if (arguments.bList) {
    List(session, runs);
    return 0;
  }
  const Run& run = Chosen(arguments, runs);
  session.oConsole.Say("Nothing is written: " + Title(run));
  return Account(session, Try(session, run), " would be taken back");
}
