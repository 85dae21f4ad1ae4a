#include <windows.h>

#include <algorithm>

#include "SystemPaths.h"
#include "WindowsNames.h"

// The access list says little about what the system will allow, so that it is tried.
bool IsWritableFolder(const std::string& path) {
  const std::wstring probe = WideName(path + "/.quillon-" + std::to_string(GetCurrentProcessId()));
  const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

std::vector<std::string> RootsOfDrive(char letter) {
  return {std::string(1, letter) + ':'};
}

std::string WithSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}
