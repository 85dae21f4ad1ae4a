#include "ControlPeer.h"

#include <wx/app.h>

#include "ContainerPeer.h"
#include "MouseFeed.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "Surface.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// Standard colours are left to the window, so that it follows the user's theme in all its states.
wxColour OwnColor(Color lColor) {
  switch (lColor) {
    case SystemColor::ButtonFace:
    case SystemColor::ButtonText:
    case SystemColor::WindowBackground:
    case SystemColor::WindowText:
      return wxNullColour;
    default:
      return NativeColor(lColor);
  }
}

}  // namespace

ControlPeer::~ControlPeer() {
  if (!mpoWindow) return;
  mpoWindow->Hide();
  wxTheApp->ScheduleForDestruction(mpoWindow);
}

Surface& ControlPeer::Ground() const {
  return dynamic_cast<IContainerPeer&>(*moControl.Container().Peer()).Area();
}

void ControlPeer::Adopt(wxWindow& oWindow) {
  mpoWindow = &oWindow;
  oWindow.Hide();
  for (const auto& oTag : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_DOWN,
                           wxEVT_RIGHT_UP, wxEVT_MIDDLE_DOWN, wxEVT_MIDDLE_UP, wxEVT_MOTION}) {
    Listen(oWindow, oTag, [this](wxMouseEvent& o) { OnMouse(o); });
  }
  Listen(oWindow, wxEVT_CHAR, [this](wxKeyEvent& o) { OnChar(o); });
  Listen(oWindow, wxEVT_KEY_UP, [this](wxKeyEvent& o) {
    o.Skip();
    const Stroke oStroke = StrokeOf(o);
    if (!OwnsKey(oStroke)) moControl.UserKeyUp(oStroke.nKeyCode, oStroke.nShift);
  });
  Listen(oWindow, wxEVT_SET_FOCUS, [this](wxFocusEvent& o) {
    o.Skip();
    OnFocus();
  });
  LaterAll();
}

void ControlPeer::OnMouse(wxMouseEvent& oEvent) {
  oEvent.Skip();
  TellMouse(moControl, oEvent, oEvent.GetPosition(), moRenderer.Unit());
}

void ControlPeer::OnChar(wxKeyEvent& oEvent) {
  const std::int32_t nTyped = CharacterOf(oEvent);
  if (nTyped == 0) return oEvent.Skip();
  const auto pLife = Life();
  const std::int32_t nLeft = moControl.UserKeyPress(nTyped);
  if (nLeft == nTyped) {
    oEvent.Skip();
  } else if (nLeft != 0 && !pLife.expired()) {
    InsertCharacter(nLeft);
  }
}

void ControlPeer::UseKey(const Stroke& oStroke) {
  moControl.UserKey(oStroke.nKeyCode, oStroke.nShift);
}

void ControlPeer::OnFocus() {
  if (!moRenderer.CatchingUp() && mpoWindow->HasFocus()) moControl.UserFocus();
}

void ControlPeer::Focus() {
  moRenderer.FocusLater(*this);
}

void ControlPeer::TakeFocus() {
  if (!mpoWindow->HasFocus()) mpoWindow->SetFocus();
}

void ControlPeer::PaintNow() {
  mpoWindow->Refresh();
  mpoWindow->Update();
}

wxRect ControlPeer::Place() const {
  wxRect o = moRenderer.Unit().Pixels(moControl.Bounds());
  o.Offset(Ground().Origin());
  return o;
}

void ControlPeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Font)) mpoWindow->SetFont(NativeFont(moControl.Font()));
  ApplyLook(oChanges);
  if (oChanges.Has(Property::Bounds) || oChanges.Has(Property::Font)) {
    const wxRect oPlace = NativePlace();
    if (oPlace != mpoWindow->GetRect()) mpoWindow->SetSize(oPlace);
  }
  if (oChanges.Has(Property::Enabled)) mpoWindow->Enable(moControl.Enabled());
  if (oChanges.Has(Property::Visible)) mpoWindow->Show(moControl.Visible());
}

void ControlPeer::ApplyLook(const Changes& oChanges) {
  if (oChanges.Has(Property::Colors)) {
    mpoWindow->SetBackgroundColour(OwnColor(moControl.BackColor()));
    mpoWindow->SetForegroundColour(OwnColor(moControl.ForeColor()));
    mpoWindow->Refresh();
  }
  if (oChanges.Has(Property::ToolTipText)) {
    const wxString sTip = ToWx(moControl.ToolTipText());
    if (sTip != mpoWindow->GetToolTipText()) mpoWindow->SetToolTip(sTip);
  }
  if (oChanges.Has(Property::MousePointer)) {
    mpoWindow->SetCursor(NativeCursor(moControl.MousePointer()));
  }
}

}  // namespace Forms
