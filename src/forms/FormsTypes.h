// The small values of the window layer: places, fonts, colours, keys, mouse buttons.
// All lengths and places are twips (1440 to the inch), with y growing downwards; a place is
// relative to the inner top left corner of the container, that of a form to the screen.
#pragma once

#include <cstdint>

#include "Text.h"

namespace Forms {

struct Rect {
  std::int32_t lLeft = 0, lTop = 0, lWidth = 0, lHeight = 0;
  bool operator==(const Rect&) const = default;
};

/// What a window's frame takes from each side of its outer size.
struct Edges {
  std::int32_t lLeft = 0, lTop = 0, lRight = 0, lBottom = 0;
};

struct FontSpec {
  Text sName = u"MS Sans Serif";
  double dSize = 8.25;  ///< points; the default of Visual Basic
  bool bBold = false, bItalic = false, bUnderline = false, bStrikethrough = false;
  std::int32_t lWeight =
      400;  ///< 400 normal, 700 bold; follows bBold when that is set by SetFontBold
  bool operator==(const FontSpec&) const = default;
};

/// 0x00BBGGRR, or a system colour: 0x80000000 plus its number.
using Color = std::uint32_t;

namespace SystemColor {
inline constexpr Color ActiveTitleBar = 0x80000002, InactiveTitleBar = 0x80000003,
                       WindowBackground = 0x80000005, WindowText = 0x80000008,
                       TitleBarText = 0x80000009, Highlight = 0x8000000D,
                       HighlightText = 0x8000000E, ButtonFace = 0x8000000F,
                       ButtonShadow = 0x80000010, GrayText = 0x80000011, ButtonText = 0x80000012,
                       InactiveTitleBarText = 0x80000013, Highlight3D = 0x80000014,
                       DarkShadow3D = 0x80000015, Light3D = 0x80000016, InfoText = 0x80000017,
                       InfoBackground = 0x80000018;
}  // namespace SystemColor

inline constexpr bool IsSystemColor(Color lColor) {
  return (lColor & 0x80000000U) != 0;
}

/// Bits of the Shift argument of key and mouse events.
namespace Shift {
inline constexpr std::int32_t None = 0, Shift = 1, Ctrl = 2, Alt = 4;
}
/// The Button argument of MouseDown and MouseUp; MouseMove has the sum of those held.
namespace Button {
inline constexpr std::int32_t None = 0, Left = 1, Right = 2, Middle = 4;
}
/// Key codes of KeyDown and KeyUp. Letters and digits have the code of their upper-case character.
namespace Key {
inline constexpr std::int32_t Back = 8, Tab = 9, Return = 13, Escape = 27, Space = 32, PageUp = 33,
                              PageDown = 34, End = 35, Home = 36, Left = 37, Up = 38, Right = 39,
                              Down = 40, Insert = 45, Delete = 46, Add = 107, Subtract = 109,
                              F1 = 112, F4 = 115, F10 = 121;
}
/// Values of MousePointer.
namespace Pointer {
inline constexpr std::int32_t Default = 0, Arrow = 1, SizeNS = 7, SizeWE = 9, Hourglass = 11;
}

/// The access key of a caption: the character behind the first single "&", in lower case, or 0.
/// "&&" stands for one ampersand and marks nothing.
/// Example: `Save && E&xit` gives `x`.
char16_t AccessKey(TextView sCaption);
/// The caption as it is read: without marks, with single ampersands.
Text PlainCaption(TextView sCaption);

}  // namespace Forms
