#include "CXLookup.h"

#include <algorithm>

namespace {

constexpr TextView None = u"(none)";

template <class Entries, class Test>
auto Find(const Entries& entries, Test test) {
  const auto hit = std::find_if(entries.begin(), entries.end(), test);
  return hit == entries.end() ? nullptr : &*hit;
}

template <class Entries>
auto Find(const Entries& entries, std::int32_t itemData) {
  return Find(entries, [=](const auto& entry) { return entry.itemData == itemData; });
}

template <class Entries>
auto Find(const Entries& entries, TextView item) {
  return Find(entries, [=](const auto& entry) { return EqualNoCase(entry.item, item); });
}

}  // namespace

void CXLookup::Add(TextView item, std::int32_t itemData, TextView displayName) {
  mEntries.push_back({Text(item), itemData, Text(displayName)});
}

Text CXLookup::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) return {};
  return mEntries[static_cast<std::size_t>(index) - 1].item;
}

Text CXLookup::ItemData(std::int32_t index) const {
  if (index < 1 || index > Count()) return {};
  return ToText(mEntries[static_cast<std::size_t>(index) - 1].itemData);
}

Text CXLookup::LookupItem(std::int32_t itemData) const {
  const Entry* const entry = Find(mEntries, itemData);
  return entry && entry->item != None ? entry->item : Text();
}

Text CXLookup::LookupDisplayName(std::int32_t itemData) const {
  const Entry* const entry = Find(mEntries, itemData);
  return entry ? entry->displayName : Text();
}

std::int32_t CXLookup::LookupItemData(TextView item) const {
  const Entry* const entry = Find(mEntries, item);
  return entry ? entry->itemData : 0;
}

bool CXLookup::ItemExists(TextView item) const {
  return Find(mEntries, item) != nullptr;
}

void CXLookup::LoadListBox(ILookupList& list, TextView defaultItem,
                           std::int32_t defaultItemData) const {
  list.Clear();
  std::int32_t selected = -1;
  for (const Entry& entry : mEntries) {
    list.AddItem(entry.item);
    const std::int32_t line = list.NewIndex();
    list.SetItemData(line, entry.itemData);
    if (EqualNoCase(entry.item, defaultItem) || entry.itemData == defaultItemData) {
      selected = line;
    }
  }
  if (selected != -1) list.SetListIndex(selected);
}
