// Parts: reading a quoted text, hex bytes, a value; a whole entry; writing.
#include "RegistryLine.h"

#include <algorithm>

#include "CodePage.h"

namespace {

using Kind = RegistryLine::Kind;

TextView TrimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u" \t");
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

int HexDigit(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') return unit - u'0';
  const char16_t lower = static_cast<char16_t>(unit | 0x20);
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// One to eight hex digits and nothing else.
bool ReadHexNumber(TextView text, std::uint32_t& number) {
  number = 0;
  if (text.empty() || text.size() > 8) return false;
  for (const char16_t unit : text) {
    const int digit = HexDigit(unit);
    if (digit < 0) return false;
    number = number << 4 | static_cast<std::uint32_t>(digit);
  }
  return true;
}

/// Takes a text in quotes from the beginning of rest.
bool TakeQuoted(TextView& rest, Text& text) {
  if (rest.empty() || rest[0] != u'"') return false;
  for (std::size_t i = 1; i < rest.size(); ++i) {
    if (rest[i] == u'"') {
      rest.remove_prefix(i + 1);
      return true;
    }
    if (rest[i] == u'\\' && ++i == rest.size()) return false;
    text += rest[i];
  }
  return false;
}

/// "41,00,\ 42,00": pairs of digits between commas; backslashes and blanks only join lines.
bool ReadHexBytes(TextView text, std::string& bytes) {
  Text plain(text);
  std::erase_if(plain,
                [](char16_t unit) { return unit == u' ' || unit == u'\t' || unit == u'\\'; });
  TextView rest = plain;
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(u','), rest.size());
    std::uint32_t byte = 0;
    if (comma > 2 || !ReadHexNumber(rest.substr(0, comma), byte)) return false;
    bytes += static_cast<char>(byte);
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  return true;
}

bool TextOfBytes(const std::string& bytes, RegistryHex hex, Text& text) {
  if (hex == RegistryHex::Ansi) {
    text = CodePage::Get("1252").Decode(bytes);
  } else {
    if (bytes.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
      text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                    static_cast<unsigned char>(bytes[i + 1]) << 8);
    }
  }
  if (!text.empty() && text.back() == u'\0') text.pop_back();
  return true;
}

bool ReadTypedBytes(std::uint32_t type, TextView hexText, RegistryHex hex, RegistryValue& value) {
  std::string bytes;
  value.type = type;
  if (!ReadHexBytes(hexText, bytes)) return false;
  if (type == RegistryValue::String) return TextOfBytes(bytes, hex, value.text);
  if (type != RegistryValue::Long) return true;
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes.size() && i < 4; ++i) {
    number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  value.number = static_cast<std::int32_t>(number);
  return bytes.size() == 4;
}

/// What stands behind the equals sign; data is trimmed.
bool ReadData(TextView data, RegistryHex hex, RegistryValue& value) {
  if (data.starts_with(u'"')) return TakeQuoted(data, value.text) && data.empty();
  const std::size_t colon = data.find(u':');
  if (colon == TextView::npos) return false;
  const Text typeText = LowerCase(data.substr(0, colon));
  const TextView rest = data.substr(colon + 1);
  std::uint32_t number = 0;
  if (typeText == u"dword") {
    value.type = RegistryValue::Long;
    if (!ReadHexNumber(TrimBlanks(rest), number)) return false;
    value.number = static_cast<std::int32_t>(number);
    return true;
  }
  if (typeText == u"hex") return ReadTypedBytes(3, rest, hex, value);
  if (!typeText.starts_with(u"hex(") || !typeText.ends_with(u')')) return false;
  if (!ReadHexNumber(TextView(typeText).substr(4, typeText.size() - 5), number)) return false;
  return ReadTypedBytes(number, rest, hex, value);
}

RegistryLine Damaged(TextView reason) {
  return {Kind::Damaged, {}, {}, Text(reason)};
}

RegistryLine ParseKey(TextView line) {
  if (!line.ends_with(u']')) return Damaged(u"the key has no closing bracket");
  line = line.substr(1, line.size() - 2);
  if (line.starts_with(u'-')) return Damaged(u"the deletion of a key isn't followed");
  line = PlainRegistryKey(line);
  if (line.empty()) return Damaged(u"the key has no name");
  return {Kind::Key, Text(line), {}, {}};
}

RegistryLine ParseValue(TextView line, RegistryHex hex) {
  RegistryLine result{Kind::Value, {}, {}, {}};
  if (line.starts_with(u'@')) {
    line.remove_prefix(1);
  } else if (!TakeQuoted(line, result.name)) {
    return Damaged(
        u"this is neither a key in brackets nor a value that begins with its name in "
        u"quotes");
  }
  line = TrimBlanks(line);
  if (!line.starts_with(u'=')) return Damaged(u"the name has no equals sign behind it");
  line = TrimBlanks(line.substr(1));
  if (line == u"-") {
    result.kind = Kind::Deletion;
  } else if (!ReadData(line, hex, result.value)) {
    return Damaged(u"the value is neither a text in quotes nor dword: or hex: with sound digits");
  }
  return result;
}

bool IsHeader(TextView line) {
  return line == u"REGEDIT4" || line == u"Windows Registry Editor Version 5.00";
}

Text Quoted(TextView text) {
  Text quoted = u"\"";
  for (const char16_t unit : text) {
    if (unit == u'"' || unit == u'\\') quoted += u'\\';
    quoted += unit;
  }
  return quoted + u'"';
}

bool IsPlain(TextView text) {
  return std::all_of(text.begin(), text.end(),
                     [](char16_t unit) { return unit >= 0x20 && unit < 0x7F; });
}

Text HexDigits(std::uint32_t number, int digits) {
  Text hexText;
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    hexText += u"0123456789abcdef"[(number >> shift) & 15];
  }
  return hexText;
}

bool BytesOfText(Text text, RegistryHex hex, std::string& bytes) {
  text += u'\0';
  std::size_t badUnit = 0;
  if (hex == RegistryHex::Ansi) return CodePage::Get("1252").Encode(text, bytes, badUnit);
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return true;
}

void AppendHexText(const std::string& bytes, TextView lineEnd, Text& line) {
  std::size_t column = line.size();
  for (std::size_t i = 0; i < bytes.size(); ++i, column += 3) {
    if (i > 0) line += u',';
    if (column > 75) {
      line.append(u"\\").append(lineEnd).append(u"  ");
      column = 2;
    }
    line += HexDigits(static_cast<unsigned char>(bytes[i]), 2);
  }
}

}  // namespace

RegistryLine ParseRegistryLine(TextView line, RegistryHex hex) {
  line = TrimBlanks(line);
  if (line.empty() || line[0] == u';' || IsHeader(line)) return {};
  return line[0] == u'[' ? ParseKey(line) : ParseValue(line, hex);
}

bool ContinuesRegistryLine(TextView line, TextView next) {
  line = TrimBlanks(line);
  if (!line.ends_with(u'\\') || TrimBlanks(next).empty()) return false;
  return std::all_of(next.begin(), next.end(), [](char16_t unit) {
    return HexDigit(unit) >= 0 || TextView(u", \t\\").find(unit) != TextView::npos;
  });
}

TextView PlainRegistryKey(TextView key) {
  while (key.ends_with(u'\\')) key.remove_suffix(1);
  return key;
}

bool FormatRegistryValue(TextView name, const RegistryValue& value, RegistryHex hex,
                         TextView lineEnd, Text& line) {
  line = (name.empty() ? u"@" : Quoted(name)) + u'=';
  if (value.type == RegistryValue::Long) {
    line += u"dword:" + HexDigits(static_cast<std::uint32_t>(value.number), 8);
    return true;
  }
  if (IsPlain(value.text)) {
    line += Quoted(value.text);
    return true;
  }
  std::string bytes;
  if (!BytesOfText(value.text, hex, bytes)) return false;
  line += u"hex(1):";
  AppendHexText(bytes, lineEnd, line);
  return true;
}
