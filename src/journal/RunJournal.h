// Writes the record of one run while it is at work. The order of things is what makes a killed run
// one that can be taken back:
//
//   RunJournal journal(store, head, files);
//   journal.Add(path, newFile, before, after);   // for each new file, which waits beside the old
//   journal.Flush();                             // on the disk, ahead of the first rename
//   ...                                          // renames, and their flush
//   journal.Complete(kept);                      // numbers of those that weren't replaced
//
// More files can be added behind a flush; another one is needed then before they are renamed. A
// journal that ends before its first flush leaves nothing, one that ends later without Complete a
// record of a run that was broken off.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "RunStore.h"

class RunJournal {
 public:
  RunJournal(const RunStore& store, RunHead head, IFileOps& files)
      : mStore(store), mHead(std::move(head)), mFiles(files) {}
  ~RunJournal();
  RunJournal(const RunJournal&) = delete;
  RunJournal& operator=(const RunJournal&) = delete;

  /// Its number, from 0. Failure with the record's path when it can't be written; so below.
  std::size_t Add(const std::string& path, const std::string& newFile, std::string_view before,
                  std::string_view after);
  void Flush();
  /// Without a file that was replaced there is no record. Never fails: the run is done, and when
  /// its end can't be written there is no record of it either.
  void Complete(const std::vector<std::size_t>& kept);

 private:
  void Create();
  void WritePending();
  void Drop();
  void Check(int error);

  const RunStore& mStore;
  RunHead mHead;
  IFileOps& mFiles;
  std::string mPath;  // empty: there is no record yet
  std::string mPending;
  int mHandle = -1;
  std::size_t mCount = 0;
  bool mIsFlushed = false;
};
