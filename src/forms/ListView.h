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
#include "ListBox.h"

namespace Forms {

class ListView;

enum class ListSortOrder : std::int32_t { Ascending = 0, Descending = 1 };

class ColumnHeader {
 public:
  ColumnHeader(ListView& oList, std::int32_t lIndex, TextView sText, std::int32_t lWidth)
      : moList(oList), mlIndex(lIndex), mlWidth(lWidth), msText(sText) {}
  std::int32_t Index() const { return mlIndex; }
  const ::Text& Text() const { return msText; }
  std::int32_t Width() const { return mlWidth; }
  /// Failure 380 for a negative width.
  void SetWidth(std::int32_t lWidth);
  const ::Text& Tag() const { return msTag; }
  void SetTag(TextView sTag) { msTag = sTag; }

 private:
  ListView& moList;
  std::int32_t mlIndex, mlWidth;
  ::Text msText, msTag;
};

class ColumnHeaders {
 public:
  static constexpr std::int32_t lDefaultWidth = 1440;
  explicit ColumnHeaders(ListView& oList) : moList(oList) {}
  ColumnHeader& Add(TextView sText, std::int32_t lWidth = lDefaultWidth);
  void Clear();
  std::int32_t Count() const { return static_cast<std::int32_t>(moColumns.size()); }
  /// Failure 35600 outside 1 to Count.
  ColumnHeader& Item(std::int32_t lIndex) const;

 private:
  friend class ListView;
  void Drop() { moColumns.clear(); }

  ListView& moList;
  std::vector<std::unique_ptr<ColumnHeader>> moColumns;
};

class ListItem {
 public:
  ListItem(ListView& oList, std::int32_t lIndex, TextView sText, TextView sIcon);
  /// The row's number in the order shown.
  std::int32_t Index() const;
  const ::Text& Text() const { return msText; }
  void SetText(TextView sText);
  /// Empty when nothing was set there. Failure 380 for a number below 1.
  const ::Text& SubItems(std::int32_t lIndex) const;
  void SetSubItems(std::int32_t lIndex, TextView sText);
  /// The text of a column, from 1.
  const ::Text& Cell(std::int32_t lColumn) const;
  const ::Text& SmallIcon() const { return msIcon; }
  /// Failure 35601 for a key that the list's images don't have; empty for none.
  void SetSmallIcon(TextView sKey);
  std::int32_t Tag() const { return mlTag; }
  void SetTag(std::int32_t lTag) { mlTag = lTag; }
  bool Selected() const { return mbSelected; }
  /// True makes it the SelectedItem too, and without MultiSelect the only selected row. False
  /// leaves SelectedItem where it is.
  void SetSelected(bool bSelected);
  void EnsureVisible();

 private:
  friend class ListItems;
  friend class ListView;
  ListView& moList;
  std::int32_t mlIndex, mlTag = 0;
  std::int64_t mlSerial = 0;  ///< of adding: the order of rows that are equal
  bool mbSelected = false;
  ::Text msText, msIcon;
  std::vector<::Text> masSub;
};

class ListItems {
 public:
  explicit ListItems(ListView& oList) : moList(oList) {}
  /// The first row of an empty list becomes its SelectedItem and is selected.
  ListItem& Add(TextView sText, TextView sSmallIcon = {});
  void Remove(std::int32_t lIndex);
  void Clear();
  std::int32_t Count() const { return static_cast<std::int32_t>(moItems.size()); }
  /// In the order shown; Failure 35600 outside 1 to Count.
  ListItem& Item(std::int32_t lIndex);

 private:
  friend class ListView;
  friend class ListItem;
  void Drop();
  void Sort();
  void Renumber();

  ListView& moList;
  std::vector<std::unique_ptr<ListItem>> moItems;
  std::int64_t mlAdded = 0;
  bool mbUnsorted = false;
};

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
  ControlState DefaultState() const override;
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
