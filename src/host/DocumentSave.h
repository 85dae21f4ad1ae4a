// The saving of changed documents: new files for all of them, one behind the other, then the flush
// of all, then each takes the place of the old one, unless that isn't the one that was read any
// more.
//
//   DocumentSave save(files, &journal);
//   for (...) save.Add(document);
//   for (const auto& saved : save.Finish()) ...
#pragma once

#include <optional>
#include <vector>

#include "DocumentStore.h"
#include "RunJournal.h"
#include "StagedFiles.h"

class DocumentSave {
 public:
  /// journal: null when nothing is to be recorded.
  DocumentSave(IFileOps& files, RunJournal* journal) : mFiles(files), mJournal(journal) {}

  /// Writes the new file beside the old one. A file that can't be written is told by Finish. A
  /// Failure ends the save, and nothing is written any more: the journal can't be, or a signal that
  /// is held back asked for the end. So below.
  void Add(StoredDocument& document);
  /// To be called once. What became of the documents, in the order of Add.
  std::vector<DocumentStore::Saved> Finish();

 private:
  struct Waiting {
    StoredDocument* document;
    std::size_t result;  // its index in results
    std::size_t record;  // its number in the journal
    FileStamp stamp;     // of its new file
  };

  bool Stage(StoredDocument& document, const std::string& bytes);
  void Record(StoredDocument& document, const std::string& bytes);
  void Replace();
  void Commit(std::size_t number);

  IFileOps& mFiles;
  RunJournal* mJournal;
  std::vector<DocumentStore::Saved> mResults;
  std::vector<Waiting> mWaiting;   // by their number in the staged files
  std::vector<std::size_t> mKept;  // numbers in the journal of files that weren't replaced
  std::optional<StagedFiles> mStaged;
};
