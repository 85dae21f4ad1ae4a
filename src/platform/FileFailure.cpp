#include "FileFailure.h"

#include <cerrno>
#include <cstring>

#include "PathText.h"

namespace FileFailure {

namespace {

bool IsReadOnlyFolder(const std::string& path, IFileOps& files) {
  IFileOps::Stat state;
  return files.GetStat(FolderOf(path), state) == 0 && state.bReadOnly;
}

Failure Made(std::int32_t number, const std::string& path, TextView advice) {
  return {number, FailureText(number) + u": " + TextOfPath(path) + Text(advice), u"AtomicFile"};
}

}  // namespace

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

void Throw(std::int32_t number, const std::string& path, TextView advice) {
  throw Made(number, path, advice);
}

Failure MayNotLast(const std::string& target) {
  return Made(
      57, target,
      u" was replaced, but its folder can't be flushed: the change may not last; check the disk");
}

void ThrowSpecial(const std::string& path) {
  Throw(75, path, u" is a device or a pipe and no file; name a file");
}

void ThrowWrite(int error, const std::string& path, IFileOps& files) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      Throw(61, path, u" was not written and is as it was; free some space and try again");
    case EACCES:
    case EPERM:
      if (IsReadOnlyFolder(path, files)) {
        Throw(75, path, u" can't be replaced: its folder is read-only; make the folder writable");
      }
      Throw(70, path, u" can't be replaced; get the right to write to its folder");
    case EROFS:
      Throw(75, path, u" can't be replaced: its file system is mounted read-only");
    case EISDIR:
    case EEXIST:
    case ENOTEMPTY:
      Throw(75, path, u" can't be written: there is a folder of this name");
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
      Throw(76, path, u" can't be written: its folder is gone");
    default:
      Throw(57, path,
            u" was not written and is as it was (" + FromUtf8(std::strerror(error)) + u")");
  }
}

void ThrowRead(int error, const std::string& path, IFileOps& files) {
  IFileOps::Stat state;
  switch (error) {
    case ENOENT:
      if (files.GetStat(FolderOf(path), state) == 0) Throw(53, path, {});
      Throw(76, path, u"; its folder isn't there");
    case ENOTDIR:
    case ELOOP:
      Throw(76, path, u"; a part of this path is no folder");
    case EACCES:
    case EPERM:
      Throw(70, path, u" can't be read; get the right to read it");
    case EISDIR:
      Throw(75, path, u" is a folder, not a file");
    case ENODEV:
      ThrowSpecial(path);
    case EFBIG:
      Throw(75, path,
            u" is larger than " + ToText(static_cast<long long>(IFileOps::LargestFile >> 20)) +
                u" MB, the most that is read of a file");
    default:
      Throw(57, path, u" can't be read (" + FromUtf8(std::strerror(error)) + u")");
  }
}

}  // namespace FileFailure
