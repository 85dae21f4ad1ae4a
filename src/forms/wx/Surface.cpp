#include "Surface.h"

#include <wx/dcbuffer.h>
#include <wx/radiobut.h>

#include "ContainerPeer.h"
#include "MouseFeed.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "WxRenderer.h"

namespace Forms {

Surface::Surface(wxWindow* poParent, ControlContainer& oContainer, WxRenderer& oRenderer)
    : mpoContainer(&oContainer), moRenderer(oRenderer) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Create(poParent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
         wxBORDER_NONE | wxCLIP_CHILDREN | wxFULL_REPAINT_ON_RESIZE | wxWANTS_CHARS);
  // Otherwise wxWidgets would pass the native focus on to one of the controls on the surface.
  SetCanFocus(oContainer.CanFocus());
  Bind(wxEVT_PAINT, &Surface::OnPaint, this);
  for (const auto& oTag : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_DOWN,
                           wxEVT_RIGHT_UP, wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_UP, wxEVT_MOTION}) {
    Bind(oTag, &Surface::OnMouse, this);
  }
  Bind(wxEVT_LEAVE_WINDOW, &Surface::OnLeave, this);
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { mpoPressed = nullptr; });
}

wxRadioButton& Surface::NoOption() {
  if (!mpoNoOption) {
    mpoNoOption =
        new wxRadioButton(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxRB_GROUP);
    mpoNoOption->Hide();
  }
  return *mpoNoOption;
}

bool Surface::AcceptsFocus() const {
  return mpoContainer && mpoContainer->CanFocus();
}

void Surface::OnPaint(wxPaintEvent&) {
  wxAutoBufferedPaintDC oDC(this);
  if (!mpoContainer) return;
  auto* const poPeer = dynamic_cast<IContainerPeer*>(mpoContainer->Peer());
  if (poPeer) poPeer->DrawGround(oDC, GetClientSize());
  for (Control* po : mpoContainer->Controls()) {
    if (!po->Visible()) continue;
    if (auto* poLight = dynamic_cast<ILightPeer*>(po->Peer())) poLight->Draw(oDC);
  }
}

wxRect Surface::PlaceOf(const Control& oControl) const {
  wxRect oPlace = moRenderer.Unit().Pixels(oControl.Bounds());
  oPlace.Offset(moOrigin);
  return oPlace;
}

Control* Surface::Hit(const wxPoint& oPlace) const {
  const auto& oAll = mpoContainer->Controls();
  for (auto it = oAll.rbegin(); it != oAll.rend(); ++it) {
    Control* const po = *it;
    // The mouse over a disabled label goes to the label's container.
    const bool bTakes = po->Kind() == ComponentKind::Label && po->Visible() && po->Enabled();
    if (bTakes && PlaceOf(*po).Contains(oPlace)) return po;
  }
  return mpoContainer;
}

void Surface::ReleasePointer() {
  mpoPressed = nullptr;
  if (HasCapture()) ReleaseMouse();
}

void Surface::OnMouse(wxMouseEvent& oEvent) {
  if (!mpoContainer) return;
  if (mpPressedLife.expired()) mpoPressed = nullptr;
  Control& oTarget = mpoPressed ? *mpoPressed : *Hit(oEvent.GetPosition());
  auto* const poPeer = dynamic_cast<WxPeer*>(oTarget.Peer());
  if (!poPeer) return;
  if (oEvent.ButtonDown() || oEvent.ButtonDClick()) {
    // The pressed control gets all mouse events until the release, wherever the pointer is.
    mpoPressed = &oTarget;
    mpPressedLife = poPeer->Life();
    if (!HasCapture()) CaptureMouse();
  }
  ShowHints(oTarget);
  Tell(oEvent, oTarget);
  moRenderer.CatchUp();
}

// Forms follow the pointer by its moves; one out of the window would stay unknown.
void Surface::OnLeave(wxMouseEvent& oEvent) {
  oEvent.Skip();
  if (!mpoContainer || mpoPressed || mpoContainer->Kind() != ComponentKind::PictureBox) return;
  const std::int32_t lOutside = moRenderer.Unit().Twips(-1);
  mpoContainer->UserMouseMove(Button::None, ShiftOf(oEvent), lOutside, lOutside);
  moRenderer.CatchUp();
}

void Surface::ShowHints(const Control& oTarget) {
  const wxString sTip = ToWx(oTarget.ToolTipText());
  if (sTip != GetToolTipText()) SetToolTip(sTip);
  if (oTarget.MousePointer() == mlPointer) return;
  mlPointer = oTarget.MousePointer();
  SetCursor(NativeCursor(mlPointer));
}

void Surface::Tell(wxMouseEvent& oEvent, Control& oTarget) {
  wxPoint oOrigin = moOrigin;
  if (&oTarget != mpoContainer) oOrigin = PlaceOf(oTarget).GetTopLeft();
  const auto pLife = dynamic_cast<WxPeer&>(*oTarget.Peer()).Life();
  const bool bInside = oTarget.Kind() == ComponentKind::Label
                           ? PlaceOf(oTarget).Contains(oEvent.GetPosition())
                           : wxRect(GetClientSize()).Contains(oEvent.GetPosition());
  const bool bClick = oEvent.LeftUp() && mpoPressed == &oTarget && bInside;
  if (oEvent.ButtonUp()) ReleasePointer();
  TellMouse(oTarget, oEvent, oEvent.GetPosition() - oOrigin, moRenderer.Unit());
  if (bClick && !pLife.expired()) oTarget.UserClick();
}

}  // namespace Forms
