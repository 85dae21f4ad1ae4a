#include "Utf8.h"

#include <algorithm>

#include "AsciiBlocks.h"

namespace {

constexpr char16_t Replacement = 0xFFFD;
// Behind a character beyond ASCII so many are read one by one before blocks are tried again.
constexpr std::size_t Stretch = 32;

unsigned char ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

bool IsHigh(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
bool IsLow(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

char32_t CharacterOf(std::string_view sequence) {
  char32_t character = ByteAt(sequence, 0) & (0xFFu >> (sequence.size() + 1));
  for (std::size_t i = 1; i < sequence.size(); ++i)
    character = (character << 6) | (ByteAt(sequence, i) & 0x3Fu);
  return character;
}

/// Writes the text of the character beyond ASCII at the beginning; the bytes taken, 0 for none.
std::size_t DecodeOne(std::string_view bytes, char16_t*& to) {
  const std::size_t length = Utf8::SequenceLength(bytes);
  if (length == 0) return 0;
  const char32_t character = CharacterOf(bytes.substr(0, length));
  if (character < 0x10000) {
    *to++ = static_cast<char16_t>(character);
  } else {
    *to++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
    *to++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
  }
  return length;
}

void PutTail(char32_t character, int shift, char*& to) {
  for (; shift >= 0; shift -= 6) *to++ = static_cast<char>(0x80 | ((character >> shift) & 0x3F));
}

void PutUnit(char16_t unit, char*& to) {
  if (unit < 0x80) {
    *to++ = static_cast<char>(unit);
  } else if (unit < 0x800) {
    *to++ = static_cast<char>(0xC0 | (unit >> 6));
    PutTail(unit, 0, to);
  } else {
    *to++ = static_cast<char>(0xE0 | (unit >> 12));
    PutTail(unit, 6, to);
  }
}

/// Writes the bytes of the character at the beginning; the units taken, 0 for a lone surrogate.
std::size_t EncodeOne(std::u16string_view text, char*& to) {
  if (!IsHigh(text[0]) && !IsLow(text[0])) return PutUnit(text[0], to), 1;
  if (IsLow(text[0]) || text.size() < 2 || !IsLow(text[1])) return 0;
  const char32_t character = 0x10000 + ((text[0] & 0x3FFu) << 10) + (text[1] & 0x3FFu);
  *to++ = static_cast<char>(0xF0 | (character >> 18));
  PutTail(character, 12, to);
  return 2;
}

/// At least the bytes of the text; a pair of surrogates counts six for its four.
std::size_t MostBytes(std::u16string_view text) {
  std::size_t count = text.size();
  for (const char16_t unit : text) count += (unit >= 0x80 ? 1u : 0u) + (unit >= 0x800 ? 1u : 0u);
  return count;
}

/// unitOf: what stands for a byte of no sequence.
template <class UnitOf>
void Decode(std::string_view bytes, std::u16string& text, UnitOf unitOf) {
  // No byte gives more than one unit, so the text is cut at the end, never grown.
  const std::size_t old = text.size();
  text.resize(old + bytes.size());
  char16_t* to = text.data() + old;
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t ascii = AsciiBlocks::Widen(bytes.substr(i), to);
    i += ascii;
    to += ascii;
    for (const std::size_t end = std::min(bytes.size(), i + Stretch); i < end;) {
      if (ByteAt(bytes, i) < 0x80) {
        *to++ = ByteAt(bytes, i++);
      } else if (const std::size_t taken = DecodeOne(bytes.substr(i), to)) {
        i += taken;
      } else {
        *to++ = unitOf(ByteAt(bytes, i++));
      }
    }
  }
  text.resize(static_cast<std::size_t>(to - text.data()));
}

/// putLone: writes what stands for a lone surrogate; false to stop there. The units taken.
template <class PutLone>
std::size_t Encode(std::u16string_view text, std::string& bytes, PutLone putLone) {
  const std::size_t old = bytes.size();
  bytes.resize(old + MostBytes(text));
  char* to = bytes.data() + old;
  std::size_t i = 0;
  for (bool going = true; going && i < text.size();) {
    const std::size_t ascii = AsciiBlocks::Narrow(text.substr(i), to);
    i += ascii;
    to += ascii;
    for (const std::size_t end = std::min(text.size(), i + Stretch); going && i < end;) {
      std::size_t taken = EncodeOne(text.substr(i), to);
      if (taken == 0) taken = (going = putLone(text[i], to)) ? 1 : 0;
      i += taken;
    }
  }
  bytes.resize(static_cast<std::size_t>(to - bytes.data()));
  return i;
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  std::string bytes;
  AppendUtf8(text, bytes);
  return bytes;
}

void AppendUtf8(std::u16string_view text, std::string& bytes) {
  Encode(text, bytes, [](char16_t, char*& to) { return PutUnit(Replacement, to), true; });
}

std::u16string FromUtf8(std::string_view bytes) {
  std::u16string text;
  Decode(bytes, text, [](unsigned char) { return Replacement; });
  return text;
}

namespace Utf8 {

void AppendText(std::string_view bytes, std::u16string& text) {
  Decode(bytes, text, [](unsigned char byte) { return static_cast<char16_t>(0xDC00 + byte); });
}

std::size_t AppendBytes(std::u16string_view text, std::string& bytes) {
  return Encode(text, bytes, [](char16_t unit, char*& to) {
    if (unit < 0xDC80 || unit > 0xDCFF) return false;
    *to++ = static_cast<char>(unit & 0xFF);
    return true;
  });
}

std::size_t SequenceLength(std::string_view bytes) {
  const unsigned char lead = ByteAt(bytes, 0);
  const std::size_t length = lead < 0xC2 || lead > 0xF4 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length == 0 || bytes.size() < length) return 0;
  // The second byte keeps out overlong forms, surrogates and what lies above U+10FFFF.
  const unsigned char second = ByteAt(bytes, 1);
  const unsigned char least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned char most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (second < least || second > most) return 0;
  for (std::size_t i = 2; i < length; ++i)
    if ((ByteAt(bytes, i) & 0xC0) != 0x80) return 0;
  return length;
}

bool IsWellFormed(std::string_view bytes) {
  for (;;) {
    bytes.remove_prefix(AsciiBlocks::Length(bytes));
    if (bytes.empty()) return true;
    const std::size_t length = SequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
}

std::size_t CharacterCount(std::string_view bytes) {
  return static_cast<std::size_t>(std::count_if(bytes.begin(), bytes.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  }));
}

}  // namespace Utf8
