#include "MXRegistry.h"

#include <map>

#include "Failure.h"
#include "IErrorRuntime.h"
#include "RegistryStore.h"

namespace {

constexpr std::int32_t NotFound = 2, MoreData = 234, InvalidHandle = 6;

/// Open keys by handle: the full path without the backslash at its end.
std::map<std::int32_t, Text>& OpenKeys() {
  static std::map<std::int32_t, Text> keys = {
      {MXRegistry::HKEY_CURRENT_USER, u"HKEY_CURRENT_USER"}};
  return keys;
}

const Text* PathOf(std::int32_t key) {
  const auto found = OpenKeys().find(key);
  return found == OpenKeys().end() ? nullptr : &found->second;
}

/// The system's result code for a failure of the store.
std::int32_t ResultOf(const Failure& failure) {
  switch (failure.Number()) {
    case 5:
      return 87;
    case 61:
      return 112;
    case 70:
    case 75:
      return 5;
    case 76:
      return 3;
    default:
      return 29;
  }
}

Text CallName(TextView callName, const Text* path, TextView name) {
  Text whole(callName);
  if (path != nullptr) whole += u" " + *path;
  if (!name.empty()) whole += u"\\" + Text(name);
  return whole;
}

/// Runs call with the key's path; its result code, or that of its failure, goes to the error
/// run-time, and the caller goes on.
template <class Call>
std::int32_t Checked(TextView callName, std::int32_t key, TextView name,
                     std::initializer_list<std::int32_t> expected, Call&& call) {
  const Text* path = PathOf(key);
  Text reason;
  std::int32_t result = InvalidHandle;
  try {
    if (path != nullptr) result = call(*path);
  } catch (const Failure& failure) {
    result = ResultOf(failure);
    reason = u": " + failure.Description();
  }
  if (result != 0) {
    const Text whole = CallName(callName, path, name) + reason;
    ResultStatus status = goError->CheckResultEx(whole, result);
    goError->ExpectResult(status, expected);
    goError->CloseResult(status);
  }
  return result;
}

std::int32_t Query(std::int32_t key, TextView name) {
  return Checked(u"RegQueryValueEx", key, name, {NotFound, MoreData}, [&](const Text& path) {
    return CurrentRegistry().ValueType(path, name) ? 0 : NotFound;
  });
}

}  // namespace

namespace MXRegistry {

std::int32_t OpenRegKey(std::int32_t hRoot, TextView sKey, std::int32_t) {
  static std::int32_t lastKey = 0;
  while (sKey.ends_with(u'\\')) sKey.remove_suffix(1);
  std::int32_t hKey = 0;
  Checked(u"RegCreateKeyEx", hRoot, sKey, {}, [&](const Text& root) {
    const Text path = sKey.empty() ? root : root + u'\\' + Text(sKey);
    CurrentRegistry().CreateKey(path);
    hKey = ++lastKey;
    OpenKeys()[hKey] = path;
    return 0;
  });
  return hKey;
}

void CloseRegKey(std::int32_t hKey) {
  Checked(u"RegCloseKey", hKey, {}, {}, [&](const Text&) {
    if (hKey != HKEY_CURRENT_USER) OpenKeys().erase(hKey);
    return 0;
  });
}

bool RegValueExists(std::int32_t hKey, TextView sName) {
  return Query(hKey, sName) != NotFound;
}

void SetRegLong(std::int32_t hKey, TextView sName, std::int32_t lValue) {
  Checked(u"RegSetValueEx", hKey, sName, {}, [&](const Text& path) {
    CurrentRegistry().SetLong(path, sName, lValue);
    return 0;
  });
}

std::int32_t GetRegLong(std::int32_t hKey, TextView sName, std::int32_t lDefault) {
  if (Query(hKey, sName) != 0) return lDefault;
  return CurrentRegistry().GetLong(*PathOf(hKey), sName).value_or(lDefault);
}

void SetRegString(std::int32_t hKey, TextView sName, TextView sValue) {
  Checked(u"RegSetValueEx", hKey, sName, {}, [&](const Text& path) {
    CurrentRegistry().SetString(path, sName, sValue);
    return 0;
  });
}

Text GetRegString(std::int32_t hKey, TextView sName, TextView sDefault) {
  if (Query(hKey, sName) != 0) return Text(sDefault);
  return CurrentRegistry().GetString(*PathOf(hKey), sName).value_or(Text(sDefault));
}

void DeleteRegValue(std::int32_t hKey, TextView sName) {
  Checked(u"RegDeleteValue", hKey, sName, {NotFound, MoreData}, [&](const Text& path) {
    return CurrentRegistry().DeleteValue(path, sName) ? 0 : NotFound;
  });
}

std::vector<Text> RegValueNames(std::int32_t hKey) {
  std::vector<Text> names;
  Checked(u"RegEnumValue", hKey, {}, {}, [&](const Text& path) {
    names = CurrentRegistry().ValueNames(path);
    return 0;
  });
  return names;
}

bool GetRegBool(std::int32_t hKey, TextView sName, bool defaultValue) {
  return GetRegLong(hKey, sName, defaultValue ? -1 : 0) != 0;
}

void SetRegBool(std::int32_t hKey, TextView sName, bool value) {
  SetRegLong(hKey, sName, value ? -1 : 0);
}

}  // namespace MXRegistry
