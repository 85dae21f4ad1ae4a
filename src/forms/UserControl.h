// The base of controls that are made of other controls:
//
//   class Caption : public UserControl {
//    public:
//     Caption(ControlContainer& o, TextView sName) : UserControl(o, sName) {
//       On(Resize, [this] { Layout(); });
//     }
//    private:
//     void Design() override { lblCaption.Move(30, 0, 1200, 195); }
//     Label lblCaption{*this, u"lblCaption"};
//   };
//
// A control without a part that takes the focus takes it itself; SetTabStop(false) keeps Tab from
// one that has no use for it. The parts are private to the control; to the form it is one control.
// GotFocus and LostFocus come with EnterFocus and ExitFocus.
#pragma once

#include "ControlContainer.h"

namespace Forms {

struct UserControlState {
  bool bKeyPreview = false;
};

class UserControl : public WithState<ControlContainer, UserControlState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::UserControl; }
  /// Gives the focus to its first part in tab order, or to itself when no part can take it.
  void SetFocus() override;
  bool CanFocus() const override { return true; }
  /// Whether KeyDown, KeyPress and KeyUp of its parts come to it first.
  bool KeyPreview() const { return mo.bKeyPreview; }
  void SetKeyPreview(bool b) { mo.bKeyPreview = b; }

  /// The focus comes to it or one of its parts from outside; leaves it.
  Signal<> EnterFocus, ExitFocus;

  /// Sets the values of design time of its parts, and its own state anew. Runs before the form's
  /// Design.
  virtual void Design() {}
};

}  // namespace Forms
