// A table of rows in report view: columns with widths, rows with a text, sub-items, a small icon
// and a number (Tag), one or many of them selected.
//
//   lvw.ColumnHeaders().Add(u"Name", 1500);
//   auto& oRow = lvw.ListItems().Add(u"FMain", u"Form Module");
//   oRow.SetSubItems(1, u"Form");
//
// Rows and columns count from 1, sub-items likewise: sub-item 1 stands in column 2. Setting
// properties raises no events.
//
// In a sorted list the rows stand in the order of column SortKey + 1, without regard to case, equal
// ones in that of adding. Rows find their place when rows were added, or when SortKey, SortOrder or
// Sorted is set; changing a cell moves no row, so that a loop over the rows meets each once. A
// reference to a row holds until the row is removed.
#pragma once

#include "Control.h"
#include "ImageList.h"
#include "ListViewRows.h"

namespace Forms {

enum class ListSortOrder : std::int32_t { Ascending = 0, Descending = 1 };

struct ListViewState {
  bool bMultiSelect = false, bHideSelection = true, bSorted = false, bFullRowSelect = true;
  std::int32_t lView = 3, lSortKey = 0;
  ListSortOrder eSortOrder = ListSortOrder::Ascending;
};

class ListView : public Control {
 public:
  ListView(ControlContainer& oContainer, TextView sName) : Control(oContainer, sName) { Reset(); }
  ComponentKind Kind() const override { return ComponentKind::ListView; }

  Forms::ColumnHeaders& ColumnHeaders() {
    Touch();
    return moColumns;
  }
  Forms::ListItems& ListItems() {
    Touch();
    return moItems;
  }
  /// 3 is the report view, the only one that is drawn.
  std::int32_t View() const { return mo.lView; }
  void SetView(std::int32_t lView) { Set(mo.lView, lView, Property::Columns); }
  bool MultiSelect() const { return mo.bMultiSelect; }
  void SetMultiSelect(bool b) { mo.bMultiSelect = b; }  ///< design time
  bool FullRowSelect() const { return mo.bFullRowSelect; }
  void SetFullRowSelect(bool b) { mo.bFullRowSelect = b; }  ///< design time
  ImageList* SmallIcons() const { return mpoImages; }
  void SetSmallIcons(ImageList* poImages) { mpoImages = poImages; }  ///< design time
  bool HideSelection() const { return mo.bHideSelection; }
  void SetHideSelection(bool b) { Set(mo.bHideSelection, b, Property::Selection); }
  bool Sorted() const { return mo.bSorted; }
  void SetSorted(bool bSorted);
  /// Column to sort by, less 1.
  std::int32_t SortKey() const { return mo.lSortKey; }
  void SetSortKey(std::int32_t lKey);
  ListSortOrder SortOrder() const { return mo.eSortOrder; }
  void SetSortOrder(ListSortOrder eOrder);
  /// The row with the list's focus, selected or not; null in an empty list.
  ListItem* SelectedItem() const { return mpoSelected; }
  void SetSelectedItem(ListItem* poItem);

  Signal<ListItem&> ItemClick;
  Signal<ColumnHeader&> ColumnClick;

  /// A press on a row: alone it selects that row only, with Shift from the last one pressed to it,
  /// with Ctrl it turns the row on or off. Raises ItemClick. Row 0 is the empty area: all rows go
  /// off. The mouse's own events come by UserMouseDown and UserMouseUp around it.
  bool UserSelect(std::int32_t lRow, std::int32_t nShift = Shift::None);
  /// The selection that a native list has after the user changed it; lFocus: the row with the
  /// list's focus, or 0. Raises ItemClick for a focus above 0.
  bool UserSelection(const std::vector<std::int32_t>& alSelected, std::int32_t lFocus);
  bool UserColumnClick(std::int32_t lColumn);
  bool UserColumnWidth(std::int32_t lColumn, std::int32_t lWidth);

  void Reset() override;

  // For rows and columns only.
  void ItemChanged(Property eProperty, std::int32_t lIndex) { Changed(eProperty, lIndex); }
  void TouchList() { Touch(); }
  void Select(ListItem& oItem, bool bSelected);

 protected:
  ControlState DefaultState() const override { return FieldDefaults(); }
  /// Up, Down, Home and End, with Shift for a range.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;

 private:
  friend class ListItems;
  void Resort();

  ListViewState mo;
  Forms::ColumnHeaders moColumns{*this};
  Forms::ListItems moItems{*this};
  ListItem* mpoSelected = nullptr;
  ListItem* mpoAnchor = nullptr;
  ImageList* mpoImages = nullptr;
};

}  // namespace Forms
