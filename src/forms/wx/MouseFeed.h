// What the mouse does, told to a control in its own twips.
#pragma once

#include <wx/gdicmn.h>

#include <cstdint>

class wxMouseEvent;

namespace Forms {

class Control;
class Units;

/// A press, a move, a release or the second press of a double click. oPlace: in pixels from the
/// control's top left corner. The control may have ended behind it.
void TellMouse(Control& oControl, const wxMouseEvent& oEvent, const wxPoint& oPlace,
               const Units& oUnits);
/// The bits of Shift that are held.
std::int32_t ShiftOf(const wxMouseEvent& oEvent);

}  // namespace Forms
