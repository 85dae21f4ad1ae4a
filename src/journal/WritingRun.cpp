#include "WritingRun.h"

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "Failure.h"
#include "LocalTime.h"
#include "PathText.h"
#include "Process.h"
#include "SignalHold.h"
#include "SystemPaths.h"

namespace {

using State = RunStore::State;

std::string FolderOfRuns() {
  return DefaultStateFolder() + "/runs";
}
std::string FolderOfLocks() {
  return DefaultStateFolder() + "/locks";
}

std::vector<std::string> RealPaths(const std::vector<std::string>& paths) {
  std::vector<std::string> real;
  for (const std::string& path : paths) {
    std::error_code error;
    const auto found = std::filesystem::weakly_canonical(path, error);
    real.push_back(error ? path : found.generic_string());
    if (real.back().size() > 1 && real.back().back() == '/') real.back().pop_back();
  }
  return real;
}

bool IsBrokenOff(const RunStore::Run& run) {
  return run.state == State::Writing || run.state == State::TakingBack;
}

std::string NameOf(const RunStore::Run& run) {
  return ShownPath(run.head.command) + " of " + LocalTime(run.head.startedAt);
}

std::string Files(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " file" : " files");
}

std::string MessageOf(const RunStore::Run& run, const TakenBack& result) {
  const std::string what = run.state == State::TakingBack ? "The taking back of " : "";
  return what + NameOf(run) + " was broken off. " +
         (result.restored.empty()
              ? "It had replaced no file"
              : "It is taken back now: " + Files(result.restored.size()) + " as before");
}

}  // namespace

RunStore UserRuns(IFileOps& files) {
  return RunStore(FolderOfRuns(), files);
}

WritingRun::WritingRun(const std::vector<std::string>& paths, const std::string& command,
                       int seconds, IFileOps& files)
    : mFiles(files),
      mHead{command, std::time(nullptr), ProcessNumber(), RealPaths(paths)},
      mLimits(ReadUndoLimits()) {
  if (DefaultStateFolder().empty()) {
    mMessages.push_back("There is no home folder for records: this run can't be taken back");
    return;
  }
  Begin(seconds);
  if (mStore) MendKilled();
}

void WritingRun::Begin(int seconds) {
  std::error_code error;
  std::filesystem::create_directories(FolderOfLocks(), error);
  if (error || !IsWritableFolder(FolderOfLocks())) {
    mMessages.push_back(ShownPath(FolderOfLocks()) +
                        " can't be written: this run can't be taken back");
    return;
  }
  mLock.emplace(FolderOfLocks(), mHead, seconds);
  mStore.emplace(UserRuns(mFiles));
  if (mLimits.runs > 0) mJournal.emplace(*mStore, mHead, mFiles);
}

WritingRun::~WritingRun() {
  mJournal.reset();
  // Where nothing is recorded, what was before stays for those settings under which it was.
  if (mStore && mLimits.runs > 0) mStore->Prune(mLimits, std::time(nullptr));
}

void WritingRun::MendKilled() {
  for (RunStore::Run& run : mStore->RunsOf(mHead.groups))
    if (IsBrokenOff(run)) Mend(run);
  for (const std::string& path : mStore->Unreadable())
    mMessages.push_back(
        ShownPath(path) +
        ": the record of a run that was broken off can't be read, not even of which "
        "group; look whether the files are whole, then remove the record");
}

void WritingRun::Mend(RunStore::Run& run) {
  const RunRecord record = mStore->Read(run);
  // Its end was written, and then it was killed.
  if (record.isComplete && run.state == State::Writing)
    return mStore->SetState(run, State::Complete);
  const SignalHold hold;
  const TakenBack result = TakeBack(record, mFiles);
  mMessages.push_back(MessageOf(run, result));
  for (const TakenBack::Left& left : result.left)
    mMessages.push_back(ShownPath(left.path) + ": not taken back: " + left.why.what());
  mHasMended = true;
  mHasLeft = mHasLeft || !result.left.empty();
  mStore->SetState(run, State::TakenBack);
}

std::vector<RunStore::Run> WritingRun::Runs() const {
  if (!mStore) return {};
  return RunsToTakeBack(mHead.groups);
}

TakenBack WritingRun::Undo(RunStore::Run run) {
  const RunRecord record = mStore->Read(run);
  const State before = run.state;
  mStore->SetState(run, State::TakingBack);
  try {
    TakenBack result = TakeBack(record, mFiles);
    mStore->SetState(run, State::TakenBack);
    return result;
  } catch (const Failure&) {
    mStore->SetState(run, before);
    throw;
  }
}

std::vector<RunStore::Run> RunsToTakeBack(const std::vector<std::string>& paths) {
  if (DefaultStateFolder().empty()) return {};
  std::vector<RunStore::Run> runs = UserRuns().RunsOf(RealPaths(paths));
  std::erase_if(runs, IsBrokenOff);
  return runs;
}

std::vector<std::string> TellKilledRuns(const std::vector<std::string>& paths) {
  std::vector<std::string> messages;
  if (DefaultStateFolder().empty()) return messages;
  for (const RunStore::Run& run : UserRuns().RunsOf(RealPaths(paths)))
    if (IsBrokenOff(run) && !RunLock::IsHeld(FolderOfLocks(), run.head.groups))
      messages.push_back(NameOf(run) +
                         " was broken off: the next command that writes takes it back first, or "
                         "quillon undo does");
  return messages;
}
