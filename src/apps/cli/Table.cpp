#include "Table.h"

#include <algorithm>

#include "Utf8.h"

void TextTable::Measure(Cells oRow) {
  for (std::size_t i = 0; i < oRow.size(); ++i)
    moWidth[i] = std::max(moWidth[i], Utf8::CharacterCount(oRow[i]));
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
    lBlanks += moWidth[i] - Utf8::CharacterCount(oRow[i]) + 2;
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
