// Gives the files of a recorded run their bytes of before: those that still hold what the run
// wrote. What holds its bytes of before already stays; what was changed since, or can't be
// replaced, is left alone and named. As safe as any save: new files are complete and on the disk
// before the first of them is renamed, and when it was broken off, doing it again ends it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Failure.h"
#include "IFileOps.h"
#include "RunRecord.h"

struct TakenBack {
  struct Left {
    std::string path;
    Failure why;
  };
  std::vector<std::string> restored;
  std::vector<Left> left;
  std::size_t unchanged = 0;  ///< that held their bytes of before
};

/// Failure 18 when a signal that is held back asked for the end, ahead of the first rename.
TakenBack TakeBack(const RunRecord& record, IFileOps& files);

using ShowBack =
    std::function<void(const std::string& path, const std::string& now, const std::string& before)>;
/// Changes nothing: shows one file after the other that would be restored.
TakenBack TryTakeBack(const RunRecord& record, IFileOps& files, const ShowBack& show);
