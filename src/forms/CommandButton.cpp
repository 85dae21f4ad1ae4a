#include "CommandButton.h"

#include "Form.h"

namespace Forms {

CommandButton::~CommandButton() {
  if (Default()) Parent().SetDefaultButton(nullptr);
  if (Cancel()) Parent().SetCancelButton(nullptr);
}

bool CommandButton::Default() const {
  return Parent().DefaultButton() == this;
}
bool CommandButton::Cancel() const {
  return Parent().CancelButton() == this;
}

void CommandButton::SetDefault(bool bDefault) {
  Touch();
  if (bDefault == Default()) return;
  CommandButton* const poOld = Parent().DefaultButton();
  Parent().SetDefaultButton(bDefault ? this : nullptr);
  if (poOld) poOld->Changed(Property::Value);
  Changed(Property::Value);
}

void CommandButton::SetCancel(bool bCancel) {
  Touch();
  if (bCancel != Cancel()) Parent().SetCancelButton(bCancel ? this : nullptr);
}

void CommandButton::KeyAction(std::int32_t nKeyCode, std::int32_t) {
  if (nKeyCode == Key::Space) UserClick();
}

}  // namespace Forms
