#include "DocumentSave.h"

#include "SignalHold.h"

namespace {

constexpr std::int32_t DiskFull = 61;

}  // namespace

void DocumentSave::Add(StoredDocument& document) {
  SignalHold::Check();
  mResults.push_back({&document, {}});
  const std::string bytes = document.Document().Bytes();
  try {
    try {
      if (!Stage(document, bytes)) return;
    } catch (const Failure& failure) {
      if (failure.Number() != DiskFull || mWaiting.empty()) throw;
      // New files that have taken the places of old ones leave room for more.
      Replace();
      if (!Stage(document, bytes)) return;
    }
  } catch (const Failure& failure) {
    mResults.back().failure = failure;
    return;
  }
  Record(document, bytes);
}

/// False when there is nothing to do.
bool DocumentSave::Stage(StoredDocument& document, const std::string& bytes) {
  const std::string path = document.PathToWrite();
  const FileStamp stamp = FileStamp::Of(document.Path(), mFiles);
  if (document.IsOnDisk()) return document.MarkSaved(stamp), false;
  if (!mStaged) mStaged.emplace(mFiles);
  mStaged->Stage(path, bytes);
  return true;
}

void DocumentSave::Record(StoredDocument& document, const std::string& bytes) {
  mWaiting.push_back({&document, mResults.size() - 1, 0, {}});
  if (!mJournal) return;
  const StagedFile& file = mStaged->File(mStaged->Count() - 1);
  mWaiting.back().record =
      mJournal->Add(file.Target(), file.Path(), document.Document().SavedBytes(), bytes);
}

std::vector<DocumentStore::Saved> DocumentSave::Finish() {
  Replace();
  if (mJournal) mJournal->Complete(mKept);
  return std::move(mResults);
}

void DocumentSave::Replace() {
  if (!mStaged) return;
  mStaged->Flush();
  SignalHold::Check();
  if (mJournal) mJournal->Flush();
  for (std::size_t i = 0; i < mWaiting.size(); ++i) Commit(i);
  mStaged->FlushFolders();
  for (std::size_t i = 0; i < mWaiting.size(); ++i) {
    if (const Failure* failure = mStaged->FailureOf(i)) {
      mResults[mWaiting[i].result].failure = *failure;
      if (!mStaged->IsCommitted(i)) mKept.push_back(mWaiting[i].record);
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
    waiting.document->PathToWrite();  // a link may have come meanwhile
    waiting.document->IsOnDisk();
    mStaged->Commit(number);
  } catch (const Failure& failure) {
    mStaged->Discard(number, failure);
  }
}
