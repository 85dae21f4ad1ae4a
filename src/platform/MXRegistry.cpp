#include "MXRegistry.h"

#include <map>

#include "Failure.h"
#include "IErrorRuntime.h"
#include "RegistryStore.h"

namespace {

constexpr std::int32_t lNotFound = 2, lMoreData = 234, lInvalidHandle = 6;

/// Open keys by handle: the full path without the backslash at its end.
std::map<std::int32_t, Text>& OpenKeys() {
  static std::map<std::int32_t, Text> oKeys = {
      {MXRegistry::HKEY_CURRENT_USER, u"HKEY_CURRENT_USER"}};
  return oKeys;
}

const Text* PathOf(std::int32_t hKey) {
  const auto oFound = OpenKeys().find(hKey);
  return oFound == OpenKeys().end() ? nullptr : &oFound->second;
}

/// The system's result code for a failure of the store.
std::int32_t ResultOf(const Failure& oFailure) {
  switch (oFailure.Number()) {
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

Text CallName(TextView sCall, const Text* psKey, TextView sName) {
  Text sWhole(sCall);
  if (psKey != nullptr) sWhole += u" " + *psKey;
  if (!sName.empty()) sWhole += u"\\" + Text(sName);
  return sWhole;
}

/// Runs oCall with the key's path; its result code, or that of its failure, goes to the error
/// run-time, and the caller goes on.
template <class Call>
std::int32_t Checked(TextView sCall, std::int32_t hKey, TextView sName,
                     std::initializer_list<std::int32_t> alExpected, Call&& oCall) {
  const Text* psKey = PathOf(hKey);
  Text sReason;
  std::int32_t lResult = lInvalidHandle;
  try {
    if (psKey != nullptr) lResult = oCall(*psKey);
  } catch (const Failure& oFailure) {
    lResult = ResultOf(oFailure);
    sReason = u": " + oFailure.Description();
  }
  if (lResult != 0) {
    goError->CheckResultEx(CallName(sCall, psKey, sName) + sReason, lResult, alExpected);
  }
  return lResult;
}

std::int32_t Query(std::int32_t hKey, TextView sName) {
  return Checked(u"RegQueryValueEx", hKey, sName, {lNotFound, lMoreData}, [&](const Text& sKey) {
    return CurrentRegistry().ValueType(sKey, sName) ? 0 : lNotFound;
  });
}

}  // namespace

namespace MXRegistry {

std::int32_t OpenRegKey(std::int32_t hRoot, TextView sKey, std::int32_t) {
  static std::int32_t hLast = 0;
  while (sKey.ends_with(u'\\')) sKey.remove_suffix(1);
  std::int32_t hKey = 0;
  Checked(u"RegCreateKeyEx", hRoot, sKey, {}, [&](const Text& sRoot) {
    const Text sPath = sKey.empty() ? sRoot : sRoot + u'\\' + Text(sKey);
    CurrentRegistry().CreateKey(sPath);
    hKey = ++hLast;
    OpenKeys()[hKey] = sPath;
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
  return Query(hKey, sName) != lNotFound;
}

void SetRegLong(std::int32_t hKey, TextView sName, std::int32_t lValue) {
  Checked(u"RegSetValueEx", hKey, sName, {}, [&](const Text& sKey) {
    CurrentRegistry().SetLong(sKey, sName, lValue);
    return 0;
  });
}

std::int32_t GetRegLong(std::int32_t hKey, TextView sName, std::int32_t lDefault) {
  if (Query(hKey, sName) != 0) return lDefault;
  return CurrentRegistry().GetLong(*PathOf(hKey), sName).value_or(lDefault);
}

void SetRegString(std::int32_t hKey, TextView sName, TextView sValue) {
  Checked(u"RegSetValueEx", hKey, sName, {}, [&](const Text& sKey) {
    CurrentRegistry().SetString(sKey, sName, sValue);
    return 0;
  });
}

Text GetRegString(std::int32_t hKey, TextView sName, TextView sDefault) {
  if (Query(hKey, sName) != 0) return Text(sDefault);
  return CurrentRegistry().GetString(*PathOf(hKey), sName).value_or(Text(sDefault));
}

void DeleteRegValue(std::int32_t hKey, TextView sName) {
  Checked(u"RegDeleteValue", hKey, sName, {lNotFound, lMoreData}, [&](const Text& sKey) {
    return CurrentRegistry().DeleteValue(sKey, sName) ? 0 : lNotFound;
  });
}

std::vector<Text> RegValueNames(std::int32_t hKey) {
  std::vector<Text> asName;
  Checked(u"RegEnumValue", hKey, {}, {}, [&](const Text& sKey) {
    asName = CurrentRegistry().ValueNames(sKey);
    return 0;
  });
  return asName;
}

bool GetRegBool(std::int32_t hKey, TextView sName, bool bDefault) {
  return GetRegLong(hKey, sName, bDefault ? -1 : 0) != 0;
}

void SetRegBool(std::int32_t hKey, TextView sName, bool bValue) {
  SetRegLong(hKey, sName, bValue ? -1 : 0);
}

}  // namespace MXRegistry
