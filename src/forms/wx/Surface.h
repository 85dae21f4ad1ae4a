// The window of a container: it paints the container, the controls there that have no window of
// their own (labels, lines, the frame around a tab's content), and hands them the mouse.
//
// Such light controls lie behind those with windows, and show what is behind them: a transparent
// label needs no copying, and a line is one pixel wide where it stands.
#pragma once

#include <wx/window.h>

#include <cstdint>
#include <memory>

class wxDC;
class wxMouseEvent;
class wxRadioButton;

namespace Forms {

class Control;
class ControlContainer;
class WxRenderer;

/// The peer of a control that is painted by the surface it stands on.
class ILightPeer {
 public:
  virtual ~ILightPeer() = default;
  /// In pixels of the surface.
  virtual void Draw(wxDC& oDC) = 0;
};

class Surface : public wxWindow {
 public:
  Surface(wxWindow* poParent, ControlContainer& oContainer, WxRenderer& oRenderer);
  /// Called when the container's peer is destroyed: nothing is painted or passed on any more.
  void Leave() { mpoContainer = nullptr; }
  /// Where the container's own coordinates begin, behind its border.
  const wxPoint& Origin() const { return moOrigin; }
  void SetOrigin(const wxPoint& o) { moOrigin = o; }

  /// A hidden option button in the native group on this window. It is on while none of the others
  /// is, because in a native group one button is always on. Has to be made before the others.
  wxRadioButton& NoOption();

  bool AcceptsFocus() const override;
  bool AcceptsFocusFromKeyboard() const override { return false; }

 private:
  void OnPaint(wxPaintEvent& oEvent);
  void OnMouse(wxMouseEvent& oEvent);
  void OnLeave(wxMouseEvent& oEvent);
  Control* Hit(const wxPoint& oPlace) const;
  /// In pixels of the surface.
  wxRect PlaceOf(const Control& oControl) const;
  void Tell(wxMouseEvent& oEvent, Control& oTarget);
  void ReleasePointer();
  /// The tip and the pointer of what lies under the mouse.
  void ShowHints(const Control& oTarget);

  ControlContainer* mpoContainer;
  WxRenderer& moRenderer;
  wxPoint moOrigin;
  wxRadioButton* mpoNoOption = nullptr;
  Control* mpoPressed = nullptr;
  std::weak_ptr<void> mpPressedLife;
  std::int32_t mlPointer = 0;
};

}  // namespace Forms
