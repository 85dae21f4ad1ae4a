// The screen as forms see it.
#pragma once

#include "IRenderer.h"

namespace Forms {

class Screen {
 public:
  explicit Screen(IRenderer& oRenderer) : moRenderer(oRenderer) {}
  std::int32_t Width() const { return moRenderer.Metrics().oScreen.lWidth; }
  std::int32_t Height() const { return moRenderer.Metrics().oScreen.lHeight; }
  std::int32_t TwipsPerPixelX() const { return moRenderer.Metrics().lTwipsPerPixelX; }
  std::int32_t TwipsPerPixelY() const { return moRenderer.Metrics().lTwipsPerPixelY; }
  /// The part of the screen that task bars leave free.
  Rect WorkArea() const { return moRenderer.Metrics().oWorkArea; }
  /// The pointer over all windows of the program; Pointer::Default leaves it to the controls.
  std::int32_t MousePointer() const { return mnPointer; }
  void SetMousePointer(std::int32_t nPointer);

 private:
  IRenderer& moRenderer;
  std::int32_t mnPointer = 0;
};

}  // namespace Forms
