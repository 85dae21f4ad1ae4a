// Replaces many files in few flushes: all new files are written first, then flushed, then renamed,
// then their folders are flushed. At every moment each file is the old one or the new one, whole.
//
//   StagedFiles staged(files);
//   for (...) staged.Stage(path, bytes);                            // throws for that file alone
//   staged.Flush();
//   for (std::size_t i = 0; i < staged.Count(); ++i) staged.Commit(i);
//   staged.FlushFolders();
//   if (const Failure* failure = staged.FailureOf(i)) ...            // that file is as it was
//
// Each file is flushed by itself and through the handle that wrote it: only so does the system say
// which one could not be written. The disk begins with all of a batch before the first is waited
// for, so that most of the waits are short. (One flush of the whole file system would name no file,
// and would wait for what other programs write.)
//
// Between Flush and the first Commit every new file is complete on the disk: a record of what
// becomes what, from File(i).Path() and File(i).Target(), can be written there.
#pragma once

#include <deque>
#include <optional>

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

  IFileOps& mFiles;
  std::deque<Entry> mEntries;
  std::size_t mFlushed = 0;  // how many of the first are
};
