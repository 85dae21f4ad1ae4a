// UTF-8 that loses nothing: a byte that belongs to no well-formed sequence is carried as the lone
// low surrogate U+DC00 + byte, which well-formed text can't hold.
#include <algorithm>

#include "CodePageKinds.h"

namespace {

unsigned char ByteAt(std::string_view sBytes, std::size_t lAt) {
  return static_cast<unsigned char>(sBytes[lAt]);
}

bool IsHigh(char16_t cUnit) {
  return (cUnit & 0xFC00) == 0xD800;
}
bool IsLow(char16_t cUnit) {
  return (cUnit & 0xFC00) == 0xDC00;
}

char32_t CharOf(std::string_view sSequence) {
  char32_t cChar = ByteAt(sSequence, 0) & (0xFFu >> (sSequence.size() + 1));
  for (std::size_t i = 1; i < sSequence.size(); ++i) {
    cChar = (cChar << 6) | (ByteAt(sSequence, i) & 0x3Fu);
  }
  return cChar;
}

/// Writes the text of one character beyond ASCII, or of one byte that begins no valid character.
std::size_t DecodeOne(std::string_view sBytes, char16_t*& pcTo) {
  const std::size_t lLength = Utf8SequenceLength(sBytes);
  if (lLength == 0) {
    *pcTo++ = static_cast<char16_t>(0xDC00 + ByteAt(sBytes, 0));
    return 1;
  }
  const char32_t cChar = CharOf(sBytes.substr(0, lLength));
  if (cChar < 0x10000) {
    *pcTo++ = static_cast<char16_t>(cChar);
  } else {
    *pcTo++ = static_cast<char16_t>(0xD800 + ((cChar - 0x10000) >> 10));
    *pcTo++ = static_cast<char16_t>(0xDC00 + (cChar & 0x3FF));
  }
  return lLength;
}

void PutTail(char32_t cChar, int lShift, char*& pcTo) {
  for (; lShift >= 0; lShift -= 6) *pcTo++ = static_cast<char>(0x80 | ((cChar >> lShift) & 0x3F));
}

/// Result: how many units were encoded; 0 for a surrogate that is neither half of a pair nor
/// carries a byte.
std::size_t EncodeOne(TextView sText, char*& pcTo) {
  const char16_t cUnit = sText[0];
  if (IsHigh(cUnit)) {
    if (sText.size() < 2 || !IsLow(sText[1])) return 0;
    const char32_t cChar = 0x10000 + ((cUnit & 0x3FFu) << 10) + (sText[1] & 0x3FFu);
    *pcTo++ = static_cast<char>(0xF0 | (cChar >> 18));
    PutTail(cChar, 12, pcTo);
    return 2;
  }
  if (IsLow(cUnit)) {
    if (cUnit < 0xDC80 || cUnit > 0xDCFF) return 0;
    *pcTo++ = static_cast<char>(cUnit & 0xFF);
  } else if (cUnit < 0x80) {
    *pcTo++ = static_cast<char>(cUnit);
  } else if (cUnit < 0x800) {
    *pcTo++ = static_cast<char>(0xC0 | (cUnit >> 6));
    PutTail(cUnit, 0, pcTo);
  } else {
    *pcTo++ = static_cast<char>(0xE0 | (cUnit >> 12));
    PutTail(cUnit, 6, pcTo);
  }
  return 1;
}

/// An upper limit for the bytes of sText: a surrogate pair is counted as six bytes, though it takes
/// four.
std::size_t MostBytes(TextView sText) {
  std::size_t lBytes = sText.size();
  for (const char16_t cUnit : sText)
    lBytes += (cUnit >= 0x80 ? 1u : 0u) + (cUnit >= 0x800 ? 1u : 0u);
  return lBytes;
}

class CodePageUtf8 : public CodePage {
 public:
  using CodePage::Decode;
  std::string_view Name() const override { return "utf-8"; }
  bool IsLeadByte(unsigned char) const override { return false; }

  void Decode(std::string_view sBytes, Text& sText) const override {
    // A byte gives at most one unit: the text gets that size first and is cut to the real one.
    const std::size_t lOld = sText.size(), lCount = sBytes.size();
    sText.resize(lOld + lCount);
    char16_t* pcTo = sText.data() + lOld;
    for (std::size_t i = 0; i < lCount;) {
      const std::size_t lAscii = CodePageAscii::WidenBlocks(sBytes.data() + i, lCount - i, pcTo);
      i += lAscii;
      pcTo += lAscii;
      for (const std::size_t lEnd = std::min(lCount, i + 32); i < lEnd;) {
        if (ByteAt(sBytes, i) < 0x80) {
          *pcTo++ = ByteAt(sBytes, i++);
        } else {
          i += DecodeOne(sBytes.substr(i), pcTo);
        }
      }
    }
    sText.resize(static_cast<std::size_t>(pcTo - sText.data()));
  }

  bool Encode(TextView sText, std::string& sBytes, std::size_t& lBadUnit) const override {
    const std::size_t lOld = sBytes.size(), lCount = sText.size();
    sBytes.resize(lOld + MostBytes(sText));
    char* pcTo = sBytes.data() + lOld;
    for (std::size_t i = 0; i < lCount;) {
      const std::size_t lAscii = CodePageAscii::NarrowBlocks(sText.data() + i, lCount - i, pcTo);
      i += lAscii;
      pcTo += lAscii;
      for (const std::size_t lEnd = std::min(lCount, i + 32); i < lEnd;) {
        const std::size_t lTaken = EncodeOne(sText.substr(i), pcTo);
        if (lTaken == 0) {
          sBytes.resize(lOld);
          lBadUnit = i;
          return false;
        }
        i += lTaken;
      }
    }
    sBytes.resize(static_cast<std::size_t>(pcTo - sBytes.data()));
    return true;
  }
};

}  // namespace

std::size_t Utf8SequenceLength(std::string_view sBytes) {
  const unsigned char cLead = ByteAt(sBytes, 0);
  const std::size_t lLength = cLead < 0xC2 || cLead > 0xF4 ? 0
                              : cLead < 0xE0               ? 2
                              : cLead < 0xF0               ? 3
                                                           : 4;
  if (lLength == 0 || sBytes.size() < lLength) return 0;
  // The second byte keeps out overlong forms, surrogates and what lies above U+10FFFF.
  const unsigned char cSecond = ByteAt(sBytes, 1);
  const unsigned char cLeast = cLead == 0xE0 ? 0xA0 : cLead == 0xF0 ? 0x90 : 0x80;
  const unsigned char cMost = cLead == 0xED ? 0x9F : cLead == 0xF4 ? 0x8F : 0xBF;
  if (cSecond < cLeast || cSecond > cMost) return 0;
  for (std::size_t i = 2; i < lLength; ++i) {
    if ((ByteAt(sBytes, i) & 0xC0) != 0x80) return 0;
  }
  return lLength;
}

std::unique_ptr<CodePage> MakeCodePageUtf8() {
  return std::make_unique<CodePageUtf8>();
}
