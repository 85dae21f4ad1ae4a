// The saving of changed documents: new files for all of them, one behind the other, then the flush
// of all, then each takes the place of the old one, unless that isn't the one that was read any
// more.
//
//   DocumentSave save(files);
//   for (...) save.Add(document);
//   for (const auto& saved : save.Finish()) ...
#pragma once

#include <optional>
#include <vector>

#include "DocumentStore.h"
#include "StagedFiles.h"

class DocumentSave {
 public:
  explicit DocumentSave(IFileOps& files) : mFiles(files) {}

  /// Writes the new file beside the old one.
  void Add(StoredDocument& document);
  /// To be called once. What became of the documents, in the order of Add.
  std::vector<DocumentStore::Saved> Finish();

 private:
  struct Waiting {
    StoredDocument* document;
    std::size_t result;  // its index in results
    FileStamp stamp;     // of its new file
  };

  void Stage(StoredDocument& document);
  void Replace();
  void Commit(std::size_t number);

  IFileOps& mFiles;
  std::vector<DocumentStore::Saved> mResults;
  std::vector<Waiting> mWaiting;  // by their number in the staged files
  std::optional<StagedFiles> mStaged;
};
