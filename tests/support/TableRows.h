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
/// last cell, behind a blank.
inline std::vector<std::vector<std::string>> Rows(const std::string& sTable) {
  std::vector<std::vector<std::string>> asRow;
  std::istringstream oLines(sTable);
  for (std::string sLine; std::getline(oLines >> std::ws, sLine);) {
    bool bSameCell = sLine[0] == '\\';
    const bool bGoesOn = bSameCell || sLine[0] == '|';
    std::istringstream oCells(sLine.substr(bGoesOn ? 1 : 0) + "|");
    if (!bGoesOn) asRow.emplace_back();
    for (std::string s; std::getline(oCells, s, '|'); bSameCell = false) {
      const std::string sCell = ToUtf8(Trim(FromUtf8(s)));
      bSameCell ? void(asRow.back().back() += " " + sCell) : asRow.back().push_back(sCell);
    }
  }
  return asRow;
}
