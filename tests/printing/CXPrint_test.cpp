// Letter paper, 12240 x 15840; letters 100 wide (bold 120), rows 200 high. With margins of 500 and
// the header's 500 the body runs from 1000 down to 14840: 69 rows of 200 and 40 twips.
#include "PrintTest.h"

namespace {

struct CXPrintTest : PrintTest {
  /// A line, and then room for so many twips more.
  void FillBut(CXPrint& print, int twips) {
    print.PrintLine(u"x");
    oPrinter.SetCurrentY(14840 - twips);
  }
  /// What was printed since the last call, with ";" behind a row and between its columns.
  std::string TakeLine() {
    std::string rows = TakeRows();
    for (char& c : rows) c = c == '\n' || c == '|' ? ';' : c;
    return rows.empty() ? rows : rows.substr(1);
  }
  static std::vector<Text> Split(const std::string& texts) {
    std::vector<Text> all;
    std::istringstream in(texts);
    for (std::string s; std::getline(in, s, ';');) all.push_back(FromUtf8(s));
    return all;
  }
};

TEST_F(CXPrintTest, WritesThreeTextsAboveAndBelow) {
  CXPrint oPrint(oPrinter);
  oPrint.SetLeftMargin(1000), oPrint.SetTopMargin(600);
  oPrint.SetRightMargin(700), oPrint.SetBottomMargin(800);
  oPrint.Header(u"left", u"mid", u"right");
  oPrint.Footer(u"below", Text(121, u'w'), u"&[Page]");
  oPrint.FontBold = true;
  oPrint.PrintLine(u"body");
  oPrint.Finish();
  // The centre of 10540: 1000 + (10540 - 300) / 2; a text that is too wide begins left of the
  // margin.
  EXPECT_EQ(oDevice.sRecord,
            "document \npage 12240 x 15840\n1 1000 600 left\n1 6120 600 mid\n"
            "1 11040 600 right\n1 1000 1100 body*\n1 1000 14840 below\n1 220 14840 " +
                std::string(121, 'w') + "\n1 11440 14840 1\nend\n");
}

TEST_F(CXPrintTest, ReplacesMarksEachTimeATextIsWritten) {
  CXPrint oPrint(oPrinter);
  oPrint.Header(u"Page &[Page]", u"&[page] [Page]", u"&[Page]&[Page]");
  oPrint.Footer(u"&[Date] &[Time]", u"", u"");
  for (int i = 0; i < 3; ++i) FillBut(oPrint, 100);
  oPrint.Finish();
  std::string sPages;
  for (const std::string s : {"1", "2", "3"})
    sPages += "\nPage " + s + "|&[page] [Page]|" + s + s + "\nx\n05-Jun-24 17:45";
  EXPECT_EQ(oDevice.sRows, sPages);
}

TEST_F(CXPrintTest, BreaksPagesWhereTheBodyEnds) {
  // Room below a first line, space after, lines to check, a line or columns; rows of all pages.
  // 3 lines of 200 x 1.0013 are 600.78; each rounded by itself they would fit into 600.
  for (const auto& row : Rows(R"(
         nothing printed             |      |        |    |     | F
         a line that ends on the limit | 200 | 0     | 0  | y   | H;x;y;F
         a twip more                 | 199  | 0      | 0  | y   | H;x;F;H;y;F
         space after counts          | 299  | 0.5    | 0  | y   | H;x;F;H;y;F
         two lines in one            | 399  | 0      | 0  | y+z | H;x;F;H;y;z;F
         a row of columns            | 199  | 0      | 0  | row | H;x;F;H;row;F
         ten lines fit               | 2000 | 0      | 10 | y   | H;x;y;F
         ten lines don't             | 1999 | 0      | 10 | y   | H;x;F;H;y;F
         lines are rounded together  | 600  | 0.0013 | 3  | y   | H;x;F;H;y;F)")) {
    SCOPED_TRACE(row[0]);
    CXPrint print(oPrinter);
    print.Header(u"H", u"", u"");
    print.Footer(u"F", u"", u"");
    print.SetColumns({0});
    if (!row[1].empty()) {
      FillBut(print, std::stoi(row[1]));
      print.SpaceAfter = std::stof(row[2]);
      if (row[3] != "0") print.CheckPage(static_cast<std::int16_t>(std::stoi(row[3])));
      if (row[4] == "row")
        print.PrintColumns({u"row"});
      else
        print.PrintLine(row[4] == "y" ? u"y" : u"y\r\nz");
    }
    print.Finish();
    EXPECT_EQ(TakeLine(), row[5]);
  }
}

TEST_F(CXPrintTest, LeavesNoBlankAtTheTopOfAPage) {
  CXPrint oPrint(oPrinter);
  FillBut(oPrint, 200);
  oPrint.PrintBlank();
  EXPECT_EQ(oPrinter.CurrentY(), 14840) << "the last line may be blank";
  oPrint.PrintBlank();
  EXPECT_EQ(oPrinter.CurrentY(), 1000);
  EXPECT_EQ(oPrinter.Page(), 2);
  oPrint.PrintBlank();
  EXPECT_EQ(oPrinter.CurrentY(), 1200);
}

TEST_F(CXPrintTest, DecidesTheHeightOfARowItself) {
  CXPrint oPrint(oPrinter);
  // 212.5 and 237.5: halves go to the even number.
  for (const auto& [dSpace, lHeight] : {std::pair{0.5f, 300}, {0.0625f, 212}, {0.1875f, 238}}) {
    oPrint.SpaceAfter = dSpace;
    oPrint.PrintLine(u"x");
    const double dY = oPrinter.CurrentY();
    oPrint.PrintBlank();
    oPrint.PrintLine(u"x");
    EXPECT_EQ(oPrinter.CurrentY() - dY, 2 * lHeight) << dSpace;
  }
}

TEST_F(CXPrintTest, KeepsMarginsOnWhatTheDeviceCanPrint) {
  oDevice.oStrips = {250, 360, 400, 510};
  Paper::Printer narrow(oDevice);
  CXPrint print(narrow);
  for (const std::int32_t margin : {0, -5, 720}) {
    print.SetLeftMargin(margin), print.SetTopMargin(margin);
    print.SetRightMargin(margin), print.SetBottomMargin(margin);
    const std::vector<std::int32_t> kept{print.LeftMargin(), print.TopMargin(), print.RightMargin(),
                                         print.BottomMargin()};
    EXPECT_EQ(kept,
              (margin == 720 ? std::vector{720, 720, 720, 720} : std::vector{250, 360, 400, 510}));
  }
}

TEST_F(CXPrintTest, CutsWhatDoesNotFitItsColumn) {
  // The places of the second column and the third, bold or a path, values, and what is printed.
  for (const auto& row : Rows(R"(
         100 short of the next column | 0 1000 2000 | | 123456789;1234567890;to the end
                                              | 123456789;123456...;to the end
         bold is wider              | 0 1000  | bold | 12345678            | 1234...*
         to the right margin        | 0 10240 |      | ;12345678901        | 1234567...
         too close for anything     | 0 80 500 |     | a;b;c               | b;c
         beyond the page            | 0 20000 |      | a;b                 | a
         fewer values               | 0 1000 2000 |  | a                   | a
         more values                | 0 1000  |      | a;b;c               | a;b
         a path loses folders       | 0 1700  | path | C:\alpha\beta\c.txt | C:\...\c.txt
         and so does one of slashes | 0 1500  | path | /alpha/beta/c.txt   | /.../c.txt
         a path is cut at last      | 0 500   | path | a/verylong.txt      | v...
         a text isn't a path        | 0 1700  |      | C:\alpha\beta\c.txt | C:\alpha\beta...)")) {
    SCOPED_TRACE(row[0]);
    CXPrint print(oPrinter);
    std::istringstream places(row[1]);
    print.SetColumns({std::istream_iterator<std::int32_t>(places), {}});
    print.FontBold = row[2] == "bold";
    print.SetColumnIsPath(0, row[2] == "path");
    print.PrintColumns(Split(row[3]));
    EXPECT_EQ(TakeLine(), row[4]);
  }
}

TEST_F(CXPrintTest, ForgetsPathsWithNewColumnsAndKnowsItsColumns) {
  CXPrint print(oPrinter);
  for (const bool path : {true, false}) {
    print.SetColumns({0, 1000});
    if (path) print.SetColumnIsPath(1, true);
    EXPECT_EQ(print.ColumnIsPath(1), path);
  }
  EXPECT_THROW(print.SetColumnIsPath(2, true), Failure);
  EXPECT_THROW(print.ColumnIsPath(-1), Failure);
}

}  // namespace
