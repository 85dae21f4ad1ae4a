#include "TabStripPeer.h"

#include <wx/dcbuffer.h>
#include <wx/renderer.h>

#include <algorithm>

#include "ContainerPeer.h"
#include "Drawing.h"
#include "NativeLook.h"
#include "TabStrip.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// A window without a background of its own, since the tabs paint all of it.
wxWindow* NewTabWindow(wxWindow* poParent) {
  auto* const po = new wxWindow;
  po->SetBackgroundStyle(wxBG_STYLE_PAINT);
  po->Create(poParent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS);
  return po;
}

}  // namespace

TabStripPeer::TabStripPeer(WxRenderer& oRenderer, TabStrip& oStrip)
    : ControlPeer(oRenderer, oStrip), moStrip(oStrip) {
  wxWindow& oWindow = *NewTabWindow(&Ground());
  Adopt(oWindow);
  Listen(oWindow, wxEVT_PAINT, [this](wxPaintEvent&) {
    wxAutoBufferedPaintDC oDC(&Native());
    DrawTabs(oDC);
  });
  const auto Repaint = [this](wxFocusEvent& o) {
    o.Skip();
    Native().Refresh();
  };
  Listen(oWindow, wxEVT_SET_FOCUS, Repaint);
  Listen(oWindow, wxEVT_KILL_FOCUS, Repaint);
}

int TabStripPeer::TabHeight(const WxRenderer& oRenderer, const FontSpec& oFont) {
  const Units& oUnits = oRenderer.Unit();
  return oUnits.Pixels(oRenderer.TextHeight(oFont)) + oUnits.Scaled(8);
}

wxRect TabStripPeer::NativePlace() const {
  wxRect o = Place();
  o.height = TabHeight(moRenderer, moStrip.Font());
  return o;
}

void TabStripPeer::Apply(const Changes& oChanges) {
  ControlPeer::Apply(oChanges);
  const int nMargin = moRenderer.Unit().Scaled(8);
  mnEdges.assign(1, 0);
  int nAccess;
  for (std::int32_t i = 1; i <= moStrip.Tabs().Count(); ++i) {
    const wxString sCaption = CaptionParts(moStrip.Tabs().Item(i).Caption(), nAccess);
    mnEdges.push_back(mnEdges.back() + Native().GetTextExtent(sCaption).x + 2 * nMargin);
  }
  // Tabs that don't fit become narrower, all by the same share.
  const int nRoom = Native().GetClientSize().x, nAll = mnEdges.back();
  if (nAll > nRoom && nRoom > 0) {
    for (int& n : mnEdges) n = n * nRoom / nAll;
  }
  Native().Refresh();
  Ground().RefreshRect(moFrame);
  moFrame = Place();
  Ground().RefreshRect(moFrame);
}

wxRect TabStripPeer::TabPlace(std::int32_t lTab) const {
  const auto lAt = static_cast<std::size_t>(lTab);
  return {mnEdges[lAt - 1], 0, mnEdges[lAt] - mnEdges[lAt - 1], Native().GetClientSize().y};
}

void TabStripPeer::Draw(wxDC& oDC) {
  const int nTabs = TabHeight(moRenderer, moStrip.Font());
  wxRect oFrame = Place();
  oFrame.y += nTabs - 1;
  oFrame.height -= nTabs - 1;
  oDC.SetPen(wxPen(NativeColor(SystemColor::ButtonShadow)));
  oDC.SetBrush(*wxTRANSPARENT_BRUSH);
  oDC.DrawRectangle(oFrame);
}

void TabStripPeer::DrawTabs(wxDC& oDC) {
  const wxSize oSize = Native().GetClientSize();
  oDC.SetBackground(NativeColor(moStrip.BackColor()));
  oDC.Clear();
  oDC.SetFont(NativeFont(moStrip.Font()));
  oDC.SetPen(wxPen(NativeColor(SystemColor::ButtonShadow)));
  oDC.DrawLine(0, oSize.y - 1, oSize.x, oSize.y - 1);
  const auto lCount =
      std::min(moStrip.Tabs().Count(), static_cast<std::int32_t>(mnEdges.size()) - 1);
  for (std::int32_t i = 1; i <= lCount; ++i) DrawTab(oDC, i, TabPlace(i));
}

void TabStripPeer::DrawTab(wxDC& oDC, std::int32_t lTab, const wxRect& oRect) {
  const Tab& oTab = moStrip.Tabs().Item(lTab);
  const bool bSelected = oTab.Selected();
  wxRect o(oRect);
  if (!bSelected) o.y += 2, o.height -= 3;
  const wxColour oFace = NativeColor(moStrip.BackColor());
  oDC.SetPen(*wxTRANSPARENT_PEN);
  oDC.SetBrush(bSelected ? oFace : oFace.ChangeLightness(95));
  oDC.DrawRectangle(o);
  oDC.SetPen(wxPen(NativeColor(SystemColor::ButtonShadow)));
  oDC.DrawLine(o.x, o.y, o.GetRight() + 1, o.y);
  oDC.DrawLine(o.x, o.y, o.x, o.GetBottom() + 1);
  oDC.DrawLine(o.GetRight(), o.y, o.GetRight(), o.GetBottom() + 1);
  int nAccess;
  const wxString sCaption = CaptionParts(oTab.Caption(), nAccess);
  oDC.SetTextForeground(
      NativeColor(moStrip.Enabled() ? moStrip.ForeColor() : SystemColor::GrayText));
  const wxDCClipper oClipper(oDC, o);
  oDC.DrawLabel(sCaption, o, wxALIGN_CENTER, nAccess);
  if (bSelected && Native().HasFocus()) {
    wxRendererNative::Get().DrawFocusRect(&Native(), oDC, wxRect(o).Deflate(3, 3));
  }
}

void TabStripPeer::OnMouse(wxMouseEvent& oEvent) {
  WxRenderer& oRenderer = moRenderer;  // outlives the peer, which a handler may end
  const auto pLife = Life();
  ControlPeer::OnMouse(oEvent);
  oEvent.Skip(false);
  if (pLife.expired() || !(oEvent.LeftDown() || oEvent.LeftDClick())) return;
  for (std::int32_t i = 1; i < static_cast<std::int32_t>(mnEdges.size()); ++i) {
    if (!TabPlace(i).Contains(oEvent.GetPosition())) continue;
    moStrip.UserSelect(i);
    return oRenderer.CatchUp();
  }
}

Edges WxRenderer::TabEdges(const TabStrip& oStrip) const {
  const std::int32_t lBorder = moUnits.Twips(moUnits.Scaled(4));
  const std::int32_t lTabs = moUnits.Twips(TabStripPeer::TabHeight(*this, oStrip.Font()));
  return {lBorder, lTabs + lBorder, lBorder, lBorder};
}

}  // namespace Forms
