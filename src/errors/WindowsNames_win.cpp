#include "WindowsNames.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>

#include "Utf8.h"

namespace {

constexpr std::wstring_view Whole = L"\\\\?\\", Device = L"\\\\.\\", Share = L"\\\\",
                            WholeShare = L"\\\\?\\UNC\\";

struct Row {
  unsigned long system;
  int number;
};
constexpr Row Rows[] = {
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_NAME, ENOENT},
    {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_BAD_PATHNAME, ENOENT},
    {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_SHARING_VIOLATION, EACCES},
    {ERROR_LOCK_VIOLATION, EACCES},
    {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    {ERROR_USER_MAPPED_FILE, EACCES},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_FILE_TOO_LARGE, EFBIG},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_INVALID_HANDLE, EBADF},
    {ERROR_BROKEN_PIPE, EPIPE},
    {ERROR_NO_DATA, EPIPE},
    {ERROR_NOT_SUPPORTED, ENOTSUP},
    {ERROR_INVALID_FUNCTION, ENOTSUP},
    {ERROR_CALL_NOT_IMPLEMENTED, ENOTSUP},
    {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
};

std::wstring Wide(std::string_view path) {
  const std::u16string text = FromUtf8(path);
  std::wstring wide(text.begin(), text.end());
  std::replace(wide.begin(), wide.end(), L'/', L'\\');
  return wide;
}

/// Empty when the system takes it for no path.
std::wstring FullName(const std::wstring& name) {
  std::wstring full(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size =
        GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    const bool fits = size < full.size();
    full.resize(size);
    if (fits) return full;
  }
}

}  // namespace

std::wstring WideName(std::string_view path) {
  std::wstring wide = Wide(path);
  if (wide.starts_with(Whole) || wide.starts_with(Device)) return wide;
  if (wide.size() == 2 && wide[1] == L':') wide += L'\\';
  const std::wstring full = FullName(wide);
  if (full.empty() || full.starts_with(Whole) || full.starts_with(Device)) return full;
  if (full.starts_with(Share)) return std::wstring(WholeShare) + full.substr(Share.size());
  return std::wstring(Whole) + full;
}

std::string PlainName(std::wstring_view name) {
  std::u16string text;
  if (name.starts_with(WholeShare)) {
    text = u"//";
    name.remove_prefix(WholeShare.size());
  } else if (name.starts_with(Whole)) {
    name.remove_prefix(Whole.size());
  }
  text.append(name.begin(), name.end());
  std::replace(text.begin(), text.end(), u'\\', u'/');
  return ToUtf8(text);
}

int ErrorNumber(unsigned long lastError) {
  if (lastError == ERROR_SUCCESS) return 0;
  const Row* const row = std::find_if(std::begin(Rows), std::end(Rows),
                                      [&](const Row& one) { return one.system == lastError; });
  return row == std::end(Rows) ? EIO : row->number;
}
