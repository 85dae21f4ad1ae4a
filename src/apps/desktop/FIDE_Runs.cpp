// Saving as a run of its own, and taking a run back.
#include <algorithm>

#include "BoxText.h"
#include "FIDE.h"
#include "Failure.h"
#include "LocalTime.h"
#include "PathText.h"
#include "SignalHold.h"
#include "WritingRun.h"

namespace {

/// A person waits in front of a window that stands still.
constexpr int WaitSeconds = 2;

Text NameOf(const RunStore::Run& run) {
  return FromUtf8(ShownPath(run.head.command) + " of " + LocalTime(run.head.startedAt));
}

}  // namespace

DiskIDE::SaveResult FIDE::SaveAsRun() {
  const std::string group = PathOfText(msGroup);
  WritingRun run({group}, "quillon-desktop " + group, WaitSeconds);
  TellRun(run.Messages());
  const SignalHold hold;
  return mpIDE->Save(run.Journal());
}

// What such a run left is a mixture of old and new files, to be put right ahead of reading them.
void FIDE::OfferToMend(const std::string& group) {
  const std::vector<std::string> runs = TellKilledRuns({group});
  if (runs.empty()) return;
  Text question;
  for (const std::string& run : runs) question += FromUtf8(run) + u".\r\n\r\n";
  question += u"Some of its files may be new and others old. Take it back now, ahead of opening?";
  if (!IsYes(question)) return;
  try {
    const WritingRun own({group}, "quillon-desktop " + group, WaitSeconds);
    TellRun(own.Messages());
  } catch (const Failure& failure) {
    Tell(u"Nothing was taken back.\r\n\r\n" + failure.Description());
  }
}

void FIDE::TellRun(const std::vector<std::string>& messages) {
  if (messages.empty()) return;
  Text text;
  for (const std::string& message : messages) text += FromUtf8(message) + u"\r\n";
  Tell(text);
}

void FIDE::mnuFileUndo_Click() {
  try {
    WritingRun own({PathOfText(msGroup)}, "quillon-desktop", WaitSeconds);
    TellRun(own.Messages());
    if (!own.HasMended()) TakeBackLast(own);
  } catch (const Failure& failure) {
    Tell(u"Nothing was taken back.\r\n\r\n" + failure.Description());
  }
  Refresh();
}

void FIDE::TakeBackLast(WritingRun& own) {
  const auto runs = own.Runs();
  const auto run = std::find_if(runs.begin(), runs.end(), [](const RunStore::Run& candidate) {
    return candidate.state == RunStore::State::Complete;
  });
  if (run == runs.end()) return Tell(u"There is no run on this group to take back.");
  const Text question = u"This run wrote last:\r\n\r\n" + NameOf(*run) +
                        u"\r\n\r\nIts files get their text of before. Those that were changed "
                        u"since are left alone. Take it back?";
  if (!IsYes(question)) return;
  const SignalHold hold;
  const TakenBack result = own.Undo(*run);
  if (result.left.empty()) return;
  std::vector<Text> left;
  for (const TakenBack::Left& file : result.left) left.push_back(file.why.Description());
  Tell(u"These files were left alone:\r\n\r\n" + BoxList(left, u"\r\n\r\n"));
}
