// The rows and columns of a ListView; the head of ListView.h tells how they are used.
#pragma once

#include <memory>
#include <vector>

#include "FormsTypes.h"

namespace Forms {

class ListView;

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

}  // namespace Forms
