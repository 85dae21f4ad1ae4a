#include <locale.h>
#include <wctype.h>

#include <cstdint>

#include "LetterCase.h"

namespace {

bool IsSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

}  // namespace

// The C library knows the simple mappings of Unicode; asking it for every unit would cost a call
// into the locale each, so all answers are taken once. Without the locale (a bare system) only
// ASCII is folded, which is what Visual Basic itself treats alike on every system.
Text LowerCaseTable() {
  Text table(0x10000, u'\0');
  const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    const wint_t lower = locale && !IsSurrogate(unit) ? towlower_l(unit, locale) : unit;
    table[unit] = static_cast<char16_t>(lower < 0x10000 ? lower : unit);
  }
  if (locale) freelocale(locale);
  return table;
}
