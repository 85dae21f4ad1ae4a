// One character of a code page at a time by the tables of the system: the C library's iconv, on
// Windows the system's own. For building tables; slow.
#pragma once

#include <memory>
#include <string>
#include <string_view>

class CodePageConverter {
 public:
  /// Failure 5 when this machine has no table for the page.
  explicit CodePageConverter(int page);
  ~CodePageConverter();
  CodePageConverter(const CodePageConverter&) = delete;
  CodePageConverter& operator=(const CodePageConverter&) = delete;

  /// The unit of the one or two bytes of a character; 0 when they are none, or more than one unit.
  char16_t UnitOf(std::string_view character);
  /// The bytes of a unit; none when the page hasn't got it.
  std::string BytesOf(char16_t unit);

 private:
  struct Tables;
  std::unique_ptr<Tables> mTables;
};
