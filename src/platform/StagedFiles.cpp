#include "StagedFiles.h"

#include <cerrno>
#include <map>

#include "FileFailure.h"

namespace {

/// Files that are open at a time; a process may often have no more than 1,024.
constexpr std::size_t BatchSize = 256;

/// False when the renames in a folder may not last.
bool FlushesFolder(const std::string& folder, IFileOps& files) {
  const int error = files.FlushFolder(folder);
  // Other errors mean that folders can't be flushed on this system or by this user: not a failure.
  return error != EIO && error != ENOSPC && error != EDQUOT;
}

}  // namespace

/// Runs a step of a file that hasn't failed, and keeps its failure.
template <class Step>
void StagedFiles::Take(Entry& entry, Step&& step) {
  if (entry.failure) return;
  try {
    step(entry.file);
  } catch (const Failure& failure) {
    entry.failure = failure;
  }
}

void StagedFiles::Stage(const std::string& path, std::string_view bytes) {
  if (mEntries.size() - mFlushed == BatchSize) Flush();
  mEntries.emplace_back(path, bytes, mFiles).file.StartFlush();
}

void StagedFiles::Flush() {
  for (; mFlushed < mEntries.size(); ++mFlushed) {
    Take(mEntries[mFlushed], [](StagedFile& file) { file.Flush(); });
  }
}

void StagedFiles::Commit(std::size_t number) {
  Entry& entry = mEntries[number];
  Take(entry, [](StagedFile& file) { file.Commit(); });
  entry.isCommitted = !entry.failure;
}

void StagedFiles::Discard(std::size_t number, const Failure& reason) {
  mEntries[number].file.Discard();
  mEntries[number].failure = reason;
}

void StagedFiles::FlushFolders() {
  std::map<std::string, bool> lasting;  // by folder
  for (Entry& entry : mEntries) {
    if (!entry.isCommitted) continue;
    const std::string& target = entry.file.Target();
    const auto [folder, isNew] = lasting.try_emplace(FileFailure::FolderOf(target));
    if (isNew) folder->second = FlushesFolder(folder->first, mFiles);
    if (!folder->second) entry.failure = FileFailure::MayNotLast(target);
  }
}

const Failure* StagedFiles::FailureOf(std::size_t number) const {
  const std::optional<Failure>& failure = mEntries[number].failure;
  return failure ? &*failure : nullptr;
}
