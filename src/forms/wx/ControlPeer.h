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
  /// The window ends with the events that wait for it, not before.
  ~ControlPeer() override;

  void Focus() override;
  void TakeFocus();
  wxWindow& Native() const { return *mpoWindow; }
  wxWindow* Drawn() const override { return mpoWindow; }
  /// Whether the control itself does all with a key, because its window has no own way with it.
  virtual bool OwnsKey(const Stroke&) const { return false; }
  /// Handles a key that it owns.
  virtual void UseKey(const Stroke& oStroke);
  /// Brings the object's state, such as a caret, up to what the user did, before a key is handled.
  virtual void BeforeKey() {}
  /// Hears of the mouse over its window before the window does anything with it. By default the
  /// control is told, and the window goes on.
  virtual void OnMouse(wxMouseEvent& oEvent);

 protected:
  /// The window has to be made by the derived class, and handed to this function once.
  void Adopt(wxWindow& oWindow);
  /// What the control stands on.
  Surface& Ground() const;
  void Apply(const Changes& oChanges) override;
  void PaintNow() override;
  /// Where the window goes; the second may be larger than the control's own place.
  wxRect Place() const;
  virtual wxRect NativePlace() const { return Place(); }
  /// A character that KeyPress changed takes the place of the typed one.
  virtual void InsertCharacter(std::int32_t /*nCharacter*/) {}

  Control& moControl;

 private:
  void OnChar(wxKeyEvent& oEvent);
  void OnFocus();
  void ApplyLook(const Changes& oChanges);

  wxWindow* mpoWindow = nullptr;
};

}  // namespace Forms
