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
/// name. A line that begins with "|" goes on with the row above.
inline std::vector<std::vector<std::string>> Rows(const std::string& sTable) {
  std::vector<std::vector<std::string>> asRow;
  std::istringstream oLines(sTable);
  for (std::string sLine; std::getline(oLines >> std::ws, sLine);) {
    const bool bGoesOn = sLine[0] == '|';
    std::istringstream oCells(sLine.substr(bGoesOn ? 1 : 0) + "|");
    if (!bGoesOn) asRow.emplace_back();
    for (std::string s; std::getline(oCells, s, '|');)
      asRow.back().push_back(ToUtf8(Trim(FromUtf8(s))));
  }
  return asRow;
}
