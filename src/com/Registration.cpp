#include "Registration.h"

#include <olectl.h>

#include <array>

#include "ComPtr.h"
#include "ComText.h"

namespace {

constexpr TextView ClassesRoot = u"Software\\Classes\\";
constexpr TextView AddInsRoot = u"Software\\Microsoft\\Visual Basic\\6.0\\Addins\\";
constexpr DWORD LoadAtStart = 1;

/// An open key; none when it can't be had.
class Key {
 public:
  Key(HKEY root, const Text& path) {
    if (RegCreateKeyExW(root, WideChars(path), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &mKey,
                        nullptr) != ERROR_SUCCESS)
      mKey = nullptr;
  }
  ~Key() {
    if (mKey) RegCloseKey(mKey);
  }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;

  /// The empty name is the key's default value.
  bool Set(const Text& name, const Text& value) const {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(char16_t));
    return Write(name, REG_SZ, value.c_str(), bytes);
  }
  bool Set(const Text& name, DWORD value) const {
    return Write(name, REG_DWORD, &value, sizeof value);
  }
  bool Has(const Text& name) const {
    return mKey && RegQueryValueExW(mKey, WideChars(name), nullptr, nullptr, nullptr, nullptr) ==
                       ERROR_SUCCESS;
  }

 private:
  bool Write(const Text& name, DWORD type, const void* data, DWORD bytes) const {
    return mKey && RegSetValueExW(mKey, WideChars(name), 0, type, static_cast<const BYTE*>(data),
                                  bytes) == ERROR_SUCCESS;
  }

  HKEY mKey = nullptr;
};

bool Exists(HKEY root, const Text& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, WideChars(path), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

/// A function of the system's that the compiler's headers don't have; null where it has none.
template <class Function>
Function Automation(const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

Text GuidText(const GUID& guid) {
  std::array<wchar_t, 40> text;
  StringFromGUID2(guid, text.data(), text.size());
  return FromWide(text.data());
}

}  // namespace

std::vector<Text> Registration::ClassKeys() const {
  return {Text(ClassesRoot) + u"CLSID\\" + GuidText(mServer.classId),
          Text(ClassesRoot) + mServer.programId};
}

Text Registration::AddInKey() const {
  return Text(AddInsRoot) + mServer.programId;
}

bool Registration::AddClass(HKEY root) const {
  const Text classKey = ClassKeys()[0], programKey = ClassKeys()[1];
  const Key server(root, classKey + u"\\InprocServer32");
  return server.Set(u"", mServer.file) && server.Set(u"ThreadingModel", u"Apartment") &&
         Key(root, classKey).Set(u"", mServer.description) &&
         Key(root, classKey + u"\\ProgID").Set(u"", mServer.programId) &&
         Key(root, classKey + u"\\TypeLib").Set(u"", GuidText(mServer.libraryId)) &&
         Key(root, programKey).Set(u"", mServer.description) &&
         Key(root, programKey + u"\\CLSID").Set(u"", GuidText(mServer.classId));
}

HRESULT Registration::AddLibrary(bool machine) const {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(WideChars(mServer.file), REGKIND_NONE, library.Out());
  if (FAILED(loaded)) return loaded;
  Text file = mServer.file;
  auto* const wide = reinterpret_cast<wchar_t*>(file.data());
  const auto forUser = Automation<decltype(&RegisterTypeLib)>("RegisterTypeLibForUser");
  return machine   ? RegisterTypeLib(library.Get(), wide, nullptr)
         : forUser ? forUser(library.Get(), wide, nullptr)
                   : E_NOTIMPL;
}

bool Registration::AddToList() const {
  const Key entry(HKEY_CURRENT_USER, AddInKey());
  return entry.Set(u"FriendlyName", mServer.name) &&
         entry.Set(u"Description", mServer.description) &&
         entry.Set(u"CommandLineSafe", DWORD{0}) &&
         (entry.Has(u"LoadBehavior") || entry.Set(u"LoadBehavior", LoadAtStart));
}

HRESULT Registration::Add() const {
  const bool machine = AddClass(HKEY_LOCAL_MACHINE);
  if (!machine && !AddClass(HKEY_CURRENT_USER)) {
    Remove();
    return SELFREG_E_CLASS;
  }
  if (FAILED(AddLibrary(machine))) {
    Remove();
    return SELFREG_E_TYPELIB;
  }
  return AddToList() ? S_OK : SELFREG_E_CLASS;
}

HRESULT Registration::Remove() const {
  UnRegisterTypeLib(mServer.libraryId, mServer.major, mServer.minor, LANG_NEUTRAL, SYS_WIN32);
  const auto forUser = Automation<decltype(&UnRegisterTypeLib)>("UnRegisterTypeLibForUser");
  if (forUser) forUser(mServer.libraryId, mServer.major, mServer.minor, LANG_NEUTRAL, SYS_WIN32);
  RegDeleteTreeW(HKEY_CURRENT_USER, WideChars(AddInKey()));
  bool left = Exists(HKEY_CURRENT_USER, AddInKey());
  for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    for (const Text& key : ClassKeys()) {
      RegDeleteTreeW(root, WideChars(key));
      left |= Exists(root, key);
    }
  }
  return left ? SELFREG_E_CLASS : S_OK;
}
