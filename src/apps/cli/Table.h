// Forms of a list: columns in line for people, and comma-separated values.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

using Cells = std::span<const std::string>;

/// Columns in line, two blanks apart. Measure every row first, then write every row.
class TextTable {
 public:
  explicit TextTable(std::size_t lColumns) : moWidth(lColumns, 0) {}
  void Measure(Cells oRow);
  void Append(Cells oRow, std::string& sResult) const;

 private:
  std::vector<std::size_t> moWidth;
};

/// Fields in quotes where they hold a comma, a quote or a line end; quotes doubled; LF behind the
/// row.
void AppendCsv(Cells oRow, std::string& sResult);
