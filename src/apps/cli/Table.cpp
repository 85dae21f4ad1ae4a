#include "Table.h"

#include <algorithm>

namespace {

/// Characters of a UTF-8 text: every byte but those that continue one.
std::size_t Width(std::string_view sText) {
  return static_cast<std::size_t>(std::count_if(sText.begin(), sText.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

void AppendEscape(unsigned char cByte, std::string& sResult) {
  constexpr std::string_view Hex = "0123456789abcdef";
  switch (cByte) {
    case '"':
      sResult += "\\\"";
      return;
    case '\\':
      sResult += "\\\\";
      return;
    case '\n':
      sResult += "\\n";
      return;
    case '\r':
      sResult += "\\r";
      return;
    case '\t':
      sResult += "\\t";
      return;
    default:
      sResult += "\\u00";
      sResult += Hex[cByte >> 4];
      sResult += Hex[cByte & 15];
  }
}

}  // namespace

void TextTable::Measure(Cells oRow) {
  for (std::size_t i = 0; i < oRow.size(); ++i) moWidth[i] = std::max(moWidth[i], Width(oRow[i]));
}

void TextTable::Append(Cells oRow, std::string& sResult) const {
  std::size_t lBlanks = 0;
  for (std::size_t i = 0; i < oRow.size(); ++i) {
    // Blanks are written ahead of the next filled cell only: no row ends in blanks.
    if (!oRow[i].empty()) {
      sResult.append(lBlanks, ' ');
      sResult += oRow[i];
      lBlanks = 0;
    }
    lBlanks += moWidth[i] - Width(oRow[i]) + 2;
  }
  sResult += '\n';
}

void AppendCsv(Cells oRow, std::string& sResult) {
  for (std::size_t i = 0; i < oRow.size(); ++i) {
    if (i > 0) sResult += ',';
    if (oRow[i].find_first_of(",\"\r\n") == std::string::npos) {
      sResult += oRow[i];
      continue;
    }
    sResult += '"';
    for (char c : oRow[i]) {
      if (c == '"') sResult += '"';
      sResult += c;
    }
    sResult += '"';
  }
  sResult += '\n';
}

void JsonWriter::Comma() {
  if (mbComma) msResult += ',';
  if (mbBreak) msResult += '\n';
  mbComma = true;
  mbBreak = false;
}

void JsonWriter::Begin(char cBracket) {
  Comma();
  msResult += cBracket;
  mbComma = false;
}

void JsonWriter::End(char cBracket) {
  if (mbBreak) msResult += '\n';
  msResult += cBracket;
  mbComma = true;
  mbBreak = false;
}

JsonWriter& JsonWriter::Key(std::string_view sKey) {
  String(sKey);
  msResult += ": ";
  mbComma = false;
  return *this;
}

void JsonWriter::String(std::string_view sText) {
  Comma();
  msResult += '"';
  for (char c : sText) {
    auto cByte = static_cast<unsigned char>(c);
    if (cByte < 0x20 || c == '"' || c == '\\')
      AppendEscape(cByte, msResult);
    else
      msResult += c;
  }
  msResult += '"';
}

void JsonWriter::StringOrNull(std::string_view sText) {
  if (sText.empty())
    Null();
  else
    String(sText);
}

void JsonWriter::Number(std::int64_t lNumber) {
  Comma();
  msResult += std::to_string(lNumber);
}

void JsonWriter::Bool(bool bValue) {
  Comma();
  msResult += bValue ? "true" : "false";
}

void JsonWriter::Null() {
  Comma();
  msResult += "null";
}

void JsonWriter::Break() {
  mbBreak = true;
}
