#include "CXRecent.h"

#include <algorithm>
#include <set>

#include "Failure.h"
#include "Guard.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

namespace {

using namespace MXRegistry;

constexpr TextView MaxCountName = u"MaxCount";

Text NumberName(std::size_t index) {
  return ToText(static_cast<long long>(index));
}
Text ParamsName(std::size_t index) {
  return NumberName(index) + u"_PropString";
}

/// The number of an entry's value name, 1 to 2^31-1 without leading zeros; else 0.
std::size_t NumberOf(TextView name) {
  if (name.empty() || name.size() > 10 || name[0] == u'0') return 0;
  std::size_t number = 0;
  for (const char16_t unit : name) {
    if (unit < u'0' || unit > u'9') return 0;
    number = number * 10 + (unit - u'0');
  }
  return number <= 0x7FFFFFFF ? number : 0;
}

/// The numbers in use, ascending. Taken from the value names, since a damaged MaxCount may be two
/// thousand million, too many to try one by one.
std::set<std::size_t> EntryNumbers(std::int32_t key) {
  std::set<std::size_t> numbers;
  for (const Text& name : RegValueNames(key)) {
    if (const std::size_t number = NumberOf(name)) numbers.insert(number);
  }
  return numbers;
}

/// Failures are reported under the routine's own name and go on to the caller.
template <class Work>
void Reported(TextView procedure, Work&& work) {
  Guard({u"CXRecent", procedure}, [&](GuardScope&) { work(); });
}

std::unique_ptr<CXRecent>& RecentFilesHolder() {
  static std::unique_ptr<CXRecent> recent;
  return recent;
}

}  // namespace

void CXRecent::Initialize(std::int32_t hReg) {
  Reported(u"Initialize", [&] {
    mhReg = hReg;
    mEntries.clear();
    mMaxCount = std::max(0, GetRegLong(hReg, MaxCountName, mMaxCount));
    for (const std::size_t number : EntryNumbers(hReg)) {
      if (number > static_cast<std::size_t>(mMaxCount)) break;
      mEntries.push_back(
          {GetRegString(hReg, NumberName(number), {}), GetRegString(hReg, ParamsName(number), {})});
    }
  });
}

std::int32_t CXRecent::Add(TextView item) {
  Reported(u"Add", [&] {
    Entry added{Text(item), {}};
    const auto old = std::find_if(mEntries.begin(), mEntries.end(), [&](const Entry& entry) {
      return EqualNoCase(entry.item, item);
    });
    if (old != mEntries.end()) {
      added.params = std::move(old->params);
      mEntries.erase(old);
    }
    mEntries.insert(mEntries.begin(), std::move(added));
    CutAndSave();
  });
  return 1;
}

Text CXRecent::Property(std::int32_t index, TextView sName) const {
  if (index < 1 || index > Count()) return {};
  CXParamString pairs;
  pairs.SetParamString(mEntries[static_cast<std::size_t>(index) - 1].params);
  return pairs.Property(sName);
}

void CXRecent::SetProperty(std::int32_t index, TextView sName, TextView sValue) {
  Reported(u"Property [Let]", [&] {
    if (index < 1 || index > Count()) throw Failure(9);
    Text& params = mEntries[static_cast<std::size_t>(index) - 1].params;
    CXParamString pairs;
    pairs.SetParamString(params);
    pairs.SetProperty(sName, sValue);
    params = pairs.ParamString();
    SaveToRegistry();
  });
}

Text CXRecent::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) return {};
  return mEntries[static_cast<std::size_t>(index) - 1].item;
}

void CXRecent::Remove(std::int32_t index) {
  Reported(u"Remove", [&] {
    if (index < 1 || index > Count()) throw Failure(9);
    mEntries.erase(mEntries.begin() + (index - 1));
    SaveToRegistry();
  });
}

void CXRecent::SetMaxCount(std::int32_t maxCount) {
  Reported(u"MaxCount [Let]", [&] {
    mMaxCount = std::max(0, maxCount);
    CutAndSave();
  });
}

void CXRecent::CutAndSave() {
  if (Count() > mMaxCount) mEntries.resize(static_cast<std::size_t>(mMaxCount));
  SaveToRegistry();
}

void CXRecent::SaveToRegistry() {
  Reported(u"SaveToRegistry", [&] {
    const RegistryStore::Batch oneSave(CurrentRegistry());
    SetRegLong(mhReg, MaxCountName, mMaxCount);
    for (std::size_t i = 1; i <= mEntries.size(); ++i) {
      const Entry& entry = mEntries[i - 1];
      SetRegString(mhReg, NumberName(i), entry.item);
      if (entry.params.empty()) {
        DeleteRegValue(mhReg, ParamsName(i));
      } else {
        SetRegString(mhReg, ParamsName(i), entry.params);
      }
    }
    // Deletes all entries above the count. Stopping at the first gap would leave entries behind
    // it, which the next start would read again.
    for (const std::size_t number : EntryNumbers(mhReg)) {
      if (number <= mEntries.size()) continue;
      DeleteRegValue(mhReg, NumberName(number));
      DeleteRegValue(mhReg, ParamsName(number));
    }
  });
}

CXRecent& RecentFiles() {
  std::unique_ptr<CXRecent>& recent = RecentFilesHolder();
  if (recent == nullptr) {
    recent = std::make_unique<CXRecent>();
    recent->Initialize(
        OpenRegKey(HKEY_CURRENT_USER, Text(RootKey) + u"FMain\\Recent Files", KEY_ALL_ACCESS));
  }
  return *recent;
}

void ResetRecentFiles() {
  RecentFilesHolder().reset();
}
