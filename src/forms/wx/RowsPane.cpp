#include "RowsPane.h"

#include <wx/dcbuffer.h>

#include <algorithm>

namespace Forms {

RowsPane::RowsPane(wxWindow* poParent, IRows& oRows) : mpoRows(&oRows) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(poParent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
         wxBORDER_NONE | wxVSCROLL | wxHSCROLL | wxWANTS_CHARS | wxFULL_REPAINT_ON_RESIZE);
  Bind(wxEVT_PAINT, &RowsPane::OnPaint, this);
  Bind(wxEVT_MOUSEWHEEL, &RowsPane::OnWheel, this);
  for (const auto& oTag :
       {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
        wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
        wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
    Bind(oTag, &RowsPane::OnScroll, this);
  }
  Bind(wxEVT_SIZE, [this](wxSizeEvent& o) {
    o.Skip();
    SetBars();
  });
  // The selection has another colour without the focus.
  Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& o) { o.Skip(), Refresh(); });
  Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& o) { o.Skip(), Refresh(); });
}

void RowsPane::Reshape(int nRowHeight) {
  mnRowHeight = std::max(1, nRowHeight);
  SetBars();
  Refresh();
}

int RowsPane::PageRows() const {
  const int nHead = mpoRows ? mpoRows->HeadHeight() : 0;
  return std::max(1, (GetClientSize().y - nHead) / mnRowHeight);
}

int RowsPane::RowAt(int nY) const {
  const int nHead = mpoRows ? mpoRows->HeadHeight() : 0;
  return nY < nHead ? -1 : mnTop + (nY - nHead) / mnRowHeight;
}

void RowsPane::SetBars() {
  if (!mpoRows) return;
  const int nRows = mpoRows->RowCount(), nWidth = mpoRows->RowsWidth();
  mnTop = std::clamp(mnTop, 0, std::max(0, nRows - PageRows()));
  mnLeft = std::clamp(mnLeft, 0, std::max(0, nWidth - GetClientSize().x));
  SetScrollbar(wxVERTICAL, mnTop, PageRows(), std::max(nRows, PageRows()));
  SetScrollbar(wxHORIZONTAL, mnLeft, GetClientSize().x, std::max(nWidth, GetClientSize().x));
}

void RowsPane::GoTo(int nTop, int nLeft) {
  const int nOld = mnTop;
  mnTop = nTop;
  mnLeft = nLeft;
  SetBars();
  Refresh();
  if (mnTop != nOld && moScrolled) moScrolled();
}

void RowsPane::SetTop(int nRow) {
  mnTop = nRow;
  SetBars();
  Refresh();
}

void RowsPane::ShowRow(int nRow) {
  if (nRow < mnTop) SetTop(nRow);
  if (nRow >= mnTop + PageRows()) SetTop(nRow - PageRows() + 1);
}

void RowsPane::OnScroll(wxScrollWinEvent& o) {
  const bool bDown = o.GetOrientation() == wxVERTICAL;
  const int nLine = bDown ? 1 : mnRowHeight;
  const int nPage = bDown ? PageRows() : GetClientSize().x;
  int n = bDown ? mnTop : mnLeft;
  const auto eType = o.GetEventType();
  if (eType == wxEVT_SCROLLWIN_LINEUP) {
    n -= nLine;
  } else if (eType == wxEVT_SCROLLWIN_LINEDOWN) {
    n += nLine;
  } else if (eType == wxEVT_SCROLLWIN_PAGEUP) {
    n -= nPage;
  } else if (eType == wxEVT_SCROLLWIN_PAGEDOWN) {
    n += nPage;
  } else {
    n = o.GetPosition();
  }
  bDown ? GoTo(n, mnLeft) : GoTo(mnTop, n);
}

void RowsPane::OnWheel(wxMouseEvent& o) {
  if (o.GetWheelDelta() == 0) return;
  mnWheel += o.GetWheelRotation();
  const int nSteps = mnWheel / o.GetWheelDelta();
  mnWheel -= nSteps * o.GetWheelDelta();
  const bool bAcross = o.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL;
  bAcross ? GoTo(mnTop, mnLeft + nSteps * 3 * mnRowHeight) : GoTo(mnTop - nSteps * 3, mnLeft);
}

void RowsPane::OnPaint(wxPaintEvent&) {
  wxAutoBufferedPaintDC oDC(this);
  oDC.SetBackground(GetBackgroundColour());
  oDC.Clear();
  if (!mpoRows) return;
  const wxSize oSize = GetClientSize();
  const int nHead = mpoRows->HeadHeight(), nCount = mpoRows->RowCount();
  const int nWidth = std::max(mpoRows->RowsWidth(), oSize.x);
  oDC.SetFont(GetFont());
  for (int nRow = mnTop, nY = nHead; nRow < nCount && nY < oSize.y; ++nRow, nY += mnRowHeight) {
    mpoRows->DrawRow(oDC, nRow, {-mnLeft, nY, nWidth, mnRowHeight});
  }
  if (nHead > 0) mpoRows->DrawHead(oDC, {-mnLeft, 0, nWidth, nHead});
}

}  // namespace Forms
