#include "MouseFeed.h"

#include <wx/event.h>

#include "Control.h"
#include "Units.h"

namespace Forms {

namespace {

std::int32_t ButtonOf(const wxMouseEvent& o) {
  switch (o.GetButton()) {
    case wxMOUSE_BTN_LEFT:
      return Button::Left;
    case wxMOUSE_BTN_RIGHT:
      return Button::Right;
    case wxMOUSE_BTN_MIDDLE:
      return Button::Middle;
    default:
      return Button::None;
  }
}

std::int32_t ButtonsHeld(const wxMouseEvent& o) {
  return (o.LeftIsDown() ? Button::Left : 0) | (o.RightIsDown() ? Button::Right : 0) |
         (o.MiddleIsDown() ? Button::Middle : 0);
}

}  // namespace

std::int32_t ShiftOf(const wxMouseEvent& o) {
  return (o.ShiftDown() ? Shift::Shift : 0) | (o.ControlDown() ? Shift::Ctrl : 0) |
         (o.AltDown() ? Shift::Alt : 0);
}

void TellMouse(Control& oControl, const wxMouseEvent& oEvent, const wxPoint& oPlace,
               const Units& oUnits) {
  const std::int32_t lX = oUnits.Twips(oPlace.x), lY = oUnits.Twips(oPlace.y);
  const std::int32_t nShift = ShiftOf(oEvent);
  const std::int32_t nButton = ButtonOf(oEvent);
  if (oEvent.Moving() || oEvent.Dragging()) {
    oControl.UserMouseMove(ButtonsHeld(oEvent), nShift, lX, lY);
  } else if (nButton == Button::None) {
    return;
  } else if (oEvent.ButtonDClick()) {
    if (nButton == Button::Left) oControl.UserDblClick();
  } else if (oEvent.ButtonDown()) {
    oControl.UserMouseDown(nButton, nShift, lX, lY);
  } else if (oEvent.ButtonUp()) {
    oControl.UserMouseUp(nButton, nShift, lX, lY);
  }
}

}  // namespace Forms
