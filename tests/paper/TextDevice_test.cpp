// What lines the characters stand in: one is 72 twips wide, a row 180 high.
#include "TextDevice.h"

#include <gtest/gtest.h>

#include "Printer.h"

namespace {

struct Put {
  double dX, dY;
  const char16_t* sText;
};
constexpr const char16_t* Page = nullptr;

TEST(TextDevice, LinesUpPagesInCharacters) {
  struct Row {
    const char* sName;
    std::vector<Put> oPuts;
    const char* sText;
  };
  for (const Row& oRow : {
           Row{"columns begin at whole characters", {{720, 0, u"ab"}, {936, 0, u"c"}}, "ab c\n"},
           Row{"a part of a character counts for nothing",
               {{720, 0, u"ab"}, {1007, 0, u"c"}},
               "ab c\n"},
           Row{"rows and columns in any order",
               {{200, 300, u"d"}, {0, 300, u"c"}, {200, 0, u"b"}, {0, 0, u"a"}},
               "a b\nc d\n"},
           Row{"little space leaves no blank line", {{0, 0, u"a"}, {0, 359, u"b"}}, "a\nb\n"},
           Row{"much space leaves one",
               {{0, 0, u"a"}, {0, 360, u"b"}, {0, 9000, u"c"}},
               "a\n\nb\n\nc\n"},
           Row{"a covered text moves to the right", {{0, 0, u"abcd"}, {72, 0, u"e"}}, "abcd e\n"},
           Row{"the leftmost text is at the edge", {{0, 200, u"b"}, {-144, 0, u"a"}}, "a\n  b\n"},
           Row{"a form feed between pages", {{0, 0, u"a"}, {0, 0, Page}, {0, 0, u"b"}}, "a\n\fb\n"},
           Row{"beyond the first plane, one character",
               {{0, 0, u"\xD83D\xDE00"}, {144, 0, u"b"}},
               "\xF0\x9F\x98\x80 b\n"},
           Row{"nothing acts on a terminal", {{0, 0, u"\x1B[1m\t\x9B"}}, "?[1m??\n"},
           Row{"no blanks at a line's end", {{0, 0, u"a  "}, {720, 0, u" "}}, "a\n"},
       }) {
    SCOPED_TRACE(oRow.sName);
    std::string sText;
    Paper::TextDevice oDevice([&](std::string_view s) { sText += s; });
    oDevice.StartDocument({});
    oDevice.StartPage({});
    for (const Put& o : oRow.oPuts) {
      if (o.sText == Page) {
        oDevice.StartPage({});
      } else {
        oDevice.DrawLine(o.dX, o.dY, o.sText, {});
      }
    }
    oDevice.EndDocument();
    EXPECT_EQ(sText, oRow.sText);
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
