// A picture, a coloured area, or a container without a title.
#pragma once

#include "ControlContainer.h"
#include "Label.h"

namespace Forms {

struct PictureBoxState {
  Text sPicture;
  BorderStyle eBorder = BorderStyle::Single;
};

class PictureBox : public WithState<ControlContainer, PictureBoxState> {
 public:
  using WithState::WithState;
  ComponentKind Kind() const override { return ComponentKind::PictureBox; }
  /// The outer size less the border, which takes two pixels at each edge.
  std::int32_t ScaleWidth() const override;
  std::int32_t ScaleHeight() const override;

  /// Key of the picture; empty for none.
  const Text& Picture() const { return mo.sPicture; }
  void SetPicture(TextView sKey) { Set(mo.sPicture, sKey, Property::Picture); }
  Forms::BorderStyle BorderStyle() const { return mo.eBorder; }
  void SetBorderStyle(Forms::BorderStyle e) { mo.eBorder = e; }  ///< design time
};

}  // namespace Forms
