// A straight line on a container, drawn one pixel thick. It has ends instead of a place, takes no
// input, and Left to Height stay 0.
#pragma once

#include "Control.h"

namespace Forms {

struct LineState {
  std::int32_t lX1 = 0, lY1 = 0, lX2 = 0, lY2 = 0;
  Color lBorderColor = SystemColor::WindowText;
  bool operator==(const LineState&) const = default;
};

class Line : public WithState<Control, LineState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::Line; }
  bool CanFocus() const override { return false; }

  std::int32_t X1() const { return mo.lX1; }
  std::int32_t Y1() const { return mo.lY1; }
  std::int32_t X2() const { return mo.lX2; }
  std::int32_t Y2() const { return mo.lY2; }
  void SetX1(std::int32_t l) { Set(mo.lX1, l, Property::Points); }
  void SetY1(std::int32_t l) { Set(mo.lY1, l, Property::Points); }
  void SetX2(std::int32_t l) { Set(mo.lX2, l, Property::Points); }
  void SetY2(std::int32_t l) { Set(mo.lY2, l, Property::Points); }
  void SetPoints(std::int32_t lX1, std::int32_t lY1, std::int32_t lX2, std::int32_t lY2);
  Color BorderColor() const { return mo.lBorderColor; }
  void SetBorderColor(Color lColor) { Set(mo.lBorderColor, lColor, Property::Colors); }
};

}  // namespace Forms
