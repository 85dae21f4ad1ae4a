#include "PageBytes.h"

#include <cstdio>

#include "Failure.h"

namespace {

// The character that sText[lUnit] is part of.
TextView CharacterAt(TextView sText, std::size_t lUnit) {
  const auto fHigh = [](char16_t c) { return c >= 0xD800 && c < 0xDC00; };
  const auto fLow = [](char16_t c) { return c >= 0xDC00 && c < 0xE000; };
  if (lUnit > 0 && fLow(sText[lUnit]) && fHigh(sText[lUnit - 1])) --lUnit;
  const bool bPair = fHigh(sText[lUnit]) && lUnit + 1 < sText.size() && fLow(sText[lUnit + 1]);
  return sText.substr(lUnit, bPair ? 2 : 1);
}

std::uint32_t CodeOf(TextView sCharacter) {
  if (sCharacter.size() == 1) return sCharacter[0];
  return 0x10000U + ((sCharacter[0] - 0xD800U) << 10U) + (sCharacter[1] - 0xDC00U);
}

}  // namespace

std::string PageBytes(TextView sText, const CodePage& oPage) {
  std::string sBytes;
  std::size_t lBad = 0;
  if (oPage.Encode(sText, sBytes, lBad)) return sBytes;
  const TextView sCharacter = CharacterAt(sText, lBad);
  char szCode[16];
  std::snprintf(szCode, sizeof szCode, "U+%04X", CodeOf(sCharacter));
  throw Failure(5,
                u"The character " + FromUtf8(szCode) + u" (" + Text(sCharacter) +
                    u") can't be written in code page " + FromUtf8(oPage.Name()) +
                    u"; use another character, or open the project with another code page",
                u"host");
}
