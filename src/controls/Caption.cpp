#include "Caption.h"

#include <algorithm>

#include "Toolkit.h"

using namespace Forms;

namespace {

constexpr std::int32_t LineHeight = 195;  ///< twips, of the default font

}  // namespace

Caption::Caption(ControlContainer& oContainer, TextView sName)
    : UserControl(oContainer, sName),
      mnPixelX(Kit().Screen().TwipsPerPixelX()),
      mnPixelY(Kit().Screen().TwipsPerPixelY()) {
  On(Resize, [this] { ControlResized(); });
}

void Caption::Design() {
  lblCaption.Move(2 * mnPixelX, 0, 6000, LineHeight);
  lblCaption.SetWordWrap(false);
  lblCaption.SetUseMnemonic(false);
  for (std::int32_t i = 0; i < linBorder.Count(); ++i) {
    linBorder(i).SetBorderColor(i < 2 ? SystemColor::ButtonShadow : SystemColor::Highlight3D);
  }
}

void Caption::SetBorder(bool bBorder) {
  for (std::int32_t i = 0; i < linBorder.Count(); ++i) linBorder(i).SetVisible(bBorder);
}

void Caption::ControlResized() {
  const std::int32_t lWidth = ScaleWidth(), lRight = lWidth - mnPixelX;
  const std::int32_t lHeight = ScaleHeight(), lBottom = lHeight - mnPixelY;
  // A line of the font, which may be higher than the usual one.
  lblCaption.SetHeight(
      std::clamp(TextHeight(u"_"), LineHeight, std::max(LineHeight, lHeight - mnPixelY)));
  lblCaption.SetTop((lHeight - lblCaption.Height() - 2 * mnPixelY) / 2);
  linBorder(0).SetPoints(0, 0, 0, lBottom);
  linBorder(1).SetPoints(mnPixelX, 0, lRight, 0);
  linBorder(2).SetPoints(lRight, 0, lRight, lBottom);
  linBorder(3).SetPoints(0, lBottom, lWidth, lBottom);
  Refresh();
}
