#include "DocumentSave.h"

namespace {

constexpr std::int32_t DiskFull = 61;

}  // namespace

void DocumentSave::Add(StoredDocument& document) {
  mResults.push_back({&document, {}});
  try {
    try {
      Stage(document);
    } catch (const Failure& failure) {
      if (failure.Number() != DiskFull || mWaiting.empty()) throw;
      // New files that have taken the places of old ones leave room for more.
      Replace();
      Stage(document);
    }
  } catch (const Failure& failure) {
    mResults.back().failure = failure;
  }
}

void DocumentSave::Stage(StoredDocument& document) {
  const std::string path = document.PathToWrite();
  const FileStamp stamp = FileStamp::Of(document.Path(), mFiles);
  if (document.IsOnDisk()) return document.MarkSaved(stamp);
  if (!mStaged) mStaged.emplace(mFiles);
  mStaged->Stage(path, document.Document().Bytes());
  mWaiting.push_back({&document, mResults.size() - 1, {}});
}

std::vector<DocumentStore::Saved> DocumentSave::Finish() {
  Replace();
  return std::move(mResults);
}

void DocumentSave::Replace() {
  if (!mStaged) return;
  mStaged->Flush();
  for (std::size_t i = 0; i < mWaiting.size(); ++i) Commit(i);
  mStaged->FlushFolders();
  for (std::size_t i = 0; i < mWaiting.size(); ++i) {
    if (const Failure* failure = mStaged->FailureOf(i)) {
      mResults[mWaiting[i].result].failure = *failure;
    } else {
      mWaiting[i].document->MarkSaved(mWaiting[i].stamp);
    }
  }
  mWaiting.clear();
  mStaged.reset();
}

// Staging and flushing many files takes a while, in which another program may have written one of
// them. What it writes between this look and the rename, two calls of the system, isn't seen.
void DocumentSave::Commit(std::size_t number) {
  if (mStaged->FailureOf(number)) return;
  Waiting& waiting = mWaiting[number];
  try {
    waiting.stamp = FileStamp::Of(mStaged->File(number).Path(), mFiles);
    waiting.document->IsOnDisk();
    mStaged->Commit(number);
  } catch (const Failure& failure) {
    mStaged->Discard(number, failure);
  }
}
