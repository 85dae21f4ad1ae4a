#include <windows.h>

#include "Process.h"

std::int32_t ProcessNumber() {
  return static_cast<std::int32_t>(GetCurrentProcessId());
}

bool IsProcessGone(std::int64_t number) {
  if (number <= 0) return false;
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(number));
  if (process == nullptr) return GetLastError() == ERROR_INVALID_PARAMETER;
  // An ended process keeps its number as long as somebody watches it.
  const bool hasEnded = WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
  CloseHandle(process);
  return hasEnded;
}
