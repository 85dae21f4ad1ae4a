// The list and what the user does with it; rows and columns are in ListView_Rows.cpp.
#include "ListView.h"

#include <algorithm>

#include "Failure.h"
#include "TextOrder.h"

namespace Forms {

void ListView::SetSorted(bool bSorted) {
  Set(mo.bSorted, bSorted, Property::SortOrder);
  Resort();
}

void ListView::SetSortKey(std::int32_t lKey) {
  if (lKey < 0) throw Failure(380);
  Set(mo.lSortKey, lKey, Property::SortOrder);
  Resort();
}

void ListView::SetSortOrder(ListSortOrder eOrder) {
  Set(mo.eSortOrder, eOrder, Property::SortOrder);
  Resort();
}

void ListView::Resort() {
  moItems.mbUnsorted = mo.bSorted;
  if (mo.bSorted) Changed(Property::Items);
}

void ListView::SetSelectedItem(ListItem* poItem) {
  Set(mpoSelected, poItem, Property::Selection);
}

void ListView::Select(ListItem& oItem, bool bSelected) {
  Touch();
  if (bSelected && !mo.bMultiSelect && mpoSelected && mpoSelected != &oItem) {
    mpoSelected->mbSelected = false;
    Changed(Property::Selection, mpoSelected->Index());
  }
  if (bSelected) mpoSelected = &oItem;
  oItem.mbSelected = bSelected;
  Changed(Property::Selection, oItem.Index());
}

bool ListView::UserSelect(std::int32_t lRow, std::int32_t nShift) {
  const std::int32_t lCount = moItems.Count();
  if (lRow < 0 || lRow > lCount) return false;
  const bool bCtrl = mo.bMultiSelect && (nShift & Shift::Ctrl) != 0;
  const bool bRange = mo.bMultiSelect && (nShift & Shift::Shift) != 0 && mpoAnchor && lRow > 0;
  const std::int32_t lFrom = bRange ? mpoAnchor->Index() : lRow;
  std::vector<std::int32_t> alSelected;
  for (std::int32_t i = 1; i <= lCount; ++i) {
    const bool bHere = i >= std::min(lFrom, lRow) && i <= std::max(lFrom, lRow);
    const bool bWas = bCtrl && moItems.Item(i).Selected();
    if (bRange ? bHere || bWas : bHere != bWas) alSelected.push_back(i);
  }
  if (!bRange && lRow > 0 && UserEnabled()) mpoAnchor = &moItems.Item(lRow);
  return UserSelection(alSelected, lRow);
}

bool ListView::UserSelection(const std::vector<std::int32_t>& alSelected, std::int32_t lFocus) {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserFocus();
  for (std::int32_t i = 1; i <= moItems.Count(); ++i) moItems.Item(i).mbSelected = false;
  for (const std::int32_t lRow : alSelected) moItems.Item(lRow).mbSelected = true;
  if (lFocus > 0) mpoSelected = &moItems.Item(lFocus);
  Changed(Property::Selection);
  if (lFocus > 0) ItemClick(*mpoSelected);
  return true;
}

bool ListView::UserColumnClick(std::int32_t lColumn) {
  if (!UserEnabled()) return false;
  ColumnHeader& oColumn = moColumns.Item(lColumn);
  Raise(ColumnClick, oColumn);
  return true;
}

bool ListView::UserColumnWidth(std::int32_t lColumn, std::int32_t lWidth) {
  if (!UserEnabled()) return false;
  moColumns.Item(lColumn).SetWidth(std::max(0, lWidth));
  return true;
}

void ListView::KeyAction(std::int32_t nKeyCode, std::int32_t nShift) {
  const std::int32_t lNow = mpoSelected ? mpoSelected->Index() : 0;
  const std::int32_t lMoved = MovedIndex(nKeyCode, lNow, 1, moItems.Count());
  if (lMoved == lNow) return;
  if (!mpoAnchor) mpoAnchor = mpoSelected;
  UserSelect(lMoved, nShift & Shift::Shift);
}

void ListView::Reset() {
  Control::Reset();
  mo = {};
  moItems.Drop();
  moColumns.Drop();
  mpoImages = nullptr;
}

}  // namespace Forms
