// Forms of a list: columns in line for people, comma-separated values, and JSON that is written as
// it comes, so that a list of any length needs no memory.
#pragma once

#include <cstdint>
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

/// Appends JSON to a text; commas come by themselves. Text is UTF-8.
class JsonWriter {
 public:
  explicit JsonWriter(std::string& sResult) : msResult(sResult) {}

  void BeginObject() { Begin('{'); }
  void BeginArray() { Begin('['); }
  void EndObject() { End('}'); }
  void EndArray() { End(']'); }
  JsonWriter& Key(std::string_view sKey);
  void String(std::string_view sText);
  void StringOrNull(std::string_view sText);
  void Number(std::int64_t lNumber);
  void Bool(bool bValue);
  void Null();
  /// A line end between two elements of an array.
  void Break();

 private:
  void Begin(char cBracket);
  void End(char cBracket);
  void Comma();

  std::string& msResult;
  bool mbComma = false;
  bool mbBreak = false;
};
