// The text type of the system and the few helpers that every layer needs, those of Utf8.h included.
// Text is 16-bit units (UTF-16); bytes of files become text in platform/ and host/ only.
#pragma once

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "Utf8.h"

using Text = std::u16string;
using TextView = std::u16string_view;
/// Results stand in elements 1 to n; element 0 exists and stays empty.
using TextArray = std::vector<Text>;

inline constexpr TextView CrLf = u"\r\n";

/// Position of a unit at lFrom or behind it, or npos: many times as fast as the standard search,
/// which looks at every unit of a 16-bit text.
std::size_t FindUnit(TextView sText, char16_t cUnit, std::size_t lFrom = 0);
/// Position of a part at lFrom or behind it, or npos; of the empty part lFrom. For parts that
/// begin with a unit that isn't common.
std::size_t FindText(TextView sText, TextView sPart, std::size_t lFrom = 0);
/// Position of the first CR LF at lFrom or behind it, or the text's length.
std::size_t FindLineEnd(TextView sText, std::size_t lFrom = 0);
/// True when both texts hold the same units; faster than == for the same reason.
inline bool Same(TextView sLeft, TextView sRight) {
  return sLeft.size() == sRight.size() &&
         (sLeft.empty() ||
          std::memcmp(sLeft.data(), sRight.data(), sLeft.size() * sizeof(char16_t)) == 0);
}
/// Decimal form of a number.
Text ToText(long long lNumber);

/// For LowerCase only: the mapping of units beyond ASCII.
char16_t LowerCaseBeyondAscii(char16_t cUnit);
/// Lower case of one unit, by the Unicode simple mapping; surrogates stay.
inline char16_t LowerCase(char16_t cUnit) {
  if (cUnit >= 0x80) return LowerCaseBeyondAscii(cUnit);
  return static_cast<char16_t>(cUnit >= u'A' && cUnit <= u'Z' ? cUnit | 0x20 : cUnit);
}
Text LowerCase(TextView sText);
/// True when both texts are the same after LowerCase.
bool EqualNoCase(TextView sLeft, TextView sRight);

/// Removes blanks (code 32 only) at both ends, the left end, the right end.
/// The view points into sText.
TextView Trim(TextView sText);
TextView LeftTrim(TextView sText);
TextView RightTrim(TextView sText);

/// Splits at CR LF pairs without copying, by the rule of StringTokenize: a trailing line end makes
/// no extra line, the empty text has no lines. Result from index 0; the views point into sText.
/// Fails with Failure 6 beyond 32,767 lines.
std::vector<TextView> SplitLines(TextView sText);
