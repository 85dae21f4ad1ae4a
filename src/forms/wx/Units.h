// Twips and pixels. A screen has a whole number of twips per pixel, the same in both directions.
#pragma once

#include <wx/gdicmn.h>

#include <algorithm>

#include "FormsTypes.h"

namespace Forms {

class Units {
 public:
  /// Pixels per inch; 96 gives 15 twips per pixel, 144 gives 10.
  explicit Units(double dResolution)
      : mlTwips(std::clamp(static_cast<std::int32_t>(1440.0 / dResolution + 0.5), 1, 30)) {}

  std::int32_t TwipsPerPixel() const { return mlTwips; }
  std::int32_t Twips(int nPixels) const { return nPixels * mlTwips; }
  /// Rounds to the nearest pixel, halves up, so that edges which meet in twips meet in pixels.
  int Pixels(std::int32_t lTwips) const {
    const std::int32_t lUp = lTwips + mlTwips / 2;
    return lUp >= 0 ? lUp / mlTwips : -((-lUp + mlTwips - 1) / mlTwips);
  }
  /// By the edges: what touches in twips touches in pixels.
  wxRect Pixels(const Rect& o) const {
    const int nLeft = Pixels(o.lLeft), nTop = Pixels(o.lTop);
    return {nLeft, nTop, Pixels(o.lLeft + o.lWidth) - nLeft, Pixels(o.lTop + o.lHeight) - nTop};
  }
  /// A length that was drawn for 96 pixels to the inch.
  int Scaled(int nPixels) const { return nPixels * 15 / mlTwips; }

 private:
  std::int32_t mlTwips;
};

}  // namespace Forms
