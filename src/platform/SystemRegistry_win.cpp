#include "SystemRegistry.h"

#include <windows.h>

#include <vector>

#include "ErrorLog.h"
#include "Failure.h"
#include "WindowsNames.h"

namespace {

constexpr TextView Root = u"HKEY_CURRENT_USER\\";
constexpr TextView Product = u"Software\\Morvelle\\Tarvane\\Quillon";

std::wstring Wide(TextView text) {
  return {text.begin(), text.end()};
}

[[noreturn]] void Fail(TextView key, LSTATUS error) {
  const std::int32_t number = error == ERROR_ACCESS_DENIED ? 70 : 57;
  throw Failure(number,
                FailureText(number) + u": " + Text(Root) + Text(key) +
                    u" in the registry can't be used (Windows error " + ToText(error) +
                    u"); get the right to change it, or name a file with --settings",
                u"RegistryStore");
}

/// An open key that closes itself.
class Key {
 public:
  ~Key() {
    if (mKey != nullptr) RegCloseKey(mKey);
  }
  Key() = default;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;

  LSTATUS OpenToRead(TextView path) {
    return RegOpenKeyExW(HKEY_CURRENT_USER, Wide(path).c_str(), 0, KEY_READ, &mKey);
  }
  LSTATUS OpenOrMake(TextView path) {
    return RegCreateKeyExW(HKEY_CURRENT_USER, Wide(path).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                           nullptr, &mKey, nullptr);
  }
  HKEY Get() const { return mKey; }

 private:
  HKEY mKey = nullptr;
};

Text Quoted(TextView name) {
  Text quoted = u"\"";
  for (const char16_t unit : name) {
    if (unit == u'"' || unit == u'\\') quoted += u'\\';
    quoted += unit;
  }
  return quoted + u'"';
}

/// Whatever the type, as bytes: what isn't a number of 32 bits needs no form of its own to be read.
Text Line(TextView name, DWORD type, const std::vector<BYTE>& bytes) {
  constexpr char16_t Digits[] = u"0123456789abcdef";
  const auto hex = [&](std::uint32_t number, int digits) {
    Text text;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) text += Digits[number >> shift & 15];
    return text;
  };
  Text line = name.empty() ? Text(u"@") : Quoted(name);
  if (type == REG_DWORD && bytes.size() == 4) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(bytes[i]); };
    return line + u"=dword:" + hex(byte(3) << 24 | byte(2) << 16 | byte(1) << 8 | byte(0), 8);
  }
  line += u"=hex(" + hex(type, 8) + u"):";
  for (std::size_t i = 0; i < bytes.size(); ++i)
    line += (i > 0 ? Text(u",") : Text()) + hex(bytes[i], 2);
  return line;
}

void ExportValues(HKEY key, Text& text) {
  constexpr DWORD LongestName = 16384;
  std::wstring name(LongestName, L'\0');
  for (DWORD i = 0;; ++i) {
    DWORD length = LongestName, type = 0, size = 0;
    if (RegEnumValueW(key, i, name.data(), &length, nullptr, &type, nullptr, &size) !=
        ERROR_SUCCESS)
      return;
    std::vector<BYTE> bytes(size);
    const std::wstring own = name.substr(0, length);
    if (RegQueryValueExW(key, own.c_str(), nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS)
      continue;
    bytes.resize(size);
    text += Line(Text(own.begin(), own.end()), type, bytes) + Text(CrLf);
  }
}

void ExportKey(const Text& path, Text& text) {
  Key key;
  const LSTATUS error = key.OpenToRead(path);
  if (error == ERROR_FILE_NOT_FOUND) return;
  if (error != ERROR_SUCCESS) Fail(path, error);
  text += Text(CrLf) + u"[" + Text(Root) + path + u"]" + Text(CrLf);
  ExportValues(key.Get(), text);
  wchar_t name[256] = {};
  for (DWORD i = 0, length = 256; RegEnumKeyExW(key.Get(), i, name, &length, nullptr, nullptr,
                                                nullptr, nullptr) == ERROR_SUCCESS;
       ++i, length = 256)
    ExportKey(path + u'\\' + Text(name, name + length), text);
}

TextView WithoutRoot(TextView key) {
  if (key.size() >= Root.size() && EqualNoCase(key.substr(0, Root.size()), Root))
    key.remove_prefix(Root.size());
  return key;
}

class UsersRegistry : public SystemRegistry {
 public:
  std::string Export() const override {
    Text text = u"Windows Registry Editor Version 5.00\r\n";
    ExportKey(Text(Product), text);
    return ToUtf8(text);
  }

  void Put(TextView key, TextView name, const RegistryValue* value) override {
    const TextView path = WithoutRoot(key);
    Key open;
    if (const LSTATUS error = open.OpenOrMake(path)) Fail(path, error);
    const LSTATUS error = value != nullptr ? Set(open.Get(), Wide(name), *value)
                                           : RegDeleteValueW(open.Get(), Wide(name).c_str());
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND) Fail(path, error);
  }

  std::string LockFile() const override {
    const std::string log = DefaultLogPath();
    return log.empty() ? log : log.substr(0, log.rfind('/')) + "/settings.lock";
  }

 private:
  static LSTATUS Set(HKEY key, const std::wstring& name, const RegistryValue& value) {
    if (value.type == RegistryValue::Long) {
      return RegSetValueExW(key, name.c_str(), 0, REG_DWORD,
                            reinterpret_cast<const BYTE*>(&value.number), sizeof value.number);
    }
    const std::wstring text = Wide(value.text);
    return RegSetValueExW(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  }
};

}  // namespace

std::unique_ptr<SystemRegistry> SystemRegistry::Open() {
  return std::make_unique<UsersRegistry>();
}

std::string SystemRegistry::Path() {
  return "HKEY_CURRENT_USER";
}
