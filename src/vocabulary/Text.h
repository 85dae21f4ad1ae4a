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

/// Position of a unit at `from` or behind it, or npos. Uses the C library's search for bytes, which
/// looks at many at once; the standard search looks at every unit of a 16-bit text.
std::size_t FindUnit(TextView text, char16_t unit, std::size_t from = 0);
/// Position of a part at `from` or behind it, or npos; of the empty part `from`. For parts that
/// begin with a unit that isn't common.
std::size_t FindText(TextView text, TextView part, std::size_t from = 0);
/// Position of the first CR LF at `from` or behind it, or the text's length.
std::size_t FindLineEnd(TextView text, std::size_t from = 0);
/// True when both texts hold the same units; faster than == for the same reason.
inline bool Same(TextView left, TextView right) {
  return left.size() == right.size() &&
         (left.empty() ||
          std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0);
}
/// Decimal form of a number.
Text ToText(long long number);

/// For LowerCase only: the mapping of units beyond ASCII.
char16_t LowerCaseBeyondAscii(char16_t unit);
/// Lower case of one unit, by the Unicode simple mapping; surrogates stay.
inline char16_t LowerCase(char16_t unit) {
  if (unit >= 0x80) return LowerCaseBeyondAscii(unit);
  return static_cast<char16_t>(unit >= u'A' && unit <= u'Z' ? unit | 0x20 : unit);
}
Text LowerCase(TextView text);
/// True when both texts are the same after LowerCase.
bool EqualNoCase(TextView left, TextView right);

/// Removes blanks (code 32 only) at both ends, the left end, the right end.
/// The view points into text.
TextView Trim(TextView text);
TextView LeftTrim(TextView text);
TextView RightTrim(TextView text);

/// Splits at CR LF pairs without copying, by the rule of StringTokenize: a trailing line end makes
/// no extra line, the empty text has no lines. Result from index 0; the views point into text.
/// Fails with Failure 6 beyond 32,767 lines.
std::vector<TextView> SplitLines(TextView text);
