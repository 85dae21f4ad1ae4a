// Push buttons, check boxes and option buttons.
#pragma once

#include "ControlPeer.h"

class wxButton;
class wxCheckBox;
class wxRadioButton;

namespace Forms {

class CheckBox;
class CommandButton;
class OptionButton;

class CommandButtonPeer : public ControlPeer {
 public:
  CommandButtonPeer(WxRenderer& oRenderer, CommandButton& oButton);

 protected:
  void Apply(const Changes& oChanges) override;
  void OnMouse(wxMouseEvent& oEvent) override;

 private:
  CommandButton& moButton;
  wxButton& moNative;
};

class CheckBoxPeer : public ControlPeer {
 public:
  CheckBoxPeer(WxRenderer& oRenderer, CheckBox& oBox);

 protected:
  void Apply(const Changes& oChanges) override;
  wxRect NativePlace() const override;

 private:
  CheckBox& moBox;
  wxCheckBox& moNative;
};

class OptionButtonPeer : public ControlPeer {
 public:
  OptionButtonPeer(WxRenderer& oRenderer, OptionButton& oOption);

 protected:
  void Apply(const Changes& oChanges) override;
  wxRect NativePlace() const override;

 private:
  OptionButton& moOption;
  wxRadioButton& moNative;
};

}  // namespace Forms
