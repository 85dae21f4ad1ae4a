#include "CXLookup.h"

#include <algorithm>

namespace {

constexpr TextView None = u"(none)";

template <class Entries, class Test>
auto Find(const Entries& oEntries, Test oTest) {
  const auto oHit = std::find_if(oEntries.begin(), oEntries.end(), oTest);
  return oHit == oEntries.end() ? nullptr : &*oHit;
}

template <class Entries>
auto Find(const Entries& oEntries, std::int32_t lItemData) {
  return Find(oEntries, [=](const auto& oEntry) { return oEntry.lItemData == lItemData; });
}

template <class Entries>
auto Find(const Entries& oEntries, TextView sItem) {
  return Find(oEntries, [=](const auto& oEntry) { return EqualNoCase(oEntry.sItem, sItem); });
}

}  // namespace

void CXLookup::Add(TextView sItem, std::int32_t lItemData, TextView sDisplayName) {
  moEntries.push_back({Text(sItem), lItemData, Text(sDisplayName)});
}

Text CXLookup::Item(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) return {};
  return moEntries[static_cast<std::size_t>(lIndex) - 1].sItem;
}

Text CXLookup::ItemData(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) return {};
  return ToText(moEntries[static_cast<std::size_t>(lIndex) - 1].lItemData);
}

Text CXLookup::LookupItem(std::int32_t lItemData) const {
  const Entry* const poEntry = Find(moEntries, lItemData);
  return poEntry && poEntry->sItem != None ? poEntry->sItem : Text();
}

Text CXLookup::LookupDisplayName(std::int32_t lItemData) const {
  const Entry* const poEntry = Find(moEntries, lItemData);
  return poEntry ? poEntry->sDisplayName : Text();
}

std::int32_t CXLookup::LookupItemData(TextView sItem) const {
  const Entry* const poEntry = Find(moEntries, sItem);
  return poEntry ? poEntry->lItemData : 0;
}

bool CXLookup::ItemExists(TextView sItem) const {
  return Find(moEntries, sItem) != nullptr;
}

void CXLookup::LoadListBox(ILookupList& oListBox, TextView sDefaultItem,
                           std::int32_t lDefaultItemData) const {
  oListBox.Clear();
  std::int32_t lSelect = -1;
  for (const Entry& oEntry : moEntries) {
    oListBox.AddItem(oEntry.sItem);
    const std::int32_t lLine = oListBox.NewIndex();
    oListBox.SetItemData(lLine, oEntry.lItemData);
    if (EqualNoCase(oEntry.sItem, sDefaultItem) || oEntry.lItemData == lDefaultItemData) {
      lSelect = lLine;
    }
  }
  if (lSelect != -1) oListBox.SetListIndex(lSelect);
}
