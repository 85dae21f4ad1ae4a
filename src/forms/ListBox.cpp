#include "ListBox.h"

#include <algorithm>

#include "Failure.h"

namespace Forms {

bool ListBox::Selected(std::int32_t lIndex) const {
  const Entry* po = At(lIndex);
  return po && (meMulti == Forms::MultiSelect::None ? lIndex == ListIndex() : po->bSelected);
}

void ListBox::SetSelected(std::int32_t lIndex, bool bSelected) {
  Touch();
  if (!At(lIndex)) throw Failure(380);
  if (Selected(lIndex) == bSelected) return;
  if (meMulti == Forms::MultiSelect::None) return SetListIndex(bSelected ? lIndex : -1);
  moEntries[static_cast<std::size_t>(lIndex)].bSelected = bSelected;
  Changed(Property::Selection);
  Raise(Click);
}

std::int32_t ListBox::SelCount() const {
  std::int32_t lCount = 0;
  for (std::int32_t i = 0; i < ListCount(); ++i) lCount += Selected(i) ? 1 : 0;
  return lCount;
}

bool ListBox::UserSelect(std::int32_t lIndex, std::int32_t nShift) {
  if (meMulti == Forms::MultiSelect::None) return ListEntries::UserSelect(lIndex);
  if (!At(lIndex)) return false;
  const bool bExtended = meMulti == Forms::MultiSelect::Extended;
  const bool bRange = bExtended && (nShift & Shift::Shift) != 0 && At(mlAnchor);
  const bool bToggle = !bExtended || (nShift & Shift::Ctrl) != 0;
  std::vector<std::int32_t> alSelected;
  for (std::int32_t i = 0; i < ListCount(); ++i) {
    const bool bHere =
        bRange ? i >= std::min(mlAnchor, lIndex) && i <= std::max(mlAnchor, lIndex) : i == lIndex;
    const bool bOn = bToggle && !bRange ? Selected(i) != bHere : bHere;
    if (bOn) alSelected.push_back(i);
  }
  if (!bRange) mlAnchor = lIndex;
  return UserSelection(alSelected, lIndex);
}

bool ListBox::UserSelection(const std::vector<std::int32_t>& alSelected, std::int32_t lFocus) {
  if (!UserEnabled() || !At(lFocus)) return false;
  UserFocus();
  for (Entry& o : moEntries) o.bSelected = false;
  for (const std::int32_t lIndex : alSelected) {
    if (At(lIndex)) moEntries[static_cast<std::size_t>(lIndex)].bSelected = true;
  }
  Choose(lFocus);
  Raise(Click);
  return true;
}

void ListBox::Reset() {
  ListEntries::Reset();
  meMulti = Forms::MultiSelect::None;
  mlAnchor = -1;
}

}  // namespace Forms
