// Replaces many files in few flushes: all new files are written first, then flushed, then renamed,
// then the renames are flushed. At every moment each file is the old one or the new one, whole.
//
//   StagedFiles staged(files);
//   for (...) staged.Stage(path, bytes);                            // throws for that file alone
//   staged.Flush();
//   for (std::size_t i = 0; i < staged.Count(); ++i) staged.Commit(i);
//   staged.FlushFolders();
//   if (const Failure* failure = staged.FailureOf(i)) ...            // that file is as it was
//
// The disk begins with a file as soon as it is written. A few files are then flushed one by one,
// because the flush of a whole file system waits for what other programs write as well. Many cost
// less together: the bytes of each are waited for through the handle that wrote them, so that an
// error names its file; then one flush of the file system brings the rest to the disk, which is
// sizes, places and the disk's own cache. It goes through a file that was opened ahead of all these
// writes and so hears of each error since. When it reports one, or can't be had or trusted
// (IFileOps.h), every file is flushed by itself: none is renamed that isn't known to be on the
// disk. The renames of many files are flushed in the same way, else those of each folder.
//
// Between Flush and the first Commit every new file is complete on the disk: a record of what
// becomes what, from File(i).Path() and File(i).Target(), can be written there.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <vector>

#include "Failure.h"
#include "StagedFile.h"

class StagedFiles {
 public:
  explicit StagedFiles(IFileOps& files) : mFiles(files) {}

  /// Its number is Count() - 1 then. Failure as of StagedFile; the set is as before.
  void Stage(const std::string& path, std::string_view bytes);
  std::size_t Count() const { return mEntries.size(); }
  const StagedFile& File(std::size_t number) const { return mEntries[number].file; }

  void Flush();
  /// Renames a file that hasn't failed; one that has is passed over.
  void Commit(std::size_t number);
  bool IsCommitted(std::size_t number) const { return mEntries[number].isCommitted; }
  /// Takes a file out of the set, for a reason of the caller's.
  void Discard(std::size_t number, const Failure& reason);
  /// Of the committed files. Those of a folder that can't be flushed count as failed, though they
  /// are replaced.
  void FlushFolders();
  /// What kept a file from being replaced, or from lasting; null: nothing.
  const Failure* FailureOf(std::size_t number) const;

 private:
  struct Entry {
    Entry(const std::string& path, std::string_view bytes, IFileOps& files)
        : file(path, bytes, files) {}
    StagedFile file;
    bool isCommitted = false;
    std::optional<Failure> failure;
  };
  template <class Step>
  static void Take(Entry& entry, Step&& step);
  void Release(Entry& entry);
  bool FlushTogether(const std::vector<Entry*>& entries);

  IFileOps& mFiles;
  std::deque<Entry> mEntries;
  std::size_t mReleased = 0;  // how many of the first needn't be open any more
  /// By file system, and those without one not at all; the first one of each stays open.
  std::map<std::uint64_t, std::vector<Entry*>> mWritten;
};
