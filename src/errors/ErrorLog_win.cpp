#include <windows.h>

#include <cerrno>
#include <cstdlib>

#include "ErrorLog.h"
#include "WindowsNames.h"

namespace {

HANDLE HandleOf(std::intptr_t file) {
  return reinterpret_cast<HANDLE>(file);
}

bool Identify(HANDLE file, BY_HANDLE_FILE_INFORMATION& state) {
  return GetFileInformationByHandle(file, &state) != 0;
}

bool IsNamedStill(const std::wstring& name, const BY_HANDLE_FILE_INFORMATION& open) {
  const HANDLE file = CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION named = {};
  const bool isSame =
      Identify(file, named) && named.dwVolumeSerialNumber == open.dwVolumeSerialNumber &&
      named.nFileIndexHigh == open.nFileIndexHigh && named.nFileIndexLow == open.nFileIndexLow;
  CloseHandle(file);
  return isSame;
}

}  // namespace

void ErrorLog::Close() noexcept {
  if (mhFile >= 0) CloseHandle(HandleOf(mhFile));
  mhFile = -1;
}

// Without the right to write anywhere but at the end, each write goes behind those of other
// programs.
bool ErrorLog::OpenFile() noexcept {
  try {
    const HANDLE file =
        CreateFileW(WideName(msPath).c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return Fails(ErrorNumber(GetLastError()));
    mhFile = reinterpret_cast<std::intptr_t>(file);
    return true;
  } catch (...) {
    return Fails(ENOMEM);
  }
}

bool ErrorLog::WriteFile(std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    DWORD written = 0;
    if (!::WriteFile(HandleOf(mhFile), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr)) {
      return Fails(ErrorNumber(GetLastError()));
    }
    bytes.remove_prefix(written);
  }
  return true;
}

// As soon as one program has renamed the file, the others see that theirs isn't the named one any
// more. Two that rename at once lose an old file at the worst.
bool ErrorLog::MakeRoom(std::size_t lBytes) noexcept {
  BY_HANDLE_FILE_INFORMATION state = {};
  if (GetFileType(HandleOf(mhFile)) != FILE_TYPE_DISK) return true;
  if (!Identify(HandleOf(mhFile), state)) return Fails(ErrorNumber(GetLastError()));
  const std::size_t size = state.nFileSizeHigh != 0 ? SIZE_MAX : state.nFileSizeLow;
  if (size == 0 || (size <= mlMaxBytes && lBytes <= mlMaxBytes - size)) return true;
  try {
    if (IsNamedStill(WideName(msPath), state)) ShiftFiles();
  } catch (...) {
    mlProblem = ENOMEM;
  }
  Close();
  return Open();
}

void ErrorLog::ShiftFiles() const {
  const auto name = [this](int i) {
    return WideName(i == 0 ? msPath : msPath + '.' + std::to_string(i));
  };
  if (mlKept == 0) DeleteFileW(name(0).c_str());
  for (int i = mlKept; i > 0; --i)
    MoveFileExW(name(i - 1).c_str(), name(i).c_str(), MOVEFILE_REPLACE_EXISTING);
}

std::string DefaultLogPath() {
  for (const wchar_t* const variable : {L"XDG_STATE_HOME", L"LOCALAPPDATA"}) {
    const wchar_t* const folder = _wgetenv(variable);
    if (folder != nullptr && *folder != L'\0')
      return PlainName(folder) + "/tarvane-quillon/quillon.log";
  }
  return {};
}
