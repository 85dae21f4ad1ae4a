// The user's fonts and page margins. Keys "Options" and "Page Setup" under MXRegistry::RootKey,
// opened by Initialize and kept open. Font sizes in points, margins in thousandths of an inch.
#pragma once

#include <cstdint>

#include "Text.h"

namespace MOptions {

struct Font {
  Text sFace = u"MS Sans Serif";
  std::int32_t lSize = 8;
  bool bBold = false;
  bool bItalic = false;
};

extern Font oCodeFont, oResultsFont, oErrorFont;
extern std::int32_t lLeftMargin, lTopMargin, lRightMargin, lBottomMargin;

void Initialize();
void GetOptions();
void SetOptions();
void GetPage();
void SetPage();

}  // namespace MOptions
