// A table of rows under column headers.
#pragma once

#include "RowsPeer.h"

namespace Forms {

class ListView;

class ListViewPeer : public RowsPeer {
 public:
  ListViewPeer(WxRenderer& oRenderer, ListView& oList);
  int RowCount() const override;
  int RowsWidth() const override;
  int HeadHeight() const override;
  void DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) override;
  void DrawHead(wxDC& oDC, const wxRect& oRect) override;

 protected:
  void Apply(const Changes& oChanges) override;
  void PressRow(int nRow, const wxMouseEvent& oEvent) override;
  void DoubleRow(int nRow) override;
  bool UseHead(const wxMouseEvent& oEvent) override;
  int FocusRow() const override;
  void GoToRow(int nRow, std::int32_t nShift) override;

 private:
  int ColumnWidth(std::int32_t lColumn) const;
  /// The column, from 1, whose right edge lies at nX in pixels of the window, within a few pixels;
  /// 0 for none.
  std::int32_t EdgeAt(int nX) const;
  std::int32_t ColumnAt(int nX) const;
  /// Left edge in pixels of the window.
  int ColumnLeft(std::int32_t lColumn) const;

  ListView& moList;
  std::int32_t mlDragged = 0;  ///< column whose edge the mouse moves
  std::int32_t mlPressed = 0;  ///< column whose header is held down
};

}  // namespace Forms
