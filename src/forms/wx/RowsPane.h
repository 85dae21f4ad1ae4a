// A scrolled window of rows of one height, below an optional head. It paints what its owner tells
// it and keeps nothing of the rows itself, so that the cost depends on the rows in view only.
// Rows count from 0; all lengths are pixels.
#pragma once

#include <wx/window.h>

#include <functional>

class wxDC;
class wxScrollWinEvent;

namespace Forms {

class IRows {
 public:
  virtual ~IRows() = default;
  virtual int RowCount() const = 0;
  /// Width of the widest row.
  virtual int RowsWidth() const = 0;
  virtual void DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) = 0;
  virtual int HeadHeight() const { return 0; }
  /// oRect begins left of the window when the rows are scrolled.
  virtual void DrawHead(wxDC& /*oDC*/, const wxRect& /*oRect*/) {}
};

class RowsPane : public wxWindow {
 public:
  RowsPane(wxWindow* poParent, IRows& oRows);
  /// Called when the owner is destroyed: nothing is painted any more.
  void Leave() { mpoRows = nullptr; }
  /// To be called when rows were added, removed or changed their widths, or with a new row height.
  void Reshape(int nRowHeight);
  void ShowRow(int nRow);
  void SetTop(int nRow);
  int Top() const { return mnTop; }
  int ScrolledLeft() const { return mnLeft; }
  int RowHeight() const { return mnRowHeight; }
  /// Whole rows in view, at least 1.
  int PageRows() const;
  /// The row at a place; -1 for the head, and beyond the last one the number it would have.
  int RowAt(int nY) const;
  /// Called when the user scrolled up or down.
  void OnScrolled(std::function<void()> oHandler) { moScrolled = std::move(oHandler); }

 private:
  void OnPaint(wxPaintEvent& oEvent);
  void OnScroll(wxScrollWinEvent& oEvent);
  void OnWheel(wxMouseEvent& oEvent);
  void SetBars();
  void GoTo(int nTop, int nLeft);

  IRows* mpoRows;
  std::function<void()> moScrolled;
  int mnRowHeight = 16, mnTop = 0, mnLeft = 0, mnWheel = 0;
};

}  // namespace Forms
