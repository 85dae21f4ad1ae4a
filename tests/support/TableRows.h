// Tables of tests as one text.
//
//   for (const auto& as : Rows(R"(
//          two digits | 12 | twelve
//          none       |    | nothing)")) { ... }
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "Text.h"

/// A table in one text: a line for each row, its cells parted by "|"; the first one is the row's
/// name. A line that begins with "|" goes on with the row above, one that begins with "\" with its
/// last cell, behind a blank. Tables whose cells hold a "|" part them by another character.
inline std::vector<std::vector<std::string>> Rows(const std::string& sTable, char parting = '|') {
  std::vector<std::vector<std::string>> asRow;
  std::istringstream oLines(sTable);
  for (std::string sLine; std::getline(oLines >> std::ws, sLine);) {
    bool bSameCell = sLine[0] == '\\';
    const bool bGoesOn = bSameCell || sLine[0] == parting;
    std::istringstream oCells(sLine.substr(bGoesOn ? 1 : 0) + parting);
    if (!bGoesOn) asRow.emplace_back();
    for (std::string s; std::getline(oCells, s, parting); bSameCell = false) {
      const std::string sCell = ToUtf8(Trim(FromUtf8(s)));
      bSameCell ? void(asRow.back().back() += " " + sCell) : asRow.back().push_back(sCell);
    }
  }
  return asRow;
}

/// The bytes of a cell in which "\n", "\r", "\t", "\\" and "\xE9" (two digits) stand for what they
/// do in code.
inline std::string Unescaped(const std::string& cell) {
  std::string bytes;
  for (std::size_t i = 0; i < cell.size(); ++i) {
    const std::size_t sign = cell[i] == '\\' ? std::string("nrt\\x").find(cell.at(++i)) : 5;
    if (sign < 4) bytes += "\n\r\t\\"[sign];
    if (sign == 4)
      bytes += static_cast<char>(std::stoi(cell.substr(i + 1, 2), nullptr, 16)), i += 2;
    if (sign > 4) bytes += cell[i];
  }
  return bytes;
}
