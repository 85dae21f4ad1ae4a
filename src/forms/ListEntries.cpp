#include "ListEntries.h"

#include <algorithm>

#include "Failure.h"
#include "TextOrder.h"

namespace Forms {

void ListEntries::Check(std::int32_t lIndex, std::int32_t lLast, std::int32_t lError) const {
  if (lIndex < 0 || lIndex > lLast) throw Failure(lError);
}

void ListEntries::AddItem(TextView sItem) {
  Touch();
  auto it = moEntries.end();
  if (mbSorted) {
    it = std::upper_bound(moEntries.begin(), moEntries.end(), sItem,
                          [](TextView s, const Entry& o) { return LessNoCase(s, o.sText); });
  }
  AddItem(sItem, static_cast<std::int32_t>(it - moEntries.begin()));
}

void ListEntries::AddItem(TextView sItem, std::int32_t lIndex) {
  Touch();
  Check(lIndex, ListCount(), 5);
  moEntries.insert(moEntries.begin() + lIndex, Entry{::Text(sItem)});
  mlNewIndex = lIndex;
  if (mlListIndex >= lIndex) ++mlListIndex;
  Changed(Property::Items);
}

void ListEntries::RemoveItem(std::int32_t lIndex) {
  Touch();
  Check(lIndex, ListCount() - 1, 5);
  moEntries.erase(moEntries.begin() + lIndex);
  mlNewIndex = -1;
  if (mlListIndex == lIndex) {
    mlListIndex = -1;
  } else if (mlListIndex > lIndex) {
    --mlListIndex;
  }
  Changed(Property::Items);
}

void ListEntries::Clear() {
  Touch();
  moEntries.clear();
  mlListIndex = mlNewIndex = -1;
  Changed(Property::Items);
}

const ListEntries::Entry* ListEntries::At(std::int32_t lIndex) const {
  return lIndex >= 0 && lIndex < ListCount() ? &moEntries[static_cast<std::size_t>(lIndex)]
                                             : nullptr;
}

::Text ListEntries::List(std::int32_t lIndex) const {
  const Entry* po = At(lIndex);
  return po ? po->sText : ::Text();
}

std::int32_t ListEntries::ItemData(std::int32_t lIndex) const {
  const Entry* po = At(lIndex);
  return po ? po->lData : 0;
}

void ListEntries::SetItemData(std::int32_t lIndex, std::int32_t lData) {
  Touch();
  Check(lIndex, ListCount() - 1, 381);
  moEntries[static_cast<std::size_t>(lIndex)].lData = lData;
}

void ListEntries::Choose(std::int32_t lIndex) {
  mlListIndex = lIndex;
  Changed(Property::Selection);
}

void ListEntries::SetListIndex(std::int32_t lIndex) {
  Touch();
  if (lIndex != -1) Check(lIndex, ListCount() - 1, 380);
  if (lIndex == mlListIndex) return;
  Choose(lIndex);
  Raise(Click);
}

bool ListEntries::UserSelect(std::int32_t lIndex, std::int32_t) {
  if (!UserEnabled() || !At(lIndex)) return false;
  UserFocus();
  Choose(lIndex);
  Raise(Click);
  return true;
}

void ListEntries::KeyAction(std::int32_t nKeyCode, std::int32_t nShift) {
  const std::int32_t lMoved = MovedIndex(nKeyCode, mlListIndex, 0, ListCount() - 1);
  if (lMoved != mlListIndex) UserSelect(lMoved, nShift & Shift::Shift);
}

void ListEntries::CharAction(std::int32_t nCharacter) {
  const auto cWanted = LowerCase(static_cast<char16_t>(nCharacter));
  for (std::int32_t i = 1; i <= ListCount(); ++i) {
    const std::int32_t lIndex = (mlListIndex + i) % ListCount();
    const ::Text& sText = moEntries[static_cast<std::size_t>(lIndex)].sText;
    if (sText.empty() || LowerCase(sText[0]) != cWanted) continue;
    UserSelect(lIndex);
    return;
  }
}

void ListEntries::Reset() {
  Control::Reset();
  moEntries.clear();
  mlListIndex = mlNewIndex = -1;
  mbSorted = false;
}

void ListEntries::CopyFrom(const Component& oOther) {
  Control::CopyFrom(oOther);
  mbSorted = static_cast<const ListEntries&>(oOther).mbSorted;
}

}  // namespace Forms
