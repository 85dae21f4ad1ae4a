#include "StagedFiles.h"

#include <cerrno>
#include <set>

#include "FileFailure.h"

namespace {

/// Files that are open at a time: a small part of what a process may have. More aren't quicker.
constexpr std::size_t OpenAtATime = 32;
/// Fewer than these are flushed one by one.
constexpr std::size_t ManyFiles = 8;
static_assert(ManyFiles <= OpenAtATime);

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
  if (mEntries.size() - mReleased == OpenAtATime) Release(mEntries[mReleased++]);
  Entry& entry = mEntries.emplace_back(path, bytes, mFiles);
  entry.file.StartFlush();
  if (const auto system = entry.file.FileSystem()) mWritten[*system].push_back(&entry);
}

/// Lets go of the handle, where a flush of the file system can do without it.
void StagedFiles::Release(Entry& entry) {
  const auto system = entry.file.FileSystem();
  if (!system) return Take(entry, [](StagedFile& file) { file.Flush(); });
  if (mWritten[*system].front() == &entry) return;
  Take(entry, [](StagedFile& file) { file.FlushBytes(), file.Close(); });
}

void StagedFiles::Flush() {
  for (; mReleased < mEntries.size(); ++mReleased) {
    Entry& entry = mEntries[mReleased];
    if (!entry.file.FileSystem()) Release(entry);
  }
  for (auto& [system, entries] : mWritten) {
    if (entries.size() >= ManyFiles && FlushTogether(entries)) continue;
    for (Entry* entry : entries) Take(*entry, [](StagedFile& file) { file.Flush(); });
  }
}

bool StagedFiles::FlushTogether(const std::vector<Entry*>& entries) {
  Entry& first = *entries.front();
  for (Entry* entry : entries) {
    Take(*entry, [&](StagedFile& file) {
      file.FlushBytes();
      if (entry != &first) file.Close();
    });
  }
  return first.file.FlushFileSystem() == 0;
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
  std::set<std::optional<std::uint64_t>> flushed;
  for (const auto& [system, entries] : mWritten) {
    if (entries.front()->file.FlushFileSystem() == 0) flushed.insert(system);
  }
  std::map<std::string, bool> lasting;  // by folder
  for (Entry& entry : mEntries) {
    if (!entry.isCommitted || flushed.contains(entry.file.FileSystem())) continue;
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
