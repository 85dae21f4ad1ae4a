#include <langinfo.h>
#include <locale.h>

#include <cstdint>

#include "Sheet.h"

namespace Paper {

namespace {

/// In millimetres, as the user's settings name the country's paper; 0 when they don't.
int PaperWidthOfCountry() {
  const locale_t oLocale = newlocale(LC_PAPER_MASK, "", nullptr);
  if (!oLocale) return 0;
  // For this item the function returns the number itself in place of a pointer.
  const auto lWidth = reinterpret_cast<std::uintptr_t>(nl_langinfo_l(_NL_PAPER_WIDTH, oLocale));
  freelocale(oLocale);
  return static_cast<int>(lWidth);
}

}  // namespace

std::int32_t UsualPaperSize() {
  constexpr int LetterWidth = 216;
  return PaperWidthOfCountry() == LetterWidth ? PaperLetter : PaperA4;
}

}  // namespace Paper
