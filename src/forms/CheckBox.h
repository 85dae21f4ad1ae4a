// A box that is on, off or grayed. A new value raises Click, whoever sets it.
#pragma once

#include "Control.h"

namespace Forms {

enum class CheckValue : std::int32_t { Unchecked = 0, Checked = 1, Grayed = 2 };

struct CheckBoxState {
  Text sCaption;
  CheckValue eValue = CheckValue::Unchecked;
};

class CheckBox : public WithState<Control, CheckBoxState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::CheckBox; }

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { Set(mo.sCaption, s, Property::Caption); }
  CheckValue Value() const { return mo.eValue; }
  void SetValue(CheckValue eValue);
  bool Checked() const { return mo.eValue == CheckValue::Checked; }
  void SetChecked(bool b) { SetValue(b ? CheckValue::Checked : CheckValue::Unchecked); }

  /// Turns it on or off; a grayed one goes off.
  bool UserClick() override;

 protected:
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;
};

}  // namespace Forms
