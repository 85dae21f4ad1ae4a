// Parts: reading a quoted text, hex bytes, a value; a whole entry; writing.
#include "RegistryLine.h"

#include <algorithm>

#include "CodePage.h"

namespace {

using Kind = RegistryLine::Kind;

TextView TrimBlanks(TextView sText) {
  const std::size_t lFirst = sText.find_first_not_of(u" \t");
  if (lFirst == TextView::npos) return {};
  return sText.substr(lFirst, sText.find_last_not_of(u" \t") - lFirst + 1);
}

int HexDigit(char16_t cUnit) {
  if (cUnit >= u'0' && cUnit <= u'9') return cUnit - u'0';
  const char16_t cLower = static_cast<char16_t>(cUnit | 0x20);
  return cLower >= u'a' && cLower <= u'f' ? cLower - u'a' + 10 : -1;
}

/// One to eight hex digits and nothing else.
bool ReadHexNumber(TextView sText, std::uint32_t& lNumber) {
  lNumber = 0;
  if (sText.empty() || sText.size() > 8) return false;
  for (const char16_t cUnit : sText) {
    const int lDigit = HexDigit(cUnit);
    if (lDigit < 0) return false;
    lNumber = lNumber << 4 | static_cast<std::uint32_t>(lDigit);
  }
  return true;
}

/// Takes a text in quotes from the beginning of sRest.
bool TakeQuoted(TextView& sRest, Text& sText) {
  if (sRest.empty() || sRest[0] != u'"') return false;
  for (std::size_t i = 1; i < sRest.size(); ++i) {
    if (sRest[i] == u'"') {
      sRest.remove_prefix(i + 1);
      return true;
    }
    if (sRest[i] == u'\\' && ++i == sRest.size()) return false;
    sText += sRest[i];
  }
  return false;
}

/// "41,00,\ 42,00": pairs of digits between commas; backslashes and blanks only join lines.
bool ReadHexBytes(TextView sText, std::string& sBytes) {
  Text sPlain(sText);
  std::erase_if(sPlain,
                [](char16_t cUnit) { return cUnit == u' ' || cUnit == u'\t' || cUnit == u'\\'; });
  TextView sRest = sPlain;
  while (!sRest.empty()) {
    const std::size_t lComma = std::min(sRest.find(u','), sRest.size());
    std::uint32_t lByte = 0;
    if (lComma > 2 || !ReadHexNumber(sRest.substr(0, lComma), lByte)) return false;
    sBytes += static_cast<char>(lByte);
    sRest.remove_prefix(std::min(lComma + 1, sRest.size()));
  }
  return true;
}

bool TextOfBytes(const std::string& sBytes, RegistryHex eHex, Text& sText) {
  if (eHex == RegistryHex::Ansi) {
    sText = CodePage::Get("1252").Decode(sBytes);
  } else {
    if (sBytes.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < sBytes.size(); i += 2) {
      sText += static_cast<char16_t>(static_cast<unsigned char>(sBytes[i]) |
                                     static_cast<unsigned char>(sBytes[i + 1]) << 8);
    }
  }
  if (!sText.empty() && sText.back() == u'\0') sText.pop_back();
  return true;
}

bool ReadTypedBytes(std::uint32_t lType, TextView sHex, RegistryHex eHex, RegistryValue& oValue) {
  std::string sBytes;
  oValue.lType = lType;
  if (!ReadHexBytes(sHex, sBytes)) return false;
  if (lType == RegistryValue::lString) return TextOfBytes(sBytes, eHex, oValue.sText);
  if (lType != RegistryValue::lLong) return true;
  std::uint32_t lNumber = 0;
  for (std::size_t i = 0; i < sBytes.size() && i < 4; ++i) {
    lNumber |= static_cast<std::uint32_t>(static_cast<unsigned char>(sBytes[i])) << (8 * i);
  }
  oValue.lNumber = static_cast<std::int32_t>(lNumber);
  return sBytes.size() == 4;
}

/// What stands behind the equals sign; sData is trimmed.
bool ReadData(TextView sData, RegistryHex eHex, RegistryValue& oValue) {
  if (sData.starts_with(u'"')) return TakeQuoted(sData, oValue.sText) && sData.empty();
  const std::size_t lColon = sData.find(u':');
  if (lColon == TextView::npos) return false;
  const Text sType = LowerCase(sData.substr(0, lColon));
  const TextView sRest = sData.substr(lColon + 1);
  std::uint32_t lNumber = 0;
  if (sType == u"dword") {
    oValue.lType = RegistryValue::lLong;
    if (!ReadHexNumber(TrimBlanks(sRest), lNumber)) return false;
    oValue.lNumber = static_cast<std::int32_t>(lNumber);
    return true;
  }
  if (sType == u"hex") return ReadTypedBytes(3, sRest, eHex, oValue);
  if (!sType.starts_with(u"hex(") || !sType.ends_with(u')')) return false;
  if (!ReadHexNumber(TextView(sType).substr(4, sType.size() - 5), lNumber)) return false;
  return ReadTypedBytes(lNumber, sRest, eHex, oValue);
}

RegistryLine Damaged(TextView sWhy) {
  return {Kind::Damaged, {}, {}, Text(sWhy)};
}

RegistryLine ParseKey(TextView sLine) {
  if (!sLine.ends_with(u']')) return Damaged(u"the key has no closing bracket");
  sLine = sLine.substr(1, sLine.size() - 2);
  if (sLine.starts_with(u'-')) return Damaged(u"the deletion of a key isn't followed");
  sLine = PlainRegistryKey(sLine);
  if (sLine.empty()) return Damaged(u"the key has no name");
  return {Kind::Key, Text(sLine), {}, {}};
}

RegistryLine ParseValue(TextView sLine, RegistryHex eHex) {
  RegistryLine oLine{Kind::Value, {}, {}, {}};
  if (sLine.starts_with(u'@')) {
    sLine.remove_prefix(1);
  } else if (!TakeQuoted(sLine, oLine.sName)) {
    return Damaged(
        u"this is neither a key in brackets nor a value that begins with its name in "
        u"quotes");
  }
  sLine = TrimBlanks(sLine);
  if (!sLine.starts_with(u'=')) return Damaged(u"the name has no equals sign behind it");
  sLine = TrimBlanks(sLine.substr(1));
  if (sLine == u"-") {
    oLine.eKind = Kind::Deletion;
  } else if (!ReadData(sLine, eHex, oLine.oValue)) {
    return Damaged(u"the value is neither a text in quotes nor dword: or hex: with sound digits");
  }
  return oLine;
}

bool IsHeader(TextView sLine) {
  return sLine == u"REGEDIT4" || sLine == u"Windows Registry Editor Version 5.00";
}

Text Quoted(TextView sText) {
  Text sQuoted = u"\"";
  for (const char16_t cUnit : sText) {
    if (cUnit == u'"' || cUnit == u'\\') sQuoted += u'\\';
    sQuoted += cUnit;
  }
  return sQuoted + u'"';
}

bool IsPlain(TextView sText) {
  return std::all_of(sText.begin(), sText.end(),
                     [](char16_t cUnit) { return cUnit >= 0x20 && cUnit < 0x7F; });
}

Text HexDigits(std::uint32_t lNumber, int lDigits) {
  Text sHex;
  for (int lShift = 4 * (lDigits - 1); lShift >= 0; lShift -= 4) {
    sHex += u"0123456789abcdef"[(lNumber >> lShift) & 15];
  }
  return sHex;
}

bool BytesOfText(Text sText, RegistryHex eHex, std::string& sBytes) {
  sText += u'\0';
  std::size_t lBadUnit = 0;
  if (eHex == RegistryHex::Ansi) return CodePage::Get("1252").Encode(sText, sBytes, lBadUnit);
  for (const char16_t cUnit : sText) {
    sBytes += static_cast<char>(cUnit & 0xFF);
    sBytes += static_cast<char>(cUnit >> 8);
  }
  return true;
}

void AppendHexText(const std::string& sBytes, TextView sLineEnd, Text& sLine) {
  std::size_t lColumn = sLine.size();
  for (std::size_t i = 0; i < sBytes.size(); ++i, lColumn += 3) {
    if (i > 0) sLine += u',';
    if (lColumn > 75) {
      sLine.append(u"\\").append(sLineEnd).append(u"  ");
      lColumn = 2;
    }
    sLine += HexDigits(static_cast<unsigned char>(sBytes[i]), 2);
  }
}

}  // namespace

RegistryLine ParseRegistryLine(TextView sLine, RegistryHex eHex) {
  sLine = TrimBlanks(sLine);
  if (sLine.empty() || sLine[0] == u';' || IsHeader(sLine)) return {};
  return sLine[0] == u'[' ? ParseKey(sLine) : ParseValue(sLine, eHex);
}

bool ContinuesRegistryLine(TextView sLine, TextView sNext) {
  sLine = TrimBlanks(sLine);
  if (!sLine.ends_with(u'\\') || TrimBlanks(sNext).empty()) return false;
  return std::all_of(sNext.begin(), sNext.end(), [](char16_t cUnit) {
    return HexDigit(cUnit) >= 0 || TextView(u", \t\\").find(cUnit) != TextView::npos;
  });
}

TextView PlainRegistryKey(TextView sKey) {
  while (sKey.ends_with(u'\\')) sKey.remove_suffix(1);
  return sKey;
}

bool FormatRegistryValue(TextView sName, const RegistryValue& oValue, RegistryHex eHex,
                         TextView sLineEnd, Text& sLine) {
  sLine = (sName.empty() ? u"@" : Quoted(sName)) + u'=';
  if (oValue.lType == RegistryValue::lLong) {
    sLine += u"dword:" + HexDigits(static_cast<std::uint32_t>(oValue.lNumber), 8);
    return true;
  }
  if (IsPlain(oValue.sText)) {
    sLine += Quoted(oValue.sText);
    return true;
  }
  std::string sBytes;
  if (!BytesOfText(oValue.sText, eHex, sBytes)) return false;
  sLine += u"hex(1):";
  AppendHexText(sBytes, sLineEnd, sLine);
  return true;
}
