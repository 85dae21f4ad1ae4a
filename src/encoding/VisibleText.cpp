#include "VisibleText.h"

#include <algorithm>
#include <cstdint>

namespace {

/// A character that isn't shown as it is.
struct Hidden {
  std::uint32_t code = 0;
  std::size_t length = 0;  ///< its bytes; 0: the text begins with none
};

unsigned ByteAt(std::string_view text, std::size_t index) {
  return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
}

bool IsMarkOfDirection(std::uint32_t code) {
  return code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

/// What the text begins with.
Hidden HiddenAhead(std::string_view text) {
  const unsigned first = ByteAt(text, 0), second = ByteAt(text, 1), third = ByteAt(text, 2);
  if (first < 0x20 || first == 0x7F) return first == '\t' ? Hidden{} : Hidden{first, 1};
  if (first == 0xC2 && second >= 0x80 && second < 0xA0) return {second, 2};
  if (first == 0xD8 && second == 0x9C) return {0x061C, 2};
  if (first != 0xE2 || third < 0x80 || third > 0xBF) return {};
  const std::uint32_t code = 0x2000 + ((second & 0x3F) << 6) + (third & 0x3F);
  return IsMarkOfDirection(code) ? Hidden{code, 3} : Hidden{};
}

void AppendForm(std::uint32_t code, std::string& result) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  result += "<U+";
  for (int shift = 12; shift >= 0; shift -= 4) result += Digits[code >> shift & 15];
  result += '>';
}

std::size_t LineEndAhead(std::string_view text) {
  if (text.starts_with("\r\n")) return 2;
  return text.starts_with('\n') ? 1 : 0;
}

/// How many bytes at the beginning can't be the first of a hidden character.
std::size_t PlainAhead(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F || byte == 0xC2 || byte == 0xD8 || byte == 0xE2;
  });
  return static_cast<std::size_t>(end - text.begin());
}

std::string Visible(std::string_view text, bool keepsLines) {
  std::string result;
  while (!text.empty()) {
    std::size_t taken = PlainAhead(text);
    result += text.substr(0, taken);
    text.remove_prefix(taken);
    if (text.empty()) break;
    taken = keepsLines ? LineEndAhead(text) : 0;
    const Hidden hidden = taken > 0 ? Hidden{} : HiddenAhead(text);
    if (hidden.length > 0) {
      AppendForm(hidden.code, result);
      taken = hidden.length;
    } else {
      taken = std::max<std::size_t>(taken, 1);
      result += text.substr(0, taken);
    }
    text.remove_prefix(taken);
  }
  return result;
}

}  // namespace

std::string VisibleText(std::string_view utf8) {
  return Visible(utf8, false);
}

std::string VisibleLines(std::string_view utf8) {
  return Visible(utf8, true);
}
