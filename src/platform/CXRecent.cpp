#include "CXRecent.h"

#include <algorithm>
#include <set>

#include "Failure.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

namespace {

using namespace MXRegistry;

constexpr TextView sMaxCount = u"MaxCount";

Text NumberName(std::size_t lIndex) {
  return ToText(static_cast<long long>(lIndex));
}
Text ParamsName(std::size_t lIndex) {
  return NumberName(lIndex) + u"_PropString";
}

/// The number of an entry's value name, 1 to 2^31-1 without leading zeros; else 0.
std::size_t NumberOf(TextView sName) {
  if (sName.empty() || sName.size() > 10 || sName[0] == u'0') return 0;
  std::size_t lNumber = 0;
  for (const char16_t cUnit : sName) {
    if (cUnit < u'0' || cUnit > u'9') return 0;
    lNumber = lNumber * 10 + (cUnit - u'0');
  }
  return lNumber <= 0x7FFFFFFF ? lNumber : 0;
}

/// The numbers in use, ascending. Taken from the value names, since a damaged MaxCount may be two
/// thousand million, too many to try one by one.
std::set<std::size_t> EntryNumbers(std::int32_t hReg) {
  std::set<std::size_t> oNumbers;
  for (const Text& sName : RegValueNames(hReg)) {
    if (const std::size_t lNumber = NumberOf(sName)) oNumbers.insert(lNumber);
  }
  return oNumbers;
}

std::unique_ptr<CXRecent>& RecentFilesHolder() {
  static std::unique_ptr<CXRecent> poRecent;
  return poRecent;
}

}  // namespace

void CXRecent::Initialize(std::int32_t hReg) {
  mhReg = hReg;
  moEntries.clear();
  mlMaxCount = std::max(0, GetRegLong(hReg, sMaxCount, mlMaxCount));
  for (const std::size_t lNumber : EntryNumbers(hReg)) {
    if (lNumber > static_cast<std::size_t>(mlMaxCount)) break;
    moEntries.push_back(
        {GetRegString(hReg, NumberName(lNumber), {}), GetRegString(hReg, ParamsName(lNumber), {})});
  }
}

std::int32_t CXRecent::Add(TextView sItem) {
  Entry oNew{Text(sItem), {}};
  const auto oOld = std::find_if(moEntries.begin(), moEntries.end(), [&](const Entry& oEntry) {
    return EqualNoCase(oEntry.sItem, sItem);
  });
  if (oOld != moEntries.end()) {
    oNew.sParams = std::move(oOld->sParams);
    moEntries.erase(oOld);
  }
  moEntries.insert(moEntries.begin(), std::move(oNew));
  SetMaxCount(mlMaxCount);
  return 1;
}

Text CXRecent::Property(std::int32_t lIndex, TextView sName) const {
  if (lIndex < 1 || lIndex > Count()) return {};
  CXParamString oParams;
  oParams.SetParamString(moEntries[static_cast<std::size_t>(lIndex) - 1].sParams);
  return oParams.Property(sName);
}

void CXRecent::SetProperty(std::int32_t lIndex, TextView sName, TextView sValue) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  Text& sParams = moEntries[static_cast<std::size_t>(lIndex) - 1].sParams;
  CXParamString oParams;
  oParams.SetParamString(sParams);
  oParams.SetProperty(sName, sValue);
  sParams = oParams.ParamString();
  SaveToRegistry();
}

Text CXRecent::Item(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) return {};
  return moEntries[static_cast<std::size_t>(lIndex) - 1].sItem;
}

void CXRecent::Remove(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) throw Failure(9);
  moEntries.erase(moEntries.begin() + (lIndex - 1));
  SaveToRegistry();
}

void CXRecent::SetMaxCount(std::int32_t lMaxCount) {
  mlMaxCount = std::max(0, lMaxCount);
  if (Count() > mlMaxCount) moEntries.resize(static_cast<std::size_t>(mlMaxCount));
  SaveToRegistry();
}

void CXRecent::SaveToRegistry() {
  const RegistryStore::Batch oOneSave(CurrentRegistry());
  SetRegLong(mhReg, sMaxCount, mlMaxCount);
  for (std::size_t i = 1; i <= moEntries.size(); ++i) {
    const Entry& oEntry = moEntries[i - 1];
    SetRegString(mhReg, NumberName(i), oEntry.sItem);
    if (oEntry.sParams.empty()) {
      DeleteRegValue(mhReg, ParamsName(i));
    } else {
      SetRegString(mhReg, ParamsName(i), oEntry.sParams);
    }
  }
  // Deletes all entries above the count. Stopping at the first gap would leave entries behind it,
  // which the next start would read again.
  for (const std::size_t lNumber : EntryNumbers(mhReg)) {
    if (lNumber <= moEntries.size()) continue;
    DeleteRegValue(mhReg, NumberName(lNumber));
    DeleteRegValue(mhReg, ParamsName(lNumber));
  }
}

CXRecent& RecentFiles() {
  std::unique_ptr<CXRecent>& poRecent = RecentFilesHolder();
  if (poRecent == nullptr) {
    poRecent = std::make_unique<CXRecent>();
    poRecent->Initialize(
        OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + u"FMain\\Recent Files", KEY_ALL_ACCESS));
  }
  return *poRecent;
}

void ResetRecentFiles() {
  RecentFilesHolder().reset();
}
