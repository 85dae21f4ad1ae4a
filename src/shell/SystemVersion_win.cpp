#include <windows.h>

#include "Diagnostics.h"

namespace {

using Ask = LONG(WINAPI*)(OSVERSIONINFOW*);

/// GetVersionEx tells programs of a version that they were made for; this call tells the truth.
Ask TruthfulCall() {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  const auto call = system != nullptr ? GetProcAddress(system, "RtlGetVersion") : nullptr;
  return reinterpret_cast<Ask>(reinterpret_cast<void*>(call));
}

}  // namespace

SystemVersion CurrentSystem() {
  OSVERSIONINFOW info = {};
  info.dwOSVersionInfoSize = sizeof info;
  const Ask ask = TruthfulCall();
  SystemVersion system;
  system.bKnown = ask != nullptr && ask(&info) == 0;
  system.lPlatform = static_cast<std::int32_t>(info.dwPlatformId);
  system.lMajor = static_cast<std::int32_t>(info.dwMajorVersion);
  system.lMinor = static_cast<std::int32_t>(info.dwMinorVersion);
  system.lBuild = static_cast<std::int32_t>(info.dwBuildNumber);
  const std::wstring_view service = info.szCSDVersion;
  system.sService = Text(service.begin(), service.end());
  return system;
}
