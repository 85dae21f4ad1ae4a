#include "AtomicFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "CodePage.h"
#include "Failure.h"
#include "Text.h"

namespace {

std::string FolderOf(const std::string& sPath) {
  const std::size_t lSlash = sPath.rfind('/');
  if (lSlash == std::string::npos) return ".";
  return lSlash == 0 ? "/" : sPath.substr(0, lSlash);
}

std::string NewNameOf(const std::string& sPath) {
  const std::size_t lName = sPath.rfind('/') + 1;
  // File systems limit names to 255 bytes; a long name is cut so that the additions fit.
  return sPath.substr(0, lName) + '.' + sPath.substr(lName, 200) + '.' + std::to_string(getpid()) +
         ".quillon-new";
}

[[noreturn]] void Fail(std::int32_t lNumber, const std::string& sPath, TextView sAdvice) {
  throw Failure(lNumber, FailureText(lNumber) + u": " + TextOfPath(sPath) + Text(sAdvice),
                u"AtomicFile");
}

[[noreturn]] void FailSpecial(const std::string& sPath) {
  Fail(75, sPath, u" is a device or a pipe and no file; name a file");
}

bool IsReadOnlyFolder(const std::string& sPath, IFileOps& oFiles) {
  IFileOps::Stat oStat;
  return oFiles.GetStat(FolderOf(sPath), oStat) == 0 && oStat.bReadOnly;
}

[[noreturn]] void FailWrite(int lError, const std::string& sPath, IFileOps& oFiles) {
  switch (lError) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      Fail(61, sPath, u" was not written and is as it was; free some space and try again");
    case EACCES:
    case EPERM:
      if (IsReadOnlyFolder(sPath, oFiles)) {
        Fail(75, sPath, u" can't be replaced: its folder is read-only; make the folder writable");
      }
      Fail(70, sPath, u" can't be replaced; get the right to write to its folder");
    case EROFS:
      Fail(75, sPath, u" can't be replaced: its file system is mounted read-only");
    case EISDIR:
    case EEXIST:
    case ENOTEMPTY:
      Fail(75, sPath, u" can't be written: there is a folder of this name");
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
      Fail(76, sPath, u" can't be written: its folder is gone");
    default:
      Fail(57, sPath,
           u" was not written and is as it was (" + FromUtf8(std::strerror(lError)) + u")");
  }
}

[[noreturn]] void FailRead(int lError, const std::string& sPath, IFileOps& oFiles) {
  IFileOps::Stat oStat;
  switch (lError) {
    case ENOENT:
      if (oFiles.GetStat(FolderOf(sPath), oStat) == 0) Fail(53, sPath, {});
      Fail(76, sPath, u"; its folder isn't there");
    case ENOTDIR:
    case ELOOP:
      Fail(76, sPath, u"; a part of this path is no folder");
    case EACCES:
    case EPERM:
      Fail(70, sPath, u" can't be read; get the right to read it");
    case EISDIR:
      Fail(75, sPath, u" is a folder, not a file");
    default:
      Fail(57, sPath, u" can't be read (" + FromUtf8(std::strerror(lError)) + u")");
  }
}

/// The new file beside the old one. Removed at the end of the object unless it was renamed over the
/// old one.
class NewFile {
 public:
  NewFile(std::string sPath, IFileOps& oFiles) : msPath(std::move(sPath)), moFiles(oFiles) {}
  ~NewFile() {
    if (mhFile >= 0) moFiles.Close(mhFile);
    if (mbThere) moFiles.Remove(msPath);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  int Create(std::uint32_t lMode) {
    int lError = moFiles.CreateNew(msPath, lMode, mhFile);
    if (lError == EEXIST) {
      // Left by a program that was killed and had the same process id.
      moFiles.Remove(msPath);
      lError = moFiles.CreateNew(msPath, lMode, mhFile);
    }
    mbThere = lError == 0;
    return lError;
  }

  /// Some file systems refuse to set what is already so; only a difference is an error.
  int TakeOwnerAndMode(const IFileOps::Stat& oOld) {
    IFileOps::Stat oNew;
    int lError = moFiles.SetOwner(mhFile, oOld.lOwner, oOld.lGroup);
    if (lError != 0) {
      if (moFiles.GetStat(msPath, oNew) != 0) return lError;
      if (oNew.lOwner != oOld.lOwner || oNew.lGroup != oOld.lGroup) return lError;
    }
    lError = moFiles.SetMode(mhFile, oOld.lMode);
    if (lError == 0) return 0;
    return moFiles.GetStat(msPath, oNew) == 0 && oNew.lMode == oOld.lMode ? 0 : lError;
  }

  int WriteAndClose(std::string_view sBytes) {
    int lError = moFiles.Write(mhFile, sBytes);
    if (lError == 0) lError = moFiles.Flush(mhFile);
    const int lCloseError = moFiles.Close(mhFile);
    mhFile = -1;
    return lError != 0 ? lError : lCloseError;
  }

  int RenameTo(const std::string& sTarget) {
    const int lError = moFiles.Rename(msPath, sTarget);
    if (lError == 0) mbThere = false;
    return lError;
  }

 private:
  std::string msPath;
  IFileOps& moFiles;
  int mhFile = -1;
  bool mbThere = false;
};

/// Whether there is an old file, whose state goes to oOld; refuses what must not be replaced.
bool FindOld(const std::string& sTarget, IFileOps::Stat& oOld, IFileOps& oFiles) {
  const int lError = oFiles.GetStat(sTarget, oOld);
  if (lError == ENOENT) return false;
  if (lError != 0) FailWrite(lError, sTarget, oFiles);
  if (oOld.bDirectory) FailWrite(EISDIR, sTarget, oFiles);
  if (oOld.bSpecial) FailSpecial(sTarget);
  if (oOld.bReadOnly) Fail(75, sTarget, u" is read-only; make it writable and try again");
  return true;
}

void FlushFolderOf(const std::string& sTarget, IFileOps& oFiles) {
  const int lError = oFiles.FlushFolder(FolderOf(sTarget));
  // Other errors mean that folders can't be flushed on this system or by this user: not a failure.
  if (lError != EIO && lError != ENOSPC && lError != EDQUOT) return;
  Fail(57, sTarget,
       u" was replaced, but its folder can't be flushed: the change may not last; check the disk");
}

}  // namespace

namespace AtomicFile {

void Replace(const std::string& sPath, std::string_view sBytes, IFileOps& oFiles) {
  std::string sTarget;
  IFileOps::Stat oOld;
  if (const int lError = oFiles.Resolve(sPath, sTarget)) FailWrite(lError, sPath, oFiles);
  const bool bOld = FindOld(sTarget, oOld, oFiles);
  {
    NewFile oNew(NewNameOf(sTarget), oFiles);
    // Only the owner may read the new file until it has the old one's mode.
    int lError = oNew.Create(bOld ? 0600 : 0666);
    if (lError == 0 && bOld) {
      lError = oNew.TakeOwnerAndMode(oOld);
      if (lError == EPERM || lError == EACCES) {
        Fail(70, sTarget, u" can't be replaced with its owner and mode kept; work as its owner");
      }
    }
    if (lError == 0) lError = oNew.WriteAndClose(sBytes);
    if (lError == 0) lError = oNew.RenameTo(sTarget);
    if (lError != 0) FailWrite(lError, sTarget, oFiles);
  }
  FlushFolderOf(sTarget, oFiles);
}

void RefuseSpecial(const std::string& sTarget, IFileOps& oFiles) {
  IFileOps::Stat oStat;
  if (oFiles.GetStat(sTarget, oStat) == 0 && oStat.bSpecial) FailSpecial(sTarget);
}

std::string Read(const std::string& sPath, IFileOps& oFiles) {
  std::string sBytes;
  if (const int lError = oFiles.ReadAll(sPath, sBytes)) FailRead(lError, sPath, oFiles);
  return sBytes;
}

}  // namespace AtomicFile
