#include "LightPeers.h"

#include <wx/dc.h>

#include "ContainerPeer.h"
#include "Drawing.h"
#include "Label.h"
#include "Line.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "StatusBar.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

wxAlignment NativeAlignment(Alignment e) {
  return e == Alignment::Right    ? wxALIGN_RIGHT
         : e == Alignment::Center ? wxALIGN_CENTER_HORIZONTAL
                                  : wxALIGN_LEFT;
}

}  // namespace

LightPeer::LightPeer(WxRenderer& oRenderer, Control& oControl)
    : WxPeer(oRenderer), moControl(oControl) {}

LightPeer::~LightPeer() {
  if (Surface* const po = Ground()) po->RefreshRect(moPainted);
}

Surface* LightPeer::Ground() const {
  auto* const po = dynamic_cast<IContainerPeer*>(moControl.Container().Peer());
  return po ? &po->Area() : nullptr;
}

void LightPeer::Apply(const Changes&) {
  Surface* const po = Ground();
  if (!po) return;
  const wxRect oNow = Covered();
  po->RefreshRect(moPainted);
  if (oNow != moPainted) po->RefreshRect(oNow);
  moPainted = oNow;
}

void LightPeer::PaintNow() {
  if (Surface* const po = Ground()) po->Update();
}

LabelPeer::LabelPeer(WxRenderer& oRenderer, Label& oLabel)
    : LightPeer(oRenderer, oLabel), moLabel(oLabel) {
  LaterAll();
}

wxRect LabelPeer::Covered() const {
  wxRect o = moRenderer.Unit().Pixels(moLabel.Bounds());
  o.Offset(Ground()->Origin());
  return o;
}

void LabelPeer::Draw(wxDC& oDC) {
  wxRect oRect = Covered();
  oDC.SetFont(NativeFont(moLabel.Font()));
  if (!moLabel.Transparent()) {
    oDC.SetPen(*wxTRANSPARENT_PEN);
    oDC.SetBrush(NativeColor(moLabel.BackColor()));
    oDC.DrawRectangle(oRect);
  }
  if (moLabel.BorderStyle() == BorderStyle::Single) {
    DrawSunken(oDC, oRect);
    oRect.Deflate(2);
  }
  oDC.SetTextForeground(
      NativeColor(moLabel.Enabled() ? moLabel.ForeColor() : SystemColor::GrayText));
  DrawText(oDC, oRect);
}

void LabelPeer::DrawText(wxDC& oDC, const wxRect& oRect) const {
  int nAccess = -1;
  wxString sText = ToField(moLabel.Caption());
  if (moLabel.UseMnemonic()) sText = CaptionParts(FromWx(sText), nAccess);
  const int nAlignment = NativeAlignment(moLabel.Alignment());
  const int nLine = oDC.GetCharHeight();
  const wxDCClipper oClipper(oDC, oRect);
  if (oDC.GetMultiLineTextExtent(sText).x <= oRect.width) {
    oDC.DrawLabel(sText, oRect, nAlignment | wxALIGN_TOP, nAccess);
  } else if (oRect.height < 2 * nLine) {
    // Draws the first line only: a second one would be below the panel's edge.
    DrawTextIn(oDC, sText, wxRect(oRect.x, oRect.y, oRect.width, nLine), nAlignment);
  } else {
    wxRect oLine(oRect.x, oRect.y, oRect.width, nLine);
    for (const wxString& sLine : Wrap(oDC, sText, oRect.width)) {
      oDC.DrawLabel(sLine, oLine, nAlignment | wxALIGN_TOP);
      oLine.y += nLine;
    }
  }
}

LinePeer::LinePeer(WxRenderer& oRenderer, Line& oLine)
    : LightPeer(oRenderer, oLine), moLine(oLine) {
  LaterAll();
}

wxPoint LinePeer::At(std::int32_t lX, std::int32_t lY) const {
  return wxPoint(moRenderer.Unit().Pixels(lX), moRenderer.Unit().Pixels(lY)) + Ground()->Origin();
}

wxRect LinePeer::Covered() const {
  return wxRect(At(std::min(moLine.X1(), moLine.X2()), std::min(moLine.Y1(), moLine.Y2())),
                At(std::max(moLine.X1(), moLine.X2()), std::max(moLine.Y1(), moLine.Y2())));
}

void LinePeer::Draw(wxDC& oDC) {
  oDC.SetPen(wxPen(NativeColor(moLine.BorderColor())));
  oDC.DrawLine(At(moLine.X1(), moLine.Y1()), At(moLine.X2(), moLine.Y2()));
}

StatusBarPeer::StatusBarPeer(WxRenderer& oRenderer, StatusBar& oBar)
    : LightPeer(oRenderer, oBar), moBar(oBar) {
  LaterAll();
}

wxRect StatusBarPeer::Covered() const {
  wxRect o = moRenderer.Unit().Pixels(moBar.Bounds());
  o.Offset(Ground()->Origin());
  return o;
}

void StatusBarPeer::Draw(wxDC& oDC) {
  const wxRect oBar = Covered();
  oDC.SetPen(*wxTRANSPARENT_PEN);
  oDC.SetBrush(NativeColor(moBar.BackColor()));
  oDC.DrawRectangle(oBar);
  oDC.SetFont(NativeFont(moBar.Font()));
  oDC.SetTextForeground(NativeColor(moBar.ForeColor()));
  wxRect oPanel = wxRect(oBar).Deflate(0, 2);
  for (std::int32_t i = 1; i <= moBar.PanelCount(); ++i) {
    Panel& o = moBar.Panels(i);
    oPanel.width = moRenderer.Unit().Pixels(o.Width());
    DrawSunken(oDC, wxRect(oPanel).Deflate(1, 0));
    DrawTextIn(oDC, ToWx(o.Text()), wxRect(oPanel).Deflate(5, 1), wxALIGN_LEFT);
    oPanel.x += oPanel.width;
  }
}

}  // namespace Forms
