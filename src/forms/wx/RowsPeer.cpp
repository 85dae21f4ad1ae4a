#include "RowsPeer.h"

#include <wx/dc.h>

#include <algorithm>

#include "Form.h"
#include "ImageList.h"
#include "MouseFeed.h"
#include "NativeLook.h"
#include "WxRenderer.h"

namespace Forms {

RowsPeer::RowsPeer(WxRenderer& oRenderer, Control& oControl)
    : ControlPeer(oRenderer, oControl), moPane(*new RowsPane(&Ground(), *this)) {
  Adopt(moPane);
  Listen(moPane, wxEVT_CHAR, [this](wxKeyEvent& o) {
    const char16_t cTyped = static_cast<char16_t>(CharacterOf(o));
    cTyped >= Key::Space ? void(moControl.UserType({&cTyped, 1})) : o.Skip();
  });
}

RowsPeer::~RowsPeer() {
  moPane.Leave();
}

void RowsPeer::UseKey(const Stroke& oStroke) {
  const bool bUp = oStroke.nKeyCode == Key::PageUp, bDown = oStroke.nKeyCode == Key::PageDown;
  if (!bUp && !bDown) return ControlPeer::UseKey(oStroke);
  const auto pLife = Life();
  if (moControl.Parent().UserKey(oStroke.nKeyCode, oStroke.nShift) || pLife.expired()) return;
  const int nPage = std::max(1, moPane.PageRows() - 1);
  const int nGoal = std::clamp(FocusRow() + (bUp ? -nPage : nPage), 0, RowCount() - 1);
  if (RowCount() > 0) GoToRow(nGoal, oStroke.nShift);
}

void RowsPeer::Draw(wxDC& oDC) {
  oDC.SetPen(wxPen(NativeColor(SystemColor::ButtonShadow)));
  oDC.SetBrush(*wxTRANSPARENT_BRUSH);
  oDC.DrawRectangle(NativePlace().Inflate(1));
}

void RowsPeer::OnMouse(wxMouseEvent& oEvent) {
  WxRenderer& oRenderer = moRenderer;  // outlives the peer, which a handler may end
  const auto pLife = Life();
  const int nRow = moPane.RowAt(oEvent.GetY());
  const bool bPress = oEvent.LeftDown() || oEvent.RightDown();
  if (bPress && nRow >= 0) mbPressed = true;
  if (!mbPressed && UseHead(oEvent)) return;
  if (oEvent.LeftDClick() && nRow >= 0) {
    DoubleRow(std::min(nRow, RowCount()));
  } else {
    TellMouse(moControl, oEvent, oEvent.GetPosition(), moRenderer.Unit());
  }
  if (pLife.expired()) return;
  if (bPress && nRow >= 0) PressRow(std::min(nRow, RowCount()), oEvent);
  if (pLife.expired()) return;
  if (mbPressed && oEvent.Dragging() && oEvent.LeftIsDown()) {
    DragRow(std::clamp(nRow, 0, std::max(0, RowCount() - 1)));
  }
  if (pLife.expired()) return;
  if (oEvent.ButtonUp()) mbPressed = false;
  oRenderer.CatchUp();
}

void RowsPeer::Apply(const Changes& oChanges) {
  ControlPeer::Apply(oChanges);
  if (oChanges.Has(Property::Bounds) || oChanges.Has(Property::Visible)) Ground().Refresh();
  if (oChanges.Has(Property::Colors)) {
    moPane.SetBackgroundColour(NativeColor(moControl.BackColor()));
  }
  moPane.Reshape(RowPixels());
}

namespace {

/// Between the ground and the text, so that it shows on light and on dark themes, with text as
/// readable as before.
void DrawQuietSelection(wxDC& oDC, const wxRect& oRect) {
  const wxColour oGround = NativeColor(SystemColor::WindowBackground),
                 oText = NativeColor(SystemColor::WindowText);
  const auto Mix = [](unsigned char nFrom, unsigned char nTo) {
    return static_cast<unsigned char>(nFrom + (nTo - nFrom) / 5);
  };
  oDC.SetBrush(wxColour(Mix(oGround.Red(), oText.Red()), Mix(oGround.Green(), oText.Green()),
                        Mix(oGround.Blue(), oText.Blue())));
  oDC.DrawRectangle(oRect);
  oDC.SetTextForeground(oText);
}

}  // namespace

void RowsPeer::DrawRowGround(wxDC& oDC, const wxRect& oRect, bool bSelected) const {
  const bool bFocus = moPane.HasFocus();
  Color lText = moControl.Enabled() ? moControl.ForeColor() : SystemColor::GrayText;
  if (bSelected) {
    oDC.SetPen(*wxTRANSPARENT_PEN);
    if (!bFocus) return DrawQuietSelection(oDC, oRect);
    oDC.SetBrush(NativeColor(SystemColor::Highlight));
    oDC.DrawRectangle(oRect);
    lText = SystemColor::HighlightText;
  }
  oDC.SetTextForeground(NativeColor(lText));
}

int RowsPeer::IconPixels(const ImageList* poImages) const {
  return poImages ? moRenderer.Unit().Scaled(poImages->Pixels()) : 0;
}

int RowsPeer::DrawIcon(wxDC& oDC, const ImageList* poImages, TextView sKey,
                       const wxRect& oRect) const {
  if (!poImages || sKey.empty() || !poImages->Exists(sKey)) return 0;
  const int nPixels = IconPixels(poImages);
  const wxBitmap& oBitmap =
      moRenderer.Pictures().Get(moControl.Kit(), poImages->Picture(sKey), nPixels);
  if (!oBitmap.IsOk()) return 0;
  oDC.DrawBitmap(oBitmap, oRect.x, oRect.y + (oRect.height - nPixels) / 2, true);
  return nPixels;
}

}  // namespace Forms
