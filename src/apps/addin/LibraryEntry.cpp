// What the system calls in the library: the start, the four entry points of a COM server.
#include <windows.h>

#include <array>
#include <memory>
#include <utility>

#include "AddInProgram.h"
#include "ClassFactory.h"
#include "Registration.h"

namespace {

constexpr GUID ClassId = {
    0x127739C2, 0x40F9, 0x4B7C, {0x86, 0xA0, 0x5A, 0x29, 0x32, 0x18, 0x98, 0x12}};
constexpr GUID LibraryId = {
    0x2503D1A6, 0x8F36, 0x4AA8, {0xA8, 0x26, 0x93, 0x47, 0x07, 0x7C, 0xE5, 0x83}};

HMODULE library = nullptr;

/// Kept without an owner: when the process ends, the windows it would close are gone already.
AddInProgram* program = nullptr;

Text LibraryFile() {
  std::array<wchar_t, 32768> name;
  const DWORD length = GetModuleFileNameW(library, name.data(), name.size());
  return Text(reinterpret_cast<const char16_t*>(name.data()), length);
}

Text FolderOf(const Text& file) {
  return file.substr(0, file.find_last_of(u'\\'));
}

/// The program runs from the first object to the time when the library may leave.
IUnknown* MakeObject() {
  if (!program) {
    const Text commandLine(reinterpret_cast<const char16_t*>(GetCommandLineW()));
    program = AddInProgram::Start(library, FolderOf(LibraryFile()), commandLine).release();
  }
  return program ? new AddInObject(*program) : nullptr;
}

ServerNames Names() {
  return {ClassId,
          LibraryId,
          u"TarvaneQuillon.Connect",
          u"Tarvane Quillon",
          u"Manages the error-handling code of every procedure of the open projects.",
          LibraryFile(),
          3,
          1};
}

/// No exception of ours means anything to the caller.
template <class Work>
HRESULT Answer(Work&& work) noexcept {
  try {
    return work();
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    library = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

HRESULT WINAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** result) {
  return Answer([&]() -> HRESULT {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (classId != ClassId) return CLASS_E_CLASSNOTAVAILABLE;
    const auto factory = ComPtr<ClassFactory>::Take(new ClassFactory(MakeObject));
    return factory->QueryInterface(iid, result);
  });
}

/// With the last object the windows go, and with them the classes of windows, hooks and timers.
HRESULT WINAPI DllCanUnloadNow() {
  return Answer([]() -> HRESULT {
    if (Alive::Count() != 0) return S_FALSE;
    delete std::exchange(program, nullptr);
    return S_OK;
  });
}

HRESULT WINAPI DllRegisterServer() {
  return Answer([] { return Registration(Names()).Add(); });
}

HRESULT WINAPI DllUnregisterServer() {
  return Answer([] { return Registration(Names()).Remove(); });
}

}  // extern "C"
