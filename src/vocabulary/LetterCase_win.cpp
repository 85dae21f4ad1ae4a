#include <windows.h>

#include "LetterCase.h"

// All units are one text for the system, in which no mapping changes the length.
Text LowerCaseTable() {
  std::wstring units(0x10000, L'\0');
  for (std::size_t unit = 0; unit < units.size(); ++unit) units[unit] = static_cast<wchar_t>(unit);
  std::wstring lower(units);
  const int count =
      LCMapStringW(LOCALE_INVARIANT, LCMAP_LOWERCASE, units.data(), static_cast<int>(units.size()),
                   lower.data(), static_cast<int>(lower.size()));
  const std::wstring& table = count == 0x10000 ? lower : units;
  Text letters(table.begin(), table.end());
  letters[0x130] = u'i';  // the dotted capital, which the system leaves to languages
  return letters;
}
