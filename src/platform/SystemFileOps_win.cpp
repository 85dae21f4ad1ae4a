// The file operations by the wide calls of Windows. A handle of this system fits into an int, since
// only its lower 32 bits count.
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cwchar>

#include "IFileOps.h"
#include "WindowsNames.h"

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD KeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                 FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

bool HasNull(const std::string& path) {
  return path.find('\0') != std::string::npos;
}

int LastError() {
  return ErrorNumber(GetLastError());
}

int ErrorUnless(BOOL isDone) {
  return isDone ? 0 : LastError();
}

HANDLE HandleOf(int file) {
  return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(file));
}

/// A handle that closes itself.
class Opened {
 public:
  Opened(const std::string& path, DWORD access, DWORD flags) {
    if (HasNull(path)) {
      mError = ENOENT;
      return;
    }
    mFile = CreateFileW(WideName(path).c_str(), access, ShareAll, nullptr, OPEN_EXISTING,
                        FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
    if (mFile == INVALID_HANDLE_VALUE) mError = LastError();
  }
  ~Opened() {
    if (mFile != INVALID_HANDLE_VALUE) CloseHandle(mFile);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  int Error() const { return mError; }
  HANDLE Get() const { return mFile; }

 private:
  HANDLE mFile = INVALID_HANDLE_VALUE;
  int mError = 0;
};

std::uint64_t Joined(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32 | low;
}

/// From steps of 100 nanoseconds since 1601 to nanoseconds since 1970.
std::int64_t Nanoseconds(std::int64_t steps) {
  constexpr std::int64_t StepsUntil1970 = 116'444'736'000'000'000;
  return (steps - StepsUntil1970) * 100;
}

bool IsFolder(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int StateOf(HANDLE file, IFileOps::Stat& state) {
  state = {};
  if (GetFileType(file) != FILE_TYPE_DISK) {
    state.bSpecial = true;
    return 0;
  }
  BY_HANDLE_FILE_INFORMATION info = {};
  FILE_BASIC_INFO times = {};
  if (!GetFileInformationByHandle(file, &info) ||
      !GetFileInformationByHandleEx(file, FileBasicInfo, &times, sizeof times)) {
    return LastError();
  }
  state.bDirectory = IsFolder(info.dwFileAttributes);
  // Of a folder, this attribute says something else.
  state.bReadOnly = !state.bDirectory && (info.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  state.lSize = Joined(info.nFileSizeHigh, info.nFileSizeLow);
  state.lModified = Nanoseconds(times.LastWriteTime.QuadPart);
  state.lChanged = Nanoseconds(times.ChangeTime.QuadPart);
  state.lDevice = info.dwVolumeSerialNumber;
  state.lNumber = Joined(info.nFileIndexHigh, info.nFileIndexLow);
  state.lMode = info.dwFileAttributes & KeptAttributes;
  state.links = state.bDirectory ? 1 : info.nNumberOfLinks;
  return 0;
}

/// What of a file stands against reading it; 0: nothing.
int ErrorOfKind(const IFileOps::Stat& state) {
  if (state.bDirectory) return EISDIR;
  if (state.bSpecial) return ENODEV;
  return state.lSize > IFileOps::LargestFile ? EFBIG : 0;
}

/// Fewer bytes than wanted: the end was reached.
int ReadUpTo(HANDLE file, std::size_t wanted, std::string& bytes) {
  bytes.resize(wanted);
  std::size_t have = 0;
  int error = 0;
  while (have < wanted) {
    DWORD count = 0;
    if (!ReadFile(file, bytes.data() + have, static_cast<DWORD>(wanted - have), &count, nullptr)) {
      error = LastError();
      break;
    }
    if (count == 0) break;
    have += count;
  }
  bytes.resize(error == 0 ? have : 0);
  return error;
}

int ReadKnown(const std::string& path, std::size_t most, std::string& bytes) {
  bytes.clear();
  const Opened file(path, GENERIC_READ, 0);
  if (file.Error() != 0) return file.Error();
  IFileOps::Stat state;
  if (const int error = StateOf(file.Get(), state)) return error;
  if (const int error = ErrorOfKind(state)) {
    if (error != EFBIG || most > IFileOps::LargestFile) return error;
  }
  return ReadUpTo(file.Get(),
                  std::min<std::size_t>(most, static_cast<std::size_t>(state.lSize) + 1), bytes);
}

/// A link in the sense of the file system; the placeholders of files that lie elsewhere, which are
/// marked alike, count as files.
bool IsLink(const std::wstring& name) {
  WIN32_FIND_DATAW found = {};
  const HANDLE search = FindFirstFileW(name.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
          found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

class SystemOps : public IFileOps {
 public:
  int GetStat(const std::string& path, Stat& state) override {
    const Opened file(path, FILE_READ_ATTRIBUTES, 0);
    return file.Error() != 0 ? file.Error() : StateOf(file.Get(), state);
  }

  int ReadAll(const std::string& path, std::string& bytes) override {
    return ReadKnown(path, LargestFile + 1, bytes);
  }
  int ReadStart(const std::string& path, std::size_t most, std::string& bytes) override {
    return ReadKnown(path, most, bytes);
  }

  int ListFolder(const std::string& path, std::vector<std::string>& names) override {
    if (HasNull(path)) return ENOENT;
    WIN32_FIND_DATAW found = {};
    std::wstring pattern = WideName(path);
    pattern += pattern.ends_with(L'\\') ? L"*" : L"\\*";
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return LastError();
    do {
      const std::wstring_view name = found.cFileName;
      if (name != L"." && name != L"..") names.push_back(PlainName(name));
    } while (FindNextFileW(search, &found));
    const DWORD end = GetLastError();
    FindClose(search);
    return end == ERROR_NO_MORE_FILES ? 0 : ErrorNumber(end);
  }

  int Resolve(const std::string& path, std::string& target) override {
    if (HasNull(path)) return ENOENT;
    target = path;
    if (!IsLink(WideName(path))) return 0;
    const Opened file(path, FILE_READ_ATTRIBUTES, 0);
    if (file.Error() != 0) return file.Error();
    std::wstring name(0x8000, L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(file.Get(), name.data(), static_cast<DWORD>(name.size()), 0);
    if (length == 0 || length >= name.size()) return LastError();
    target = PlainName(std::wstring_view(name).substr(0, length));
    return 0;
  }

  int CreateNew(const std::string& path, std::uint32_t, int& file) override {
    file = -1;
    if (HasNull(path)) return ENOENT;
    const HANDLE made = CreateFileW(WideName(path).c_str(), GENERIC_WRITE | FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (made == INVALID_HANDLE_VALUE) return LastError();
    file = static_cast<int>(reinterpret_cast<std::intptr_t>(made));
    return 0;
  }

  int Write(int file, std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD written = 0;
      if (!WriteFile(HandleOf(file), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr)) {
        return LastError();
      }
      bytes.remove_prefix(written);
    }
    return 0;
  }

  // The system's replacement gives the new file what the old one had (Rename).
  int SetOwner(int, std::uint32_t, std::uint32_t) override { return 0; }
  int CopyAttributes(const std::string&, int) override { return 0; }
  int SetMode(int file, std::uint32_t mode) override {
    if (mode == 0) return 0;
    FILE_BASIC_INFO info = {};
    info.FileAttributes = mode;
    return ErrorUnless(
        SetFileInformationByHandle(HandleOf(file), FileBasicInfo, &info, sizeof info));
  }

  int Flush(int file) override { return ErrorUnless(FlushFileBuffers(HandleOf(file))); }
  int FlushBytes(int file) override { return Flush(file); }
  // Flushing a volume takes the rights of an administrator.
  int FileSystemOf(int, std::uint64_t&) override { return ENOTSUP; }
  int FlushFileSystem(int) override { return ENOTSUP; }
  int Close(int file) override { return ErrorUnless(CloseHandle(HandleOf(file))); }

  // ReplaceFile keeps the old one's access list, attributes, streams and time of making; not its
  // owner, which only an administrator could give to the new one. When its second step fails, the
  // old one is gone and the new one has still its own name.
  int Rename(const std::string& from, const std::string& to) override {
    if (HasNull(from) || HasNull(to)) return ENOENT;
    const std::wstring source = WideName(from), target = WideName(to);
    const DWORD attributes = GetFileAttributesW(target.c_str());
    const bool isFile = attributes != INVALID_FILE_ATTRIBUTES && !IsFolder(attributes);
    if (isFile && (GetFileAttributesW(source.c_str()) & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      if (ReplaceFileW(target.c_str(), source.c_str(), nullptr, REPLACEFILE_WRITE_THROUGH, nullptr,
                       nullptr)) {
        return 0;
      }
      const DWORD error = GetLastError();
      if (error != ERROR_UNABLE_TO_MOVE_REPLACEMENT && error != ERROR_NOT_SUPPORTED &&
          error != ERROR_INVALID_FUNCTION) {
        return ErrorNumber(error);
      }
    }
    return ErrorUnless(MoveFileExW(source.c_str(), target.c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
  }
  int Remove(const std::string& path) override {
    return HasNull(path) ? ENOENT : ErrorUnless(DeleteFileW(WideName(path).c_str()));
  }

  int FlushClosed(const std::string& path) override {
    const Opened file(path, GENERIC_WRITE, 0);
    return file.Error() != 0 ? file.Error() : ErrorUnless(FlushFileBuffers(file.Get()));
  }
  // The system writes the names of files through with the replacement itself.
  int FlushFolder(const std::string&) override { return ENOTSUP; }
};

}  // namespace

IFileOps& SystemFileOps() {
  // Never destroyed, because a store may still save while the process ends.
  static SystemOps& ops = *new SystemOps;
  return ops;
}
