// Keys of the window system as the codes that forms know.
#pragma once

#include "FormsTypes.h"

class wxKeyEvent;
class wxMouseState;
class wxString;

namespace Forms {

struct Stroke {
  std::int32_t nKeyCode = 0;  ///< 0 for a key that forms have no code for
  std::int32_t nShift = 0;
};

/// Of a key going down or up.
Stroke StrokeOf(const wxKeyEvent& oEvent);
/// The character of a key that types one, a control character included; 0 for none.
std::int32_t CharacterOf(const wxKeyEvent& oEvent);
/// How a menu shows a shortcut, such as `Ctrl+P`; empty for key code 0.
wxString ShortcutText(std::int32_t nKeyCode, std::int32_t nShift);

}  // namespace Forms
