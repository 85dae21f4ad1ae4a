// A run that may write, from its beginning to its end: it has the groups to itself, what a killed
// run left in them is taken back first, and there is a journal for what it writes.
//
//   WritingRun run({"/src/Orders.vbg"}, "quillon refresh Orders.vbg", 5);   // ahead of reading
//   for (const std::string& message : run.Messages()) ...
//   ide->Save(run.Journal());
//
// Without a home folder, or where it can't be written, there is neither lock nor record; a message
// says so.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "RunJournal.h"
#include "RunLock.h"
#include "RunStore.h"
#include "TakeBack.h"

class WritingRun {
 public:
  /// Waits so many seconds at most for another run on these groups, then Failure 70. Failure also
  /// for a record of a killed run that can't be read: it has to be dealt with first.
  WritingRun(const std::vector<std::string>& paths, const std::string& command, int seconds,
             IFileOps& files = SystemFileOps());
  /// Removes what is no longer kept.
  ~WritingRun();

  /// For the user, a line each.
  const std::vector<std::string>& Messages() const { return mMessages; }
  /// A run that was killed was taken back.
  bool HasMended() const { return mHasMended; }
  /// Files of it were left alone; the messages name them.
  bool HasLeft() const { return mHasLeft; }
  /// Null when nothing is recorded.
  RunJournal* Journal() { return mJournal ? &*mJournal : nullptr; }

  /// Runs that can be taken back and those that were, the latest first.
  std::vector<RunStore::Run> Runs() const;
  RunRecord Read(const RunStore::Run& run) const { return mStore->Read(run); }
  /// A run that is taken back counts as such even when files of it were left; taking it back again
  /// tries these once more.
  TakenBack Undo(RunStore::Run run);

 private:
  void Begin(int seconds);
  void MendKilled();
  void Mend(RunStore::Run& run);

  IFileOps& mFiles;
  RunHead mHead;
  UndoLimits mLimits;
  std::vector<std::string> mMessages;
  bool mHasMended = false, mHasLeft = false;
  std::optional<RunLock> mLock;
  std::optional<RunStore> mStore;
  std::optional<RunJournal> mJournal;
};

/// For commands that only read: a line for each killed run of these groups that the next writing
/// one takes back. Changes nothing, never fails.
std::vector<std::string> TellKilledRuns(const std::vector<std::string>& paths);
/// Runs of the groups as WritingRun::Runs gives them, without having them to itself.
std::vector<RunStore::Run> RunsToTakeBack(const std::vector<std::string>& paths);
/// The store of the user's runs.
RunStore UserRuns(IFileOps& files = SystemFileOps());
