// A tree, painted from its nodes.
#pragma once

#include "RowsPeer.h"

namespace Forms {

class Node;
class TreeView;

class TreeViewPeer : public RowsPeer {
 public:
  TreeViewPeer(WxRenderer& oRenderer, TreeView& oTree);
  int RowCount() const override;
  int RowsWidth() const override { return mnWidth; }
  void DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) override;

 protected:
  void Apply(const Changes& oChanges) override;
  void PressRow(int nRow, const wxMouseEvent& oEvent) override;
  void DoubleRow(int nRow) override;
  int FocusRow() const override;
  void GoToRow(int nRow, std::int32_t nShift) override;

 private:
  /// Width of one level, and of the sign before a node.
  int Step() const;
  /// Where a node's sign begins, in pixels from the left of all rows.
  int SignLeft(const Node& oNode) const;
  int RowOf(const Node* poNode) const;

  int MeasureRows() const;

  TreeView& moTree;
  int mnWidth = 0;  ///< of the widest row
};

}  // namespace Forms
