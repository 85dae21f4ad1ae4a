#include <windows.h>

#include "FileLock.h"
#include "WindowsNames.h"

namespace {

/// What is locked can't be read either. This byte lies far behind the text for those who wait.
constexpr DWORD LockedByte = 0x40000000;

HANDLE HandleOf(std::intptr_t file) {
  return reinterpret_cast<HANDLE>(file);
}

}  // namespace

int FileLock::Open(const std::string& path) {
  const HANDLE file = CreateFileW(WideName(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  mFile = reinterpret_cast<std::intptr_t>(file);
  return file == INVALID_HANDLE_VALUE ? ErrorNumber(GetLastError()) : 0;
}

bool FileLock::TryTake() {
  OVERLAPPED place = {};
  place.Offset = LockedByte;
  return LockFileEx(HandleOf(mFile), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                    &place) != 0;
}

// Nothing depends on the text, so a failure counts for nothing.
void FileLock::Note(std::string_view text) {
  DWORD written = 0;
  SetFilePointer(HandleOf(mFile), 0, nullptr, FILE_BEGIN);
  WriteFile(HandleOf(mFile), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  SetEndOfFile(HandleOf(mFile));
}

FileLock::~FileLock() {
  if (mFile != -1) CloseHandle(HandleOf(mFile));
}
