#include "Text.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <cstdint>

#include "Failure.h"

namespace {

constexpr std::size_t MaxTokens = 32767;

bool IsSurrogate(char32_t cCode) {
  return cCode >= 0xD800 && cCode <= 0xDFFF;
}

// The C library knows the simple mappings of Unicode; asking it for every unit would cost a call
// into the locale each, so all answers are taken once. Without the locale (a bare system) only
// ASCII is folded, which is what Visual Basic itself treats alike on every system.
Text LowerCaseTable() {
  Text sTable(0x10000, u'\0');
  const locale_t hLocale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  for (std::uint32_t cUnit = 0; cUnit < 0x10000; ++cUnit) {
    const wint_t cLower = hLocale && !IsSurrogate(cUnit) ? towlower_l(cUnit, hLocale) : cUnit;
    sTable[cUnit] = static_cast<char16_t>(cLower < 0x10000 ? cLower : cUnit);
  }
  if (hLocale) freelocale(hLocale);
  return sTable;
}

}  // namespace

Text ToText(long long lNumber) {
  const std::string sDigits = std::to_string(lNumber);
  return Text(sDigits.begin(), sDigits.end());
}

char16_t LowerCaseBeyondAscii(char16_t cUnit) {
  static const Text sTable = LowerCaseTable();
  return sTable[cUnit];
}

Text LowerCase(TextView sText) {
  Text sLower(sText);
  for (char16_t& cUnit : sLower) cUnit = LowerCase(cUnit);
  return sLower;
}

bool EqualNoCase(TextView sLeft, TextView sRight) {
  if (sLeft.size() != sRight.size()) return false;
  for (std::size_t i = 0; i < sLeft.size(); ++i) {
    if (sLeft[i] != sRight[i] && LowerCase(sLeft[i]) != LowerCase(sRight[i])) return false;
  }
  return true;
}

TextView Trim(TextView sText) {
  return LeftTrim(RightTrim(sText));
}

TextView LeftTrim(TextView sText) {
  while (!sText.empty() && sText.front() == u' ') sText.remove_prefix(1);
  return sText;
}

TextView RightTrim(TextView sText) {
  while (!sText.empty() && sText.back() == u' ') sText.remove_suffix(1);
  return sText;
}

// The C library's byte search looks at a vector at a time; a hit in the wrong half of a unit or in
// another unit with that byte is passed over.
std::size_t FindUnit(TextView sText, char16_t cUnit, std::size_t lFrom) {
  const char* const pBase = reinterpret_cast<const char*>(sText.data());
  const std::size_t lBytes = sText.size() * sizeof(char16_t);
  for (std::size_t lByte = lFrom * sizeof(char16_t); lByte < lBytes; ++lByte) {
    const void* pHit = std::memchr(pBase + lByte, static_cast<int>(cUnit & 0xFFU), lBytes - lByte);
    if (!pHit) break;
    lByte = static_cast<std::size_t>(static_cast<const char*>(pHit) - pBase);
    if (sText[lByte / sizeof(char16_t)] == cUnit) return lByte / sizeof(char16_t);
  }
  return TextView::npos;
}

std::size_t FindText(TextView sText, TextView sPart, std::size_t lFrom) {
  if (sPart.empty()) return lFrom <= sText.size() ? lFrom : TextView::npos;
  std::size_t l = FindUnit(sText, sPart.front(), lFrom);
  while (l != TextView::npos && !Same(sText.substr(l, sPart.size()), sPart)) {
    l = FindUnit(sText, sPart.front(), l + 1);
  }
  return l;
}

std::size_t FindLineEnd(TextView sText, std::size_t lFrom) {
  for (std::size_t l = lFrom; (l = FindUnit(sText, u'\n', l)) != TextView::npos; ++l) {
    if (l > lFrom && sText[l - 1] == u'\r') return l - 1;
  }
  return sText.size();
}

std::vector<TextView> SplitLines(TextView sText) {
  std::vector<TextView> asLine;
  while (!sText.empty()) {
    if (asLine.size() == MaxTokens) throw Failure(6);
    const std::size_t lEnd = FindLineEnd(sText);
    asLine.push_back(sText.substr(0, lEnd));
    sText.remove_prefix(std::min(sText.size(), lEnd + CrLf.size()));
  }
  return asLine;
}
