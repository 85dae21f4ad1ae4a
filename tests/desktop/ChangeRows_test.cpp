#include "ChangeRows.h"

#include <gtest/gtest.h>

namespace {

using Forms::LineMark;

/// A row as text: heading "#", lines that go "-", that come "+", others " "; number; text.
std::string Shown(const std::vector<Forms::CodeLine>& aoRow) {
  std::string sShown;
  for (const Forms::CodeLine& oRow : aoRow) {
    const char cMark = oRow.mark == LineMark::Heading   ? '#'
                       : oRow.mark == LineMark::Removed ? '-'
                       : oRow.mark == LineMark::Added   ? '+'
                                                        : ' ';
    sShown += cMark + ToUtf8(oRow.number) + ':' + ToUtf8(oRow.text) + '|';
  }
  return sShown;
}

/// Lines a, b, c ... up to the count, with CR LF.
std::string Letters(int lCount) {
  std::string sText;
  for (int i = 0; i < lCount; ++i) sText += std::string(1, static_cast<char>('a' + i)) + "\r\n";
  return sText;
}

std::string With(std::string sText, const std::string& sOld, const std::string& sNew) {
  return sText.replace(sText.find(sOld), sOld.size(), sNew);
}

TEST(ChangeRows, ShowEachPlaceWithItsSurroundings) {
  const std::string sTen = Letters(10), sMany = Letters(20);
  struct Row {
    const char* sName;
    std::string sOld, sNew;
    const char* sShown;
  };
  const Row aoRow[] = {
      {"nothing changed", sTen, sTen, ""},
      {"in the middle", sTen, With(sTen, "f", "F"),
       "#:Line 6| 3:c| 4:d| 5:e|-6:f|+6:F| 7:g| 8:h| 9:i|"},
      {"at the start", sTen, "x\r\n" + sTen, "#:Line 1|+1:x| 2:a| 3:b| 4:c|"},
      {"at the end, without its line end", sTen, sTen + "x", "#:Line 11| 8:h| 9:i| 10:j|+11:x|"},
      {"two places that touch", sTen, With(With(sTen, "c", "C"), "i\r\n", ""),
       "#:Line 3| 1:a| 2:b|-3:c|+3:C| 4:d| 5:e| 6:f| 7:g| 8:h|-9:i| 9:j|"},
      {"two places apart", sMany, With(With(sMany, "b", "B"), "s", "S"),
       "#:Line 2| 1:a|-2:b|+2:B| 3:c| 4:d| 5:e|#:Line 19| 16:p| 17:q| 18:r|-19:s|+19:S| 20:t|"},
      {"all goes", "a\nb\n", "", "#:Line 1|-1:a|-2:b|"},
      {"code page 1252", "a\xE4\r\n", "a\xF6\r\n", "#:Line 1|-1:a\xC3\xA4|+1:a\xC3\xB6|"},
      {"UTF-8", "a\xC3\xA4\r\n", "a\xC3\xB6\r\n", "#:Line 1|-1:a\xC3\xA4|+1:a\xC3\xB6|"},
      {"a carriage return inside a line", "a\rb\n", "a\rc\n", "#:Line 1|-1:a\rb|+1:a\rc|"},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    EXPECT_EQ(Shown(ChangeRows(oRow.sOld, oRow.sNew)), oRow.sShown);
  }
}

}  // namespace
