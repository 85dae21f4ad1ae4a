// Source code with line numbers and marked lines.
#pragma once

#include "RowsPeer.h"

namespace Forms {

class CodePane;

class CodePanePeer : public RowsPeer {
 public:
  CodePanePeer(WxRenderer& oRenderer, CodePane& oPane);
  int RowCount() const override;
  int RowsWidth() const override { return mnWidth; }
  void DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) override;

 protected:
  void Apply(const Changes& oChanges) override;
  void PressRow(int nRow, const wxMouseEvent& oEvent) override;
  void DragRow(int nRow) override;
  int FocusRow() const override { return Pane().Top(); }
  void GoToRow(int nRow, std::int32_t nShift) override;
  int RowSpace() const override { return 1; }

 private:
  void MeasureText();
  void DrawLine(wxDC& oDC, TextView sLine, wxPoint oAt) const;

  CodePane& moCode;
  int mnMargin = 0;  ///< for the line numbers
  int mnWidth = 0;
  int mnChar = 1;
  std::int32_t mlAnchor = 1;  ///< line that a selection began with
};

}  // namespace Forms
