#include "KeyCodes.h"

#include <wx/event.h>

namespace Forms {

namespace {

struct KeyRow {
  int nNative;
  std::int32_t nKeyCode;
  const char* psName;  ///< in shortcuts; null for keys that can't be one
};

const KeyRow KeyRows[] = {
    {WXK_BACK, Key::Back, "Back"},
    {WXK_TAB, Key::Tab, "Tab"},
    {WXK_RETURN, Key::Return, "Enter"},
    {WXK_NUMPAD_ENTER, Key::Return, nullptr},
    {WXK_ESCAPE, Key::Escape, nullptr},
    {WXK_SPACE, Key::Space, "Space"},
    {WXK_PAGEUP, Key::PageUp, "PageUp"},
    {WXK_NUMPAD_PAGEUP, Key::PageUp, nullptr},
    {WXK_PAGEDOWN, Key::PageDown, "PageDown"},
    {WXK_NUMPAD_PAGEDOWN, Key::PageDown, nullptr},
    {WXK_END, Key::End, "End"},
    {WXK_NUMPAD_END, Key::End, nullptr},
    {WXK_HOME, Key::Home, "Home"},
    {WXK_NUMPAD_HOME, Key::Home, nullptr},
    {WXK_LEFT, Key::Left, "Left"},
    {WXK_NUMPAD_LEFT, Key::Left, nullptr},
    {WXK_UP, Key::Up, "Up"},
    {WXK_NUMPAD_UP, Key::Up, nullptr},
    {WXK_RIGHT, Key::Right, "Right"},
    {WXK_NUMPAD_RIGHT, Key::Right, nullptr},
    {WXK_DOWN, Key::Down, "Down"},
    {WXK_NUMPAD_DOWN, Key::Down, nullptr},
    {WXK_INSERT, Key::Insert, "Ins"},
    {WXK_NUMPAD_INSERT, Key::Insert, nullptr},
    {WXK_DELETE, Key::Delete, "Del"},
    {WXK_NUMPAD_DELETE, Key::Delete, nullptr},
    {WXK_NUMPAD_ADD, Key::Add, nullptr},
    {WXK_NUMPAD_SUBTRACT, Key::Subtract, nullptr},
    {WXK_SHIFT, 16, nullptr},
    {WXK_CONTROL, 17, nullptr},
    {WXK_ALT, 18, nullptr},
};

constexpr std::int32_t F12 = Key::F1 + 11;

std::int32_t KeyCodeOf(int nNative) {
  for (const KeyRow& o : KeyRows) {
    if (o.nNative == nNative) return o.nKeyCode;
  }
  if (nNative >= WXK_F1 && nNative <= WXK_F12) return Key::F1 + nNative - WXK_F1;
  if (nNative >= WXK_NUMPAD0 && nNative <= WXK_NUMPAD9) return '0' + nNative - WXK_NUMPAD0;
  if (nNative >= 'a' && nNative <= 'z') return nNative - 'a' + 'A';
  const bool bPlain = (nNative >= 'A' && nNative <= 'Z') || (nNative >= '0' && nNative <= '9');
  return bPlain ? nNative : 0;
}

}  // namespace

Stroke StrokeOf(const wxKeyEvent& oEvent) {
  const std::int32_t nShift = (oEvent.ShiftDown() ? Shift::Shift : 0) |
                              (oEvent.ControlDown() ? Shift::Ctrl : 0) |
                              (oEvent.AltDown() ? Shift::Alt : 0);
  return {KeyCodeOf(oEvent.GetKeyCode()), nShift};
}

std::int32_t CharacterOf(const wxKeyEvent& oEvent) {
  if (oEvent.AltDown()) return 0;
  const int nKey = oEvent.GetKeyCode();
  if (nKey == WXK_NUMPAD_ENTER) return Key::Return;
  const auto cKey = static_cast<std::uint32_t>(oEvent.GetUnicodeKey());
  // KeyPress has one 16-bit code; characters that need two are left to the native control.
  if (cKey == 0 || cKey > 0xFFFF || nKey == WXK_DELETE) return 0;
  return static_cast<std::int32_t>(cKey);
}

wxString ShortcutText(std::int32_t nKeyCode, std::int32_t nShift) {
  wxString sKey;
  for (const KeyRow& o : KeyRows) {
    if (sKey.empty() && o.nKeyCode == nKeyCode && o.psName) sKey = o.psName;
  }
  if (nKeyCode >= Key::F1 && nKeyCode <= F12) sKey.Printf("F%d", nKeyCode - Key::F1 + 1);
  if (sKey.empty() && nKeyCode != 0 && KeyCodeOf(nKeyCode) == nKeyCode)
    sKey = wxString(wxUniChar(nKeyCode));
  if (sKey.empty()) return {};
  return wxString((nShift & Shift::Ctrl) != 0 ? "Ctrl+" : "") +
         ((nShift & Shift::Alt) != 0 ? "Alt+" : "") +
         ((nShift & Shift::Shift) != 0 ? "Shift+" : "") + sKey;
}

}  // namespace Forms
