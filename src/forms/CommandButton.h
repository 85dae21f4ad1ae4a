// A push button. Return presses the form's default button, Escape its cancel button.
#pragma once

#include "Control.h"

namespace Forms {

struct CommandButtonState {
  Text sCaption, sPicture;
};

class CommandButton : public WithState<Control, CommandButtonState> {
 public:
  using WithState::WithState;
  ~CommandButton() override;
  ComponentKind Kind() const override { return ComponentKind::CommandButton; }

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { Set(mo.sCaption, s, Property::Caption); }
  /// Key of a picture that stands in place of the caption; empty for none.
  const Text& Picture() const { return mo.sPicture; }
  void SetPicture(TextView sKey) { Set(mo.sPicture, sKey, Property::Picture); }
  /// One button of a form each; setting it takes it from the one before.
  bool Default() const;
  void SetDefault(bool bDefault);
  bool Cancel() const;
  void SetCancel(bool bCancel);

 protected:
  /// Space clicks; Return is the form's business.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;
};

}  // namespace Forms
