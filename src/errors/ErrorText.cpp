#include "ErrorText.h"

#include <cstdint>

namespace {

constexpr char32_t cReplacement = 0xFFFD;

bool IsHigh(char16_t cUnit) {
  return cUnit >= 0xD800 && cUnit < 0xDC00;
}
bool IsLow(char16_t cUnit) {
  return cUnit >= 0xDC00 && cUnit < 0xE000;
}

char32_t NextChar(std::u16string_view sText, std::size_t& lAt) {
  const char16_t cFirst = sText[lAt++];
  if (IsHigh(cFirst) && lAt < sText.size() && IsLow(sText[lAt])) {
    const char16_t cSecond = sText[lAt++];
    return 0x10000 + ((static_cast<char32_t>(cFirst) & 0x3FF) << 10) + (cSecond & 0x3FFu);
  }
  return IsHigh(cFirst) || IsLow(cFirst) ? cReplacement : cFirst;
}

void AppendUtf8(char32_t cChar, std::string& sBytes) {
  const auto put = [&](char32_t lByte) { sBytes += static_cast<char>(lByte); };
  if (cChar < 0x80) return put(cChar);
  if (cChar < 0x800) {
    put(0xC0 | (cChar >> 6));
  } else if (cChar < 0x10000) {
    put(0xE0 | (cChar >> 12));
    put(0x80 | ((cChar >> 6) & 0x3F));
  } else {
    put(0xF0 | (cChar >> 18));
    put(0x80 | ((cChar >> 12) & 0x3F));
    put(0x80 | ((cChar >> 6) & 0x3F));
  }
  put(0x80 | (cChar & 0x3F));
}

void AppendUtf16(char32_t cChar, std::u16string& sText) {
  if (cChar < 0x10000) {
    sText += static_cast<char16_t>(cChar);
    return;
  }
  sText += static_cast<char16_t>(0xD800 + ((cChar - 0x10000) >> 10));
  sText += static_cast<char16_t>(0xDC00 + ((cChar - 0x10000) & 0x3FF));
}

std::size_t SequenceLength(unsigned char cLead) {
  return cLead < 0x80   ? 1
         : cLead < 0xC2 ? 0
         : cLead < 0xE0 ? 2
         : cLead < 0xF0 ? 3
         : cLead < 0xF5 ? 4
                        : 0;
}

/// Decodes the character at lAt and moves lAt behind it. A byte that begins no valid character is
/// skipped alone.
char32_t NextUtf8(std::string_view sBytes, std::size_t& lAt) {
  const auto cLead = static_cast<unsigned char>(sBytes[lAt]);
  const std::size_t lLength = SequenceLength(cLead);
  if (lLength == 1) return ++lAt, cLead;
  static constexpr char32_t alLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  char32_t cChar = lLength == 0 ? 0 : cLead & (0xFFu >> (lLength + 1));
  std::size_t i = 1;
  for (; i < lLength && lAt + i < sBytes.size(); ++i) {
    const auto cByte = static_cast<unsigned char>(sBytes[lAt + i]);
    if ((cByte & 0xC0) != 0x80) break;
    cChar = (cChar << 6) | (cByte & 0x3Fu);
  }
  const bool bSound = lLength > 0 && i == lLength && cChar >= alLeast[lLength] &&
                      cChar < 0x110000 && !(cChar >= 0xD800 && cChar < 0xE000);
  lAt += bSound ? lLength : 1;
  return bSound ? cChar : cReplacement;
}

}  // namespace

std::string ErrorUtf8(std::u16string_view sText) {
  std::string sBytes;
  for (std::size_t i = 0; i < sText.size();) AppendUtf8(NextChar(sText, i), sBytes);
  return sBytes;
}

std::u16string ErrorUtf16(std::string_view sBytes) {
  std::u16string sText;
  for (std::size_t i = 0; i < sBytes.size();) AppendUtf16(NextUtf8(sBytes, i), sText);
  return sText;
}

void AppendErrorField(std::u16string_view sText, std::string& sLine) {
  static constexpr char acHex[] = "0123456789ABCDEF";
  if (sText.empty()) sLine += '-';
  for (std::size_t i = 0; i < sText.size();) {
    const char32_t cChar = NextChar(sText, i);
    if (cChar >= 0x20 && cChar != 0x7F) {
      AppendUtf8(cChar, sLine);
    } else {
      sLine += {'\\', 'x', acHex[cChar >> 4], acHex[cChar & 15]};
    }
  }
}
