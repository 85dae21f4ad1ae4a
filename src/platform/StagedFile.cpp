#include "StagedFile.h"

#include <cerrno>
#include <cstdlib>
#include <functional>

#include "FileFailure.h"
#include "Process.h"

namespace {

constexpr std::string_view NewEnd = ".quillon-new";

std::string NewNameOf(const std::string& target) {
  const std::size_t nameAt = target.rfind('/') + 1;
  std::string name = target.substr(nameAt);
  // File systems limit names to 255 bytes; a long name is cut so that the additions fit. The hash
  // tells new files apart whose names begin alike.
  constexpr std::size_t longest = 200, cut = 180;
  if (name.size() > longest) {
    name = name.substr(0, cut) + '.' + std::to_string(std::hash<std::string>()(name));
  }
  return target.substr(0, nameAt) + '.' + name + '.' + std::to_string(ProcessNumber()) +
         std::string(NewEnd);
}

/// True for a name that NewNameOf made for a process that is no more. A number that is in use again
/// keeps its file until that process has ended, too.
bool IsOfDeadProcess(std::string_view name) {
  if (!name.starts_with('.') || !name.ends_with(NewEnd)) return false;
  name.remove_suffix(NewEnd.size());
  const std::string digits(name.substr(name.rfind('.') + 1));
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return false;
  return IsProcessGone(std::strtoll(digits.c_str(), nullptr, 10));
}

/// Whether there is an old file, whose state goes to old; refuses what must not be replaced.
bool FindOld(const std::string& target, IFileOps::Stat& old, IFileOps& files) {
  const int error = files.GetStat(target, old);
  if (error == ENOENT) return false;
  if (error != 0) FileFailure::ThrowWrite(error, target, files);
  if (old.bDirectory) FileFailure::ThrowWrite(EISDIR, target, files);
  if (old.bSpecial) FileFailure::ThrowSpecial(target);
  if (old.bReadOnly) {
    FileFailure::Throw(75, target, u" is read-only; make it writable and try again");
  }
  if (old.links > 1) {
    FileFailure::Throw(75, target,
                       u" has " + ToText(static_cast<long long>(old.links)) +
                           u" hard links, and a replacement would part them; give the file a copy "
                           u"of its own and try again");
  }
  return true;
}

}  // namespace

StagedFile::StagedFile(const std::string& path, std::string_view bytes, IFileOps& files)
    : mFiles(files) {
  IFileOps::Stat old;
  if (const int error = mFiles.Resolve(path, mTarget)) FileFailure::ThrowWrite(error, path, mFiles);
  const bool isOld = FindOld(mTarget, old, mFiles);
  mPath = NewNameOf(mTarget);
  if (const int error = Write(bytes, isOld ? &old : nullptr)) Fail(error);
}

int StagedFile::Create(std::uint32_t mode) {
  int error = mFiles.CreateNew(mPath, mode, mHandle);
  if (error == EEXIST) {
    // Left by a program that was killed and had the same process id.
    mFiles.Remove(mPath);
    error = mFiles.CreateNew(mPath, mode, mHandle);
  }
  mIsThere = error == 0;
  std::uint64_t fileSystem = 0;
  if (mIsThere && mFiles.FileSystemOf(mHandle, fileSystem) == 0) mFileSystem = fileSystem;
  return error;
}

/// Some file systems refuse to set what is already so; only a difference is an error.
int StagedFile::TakeRights(const IFileOps::Stat& old) {
  IFileOps::Stat now;
  int error = mFiles.SetOwner(mHandle, old.lOwner, old.lGroup);
  if (error != 0) {
    if (mFiles.GetStat(mPath, now) != 0) return error;
    if (now.lOwner != old.lOwner || now.lGroup != old.lGroup) return error;
  }
  if (const int failed = mFiles.CopyAttributes(mTarget, mHandle)) return failed;
  error = mFiles.SetMode(mHandle, old.lMode);
  if (error == 0) return 0;
  return mFiles.GetStat(mPath, now) == 0 && now.lMode == old.lMode ? 0 : error;
}

int StagedFile::Write(std::string_view bytes, const IFileOps::Stat* old) {
  // Only the owner may read the new file until it has the old one's mode.
  if (const int error = Create(old ? 0600 : 0666)) return error;
  const int error = old ? TakeRights(*old) : 0;
  if (error == EPERM || error == EACCES) {
    Discard();
    FileFailure::Throw(70, mTarget,
                       u" can't be replaced with its owner, mode, access list and attributes kept; "
                       u"work as its owner");
  }
  return error != 0 ? error : mFiles.Write(mHandle, bytes);
}

void StagedFile::Sweep(const std::string& folder, IFileOps& files) {
  std::vector<std::string> names;
  files.ListFolder(folder, names);
  for (const std::string& name : names)
    if (IsOfDeadProcess(name)) files.Remove(folder + '/' + name);
}

void StagedFile::StartFlush() {
  // An error is left to Flush, which reports it again.
  if (mHandle >= 0) mFiles.StartFlush(mHandle);
}

void StagedFile::FlushBytes() {
  if (mHandle < 0) return;
  if (const int error = mFiles.FlushBytes(mHandle)) Fail(error);
}

int StagedFile::FlushFileSystem() {
  return mHandle >= 0 ? mFiles.FlushFileSystem(mHandle) : EBADF;
}

void StagedFile::Flush() {
  if (const int error = mHandle >= 0 ? mFiles.Flush(mHandle) : mFiles.FlushClosed(mPath)) {
    Fail(error);
  }
  Close();
}

void StagedFile::Close() {
  if (const int error = CloseHandle()) Fail(error);
}

void StagedFile::Commit() {
  if (const int error = mFiles.Rename(mPath, mTarget)) Fail(error);
  mIsThere = false;
}

void StagedFile::Discard() {
  CloseHandle();
  if (mIsThere) mFiles.Remove(mPath);
  mIsThere = false;
}

int StagedFile::CloseHandle() {
  const int error = mHandle >= 0 ? mFiles.Close(mHandle) : 0;
  mHandle = -1;
  return error;
}

void StagedFile::Fail(int error) {
  Discard();
  FileFailure::ThrowWrite(error, mTarget, mFiles);
}
