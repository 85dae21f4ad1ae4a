// A control that holds controls: forms, frames, picture boxes, user controls.
#pragma once

#include "Control.h"

namespace Forms {

class ControlContainer : public Control {
 public:
  using Control::Control;

  /// In the order of construction; those brought to the front come last.
  const std::vector<Control*>& Controls() const { return moControls; }

  /// The inner size.
  virtual std::int32_t ScaleWidth() const { return Width(); }
  virtual std::int32_t ScaleHeight() const { return Height(); }
  /// Extent of a text in this container's font: of one line, and of all its lines.
  std::int32_t TextWidth(TextView sText) const;
  std::int32_t TextHeight(TextView sText) const;
  bool CanFocus() const override { return false; }

  /// The size changed; also once when the form loads (forms: when it is first shown).
  Signal<> Resize;

  // For this layer only.
  void Add(Control& oControl) { moControls.push_back(&oControl); }
  void Remove(Control& oControl);
  void BringToFront(Control& oControl);
  void Reset() override;
  /// Raises Resize, except while the form sets its values of design time.
  void Resized() override;

 private:
  std::vector<Control*> moControls;
};

}  // namespace Forms
