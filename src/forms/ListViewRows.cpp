#include <algorithm>

#include "Failure.h"
#include "ListView.h"
#include "TextOrder.h"

namespace Forms {

namespace {

const Text EmptyText;

[[noreturn]] void NoSuchIndex(std::int32_t lIndex) {
  throw Failure(35600, u"There is no row or column with the number " + ToText(lIndex));
}

}  // namespace

void ColumnHeader::SetWidth(std::int32_t lWidth) {
  if (lWidth < 0) throw Failure(380);
  moList.TouchList();
  mlWidth = lWidth;
  moList.ItemChanged(Property::Columns, mlIndex);
}

ColumnHeader& ColumnHeaders::Add(TextView sText, std::int32_t lWidth) {
  moList.TouchList();
  if (lWidth < 0) throw Failure(380);
  moColumns.push_back(std::make_unique<ColumnHeader>(moList, Count() + 1, sText, lWidth));
  moList.ItemChanged(Property::Columns, 0);
  return *moColumns.back();
}

void ColumnHeaders::Clear() {
  moList.TouchList();
  Drop();
  moList.ItemChanged(Property::Columns, 0);
}

ColumnHeader& ColumnHeaders::Item(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) NoSuchIndex(lIndex);
  return *moColumns[static_cast<std::size_t>(lIndex) - 1];
}

ListItem::ListItem(ListView& oList, std::int32_t lIndex, TextView sText, TextView sIcon)
    : moList(oList), mlIndex(lIndex), msText(sText), msIcon(sIcon) {}

std::int32_t ListItem::Index() const {
  moList.ListItems().Sort();
  return mlIndex;
}

void ListItem::SetText(TextView sText) {
  moList.TouchList();
  if (msText == sText) return;
  msText = sText;
  moList.ItemChanged(Property::Items, mlIndex);
}

const Text& ListItem::SubItems(std::int32_t lIndex) const {
  if (lIndex < 1) throw Failure(380);
  const auto lAt = static_cast<std::size_t>(lIndex) - 1;
  return lAt < masSub.size() ? masSub[lAt] : EmptyText;
}

void ListItem::SetSubItems(std::int32_t lIndex, TextView sText) {
  moList.TouchList();
  if (SubItems(lIndex) == sText) return;
  const auto lAt = static_cast<std::size_t>(lIndex) - 1;
  if (lAt >= masSub.size()) masSub.resize(lAt + 1);
  masSub[lAt] = sText;
  moList.ItemChanged(Property::Items, mlIndex);
}

const Text& ListItem::Cell(std::int32_t lColumn) const {
  return lColumn == 1 ? msText : SubItems(lColumn - 1);
}

void ListItem::SetSmallIcon(TextView sKey) {
  moList.TouchList();
  CheckImage(moList.SmallIcons(), sKey);
  if (msIcon == sKey) return;
  msIcon = sKey;
  moList.ItemChanged(Property::Images, mlIndex);
}

void ListItem::SetSelected(bool bSelected) {
  moList.Select(*this, bSelected);
}
void ListItem::EnsureVisible() {
  moList.ItemChanged(Property::Scroll, Index());
}

ListItem& ListItems::Add(TextView sText, TextView sSmallIcon) {
  moList.TouchList();
  CheckImage(moList.SmallIcons(), sSmallIcon);
  moItems.push_back(std::make_unique<ListItem>(moList, Count() + 1, sText, sSmallIcon));
  mbUnsorted = moList.Sorted();
  ListItem& oNew = *moItems.back();
  oNew.mlSerial = ++mlAdded;
  if (Count() == 1) {
    oNew.mbSelected = true;
    moList.mpoSelected = &oNew;
  }
  moList.ItemChanged(Property::Items, 0);
  return oNew;
}

void ListItems::Remove(std::int32_t lIndex) {
  ListItem& oItem = Item(lIndex);
  moList.TouchList();
  if (moList.mpoSelected == &oItem) moList.mpoSelected = nullptr;
  if (moList.mpoAnchor == &oItem) moList.mpoAnchor = nullptr;
  moItems.erase(moItems.begin() + lIndex - 1);
  Renumber();
  moList.ItemChanged(Property::Items, 0);
}

void ListItems::Clear() {
  moList.TouchList();
  Drop();
  moList.ItemChanged(Property::Items, 0);
}

void ListItems::Drop() {
  moItems.clear();
  moList.mpoSelected = moList.mpoAnchor = nullptr;
  mbUnsorted = false;
}

ListItem& ListItems::Item(std::int32_t lIndex) {
  if (lIndex < 1 || lIndex > Count()) NoSuchIndex(lIndex);
  Sort();
  return *moItems[static_cast<std::size_t>(lIndex) - 1];
}

void ListItems::Sort() {
  if (!mbUnsorted) return;
  mbUnsorted = false;
  const std::int32_t lColumn = moList.SortKey() + 1;
  const bool bDown = moList.SortOrder() == ListSortOrder::Descending;
  std::sort(moItems.begin(), moItems.end(), [=](const auto& p, const auto& pOther) {
    const TextView sCell = p->Cell(lColumn), sOther = pOther->Cell(lColumn);
    if (LessNoCase(sCell, sOther)) return !bDown;
    if (LessNoCase(sOther, sCell)) return bDown;
    return p->mlSerial < pOther->mlSerial;
  });
  Renumber();
}

void ListItems::Renumber() {
  std::int32_t lIndex = 0;
  for (const auto& p : moItems) p->mlIndex = ++lIndex;
}

}  // namespace Forms
