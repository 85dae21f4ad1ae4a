#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "FileAttributes.h"
#include "IFileOps.h"

namespace {

/// The system stops reading a name at a null byte and would find another file.
bool HasNull(const std::string& sPath) {
  return sPath.find('\0') != std::string::npos;
}

template <class Call>
auto Repeated(Call&& oCall) {
  for (;;) {
    const auto lResult = oCall();
    if (lResult >= 0 || errno != EINTR) return lResult;
  }
}

int ErrorOf(long lResult) {
  return lResult < 0 ? errno : 0;
}

int OpenFile(const std::string& sPath, int lFlags, std::uint32_t lMode, int& hFile) {
  hFile = -1;
  if (HasNull(sPath)) return ENOENT;
  hFile = Repeated([&] { return open(sPath.c_str(), lFlags | O_CLOEXEC, lMode); });
  return ErrorOf(hFile);
}

/// What of a file stands against reading it; 0: nothing.
int ErrorOfKind(const struct stat& state) {
  if (S_ISDIR(state.st_mode)) return EISDIR;
  if (!S_ISREG(state.st_mode)) return ENODEV;
  return state.st_size > static_cast<off_t>(IFileOps::LargestFile) ? EFBIG : 0;
}

int ReadToEnd(int hFile, std::string& sBytes) {
  struct stat oState = {};
  if (fstat(hFile, &oState) != 0) return errno;
  if (const int error = ErrorOfKind(oState)) return error;
  // One byte more than the size, so that the read that finds the end needs no larger buffer.
  sBytes.resize(static_cast<std::size_t>(std::max<off_t>(oState.st_size, 0)) + 1);
  std::size_t lHave = 0;
  for (;;) {
    if (lHave == sBytes.size()) sBytes.resize(lHave * 2);
    const ssize_t lRead =
        Repeated([&] { return read(hFile, sBytes.data() + lHave, sBytes.size() - lHave); });
    if (lRead <= 0) {
      const int lError = ErrorOf(lRead);
      sBytes.resize(lError == 0 ? lHave : 0);
      return lError;
    }
    lHave += static_cast<std::size_t>(lRead);
    // A size can be a lie, of files that the system or a program makes up while they are read.
    if (lHave > IFileOps::LargestFile) {
      sBytes.clear();
      return EFBIG;
    }
  }
}

/// Older systems flush a file system without reporting what went wrong: Linux tells of bytes since
/// 5.8, of a file system's own tables since 5.17.
bool ReportsErrorsOfFileSystems() {
  utsname system = {};
  int major = 0, minor = 0;
  if (uname(&system) != 0 || std::sscanf(system.release, "%d.%d", &major, &minor) != 2) {
    return false;
  }
  return major > 5 || (major == 5 && minor >= 17);
}

/// Only those of which it is known that a flush of the whole waits for the disk. Network and user
/// file systems pass the flush of a file on to the other side, but not always that of the whole.
bool FlushesAsOne(const struct statfs& state) {
  switch (static_cast<unsigned long>(state.f_type)) {
    case EXT4_SUPER_MAGIC:
    case XFS_SUPER_MAGIC:
    case BTRFS_SUPER_MAGIC:
    case TMPFS_MAGIC:
      return true;
    default:
      return false;
  }
}

std::int64_t Nanoseconds(const timespec& time) {
  return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 +
         static_cast<std::int64_t>(time.tv_nsec);
}

class SystemOps : public IFileOps {
 public:
  int GetStat(const std::string& sPath, Stat& oStat) override {
    struct stat oState = {};
    if (HasNull(sPath)) return ENOENT;
    if (stat(sPath.c_str(), &oState) != 0) return errno;
    oStat.bDirectory = S_ISDIR(oState.st_mode);
    oStat.bSpecial = !oStat.bDirectory && !S_ISREG(oState.st_mode);
    oStat.bReadOnly = (oState.st_mode & S_IWUSR) == 0;
    oStat.lSize = static_cast<std::uint64_t>(oState.st_size);
    oStat.lModified = Nanoseconds(oState.st_mtim);
    oStat.lChanged = Nanoseconds(oState.st_ctim);
    oStat.lDevice = oState.st_dev;
    oStat.lNumber = oState.st_ino;
    oStat.lMode = oState.st_mode & 07777;
    oStat.lOwner = oState.st_uid;
    oStat.lGroup = oState.st_gid;
    oStat.links = oState.st_nlink;
    return 0;
  }

  int ReadAll(const std::string& sPath, std::string& sBytes) override {
    int hFile = -1;
    struct stat state = {};
    sBytes.clear();
    // Ahead of the opening, which some devices take for more than a look.
    if (!HasNull(sPath) && stat(sPath.c_str(), &state) == 0)
      if (const int error = ErrorOfKind(state)) return error;
    // O_NONBLOCK only for opening: without it, opening a pipe that has no writer would hang.
    if (const int lError = OpenFile(sPath, O_RDONLY | O_NONBLOCK, 0, hFile)) return lError;
    fcntl(hFile, F_SETFL, 0);
    const int lError = ReadToEnd(hFile, sBytes);
    close(hFile);
    return lError;
  }

  int ReadStart(const std::string& sPath, std::size_t most, std::string& sBytes) override {
    int handle = -1;
    sBytes.clear();
    if (const int error = OpenFile(sPath, O_RDONLY | O_NONBLOCK, 0, handle)) return error;
    sBytes.resize(most);
    const ssize_t count = Repeated([&] { return read(handle, sBytes.data(), most); });
    const int error = ErrorOf(count);
    sBytes.resize(error == 0 ? static_cast<std::size_t>(count) : 0);
    close(handle);
    return error;
  }

  int ListFolder(const std::string& sPath, std::vector<std::string>& asName) override {
    if (HasNull(sPath)) return ENOENT;
    DIR* poFolder = opendir(sPath.c_str());
    if (poFolder == nullptr) return errno;
    errno = 0;
    while (const dirent* poEntry = readdir(poFolder)) {
      const std::string sName = poEntry->d_name;
      if (sName != "." && sName != "..") asName.push_back(sName);
      errno = 0;
    }
    const int lError = errno;
    closedir(poFolder);
    return lError;
  }

  int Resolve(const std::string& sPath, std::string& sTarget) override {
    if (HasNull(sPath)) return ENOENT;
    sTarget = sPath;
    for (int lLinks = 0; lLinks < 40; ++lLinks) {
      char acLink[4096];
      const ssize_t lLength = readlink(sTarget.c_str(), acLink, sizeof acLink);
      // EINVAL: not a link. ENOENT: the caller finds out that the file is missing.
      if (lLength < 0) return errno == EINVAL || errno == ENOENT ? 0 : errno;
      const std::string sLink(acLink, static_cast<std::size_t>(lLength));
      sTarget.resize(sLink.front() == '/' ? 0 : sTarget.rfind('/') + 1);
      sTarget += sLink;
    }
    return ELOOP;
  }

  int CreateNew(const std::string& sPath, std::uint32_t lMode, int& hFile) override {
    return OpenFile(sPath, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, lMode, hFile);
  }

  int Write(int hFile, std::string_view sBytes) override {
    while (!sBytes.empty()) {
      const ssize_t lWritten = Repeated([&] { return write(hFile, sBytes.data(), sBytes.size()); });
      if (lWritten < 0) return errno;
      sBytes.remove_prefix(static_cast<std::size_t>(lWritten));
    }
    return 0;
  }

  int SetOwner(int hFile, std::uint32_t lOwner, std::uint32_t lGroup) override {
    return ErrorOf(fchown(hFile, lOwner, lGroup));
  }
  int CopyAttributes(const std::string& from, int file) override {
    return FileAttributes::Copy(from, file);
  }
  int SetMode(int hFile, std::uint32_t lMode) override { return ErrorOf(fchmod(hFile, lMode)); }
  int StartFlush(int hFile) override {
    return ErrorOf(sync_file_range(hFile, 0, 0, SYNC_FILE_RANGE_WRITE));
  }
  int Flush(int hFile) override {
    return ErrorOf(Repeated([&] { return fsync(hFile); }));
  }
  int FlushBytes(int hFile) override {
    return ErrorOf(Repeated([&] {
      return sync_file_range(
          hFile, 0, 0,
          SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
    }));
  }
  int FileSystemOf(int hFile, std::uint64_t& lFileSystem) override {
    static const bool reports = ReportsErrorsOfFileSystems();
    struct statfs system = {};
    struct stat file = {};
    if (!reports) return ENOTSUP;
    if (fstatfs(hFile, &system) != 0 || fstat(hFile, &file) != 0) return errno;
    lFileSystem = file.st_dev;
    return FlushesAsOne(system) ? 0 : ENOTSUP;
  }
  int FlushFileSystem(int hFile) override {
    if (const int error = ErrorOf(Repeated([&] { return syncfs(hFile); }))) return error;
    // Without a journal, ext4 writes its tables behind the flush of the disk's own cache. That of a
    // file flushes this cache once more.
    return Flush(hFile);
  }
  int Close(int hFile) override {
    // On this system the file is closed even after EINTR; a second call could close another file.
    const int lError = ErrorOf(close(hFile));
    return lError == EINTR ? 0 : lError;
  }
  int Rename(const std::string& sFrom, const std::string& sTo) override {
    return HasNull(sTo) ? ENOENT : ErrorOf(std::rename(sFrom.c_str(), sTo.c_str()));
  }
  int Remove(const std::string& sPath) override { return ErrorOf(unlink(sPath.c_str())); }

  int FlushClosed(const std::string& sPath) override { return FlushNamed(sPath, O_NOFOLLOW); }
  int FlushFolder(const std::string& sPath) override { return FlushNamed(sPath, O_DIRECTORY); }

 private:
  int FlushNamed(const std::string& path, int flags) {
    int handle = -1;
    if (const int error = OpenFile(path, O_RDONLY | flags, 0, handle)) return error;
    const int error = Flush(handle);
    close(handle);
    return error;
  }
};

}  // namespace

IFileOps& SystemFileOps() {
  // Never destroyed, because a store may still save while the process ends.
  static SystemOps& oOps = *new SystemOps;
  return oOps;
}
