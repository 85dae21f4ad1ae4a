// Page 1252 by a table of its own: a bijection of 256 bytes and 256 units, with the five codes
// that the page leaves undefined on themselves. Strict converters fail on those, and a string
// constant with encrypted data in a user's source may hold them.
#include <algorithm>
#include <array>
#include <iterator>

#include "AsciiBlocks.h"
#include "CodePageKinds.h"

namespace {

// 80h to 9Fh; the rest maps to itself.
constexpr char16_t Upper[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char16_t, 256> Units = [] {
  std::array<char16_t, 256> units{};
  for (std::size_t i = 0; i < units.size(); ++i) {
    units[i] = i >= 0x80 && i < 0xA0 ? Upper[i - 0x80] : static_cast<char16_t>(i);
  }
  return units;
}();

bool ByteOf(char16_t unit, char& byte) {
  if (unit >= 0x80 && (unit < 0xA0 || unit > 0xFF)) {
    const auto* found = std::find(std::begin(Upper), std::end(Upper), unit);
    if (found == std::end(Upper)) return false;
    byte = static_cast<char>(0x80 + (found - Upper));
    return true;
  }
  byte = static_cast<char>(unit);
  return true;
}

class CodePage1252 : public CodePage {
 public:
  using CodePage::Decode;
  std::string_view Name() const override { return "1252"; }
  bool IsLeadByte(unsigned char) const override { return false; }

  void Decode(std::string_view bytes, Text& text) const override {
    const std::size_t old = text.size(), count = bytes.size();
    text.resize(old + count);
    char16_t* to = text.data() + old;
    for (std::size_t i = 0; i < count;) {
      i += AsciiBlocks::Widen(bytes.substr(i), to + i);
      for (const std::size_t end = std::min(count, i + 32); i < end; ++i) {
        to[i] = Units[static_cast<unsigned char>(bytes[i])];
      }
    }
  }

  bool Encode(TextView text, std::string& bytes, std::size_t& badUnit) const override {
    const std::size_t old = bytes.size(), count = text.size();
    bytes.resize(old + count);
    char* to = bytes.data() + old;
    for (std::size_t i = 0; i < count;) {
      i += AsciiBlocks::Narrow(text.substr(i), to + i);
      for (const std::size_t end = std::min(count, i + 32); i < end; ++i) {
        if (ByteOf(text[i], to[i])) continue;
        bytes.resize(old);
        badUnit = i;
        return false;
      }
    }
    return true;
  }
};

}  // namespace

std::unique_ptr<CodePage> MakeCodePage1252() {
  return std::make_unique<CodePage1252>();
}
