#include <windows.h>

#include <string_view>

#include "Sheet.h"

namespace Paper {

std::int32_t UsualPaperSize() {
  constexpr std::wstring_view Letter = L"1", Legal = L"5";
  wchar_t size[4] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE, size, 4);
  return size == Letter || size == Legal ? PaperLetter : PaperA4;
}

}  // namespace Paper
