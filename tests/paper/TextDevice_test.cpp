// What lines the characters stand in: one is 72 twips wide, a row 180 high.
#include "TextDevice.h"

#include <gtest/gtest.h>

#include "Printer.h"
#include "TableRows.h"

namespace {

TEST(TextDevice, LinesUpPagesInCharacters) {
  // Texts with their places, "page" for a new page; the lines, with "/" for their ends. In texts
  // "_" stands for a blank, "^", "~" and "%" for control characters.
  for (const auto& row : Rows(R"(
      columns begin at whole characters       | 720 0 ab 936 0 c    | ab c/
      a part of a character counts for nothing | 720 0 ab 1007 0 c  | ab c/
      rows and columns in any order           | 200 300 d 0 300 c 200 0 b 0 0 a | a b/c d/
      little space leaves no blank line       | 0 0 a 0 359 b       | a/b/
      much space leaves one                   | 0 0 a 0 360 b 0 9000 c | a//b//c/
      a covered text moves to the right       | 0 0 abcd 72 0 e     | abcd e/
      the leftmost text is at the edge        | 0 200 b -144 0 a    | a/  b/
      a form feed between pages               | 0 0 a 0 0 page 0 0 b | a/^b/
      beyond the first plane, one character   | 0 0 😀 144 0 b | 😀 b/
      nothing acts on a terminal              | 0 0 ^[1m~%       | ?[1m??/
      no blanks at a line's end               | 0 0 a__ 720 0 _     | a/)")) {
    SCOPED_TRACE(row[0]);
    std::string all;
    Paper::TextDevice device([&](std::string_view s) { all += s; });
    device.StartDocument({});
    device.StartPage({});
    std::istringstream puts(row[1]);
    double x, y;
    for (std::string text; puts >> x >> y >> text;) {
      Text wide = FromUtf8(text);
      for (char16_t& c : wide)
        if (const auto at = TextView(u"_^~%").find(c); at < 4) c = u" \x1B\t\x9B"[at];
      text == "page" ? device.StartPage({}) : device.DrawLine(x, y, wide, {});
    }
    device.EndDocument();
    std::replace(all.begin(), all.end(), '\n', '/');
    std::replace(all.begin(), all.end(), '\f', '^');
    EXPECT_EQ(all, row[2]);
  }
}

TEST(TextDevice, KeepsADroppedDocumentOutOfTheNext) {
  std::string sText;
  Paper::TextDevice oDevice([&](std::string_view s) { sText += s; });
  Paper::Printer oPrinter(oDevice);
  oPrinter.Print(u"lost");
  oPrinter.KillDoc();
  oPrinter.Print(u"first"), oPrinter.EndDoc();
  oPrinter.Print(u"second"), oPrinter.EndDoc();
  EXPECT_EQ(sText, "first\n\fsecond\n");
}

}  // namespace
