// Single-byte and double-byte ANSI pages by tables that are asked of the system once, byte by
// byte and pair by pair. What doesn't come back as the same bytes is carried as lone low
// surrogates, so every page is lossless whatever the system's table says.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <vector>

#include "AsciiBlocks.h"
#include "CodePageConverter.h"
#include "CodePageKinds.h"

namespace {

struct Range {
  unsigned char first, last;
  bool Holds(unsigned char byte) const { return byte >= first && byte <= last; }
};

/// Lead and trail bytes as Windows splits characters, with the ranges for user-defined characters.
/// An empty range has its first above its last.
struct PageRow {
  int number;
  Range lead[2];
  Range trail[3];
};

constexpr Range None = {1, 0};
constexpr PageRow Pages[] = {
    {874, {None, None}, {None, None, None}},
    {932, {{0x81, 0x9F}, {0xE0, 0xFC}}, {{0x40, 0x7E}, {0x80, 0xFC}, None}},
    {936, {{0x81, 0xFE}, None}, {{0x40, 0x7E}, {0x80, 0xFE}, None}},
    {949, {{0x81, 0xFE}, None}, {{0x41, 0x5A}, {0x61, 0x7A}, {0x81, 0xFE}}},
    {950, {{0x81, 0xFE}, None}, {{0x40, 0x7E}, {0x80, 0xFE}, None}},
    {1250, {None, None}, {None, None, None}},
    {1251, {None, None}, {None, None, None}},
    {1253, {None, None}, {None, None, None}},
    {1254, {None, None}, {None, None, None}},
    {1255, {None, None}, {None, None, None}},
    {1256, {None, None}, {None, None, None}},
    {1257, {None, None}, {None, None, None}},
    {1258, {None, None}, {None, None, None}},
};

template <class Ranges>
bool AnyHolds(const Ranges& ranges, unsigned char byte) {
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [&](const Range& range) { return range.Holds(byte); });
}

bool IsSurrogate(char16_t unit) {
  return (unit & 0xF800) == 0xD800;
}
char16_t Carried(unsigned char byte) {
  return static_cast<char16_t>(0xDC00 + byte);
}

class CodePageTable final : public CodePage {
 public:
  explicit CodePageTable(const PageRow& page)
      : mPage(page), mName(std::to_string(page.number)), mBytes(0x10000) {
    CodePageConverter converter(page.number);
    for (unsigned code = 0x80; code < 0x100; ++code) AddByte(code, converter);
  }

  using CodePage::Decode;
  std::string_view Name() const override { return mName; }
  bool IsLeadByte(unsigned char byte) const override { return AnyHolds(mPage.lead, byte); }

  void Decode(std::string_view bytes, Text& text) const override {
    const std::size_t old = text.size(), count = bytes.size();
    text.resize(old + count);
    char16_t* to = text.data() + old;
    for (std::size_t i = 0; i < count;) {
      const std::size_t ascii = AsciiBlocks::Widen(bytes.substr(i), to);
      i += ascii;
      to += ascii;
      for (const std::size_t end = std::min(count, i + 32); i < end;) {
        i += DecodeOne(bytes.substr(i, 2), to);
      }
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
  }

  bool Encode(TextView text, std::string& bytes, std::size_t& badUnit) const override {
    const std::size_t old = bytes.size();
    bytes.reserve(old + text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (EncodeOne(text[i], bytes)) continue;
      bytes.resize(old);
      badUnit = i;
      return false;
    }
    return true;
  }

 private:
  void AddByte(unsigned code, CodePageConverter& converter) {
    const auto byte = static_cast<unsigned char>(code);
    if (!IsLeadByte(byte)) {
      mSingle[code - 0x80] = UnitOf(std::string{static_cast<char>(byte)}, converter);
      return;
    }
    mRows[code - 0x80] = mDouble.size();
    mDouble.resize(mDouble.size() + 0x100);
    char16_t* row = &mDouble[mRows[code - 0x80]];
    for (unsigned trail = 0; trail < 0x100; ++trail) {
      if (!AnyHolds(mPage.trail, static_cast<unsigned char>(trail))) continue;
      row[trail] =
          UnitOf(std::string{static_cast<char>(byte), static_cast<char>(trail)}, converter);
    }
  }

  /// The unit of one character that maps back to the same bytes, else 0.
  char16_t UnitOf(std::string_view character, CodePageConverter& converter) {
    const char16_t unit = converter.UnitOf(character);
    if (unit < 0x80 || IsSurrogate(unit) || converter.BytesOf(unit) != character) return 0;
    std::uint16_t packed = 0;
    for (const char byte : character) {
      packed = static_cast<std::uint16_t>(packed << 8 | static_cast<unsigned char>(byte));
    }
    mBytes[unit] = packed;
    return unit;
  }

  std::size_t DecodeOne(std::string_view pair, char16_t*& to) const {
    const auto byte = static_cast<unsigned char>(pair[0]);
    if (byte < 0x80) return *to++ = byte, 1;
    if (IsLeadByte(byte) && pair.size() > 1) {
      const auto trail = static_cast<unsigned char>(pair[1]);
      if (AnyHolds(mPage.trail, trail)) return DecodePair(byte, trail, to);
    }
    const char16_t unit = mSingle[byte - 0x80];
    *to++ = unit != 0 ? unit : Carried(byte);
    return 1;
  }

  std::size_t DecodePair(unsigned char lead, unsigned char trail, char16_t*& to) const {
    const char16_t unit = mDouble[mRows[lead - 0x80] + trail];
    if (unit != 0) {
      *to++ = unit;
    } else {
      *to++ = Carried(lead);
      *to++ = Carried(trail);
    }
    return 2;
  }

  bool EncodeOne(char16_t unit, std::string& bytes) const {
    if (unit < 0x80 || (unit >= 0xDC00 && unit <= 0xDCFF)) {
      bytes += static_cast<char>(unit & 0xFF);
      return true;
    }
    const std::uint16_t packed = mBytes[unit];
    if (packed > 0xFF) bytes += static_cast<char>(packed >> 8);
    if (packed != 0) bytes += static_cast<char>(packed & 0xFF);
    return packed != 0;
  }

  const PageRow& mPage;
  std::string mName;
  char16_t mSingle[0x80] = {};
  std::size_t mRows[0x80] = {};
  std::vector<char16_t> mDouble;      ///< 256 units per lead byte; 0: no such character
  std::vector<std::uint16_t> mBytes;  ///< bytes of each unit; 0: not in the page
};

}  // namespace

std::unique_ptr<CodePage> MakeCodePageTable(int number) {
  for (const PageRow& page : Pages) {
    if (page.number == number) return std::make_unique<CodePageTable>(page);
  }
  return nullptr;
}
