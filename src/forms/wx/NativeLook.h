// Fonts, colours, pointers and pictures as the window system has them.
#pragma once

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/cursor.h>
#include <wx/font.h>

#include <map>

#include "FormsTypes.h"

namespace Forms {

class Toolkit;

/// Where the faces "MS Sans Serif" and "Courier New" aren't installed, the system's own face for
/// windows and its fixed-width face are used instead.
wxFont NativeFont(const FontSpec& oFont);
/// Whether the face is installed, or is one of those two.
bool HasNativeFont(TextView sName);
FontSpec FontSpecOf(const wxFont& oFont);

inline constexpr double LeastContrast = 4.5;  ///< of text to its ground
/// From 1, the same colour, to 21, black on white.
double Contrast(const wxColour& oOne, const wxColour& oOther);
/// A dim colour, brought as near to that of the text as the least contrast needs.
wxColour Readable(const wxColour& oDim, const wxColour& oText, const wxColour& oGround);
wxColour NativeColor(Color lColor);
/// Result: a colour value, never the number of a system colour.
Color ColorOf(const wxColour& oColour);
/// nPointer: a value of MousePointer.
wxCursor NativeCursor(std::int32_t nPointer);

/// The pictures that were asked for, decoded.
class PictureCache {
 public:
  /// Invalid when there is no such picture or its bytes are damaged.
  const wxBitmap& Get(const Toolkit& oKit, TextView sKey, int nPixels);

 private:
  std::map<std::pair<Text, int>, wxBitmap> moBitmaps;
};

}  // namespace Forms
