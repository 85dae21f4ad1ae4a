#include "OptionButton.h"

#include <algorithm>

#include "ControlContainer.h"

namespace Forms {

std::vector<OptionButton*> OptionButton::Group() const {
  std::vector<OptionButton*> oGroup;
  for (Control* po : Container().Controls()) {
    if (po->Kind() == ComponentKind::OptionButton) oGroup.push_back(static_cast<OptionButton*>(po));
  }
  std::stable_sort(oGroup.begin(), oGroup.end(),
                   [](auto* po, auto* poOther) { return po->TabIndex() < poOther->TabIndex(); });
  return oGroup;
}

void OptionButton::SetValue(bool bValue) {
  if (!Set(mo.bValue, bValue, Property::Value) || !bValue) return;
  for (OptionButton* po : Group()) {
    if (po != this) po->SetValue(false);
  }
  Raise(Click);
}

bool OptionButton::UserClick() {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserFocus();
  SetValue(true);
  return true;
}

void OptionButton::KeyAction(std::int32_t nKeyCode, std::int32_t) {
  if (nKeyCode == Key::Space) UserClick();
}

}  // namespace Forms
