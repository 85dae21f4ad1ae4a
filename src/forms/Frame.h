// A titled box around other controls; option buttons on it are a group of their own.
#pragma once

#include "ControlContainer.h"

namespace Forms {

struct FrameState {
  Text sCaption;
  bool bBorder = true;
};

class Frame : public WithState<ControlContainer, FrameState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::Frame; }

  const Text& Caption() const { return mo.sCaption; }
  void SetCaption(TextView s) { Set(mo.sCaption, s, Property::Caption); }
  bool Border() const { return mo.bBorder; }
  void SetBorder(bool b) { mo.bBorder = b; }  ///< design time
};

}  // namespace Forms
