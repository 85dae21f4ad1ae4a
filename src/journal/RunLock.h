// One run at a time: locks for the groups that a run was given, held for the life of the object.
// The system lets go of them when the process ends, however it ends.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "FileLock.h"
#include "RunRecord.h"

class RunLock {
 public:
  /// A group's lock is that of its folder, so that a folder, a group in it and a project in it
  /// exclude each other. Waits so many seconds at most in all; then Failure 70, which says who
  /// holds it. folder: where the lock files are; it is made.
  RunLock(const std::string& folder, const RunHead& head, int seconds);

  /// True when a run is at work on one of the groups. Never fails.
  static bool IsHeld(const std::string& folder, const std::vector<std::string>& groups);

 private:
  std::vector<std::unique_ptr<FileLock>> mLocks;
};
