// A window. A form is an object of its own before and after it is loaded:
//
//   FRules oRules(oToolkit);
//   oRules.chkExpert.SetValue(CheckValue::On);  // touching it loads it
//   oRules.Show(ShowMode::Modal);               // returns when it is hidden or unloaded
//   if (oRules.bAccepted) ...                   // only hidden: the controls keep their values
//   oRules.Unload();
//
// Loading: all components get their defaults, then the user controls' and the form's own Design
// run, then each container's Resize, then OnLoad. Any operation that changes the form or a
// component of it loads it first, and so do the collections of tabs, nodes, rows, columns and
// panels; reading a property doesn't. So a form's constructor connects events and sets nothing.
// Unloading raises QueryUnload, then OnUnload; either can cancel. Then the defaults return.
#pragma once

#include "ControlContainer.h"

namespace Forms {

class CommandButton;
class Menu;
class UserControl;

enum class ShowMode { Modeless, Modal };
enum class WindowState : std::int32_t { Normal = 0, Minimized = 1, Maximized = 2 };
enum class FormBorder { None, Sizable, FixedDialog };
/// Who unloads: the user by the window's close box, the program, the system's end.
enum class UnloadMode : std::int32_t { User = 0, Code = 1, System = 2 };

struct FormState {
  Text sCaption, sIcon;
  WindowState eWindowState = WindowState::Normal;
  FormBorder eBorder = FormBorder::Sizable;
  bool bKeyPreview = false, bMaxButton = true, bMinButton = true, bShowInTaskbar = true;
  std::int32_t lLeastSize = 0;
};

class Form : public WithState<ControlContainer, FormState> {
 public:
  Form(Toolkit& oToolkit, TextView sName);
  /// A form that is still loaded closes without events.
  ~Form() override;
  ComponentKind Kind() const override { return ComponentKind::Form; }
  Toolkit& App() const { return moToolkit; }

  void Load();
  /// False when a handler cancelled, or when called while it unloads already.
  bool Unload(UnloadMode eMode = UnloadMode::Code);
  bool Loaded() const { return meLife != Life::Unloaded; }
  /// Modal: returns when the form is hidden or unloaded; Failure 400 when it shows already.
  /// poOwner: the form that it stands above; null for the one in front.
  void Show(ShowMode eMode = ShowMode::Modeless, Form* poOwner = nullptr);
  void Hide() { SetVisible(false); }
  void SetVisible(bool bVisible) override;
  bool Modal() const { return mbModal; }
  /// The form it was shown above; null without one.
  Form* Owner() const { return mpoOwner; }

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { Set(mo.sCaption, s, Property::Caption); }
  /// Key of a picture.
  const Text& Icon() const { return mo.sIcon; }
  void SetIcon(TextView sKey) { Set(mo.sIcon, sKey, Property::Icon); }
  Forms::WindowState WindowState() const { return mo.eWindowState; }
  /// Raises Resize. Left to Height stay those of the normal state when it is minimised.
  void SetWindowState(Forms::WindowState eState);
  FormBorder BorderStyle() const { return mo.eBorder; }
  void SetBorderStyle(FormBorder e) { mo.eBorder = e; }  ///< design time
  bool MaxButton() const { return mo.bMaxButton; }
  void SetMaxButton(bool b) { mo.bMaxButton = b; }  ///< design time
  bool MinButton() const { return mo.bMinButton; }
  void SetMinButton(bool b) { mo.bMinButton = b; }  ///< design time
  bool KeyPreview() const { return mo.bKeyPreview; }
  void SetKeyPreview(bool b) { mo.bKeyPreview = b; }
  /// The user can't make it narrower or lower; 0 for no limit.
  std::int32_t LeastSize() const { return mo.lLeastSize; }
  void SetLeastSize(std::int32_t l) { mo.lLeastSize = l; }  ///< design time
  std::int32_t ScaleWidth() const override;
  std::int32_t ScaleHeight() const override;

  /// The control with the focus; null when none has it.
  Control* ActiveControl() const { return mpoActive; }
  const std::vector<Component*>& Components() const { return moComponents; }
  /// The menu bar, in order.
  const std::vector<Menu*>& Menus() const { return moMenus; }
  /// The next (or previous) control that Tab goes to from poFrom, or from the start for null: in
  /// tab order, cyclic; of each group of option buttons only the one that is on, or the first. Null
  /// without any.
  Control* NextInTabOrder(const Control* poFrom, bool bForward = true) const;

  Signal<> OnLoad;
  /// bCancel, which a handler may set, and who unloads.
  Signal<bool&, UnloadMode> QueryUnload;
  Signal<bool&> OnUnload;
  Signal<> Activate, Deactivate;

  bool UserClose();
  bool UserMove(std::int32_t lLeft, std::int32_t lTop);
  /// The outer size.
  bool UserResize(std::int32_t lWidth, std::int32_t lHeight);
  bool UserWindowState(Forms::WindowState eState);
  bool UserActivate();
  /// A key pressed in this form, before the control with the focus gets it. In this order:
  /// shortcuts of menus; Alt with an access key of a control, unless a menu of the bar has the
  /// same; Ctrl+Tab for the next tab; Tab; Return for the default button (not from a multi-line
  /// text box, and a focused button takes its own); Escape for the cancel button; then KeyDown, and
  /// arrows inside a group of option buttons. True when the key is used up; otherwise the control
  /// does its own with it. Access keys of menus are left to the menu bar that draws them.
  bool UserKey(std::int32_t nKeyCode, std::int32_t nShift);

  // For this layer only.
  void Register(Component& oComponent);
  void Unregister(Component& oComponent);
  std::vector<Menu*>& MenuBar() { return moMenus; }
  void EnsureLoaded() {
    if (meLife == Life::Unloaded) Load();
  }
  /// True while the values of design time are set: nothing raises events then.
  bool Designing() const { return meLife == Life::Designing; }
  /// Null: no control has it.
  void ChangeFocus(Control* poControl);
  /// The control hides or can't be used any more: the focus passes on from it and what is on it.
  void PassFocus(const Control& oControl);
  /// The control is being destroyed: no events.
  void ForgetControl(const Control& oControl);
  /// The first control inside that Tab stops at; null without any.
  Control* FirstInside(const ControlContainer& oContainer) const;
  std::int32_t NextTabIndex() { return mlNextTabIndex++; }
  void SetDefaultButton(CommandButton* poButton) { mpoDefault = poButton; }
  CommandButton* DefaultButton() const { return mpoDefault; }
  void SetCancelButton(CommandButton* poButton) { mpoCancel = poButton; }
  CommandButton* CancelButton() const { return mpoCancel; }
  void Resized() override;
  void MenuChanged() { Changed(Property::Menu); }
  void Activated(bool bActive) { bActive ? Raise(Activate) : Raise(Deactivate); }

 protected:
  /// Sets the values of design time: captions, places, sizes, lists.
  virtual void Design() {}
  ControlState DefaultState() const override;

 private:
  enum class Life { Unloaded, Designing, Loaded, Unloading };

  void RaiseLeft(Control* poControl, std::int64_t lMove);
  void RaiseEntered(Control* poControl, std::int64_t lMove);
  void DesignAll();
  void FirstLayout();
  /// Back to the state of a form that was never loaded, without events of its own.
  void Drop();
  void ResetAll();
  /// All controls of the form in tab order, those that Tab passes over included.
  std::vector<Control*> TabOrder() const;
  bool UseShortcut(const std::vector<Menu*>& oMenus, std::int32_t nKeyCode, std::int32_t nShift);
  bool IsKeyOfMenu(char16_t cKey) const;
  bool UseAccessKey(char16_t cKey);
  /// The next tab, cyclic, of the first tab strip that can be used.
  bool TurnTabs(bool bForward);
  bool UseDialogKey(std::int32_t nKeyCode, std::int32_t nShift);
  bool UseArrowInGroup(std::int32_t nKeyCode);
  /// Its Click, with the focus where it is. False when it can't be pressed, or for null.
  bool PressButton(CommandButton* poButton);
  void ChangeBounds(const Rect& oBounds) override;

  Toolkit& moToolkit;
  std::vector<Component*> moComponents;
  std::vector<Menu*> moMenus;
  Life meLife = Life::Unloaded;
  bool mbModal = false;
  bool mbResizePending = false;  ///< for the next time it is shown
  Rect moNormal;                 ///< its bounds in the normal state while it is maximised
  Form* mpoOwner = nullptr;
  Control* mpoActive = nullptr;         ///< the control with the focus
  Control* mpoGotFocus = nullptr;       ///< had GotFocus, and not yet LostFocus
  std::vector<UserControl*> moEntered;  ///< had EnterFocus, from the outermost
  std::int64_t mlFocusMoves = 0;
  CommandButton* mpoDefault = nullptr;
  CommandButton* mpoCancel = nullptr;
  std::int32_t mlNextTabIndex = 0;
};

}  // namespace Forms
