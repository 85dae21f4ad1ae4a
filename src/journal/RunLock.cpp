#include "RunLock.h"

#include <chrono>
#include <filesystem>
#include <set>

#include "AtomicFile.h"
#include "Failure.h"
#include "FileFailure.h"
#include "LocalTime.h"
#include "PackedBytes.h"
#include "PathText.h"

namespace {

namespace fs = std::filesystem;

/// In one order, so that two runs never wait for each other.
std::set<std::string> FoldersOf(const std::vector<std::string>& groups) {
  std::set<std::string> folders;
  std::error_code error;
  for (const std::string& group : groups)
    folders.insert(fs::is_directory(group, error) ? group : FileFailure::FolderOf(group));
  return folders;
}

std::string LockFile(const std::string& folder, const std::string& locked) {
  return folder + '/' + std::to_string(MarkOf(locked).sum);
}

[[noreturn]] void Refuse(const std::string& file, const std::string& locked) {
  const std::string holder = AtomicFile::Read(file);
  throw Failure(70,
                u"Another run is at work in " + TextOfPath(locked) + u" (" + FromUtf8(holder) +
                    u"); wait for it, or give it more time with --wait SECONDS",
                u"RunLock");
}

}  // namespace

RunLock::RunLock(const std::string& folder, const RunHead& head, int seconds) {
  using namespace std::chrono;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) FileFailure::ThrowWrite(error.value(), folder, SystemFileOps());
  const auto end = steady_clock::now() + std::chrono::seconds(seconds);
  for (const std::string& locked : FoldersOf(head.groups)) {
    const std::string file = LockFile(folder, locked);
    const auto left = duration_cast<milliseconds>(end - steady_clock::now()).count();
    auto lock = FileLock::Try(file, static_cast<int>(std::max<std::int64_t>(left, 0)));
    if (!lock) Refuse(file, locked);
    lock->Note("process " + std::to_string(head.process) + ", " + ShownPath(head.command) +
               ", since " + LocalTime(head.startedAt));
    mLocks.push_back(std::move(lock));
  }
}

bool RunLock::IsHeld(const std::string& folder, const std::vector<std::string>& groups) {
  std::error_code error;
  for (const std::string& locked : FoldersOf(groups)) {
    const std::string file = LockFile(folder, locked);
    if (fs::exists(file, error) && !FileLock::Try(file, 0)) return true;
  }
  return false;
}
