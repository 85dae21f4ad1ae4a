// A component with a place on its container: what all controls, and forms, have in common.
//
// Setting a property from code does what the toolkit's users expect of it, events included; what
// the user does comes in through the User... operations, which renderers and tests call alike. A
// User... operation does nothing and gives false when the user couldn't do it: the control, one of
// its containers or its form is disabled, hidden or blocked by a modal form.
#pragma once

#include "Component.h"

namespace Forms {

class ControlContainer;

struct ControlState {
  Rect oBounds;
  bool bVisible = true, bEnabled = true, bTabStop = true;
  Color lBackColor = SystemColor::ButtonFace, lForeColor = SystemColor::ButtonText;
  FontSpec oFont;
  Text sToolTipText;
  std::int32_t lHelpContextID = 0, lMousePointer = Pointer::Default;
};

/// The defaults of controls that hold text of the user's: the colours of a window's inside.
ControlState FieldDefaults();

class Control : public Component {
 public:
  Control(ControlContainer& oContainer, TextView sName);
  ~Control() override;

  /// What it stands on. A form has none (Failure 91).
  ControlContainer& Container() const;

  std::int32_t Left() const { return moControl.oBounds.lLeft; }
  std::int32_t Top() const { return moControl.oBounds.lTop; }
  std::int32_t Width() const { return moControl.oBounds.lWidth; }
  std::int32_t Height() const { return moControl.oBounds.lHeight; }
  const Rect& Bounds() const { return moControl.oBounds; }
  void SetLeft(std::int32_t lLeft);
  void SetTop(std::int32_t lTop);
  /// A negative width or height is Failure 380.
  void SetWidth(std::int32_t lWidth);
  void SetHeight(std::int32_t lHeight);
  void Move(std::int32_t lLeft, std::int32_t lTop);
  void Move(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth, std::int32_t lHeight);

  bool Visible() const { return moControl.bVisible; }
  /// Hiding or disabling the control with the focus passes the focus on in tab order.
  virtual void SetVisible(bool bVisible);
  bool Enabled() const { return moControl.bEnabled; }
  void SetEnabled(bool bEnabled);
  /// True when it and all its containers are visible, the form included.
  bool Showing() const;
  /// True when it shows, and it and all its containers are enabled.
  bool Usable() const;
  /// True when the user can work with it: it is usable, and no modal form stands above its form.
  bool UserEnabled() const;

  Color BackColor() const { return moControl.lBackColor; }
  void SetBackColor(Color lColor) { Set(moControl.lBackColor, lColor, Property::Colors); }
  Color ForeColor() const { return moControl.lForeColor; }
  void SetForeColor(Color lColor) { Set(moControl.lForeColor, lColor, Property::Colors); }
  const Text& ToolTipText() const { return moControl.sToolTipText; }
  void SetToolTipText(TextView s) { Set(moControl.sToolTipText, s, Property::ToolTipText); }
  std::int32_t HelpContextID() const { return moControl.lHelpContextID; }
  void SetHelpContextID(std::int32_t lId) { moControl.lHelpContextID = lId; }
  std::int32_t MousePointer() const { return moControl.lMousePointer; }
  void SetMousePointer(std::int32_t l) { Set(moControl.lMousePointer, l, Property::MousePointer); }

  const FontSpec& Font() const { return moControl.oFont; }
  /// Failure 380, with the font as it was, when the machine has no such face.
  void SetFont(const FontSpec& oFont);
  void SetFontName(TextView sName);
  void SetFontSize(double dPoints);
  void SetFontBold(bool bBold);
  void SetFontItalic(bool bItalic);

  /// Place in the tab order, from 0. Controls without a set number, or with equal ones, follow in
  /// the order of construction.
  std::int32_t TabIndex() const { return mlTabIndex; }
  void SetTabIndex(std::int32_t lIndex);
  bool TabStop() const { return moControl.bTabStop; }
  void SetTabStop(bool b) { Set(moControl.bTabStop, b, Property::Focusable); }
  /// Whether this kind can have the focus at all.
  virtual bool CanFocus() const { return true; }
  /// Failure 5 when it doesn't show, is disabled or can't have the focus. Raises LostFocus of the
  /// old control, then ExitFocus and EnterFocus of user controls left and entered, then GotFocus.
  virtual void SetFocus();
  /// It, or a control on it, is the form's ActiveControl.
  bool HasFocus() const;
  /// Paints now.
  void Refresh();
  /// Brings it before its neighbours.
  void ZOrder();
  /// Lets a container lay out its content again after the form's size changed.
  virtual void ContainerResized() {}

  Signal<> Click, DblClick;
  /// Button, Shift, X, Y in the control's own twips.
  Signal<std::int32_t, std::int32_t, std::int32_t, std::int32_t> MouseDown, MouseMove, MouseUp;
  /// KeyCode, which a handler sets to 0 to swallow the key, and Shift.
  Signal<std::int32_t&, std::int32_t> KeyDown, KeyUp;
  /// Character code, which a handler may change, or set to 0 to drop it.
  Signal<std::int32_t&> KeyPress;
  Signal<> GotFocus, LostFocus;

  /// The mouse by itself. Pressing moves the focus to a control that can have it.
  bool UserMouseDown(std::int32_t nButton, std::int32_t nShift, std::int32_t lX, std::int32_t lY);
  bool UserMouseMove(std::int32_t nButton, std::int32_t nShift, std::int32_t lX, std::int32_t lY);
  bool UserMouseUp(std::int32_t nButton, std::int32_t nShift, std::int32_t lX, std::int32_t lY);
  /// The click that a press and release, or a key, amounts to: focus, change of state, Click. A
  /// renderer calls it besides the mouse's own operations.
  virtual bool UserClick();
  virtual bool UserDblClick();
  bool UserFocus();
  /// One stroke: Form::UserKey, then what the control itself does with the key, then KeyUp. A
  /// renderer whose native control does the second part calls the parts instead.
  bool UserKey(std::int32_t nKeyCode, std::int32_t nShift = Shift::None);
  bool UserKeyUp(std::int32_t nKeyCode, std::int32_t nShift);
  /// Types characters: KeyPress for each, then what the control does with what is left of it.
  bool UserType(TextView sText);
  /// KeyDown of the form and the user controls around it that preview keys, then its own. The code
  /// that is left; 0 when it was swallowed.
  std::int32_t UserKeyDown(std::int32_t nKeyCode, std::int32_t nShift);
  /// KeyPress likewise. The character that is left; 0 when it was dropped.
  std::int32_t UserKeyPress(std::int32_t nKeyAscii);

  void Reset() override;
  void CopyFrom(const Component& oOther) override;

 protected:
  /// For forms.
  explicit Control(TextView sName) : Component(sName) {}
  /// Defaults that differ by kind, such as colours.
  virtual ControlState DefaultState() const { return {}; }
  /// What the control does with a key that nobody swallowed.
  virtual void KeyAction(std::int32_t /*nKeyCode*/, std::int32_t /*nShift*/) {}
  /// What it does with a character behind KeyPress.
  virtual void CharAction(std::int32_t /*nCharacter*/) {}
  /// Behind every change of the size.
  virtual void Resized() {}
  virtual void ChangeBounds(const Rect& oBounds);

  ControlState moControl;

 private:
  friend class ControlContainer;
  /// The containers around it that see its keys first, from the outermost.
  std::vector<Control*> Previewers() const;

  ControlContainer* mpoContainer = nullptr;
  std::int32_t mlOrder = 0;  ///< of construction on its form
  std::int32_t mlTabIndex = 0;
};

}  // namespace Forms
