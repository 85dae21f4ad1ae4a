#include "Text.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "Failure.h"
#include "LetterCase.h"
#include "UnitBlock.h"

namespace {

constexpr std::size_t MaxTokens = 32767;

}  // namespace

Text ToText(long long number) {
  const std::string digits = std::to_string(number);
  return Text(digits.begin(), digits.end());
}

char16_t LowerCaseBeyondAscii(char16_t unit) {
  static const Text table = LowerCaseTable();
  return table[unit];
}

Text LowerCase(TextView text) {
  Text lower(text);
  for (char16_t& unit : lower) unit = LowerCase(unit);
  return lower;
}

bool EqualNoCase(TextView left, TextView right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (left[i] != right[i] && LowerCase(left[i]) != LowerCase(right[i])) return false;
  }
  return true;
}

TextView Trim(TextView text) {
  return LeftTrim(RightTrim(text));
}

TextView LeftTrim(TextView text) {
  while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
  return text;
}

TextView RightTrim(TextView text) {
  while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
  return text;
}

// The C library's byte search looks at a vector at a time; a hit in the wrong half of a unit or in
// another unit with that byte is passed over.
std::size_t FindUnit(TextView text, char16_t unit, std::size_t from) {
  const char* const base = reinterpret_cast<const char*>(text.data());
  const std::size_t bytes = text.size() * sizeof(char16_t);
  for (std::size_t byte = from * sizeof(char16_t); byte < bytes; ++byte) {
    const void* hit = std::memchr(base + byte, static_cast<int>(unit & 0xFFU), bytes - byte);
    if (!hit) break;
    byte = static_cast<std::size_t>(static_cast<const char*>(hit) - base);
    if (text[byte / sizeof(char16_t)] == unit) return byte / sizeof(char16_t);
  }
  return TextView::npos;
}

namespace {

bool IsAsciiSign(char16_t unit) {
  return unit != 0 && unit < 0x80;
}

/// For parts that begin with two ASCII signs: the two beside each other are far rarer than one.
std::size_t FindByTwoSigns(TextView text, TextView part, std::size_t from) {
  UnitBits before = 0;  // the block ahead ends in the first sign
  for (std::size_t at = from; at < text.size(); at += UnitBlock::Size) {
    const UnitBlock block(text, at);
    const UnitBits first = block.Equal(static_cast<char>(part[0]));
    UnitBits bits = block.Equal(static_cast<char>(part[1])) & (first << 1U | before);
    for (; bits != 0; bits &= bits - 1) {
      const std::size_t l = at + static_cast<std::size_t>(std::countr_zero(bits)) - 1;
      if (Same(text.substr(l, part.size()), part)) return l;
    }
    before = first >> (UnitBlock::Size - 1);
  }
  return TextView::npos;
}

}  // namespace

std::size_t FindText(TextView text, TextView part, std::size_t from) {
  if (part.empty()) return from <= text.size() ? from : TextView::npos;
  if (part.size() > 1 && IsAsciiSign(part[0]) && IsAsciiSign(part[1])) {
    return FindByTwoSigns(text, part, from);
  }
  std::size_t l = FindUnit(text, part.front(), from);
  while (l != TextView::npos && !Same(text.substr(l, part.size()), part)) {
    l = FindUnit(text, part.front(), l + 1);
  }
  return l;
}

std::size_t FindLineEnd(TextView text, std::size_t from) {
  for (std::size_t l = from; (l = FindUnit(text, u'\n', l)) != TextView::npos; ++l) {
    if (l > from && text[l - 1] == u'\r') return l - 1;
  }
  return text.size();
}

std::vector<TextView> SplitLines(TextView text) {
  std::vector<TextView> lines;
  while (!text.empty()) {
    if (lines.size() == MaxTokens) throw Failure(6);
    const std::size_t end = FindLineEnd(text);
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(text.size(), end + CrLf.size()));
  }
  return lines;
}
