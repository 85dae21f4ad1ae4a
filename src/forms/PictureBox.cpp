#include "PictureBox.h"

#include <algorithm>

#include "Form.h"
#include "Toolkit.h"

namespace Forms {

namespace {

constexpr std::int32_t BorderPixels = 2;

}  // namespace

std::int32_t PictureBox::ScaleWidth() const {
  if (mo.eBorder == Forms::BorderStyle::None) return Width();
  return std::max(0, Width() - 2 * BorderPixels * Kit().Screen().TwipsPerPixelX());
}

std::int32_t PictureBox::ScaleHeight() const {
  if (mo.eBorder == Forms::BorderStyle::None) return Height();
  return std::max(0, Height() - 2 * BorderPixels * Kit().Screen().TwipsPerPixelY());
}

}  // namespace Forms
