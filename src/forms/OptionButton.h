// One of several choices: of the option buttons on one container at most one is on.
#pragma once

#include "Control.h"

namespace Forms {

struct OptionButtonState {
  Text sCaption;
  bool bValue = false;
};

class OptionButton : public WithState<Control, OptionButtonState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::OptionButton; }

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { Set(mo.sCaption, s, Property::Caption); }
  bool Value() const { return mo.bValue; }
  /// Turning it on turns its neighbours off, then raises its Click; turning off raises nothing. No
  /// change, no event.
  void SetValue(bool bValue);

  bool UserClick() override;
  /// The option buttons of the same container, itself included, in tab order.
  std::vector<OptionButton*> Group() const;

 protected:
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;
};

}  // namespace Forms
