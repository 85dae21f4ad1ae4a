// The rows first, then the head.
#include "ListViewPeer.h"

#include <wx/dc.h>
#include <wx/renderer.h>

#include <algorithm>

#include "Drawing.h"
#include "ListView.h"
#include "MouseFeed.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

constexpr int CellMargin = 4;

}  // namespace

ListViewPeer::ListViewPeer(WxRenderer& oRenderer, ListView& oList)
    : RowsPeer(oRenderer, oList), moList(oList) {}

int ListViewPeer::RowCount() const {
  return moList.ListItems().Count();
}

int ListViewPeer::ColumnWidth(std::int32_t lColumn) const {
  return moRenderer.Unit().Pixels(moList.ColumnHeaders().Item(lColumn).Width());
}

int ListViewPeer::ColumnLeft(std::int32_t lColumn) const {
  int nLeft = -Pane().ScrolledLeft();
  for (std::int32_t i = 1; i < lColumn; ++i) nLeft += ColumnWidth(i);
  return nLeft;
}

int ListViewPeer::RowsWidth() const {
  return ColumnLeft(moList.ColumnHeaders().Count() + 1) + Pane().ScrolledLeft();
}

void ListViewPeer::DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) {
  const ListItem& oItem = moList.ListItems().Item(nRow + 1);
  const std::int32_t lColumns = moList.ColumnHeaders().Count();
  // The selection begins behind the icon, since a blue icon couldn't be seen on it.
  const int nIcon = IconPixels(moList.SmallIcons()) + (moList.SmallIcons() ? CellMargin + 1 : 0);
  wxRect oText(oRect);
  oText.x += nIcon;
  oText.width = (moList.FullRowSelect() || lColumns == 0 ? oRect.width : ColumnWidth(1)) - nIcon;
  const bool bShows = Pane().HasFocus() || !moList.HideSelection();
  DrawRowGround(oDC, oText, bShows && oItem.Selected());
  if (Pane().HasFocus() && moList.SelectedItem() == &oItem) {
    wxRendererNative::Get().DrawFocusRect(&Pane(), oDC, oText);
  }
  wxRect oCell(oRect);
  for (std::int32_t i = 1; i <= lColumns; ++i) {
    oCell.width = ColumnWidth(i);
    const wxRect oInner = wxRect(oCell).Deflate(CellMargin, 0);
    const int nBefore = i == 1 ? nIcon : 0;
    if (i == 1) {
      const wxDCClipper oClipper(oDC, oCell);
      DrawIcon(oDC, moList.SmallIcons(), oItem.SmallIcon(), oInner);
    }
    DrawTextIn(oDC, ToWx(oItem.Cell(i)),
               {oInner.x + nBefore, oInner.y, oInner.width - nBefore, oInner.height}, wxALIGN_LEFT);
    oCell.x += oCell.width;
  }
}

void ListViewPeer::PressRow(int nRow, const wxMouseEvent& oEvent) {
  const bool bEmptyArea = nRow >= RowCount();
  // A right press inside the selection leaves it as it is, for a menu over all of it.
  const bool bKeeps =
      oEvent.RightDown() && !bEmptyArea && moList.ListItems().Item(nRow + 1).Selected();
  if (!bKeeps) moList.UserSelect(bEmptyArea ? 0 : nRow + 1, ShiftOf(oEvent));
}

void ListViewPeer::DoubleRow(int nRow) {
  if (nRow < RowCount()) moList.UserDblClick();
}

int ListViewPeer::FocusRow() const {
  return moList.SelectedItem() ? moList.SelectedItem()->Index() - 1 : -1;
}

void ListViewPeer::GoToRow(int nRow, std::int32_t nShift) {
  moList.UserSelect(nRow + 1, nShift & Shift::Shift);
}

void ListViewPeer::Apply(const Changes& oChanges) {
  RowsPeer::Apply(oChanges);
  const std::int32_t lRow = ScrollTarget();
  if (lRow >= 1 && lRow <= RowCount()) Pane().ShowRow(lRow - 1);
  if (oChanges.Has(Property::Selection) && Pane().HasFocus() && FocusRow() >= 0) {
    Pane().ShowRow(FocusRow());
  }
}

int ListViewPeer::HeadHeight() const {
  return std::max(wxRendererNative::Get().GetHeaderButtonHeight(&Pane()),
                  Pane().GetCharHeight() + moRenderer.Unit().Scaled(8));
}

void ListViewPeer::DrawHead(wxDC& oDC, const wxRect& oRect) {
  wxRect oCell(oRect);
  const std::int32_t lCount = moList.ColumnHeaders().Count();
  for (std::int32_t i = 1; i <= lCount; ++i) {
    oCell.width = ColumnWidth(i);
    wxHeaderButtonParams oLook;
    oLook.m_labelText = ToWx(moList.ColumnHeaders().Item(i).Text());
    oLook.m_labelFont = Pane().GetFont();
    wxHeaderSortIconType eArrow = wxHDR_SORT_ICON_NONE;
    if (moList.Sorted() && moList.SortKey() + 1 == i) {
      eArrow = moList.SortOrder() == ListSortOrder::Ascending ? wxHDR_SORT_ICON_UP
                                                              : wxHDR_SORT_ICON_DOWN;
    }
    wxRendererNative::Get().DrawHeaderButton(
        &Pane(), oDC, oCell, mlPressed == i ? wxCONTROL_PRESSED : wxCONTROL_NONE, eArrow, &oLook);
    oCell.x += oCell.width;
  }
  // The last heading is drawn up to the window's right edge.
  oCell.width = std::max(0, oRect.GetRight() + 1 - oCell.x) + 2;
  if (oCell.width > 2) wxRendererNative::Get().DrawHeaderButton(&Pane(), oDC, oCell, 0);
}

std::int32_t ListViewPeer::EdgeAt(int nX) const {
  for (std::int32_t i = moList.ColumnHeaders().Count(); i >= 1; --i) {
    if (std::abs(nX - ColumnLeft(i + 1)) <= moRenderer.Unit().Scaled(4)) return i;
  }
  return 0;
}

std::int32_t ListViewPeer::ColumnAt(int nX) const {
  for (std::int32_t i = 1; i <= moList.ColumnHeaders().Count(); ++i) {
    if (nX >= ColumnLeft(i) && nX < ColumnLeft(i + 1)) return i;
  }
  return 0;
}

bool ListViewPeer::UseHead(const wxMouseEvent& oEvent) {
  const bool bOnHead = oEvent.GetY() < HeadHeight();
  if (!bOnHead && mlDragged == 0 && mlPressed == 0) {
    Pane().SetCursor(NativeCursor(moList.MousePointer()));
    return false;
  }
  const int nX = oEvent.GetX();
  if (oEvent.LeftDown() || oEvent.LeftDClick()) {
    mlDragged = EdgeAt(nX);
    mlPressed = mlDragged == 0 ? ColumnAt(nX) : 0;
  } else if (oEvent.Dragging() && mlDragged > 0) {
    moList.UserColumnWidth(mlDragged, moRenderer.Unit().Twips(nX - ColumnLeft(mlDragged)));
  } else if (oEvent.LeftUp()) {
    mlDragged = 0;
    const std::int32_t lColumn = std::exchange(mlPressed, 0);
    const auto pLife = Life();
    if (lColumn > 0 && lColumn == ColumnAt(nX)) moList.UserColumnClick(lColumn);
    if (pLife.expired()) return true;
  } else if (oEvent.Moving()) {
    const auto nPointer = EdgeAt(nX) > 0 ? Pointer::SizeWE : moList.MousePointer();
    Pane().SetCursor(NativeCursor(nPointer));
  }
  Pane().Refresh();
  moRenderer.CatchUp();
  return true;
}

}  // namespace Forms
