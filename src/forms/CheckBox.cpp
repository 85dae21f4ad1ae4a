#include "CheckBox.h"

namespace Forms {

void CheckBox::SetValue(CheckValue eValue) {
  if (Set(mo.eValue, eValue, Property::Value)) Raise(Click);
}

bool CheckBox::UserClick() {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserFocus();
  SetChecked(mo.eValue == CheckValue::Unchecked);
  return true;
}

void CheckBox::KeyAction(std::int32_t nKeyCode, std::int32_t) {
  if (nKeyCode == Key::Space) UserClick();
}

}  // namespace Forms
