#include "RunJournal.h"

#include <cerrno>

#include "FileFailure.h"

namespace {

constexpr std::size_t PieceSize = 1 << 18;

}  // namespace

RunJournal::~RunJournal() {
  if (mHandle >= 0) mFiles.Close(mHandle);
  if (!mIsFlushed) Drop();
}

void RunJournal::Drop() {
  if (!mPath.empty()) mFiles.Remove(mPath);
  mPath.clear();
}

void RunJournal::Check(int error) {
  if (error == 0) return;
  FileFailure::Throw(error == ENOSPC || error == EDQUOT ? 61 : 57, mPath,
                     u", the record by which the run could be taken back, can't be written; free "
                     u"some space, or do without (docs/safety.md)");
}

void RunJournal::Create() {
  const std::string path = mStore.NewPath(mHead);
  mPath = path;
  const int error = mFiles.CreateNew(path, 0600, mHandle);
  if (error != 0) mHandle = -1;
  Check(error);
  mPending = BytesOf(mHead);
}

std::size_t RunJournal::Add(const std::string& path, const std::string& newFile,
                            std::string_view before, std::string_view after) {
  if (mPath.empty()) Create();
  mPending += BytesOf(RunFile{path, newFile, MarkOf(before), MarkOf(after), Pack(before)});
  if (mPending.size() >= PieceSize) WritePending();
  return mCount++;
}

void RunJournal::WritePending() {
  Check(mFiles.Write(mHandle, mPending));
  mPending.clear();
  mFiles.StartFlush(mHandle);
}

void RunJournal::Flush() {
  if (mPath.empty()) return;
  WritePending();
  Check(mFiles.Flush(mHandle));
  // Folders that can't be flushed on this system are none to wait for.
  const int error = mFiles.FlushFolder(FileFailure::FolderOf(mPath));
  if (error == EIO || error == ENOSPC || error == EDQUOT) Check(error);
  mIsFlushed = true;
}

// The end has to last: without it the run would be taken back as one that was killed.
void RunJournal::Complete(const std::vector<std::size_t>& kept) {
  if (mPath.empty()) return;
  if (kept.size() == mCount) return Drop();
  try {
    mPending += EndBytes(kept);
    WritePending();
    Check(mFiles.Flush(mHandle));
    RunStore::Run run{mPath, RunStore::State::Writing, mHead};
    mStore.SetState(run, RunStore::State::Complete);
  } catch (const Failure&) {
    Drop();
  }
}
