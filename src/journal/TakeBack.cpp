#include "TakeBack.h"

#include <filesystem>
#include <optional>

#include "AtomicFile.h"
#include "FileStamp.h"
#include "PathText.h"
#include "SignalHold.h"
#include "StagedFiles.h"

namespace {

constexpr std::int32_t DiskFull = 61;

/// Records name files by their real paths: a link that has come since leads to another file.
void ExpectNoLink(const std::string& path) {
  std::error_code error;
  const auto real = std::filesystem::canonical(path, error);
  if (error || real == path) return;
  throw Failure(70, u"A link has come since the run and is left alone: " + TextOfPath(path),
                u"TakeBack");
}

/// A file as it was found.
struct Found {
  FileStamp stamp;  // ahead of the reading
  std::string bytes;
};

Found Look(const std::string& path, IFileOps& files) {
  ExpectNoLink(path);
  const FileStamp stamp = FileStamp::Of(path, files);
  return {stamp, AtomicFile::Read(path, files)};
}

void ExpectAfter(const RunFile& file, std::string_view bytes) {
  if (MarkOf(bytes) == file.after) return;
  throw Failure(70,
                u"The file was changed since the run and is left alone: " + TextOfPath(file.path),
                u"TakeBack");
}

using Restore = std::function<void(const RunFile&, const Found&)>;

/// Calls restore for each file that holds what the run wrote; one that fails is left.
TakenBack Sort(const RunRecord& record, IFileOps& files, const Restore& restore) {
  TakenBack result;
  for (const RunFile& file : record.files) {
    SignalHold::Check();
    try {
      const Found found = Look(file.path, files);
      if (MarkOf(found.bytes) == file.before) {
        ++result.unchanged;
        continue;
      }
      ExpectAfter(file, found.bytes);
      restore(file, found);
      result.restored.push_back(file.path);
    } catch (const Failure& failure) {
      result.left.push_back({file.path, failure});
    }
  }
  return result;
}

class Restoring {
 public:
  explicit Restoring(IFileOps& files) : mFiles(files) {}

  void Add(const RunFile& file, const Found& found) {
    try {
      Stage(file, found);
    } catch (const Failure& failure) {
      if (failure.Number() != DiskFull || mWaiting.empty()) throw;
      // New files that have taken the places of others leave room for more.
      Replace();
      Stage(file, found);
    }
  }

  void Finish(TakenBack& result) {
    Replace();
    for (TakenBack::Left& file : mLeft) {
      std::erase(result.restored, file.path);
      result.left.push_back(std::move(file));
    }
  }

 private:
  struct Waiting {
    const RunFile* file;
    FileStamp stamp;
  };

  void Stage(const RunFile& file, const Found& found) {
    if (!mStaged) mStaged.emplace(mFiles);
    mStaged->Stage(file.path, Unpack(file.packed, file.before));
    mWaiting.push_back({&file, found.stamp});
  }

  void Replace() {
    if (!mStaged) return;
    mStaged->Flush();
    SignalHold::Check();
    for (std::size_t i = 0; i < mWaiting.size(); ++i) Commit(i);
    mStaged->FlushFolders();
    for (std::size_t i = 0; i < mWaiting.size(); ++i) {
      if (const Failure* failure = mStaged->FailureOf(i))
        mLeft.push_back({mWaiting[i].file->path, *failure});
    }
    mWaiting.clear();
    mStaged.reset();
  }

  // Another program may have written the file while the others were staged and flushed.
  void Commit(std::size_t number) {
    const auto& [file, stamp] = mWaiting[number];
    IFileOps::Stat now;
    try {
      ExpectNoLink(file->path);
      if (mFiles.GetStat(file->path, now) != 0 || !stamp.VouchesFor(now))
        ExpectAfter(*file, AtomicFile::Read(file->path, mFiles));
      mStaged->Commit(number);
    } catch (const Failure& failure) {
      mStaged->Discard(number, failure);
    }
  }

  IFileOps& mFiles;
  std::optional<StagedFiles> mStaged;
  std::vector<Waiting> mWaiting;  // by their number in the staged files
  std::vector<TakenBack::Left> mLeft;
};

}  // namespace

TakenBack TakeBack(const RunRecord& record, IFileOps& files) {
  // What waited to be renamed when the run was killed. A complete run left nothing.
  if (!record.isComplete)
    for (const RunFile& file : record.files) files.Remove(file.newFile);
  Restoring restoring(files);
  TakenBack result = Sort(
      record, files, [&](const RunFile& file, const Found& found) { restoring.Add(file, found); });
  restoring.Finish(result);
  return result;
}

TakenBack TryTakeBack(const RunRecord& record, IFileOps& files, const ShowBack& show) {
  return Sort(record, files, [&](const RunFile& file, const Found& found) {
    show(file.path, found.bytes, Unpack(file.packed, file.before));
  });
}
