#include "ChangeRows.h"

#include <gtest/gtest.h>

#include <map>

#include "TableRows.h"

namespace {

/// The bytes of a cell: "/" is CR LF, ";" LF, "^" CR, "%" and "&" are two letters in code page
/// 1252.
std::string Bytes(const std::string& cell) {
  static const std::map<char, const char*> Signs{
      {'/', "\r\n"}, {';', "\n"}, {'^', "\r"}, {'%', "\xE4"}, {'&', "\xF6"}};
  std::string bytes;
  for (const char c : cell) Signs.contains(c) ? bytes += Signs.at(c) : bytes += c;
  return bytes;
}

/// A row as text: heading "#", lines that go "-", that come "+", others "="; number; text.
std::string Shown(const std::vector<Forms::CodeLine>& rows) {
  using enum Forms::LineMark;
  static const std::map<Forms::LineMark, const char*> Signs{
      {Heading, "#"}, {Removed, "-"}, {Added, "+"}};
  std::string shown;
  for (const Forms::CodeLine& row : rows)
    shown += (shown.empty() ? "" : " ") +
             std::string(Signs.contains(row.mark) ? Signs.at(row.mark) : "=") + ToUtf8(row.number) +
             ':' + ToUtf8(row.text);
  return shown;
}

TEST(ChangeRows, ShowEachPlaceWithItsSurroundings) {
  for (const auto& row : Rows(R"(
         nothing changed        | a/b/c/       | a/b/c/       |
         in the middle          | a/b/c/d/e/f/g/h/i/j/ | a/b/c/d/e/F/g/h/i/j/
                                | #:Line 6 =3:c =4:d =5:e -6:f +6:F =7:g =8:h =9:i
         at the start           | a/b/c/d/     | x/a/b/c/d/   | #:Line 1 +1:x =2:a =3:b =4:c
         at the end, without its line end | a/b/c/d/ | a/b/c/d/x | #:Line 5 =2:b =3:c =4:d +5:x
         two places that touch  | a/b/c/d/e/f/g/h/i/j/ | a/b/C/d/e/f/g/h/j/
           | #:Line 3 =1:a =2:b -3:c +3:C =4:d =5:e =6:f =7:g =8:h -9:i =9:j
         two places apart | a/b/c/d/e/f/g/h/i/j/k/l/m/n/o/p/q/r/s/t/ | a/B/c/d/e/f/g/h/i/j/k/l/m/n/o/p/q/r/S/t/
           | #:Line 2 =1:a -2:b +2:B =3:c =4:d =5:e #:Line 19 =16:p =17:q =18:r -19:s +19:S =20:t
         all goes               | a;b;         |              | #:Line 1 -1:a -2:b
         code page 1252         | a%/          | a&/          | #:Line 1 -1:aä +1:aö
         UTF-8                  | aä/          | aö/          | #:Line 1 -1:aä +1:aö
         a return inside a line | a^b;         | a^c;         | #:Line 1 -1:a^b +1:a^c)")) {
    SCOPED_TRACE(row[0]);
    EXPECT_EQ(Shown(ChangeRows(Bytes(row[1]), Bytes(row[2]))), Bytes(row[3]));
  }
}

}  // namespace
