// A text field of one or many lines.
#pragma once

#include "ControlPeer.h"

class wxTextCtrl;

namespace Forms {

class TextBox;

class TextBoxPeer : public ControlPeer {
 public:
  TextBoxPeer(WxRenderer& oRenderer, TextBox& oBox);
  void BeforeKey() override;

 protected:
  void Apply(const Changes& oChanges) override;
  void InsertCharacter(std::int32_t nCharacter) override;
  void OnMouse(wxMouseEvent& oEvent) override;

 private:
  void ApplyText();
  void ApplySelection();
  void OnText();
  Text NativeValue() const;

  TextBox& moBox;
  wxTextCtrl& moNative;
};

}  // namespace Forms
