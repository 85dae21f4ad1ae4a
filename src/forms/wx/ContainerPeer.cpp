#include "ContainerPeer.h"

#include <wx/dc.h>
#include <wx/settings.h>

#include "Drawing.h"
#include "Frame.h"
#include "NativeLook.h"
#include "PictureBox.h"
#include "WxRenderer.h"

namespace Forms {

ContainerPeer::ContainerPeer(WxRenderer& oRenderer, ControlContainer& oContainer)
    : ControlPeer(oRenderer, oContainer),
      moContainer(oContainer),
      moArea(*new Surface(&Ground(), oContainer, oRenderer)) {
  Adopt(moArea);
}

void ContainerPeer::OnMouse(wxMouseEvent& oEvent) {
  oEvent.Skip();
}

void ContainerPeer::Apply(const Changes& oChanges) {
  ControlPeer::Apply(oChanges);
  if (oChanges.Has(Property::ZOrder)) moArea.Raise();
  moArea.Refresh();
}

void ContainerPeer::DrawGround(wxDC& oDC, const wxSize&) {
  oDC.SetBackground(NativeColor(moContainer.BackColor()));
  oDC.Clear();
}

FramePeer::FramePeer(WxRenderer& oRenderer, Frame& oFrame)
    : ContainerPeer(oRenderer, oFrame), moFrame(oFrame) {}

void FramePeer::DrawGround(wxDC& oDC, const wxSize& oSize) {
  ContainerPeer::DrawGround(oDC, oSize);
  if (!moFrame.Border()) return;
  int nAccess;
  const wxString sCaption = CaptionParts(moFrame.Caption(), nAccess);
  oDC.SetFont(NativeFont(moFrame.Font()));
  const wxSize oText = oDC.GetTextExtent(sCaption.empty() ? wxString("x") : sCaption);
  oDC.SetPen(wxPen(NativeColor(SystemColor::ButtonShadow)));
  oDC.SetBrush(*wxTRANSPARENT_BRUSH);
  oDC.DrawRectangle(0, oText.y / 2, oSize.x, oSize.y - oText.y / 2);
  if (sCaption.empty()) return;
  const wxRect oPlace(moRenderer.Unit().Scaled(8), 0, oText.x, oText.y);
  oDC.SetPen(*wxTRANSPARENT_PEN);
  oDC.SetBrush(NativeColor(moFrame.BackColor()));
  oDC.DrawRectangle(wxRect(oPlace).Inflate(moRenderer.Unit().Scaled(3), 0));
  oDC.SetTextForeground(
      NativeColor(moFrame.Enabled() ? moFrame.ForeColor() : SystemColor::GrayText));
  oDC.DrawLabel(sCaption, oPlace, wxALIGN_LEFT | wxALIGN_TOP, nAccess);
}

PictureBoxPeer::PictureBoxPeer(WxRenderer& oRenderer, PictureBox& oBox)
    : ContainerPeer(oRenderer, oBox), moBox(oBox) {
  if (oBox.BorderStyle() == BorderStyle::Single) Area().SetOrigin({2, 2});
}

void PictureBoxPeer::DrawGround(wxDC& oDC, const wxSize& oSize) {
  ContainerPeer::DrawGround(oDC, oSize);
  const bool bBorder = moBox.BorderStyle() == BorderStyle::Single;
  if (bBorder) DrawSunken(oDC, oSize);
  if (moBox.Picture().empty()) return;
  // The largest of the sizes that pictures are drawn in that the box can hold.
  const int nRoom = std::min(oSize.x, oSize.y) - (bBorder ? 4 : 0);
  int nPixels = moRenderer.Unit().Scaled(16);
  for (const int nSize : {24, 32, 48, 64, 128}) {
    if (moRenderer.Unit().Scaled(nSize) <= nRoom) nPixels = moRenderer.Unit().Scaled(nSize);
  }
  const wxBitmap& oBitmap = moRenderer.Pictures().Get(moBox.Kit(), moBox.Picture(), nPixels);
  if (!oBitmap.IsOk()) return;
  oDC.DrawBitmap(oBitmap, (oSize.x - oBitmap.GetWidth()) / 2, (oSize.y - oBitmap.GetHeight()) / 2,
                 true);
}

}  // namespace Forms
