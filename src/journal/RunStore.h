// The folder in which the records of runs are kept, a file each. The name tells when the run began,
// which process it was, and, by its end, how far it came:
//
//   .writing     it replaces files, or was killed while it did
//   .run         it is complete and can be taken back
//   .undoing     it is being taken back, or was when the program was killed
//   .undone      it was taken back
//
// The records hold source code, so that only their owner may read the folder.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "IFileOps.h"
#include "RunRecord.h"

/// What is kept. No runs at all: nothing is recorded.
struct UndoLimits {
  std::int32_t runs = 20;  ///< of each group
  std::int32_t days = 30;
  std::int32_t megabytes = 256;  ///< of all together; the latest run of all stays in any case
};

/// The user's settings: key "Undo", values "Kept Runs", "Kept Days", "Kept Megabytes".
UndoLimits ReadUndoLimits();

/// $XDG_STATE_HOME/tarvane-quillon, or under ~/.local/state; empty without a home.
std::string DefaultStateFolder();

class RunStore {
 public:
  enum class State { Writing, Complete, TakingBack, TakenBack };
  struct Run {
    std::string path;
    State state = State::Complete;
    RunHead head;
  };

  /// folder: need not exist yet.
  RunStore(std::string folder, IFileOps& files) : mFolder(std::move(folder)), mFiles(files) {}

  /// Where a run that begins now is recorded. Makes the folder; Failure with its path.
  std::string NewPath(const RunHead& head) const;
  /// Those that had to do with one of the groups, the latest first: one that was given the same
  /// file or folder, or the folder of a file, or a file of the folder.
  std::vector<Run> RunsOf(const std::vector<std::string>& groups) const;
  /// Records of runs that were broken off and whose groups can't be told: damaged from the start,
  /// or of another version of the program.
  std::vector<std::string> Unreadable() const;
  /// The record of a run that wrote. Failure with its path when not all of it can be read: of a
  /// complete run, or one of another version of the program, or damaged.
  RunRecord Read(const Run& run) const;
  /// Failure with the path.
  void SetState(Run& run, State state) const;
  /// Removes what is beyond the limits; never a run that isn't complete, unless its program was
  /// killed before it could have replaced anything. Never fails.
  void Prune(const UndoLimits& limits, std::int64_t now) const;

 private:
  std::vector<Run> All() const;
  bool ReadHead(Run& run) const;
  /// Its program was killed before it could have replaced anything.
  bool IsBeginning(const Run& run) const;

  std::string mFolder;
  IFileOps& mFiles;
};
