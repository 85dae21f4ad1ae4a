// The base of peers with a window of their own: place, look, mouse, keys and focus.
#pragma once

#include <wx/window.h>

#include "Control.h"
#include "KeyCodes.h"
#include "WxPeer.h"

class wxKeyEvent;
class wxMouseEvent;

namespace Forms {

class Surface;

class ControlPeer : public WxPeer {
 public:
  ControlPeer(WxRenderer& oRenderer, Control& oControl) : WxPeer(oRenderer), moControl(oControl) {}
  /// Leaves the native window to wxWidgets, which destroys it when its pending events are handled.
  ~ControlPeer() override;

  void Focus() override;
  void TakeFocus();
  wxWindow& Native() const { return *mpoWindow; }
  wxWindow* Drawn() const override { return mpoWindow; }
  /// Whether the control handles the key completely, because its native window doesn't.
  virtual bool OwnsKey(const Stroke&) const { return false; }
  /// Handles a key that it owns.
  virtual void UseKey(const Stroke& oStroke);
  /// Brings the object's state, such as a caret, up to what the user did, before a key is handled.
  virtual void BeforeKey() {}
  /// Called for mouse events ahead of the native window. By default passes them to the control and
  /// then to the window.
  virtual void OnMouse(wxMouseEvent& oEvent);

 protected:
  /// The window has to be made by the derived class, and handed to this function once.
  void Adopt(wxWindow& oWindow);
  /// The surface of the control's container.
  Surface& Ground() const;
  void Apply(const Changes& oChanges) override;
  void PaintNow() override;
  /// The control's place in pixels, and that of its native window, which may be larger.
  wxRect Place() const;
  virtual wxRect NativePlace() const { return Place(); }
  /// Inserts a character that a handler of KeyPress put in place of the typed one.
  virtual void InsertCharacter(std::int32_t /*nCharacter*/) {}

  Control& moControl;

 private:
  void OnChar(wxKeyEvent& oEvent);
  void OnFocus();
  void ApplyLook(const Changes& oChanges);

  wxWindow* mpoWindow = nullptr;
};

}  // namespace Forms
