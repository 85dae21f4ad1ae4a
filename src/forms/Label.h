// A text that the user can't change. Its access key moves the focus to the next control in tab
// order.
#pragma once

#include "Control.h"

namespace Forms {

enum class Alignment { Left, Right, Center };
enum class BorderStyle { None, Single };

struct LabelState {
  Text sCaption;
  Alignment eAlignment = Alignment::Left;
  BorderStyle eBorder = BorderStyle::None;
  bool bTransparent = false, bWordWrap = true, bUseMnemonic = true;
};

class Label : public WithState<Control, LabelState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::Label; }
  bool CanFocus() const override { return false; }

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { Set(mo.sCaption, s, Property::Caption); }
  Forms::Alignment Alignment() const { return mo.eAlignment; }
  void SetAlignment(Forms::Alignment e) { mo.eAlignment = e; }  ///< design time
  Forms::BorderStyle BorderStyle() const { return mo.eBorder; }
  void SetBorderStyle(Forms::BorderStyle e) { mo.eBorder = e; }  ///< design time
  /// Whether the container shows through the label.
  bool Transparent() const { return mo.bTransparent; }
  void SetTransparent(bool b) { mo.bTransparent = b; }  ///< design time
  bool WordWrap() const { return mo.bWordWrap; }
  void SetWordWrap(bool b) { mo.bWordWrap = b; }  ///< design time
  /// Whether an ampersand marks an access key.
  bool UseMnemonic() const { return mo.bUseMnemonic; }
  void SetUseMnemonic(bool b) { mo.bUseMnemonic = b; }  ///< design time
};

}  // namespace Forms
