// The title strip of a pane: a text inside a sunken border. A form has an operation of the same
// name, so its members are declared as `::Caption lblTree{*this, u"lblTree"};`.
#pragma once

#include "ControlArray.h"
#include "Label.h"
#include "Line.h"
#include "UserControl.h"

class Caption : public Forms::UserControl {
 public:
  Caption(Forms::ControlContainer& oContainer, TextView sName);
  bool CanFocus() const override { return false; }

  /// Its text. Not named Caption, because that is the constructor's name.
  const Text& GetCaption() const { return lblCaption.Caption(); }
  void SetCaption(TextView sCaption) { lblCaption.SetCaption(sCaption); }
  /// Whether the border is drawn.
  bool Border() const { return linBorder(0).Visible(); }
  void SetBorder(bool bBorder);

 private:
  void Design() override;
  void ControlResized();

  std::int32_t mnPixelX, mnPixelY;
  Forms::Label lblCaption{*this, u"lblCaption"};
  Forms::ControlArray<Forms::Line> linBorder{*this, u"linBorder", 4};
};
