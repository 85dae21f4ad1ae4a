// A thin layer over a list in report view: columns and rows from plain arguments, and column widths
// that are kept in the settings store.
//
//   CXListView oList;
//   oList.SetListView(lvwMods);
//   oList.SethRegNode(hKey);
//   oList.SetLayout(u"ModList");
//   oList.AddHeading(u"Name", 1500);
//   oList.AddRow({u"FMain", u"Form Module"});
//
// With a layout that isn't empty the widths are kept: each column has a value "ColWidth" with its
// number from 1, in twips, in the key hRegNode. The layout's text isn't a part of that name, so
// that each list needs a key of its own. Without a list the operations give Failure 91.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "ListView.h"

class CXListView {
 public:
  using Texts = std::initializer_list<TextView>;

  std::int32_t hRegNode() const { return mhRegNode; }
  void SethRegNode(std::int32_t hRegNode) { mhRegNode = hRegNode; }
  /// Appends a column. lDefaultWidth: its width unless one is kept; -1 for the list's own default.
  void AddHeading(TextView sHeading, std::int32_t lDefaultWidth);
  /// alWidth: element i is for column i; element 0 is unused. Elements without a column are
  /// ignored.
  void SetWidths(const std::vector<std::int32_t>& alWidth);
  /// Gives each column its share of the list's width, less 300.
  void ResizeColumns();
  /// Begins an empty row.
  void NewRow();
  /// Goes on in the row that NewRow began: its text first, then its sub-items, from call to call.
  /// Without a NewRow since the last ClearRows: Failure 91.
  void AddRowItems(Texts asText);
  /// sIcon: key of a small icon.
  Forms::ListItem& AddIconRow(TextView sIcon, Texts asText);
  Forms::ListItem& AddRow(Texts asText);
  /// Keeps the widths, with a layout, and removes the rows.
  void ClearRows();
  /// Takes the list over, not owned: report view, without columns and rows.
  void SetListView(Forms::ListView& oListView);
  bool Visible() const;
  void SetVisible(bool bVisible);
  const Text& Layout() const { return msLayout; }
  /// Gives columns that are there already their kept widths.
  void SetLayout(TextView sLayout);
  void SaveLayout();

 private:
  Forms::ListView& List() const;
  std::int32_t KeptWidth(std::int32_t lColumn, std::int32_t lDefault) const;

  Forms::ListView* mpoListView = nullptr;
  Forms::ListItem* mpoRow = nullptr;  ///< that NewRow began
  std::int32_t mhRegNode = 0;
  std::int16_t mnNextSubItem = 0;
  Text msLayout;
};
