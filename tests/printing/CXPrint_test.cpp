// Letter paper, 12240 x 15840; letters 100 wide (bold 120), rows 200 high. With margins of 500 and
// the header's 500 the body runs from 1000 down to 14840: 69 rows of 200 and 40 twips.
#include "CXPrint.h"

#include <gtest/gtest.h>

#include <functional>

#include "Failure.h"
#include "MXDate.h"
#include "RecordingDevice.h"

namespace {

struct CXPrintTest : testing::Test {
  RecordingDevice oDevice;
  Paper::Printer oPrinter{oDevice};
  std::function<std::int64_t()> fnOldNow = MXDate::fnNow;
  ~CXPrintTest() override { MXDate::fnNow = fnOldNow; }
};

/// Lines to the body's end but for lTwips.
void FillBut(CXPrint& oPrint, Paper::Printer& oPrinter, int lTwips) {
  oPrint.PrintLine(u"x");
  oPrinter.SetCurrentY(14840 - lTwips);
}

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
  setenv("TZ", "UTC", 1);
  MXDate::fnNow = [] { return 1717609509; };
  CXPrint oPrint(oPrinter);
  oPrint.Header(u"Page &[Page]", u"&[page] [Page]", u"&[Page]&[Page]");
  oPrint.Footer(u"&[Date] &[Time]", u"", u"");
  for (int i = 0; i < 3; ++i) FillBut(oPrint, oPrinter, 100);
  oPrint.Finish();
  EXPECT_EQ(oDevice.sRows,
            "\nPage 1|&[page] [Page]|11\nx\n05-Jun-24 17:45"
            "\nPage 2|&[page] [Page]|22\nx\n05-Jun-24 17:45"
            "\nPage 3|&[page] [Page]|33\nx\n05-Jun-24 17:45");
}

TEST_F(CXPrintTest, BreaksPagesWhereTheBodyEnds) {
  struct Row {
    const char* sName;
    int lRoom;
    std::function<void(CXPrint&)> oWork;
    const char* sRows;
  };
  for (const Row& oRow : {
           Row{"nothing printed", -1, [](CXPrint&) {}, "\nF"},
           Row{"a line that ends on the limit", 200, [](CXPrint& o) { o.PrintLine(u"y"); },
               "\nH\nx\ny\nF"},
           Row{"a twip more", 199, [](CXPrint& o) { o.PrintLine(u"y"); }, "\nH\nx\nF\nH\ny\nF"},
           Row{"space after counts", 299,
               [](CXPrint& o) { o.SpaceAfter = 0.5f, o.PrintLine(u"y"); }, "\nH\nx\nF\nH\ny\nF"},
           Row{"two lines in one", 399, [](CXPrint& o) { o.PrintLine(u"y\r\nz"); },
               "\nH\nx\nF\nH\ny\nz\nF"},
           Row{"a row of columns", 199, [](CXPrint& o) { o.PrintColumns({u"y"}); },
               "\nH\nx\nF\nH\ny\nF"},
           Row{"ten lines fit", 2000, [](CXPrint& o) { o.CheckPage(10), o.PrintLine(u"y"); },
               "\nH\nx\ny\nF"},
           Row{"ten lines don't", 1999, [](CXPrint& o) { o.CheckPage(10), o.PrintLine(u"y"); },
               "\nH\nx\nF\nH\ny\nF"},
           // 3 lines of 200 x 1.0013: 600.78; each rounded by itself they would fit into 600.
           Row{"lines are rounded together", 600,
               [](CXPrint& o) { o.SpaceAfter = 0.0013f, o.CheckPage(3), o.PrintLine(u"y"); },
               "\nH\nx\nF\nH\ny\nF"},
       }) {
    SCOPED_TRACE(oRow.sName);
    RecordingDevice oRecord;
    Paper::Printer oOwnPrinter(oRecord);
    CXPrint oPrint(oOwnPrinter);
    oPrint.Header(u"H", u"", u"");
    oPrint.Footer(u"F", u"", u"");
    oPrint.SetColumns({0});
    if (oRow.lRoom >= 0) FillBut(oPrint, oOwnPrinter, oRow.lRoom);
    oRow.oWork(oPrint);
    oPrint.Finish();
    EXPECT_EQ(oRecord.sRows, oRow.sRows);
  }
}

TEST_F(CXPrintTest, LeavesNoBlankAtTheTopOfAPage) {
  CXPrint oPrint(oPrinter);
  FillBut(oPrint, oPrinter, 200);
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
    EXPECT_EQ(oPrinter.CurrentY() - dY, lHeight) << dSpace;
    oPrint.PrintLine(u"x");
    EXPECT_EQ(oPrinter.CurrentY() - dY, 2 * lHeight) << dSpace;
  }
}

TEST_F(CXPrintTest, KeepsMarginsOnWhatTheDeviceCanPrint) {
  oDevice.oStrips = {250, 360, 400, 510};
  Paper::Printer oNarrow(oDevice);
  CXPrint oPrint(oNarrow);
  for (const std::int32_t lMargin : {0, -5, 720}) {
    oPrint.SetLeftMargin(lMargin), oPrint.SetTopMargin(lMargin);
    oPrint.SetRightMargin(lMargin), oPrint.SetBottomMargin(lMargin);
    EXPECT_EQ(oPrint.LeftMargin(), std::max(lMargin, 250));
    EXPECT_EQ(oPrint.TopMargin(), std::max(lMargin, 360));
    EXPECT_EQ(oPrint.RightMargin(), std::max(lMargin, 400));
    EXPECT_EQ(oPrint.BottomMargin(), std::max(lMargin, 510));
  }
}

TEST_F(CXPrintTest, CutsWhatDoesNotFitItsColumn) {
  const Text sPath = u"C:\\alpha\\beta\\c.txt", sSlashed = u"/alpha/beta/c.txt";
  struct Row {
    const char* sName;
    std::vector<std::int32_t> alPosition;
    int nPathColumn;
    std::vector<Text> asValue;
    const char* sRow;
  };
  for (const Row& oRow : {
           Row{"100 short of the next column",
               {0, 1000, 2000},
               -1,
               {u"123456789", u"1234567890", u"to the end"},
               "123456789|123456...|to the end"},
           Row{"bold is wider", {0, 1000}, -2, {u"12345678"}, "1234...*"},
           Row{"to the right margin", {0, 10240}, -1, {u"", u"12345678901"}, "1234567..."},
           Row{"too close for anything", {0, 80, 500}, -1, {u"a", u"b", u"c"}, "b|c"},
           Row{"beyond the page", {0, 20000}, -1, {u"a", u"b"}, "a"},
           Row{"fewer values", {0, 1000, 2000}, -1, {u"a"}, "a"},
           Row{"more values", {0, 1000}, -1, {u"a", u"b", u"c"}, "a|b"},
           Row{"a path loses folders", {0, 1700}, 0, {sPath}, "C:\\...\\c.txt"},
           Row{"and so does one of slashes", {0, 1500}, 0, {sSlashed}, "/.../c.txt"},
           Row{"a path is cut at last", {0, 500}, 0, {u"a/verylong.txt"}, "v..."},
           Row{"a text isn't a path", {0, 1700}, -1, {sPath}, "C:\\alpha\\beta..."},
       }) {
    SCOPED_TRACE(oRow.sName);
    RecordingDevice oRecord;
    Paper::Printer oOwnPrinter(oRecord);
    CXPrint oPrint(oOwnPrinter);
    oPrint.SetColumns(oRow.alPosition);
    oPrint.FontBold = oRow.nPathColumn == -2;
    if (oRow.nPathColumn >= 0) oPrint.SetColumnIsPath(oRow.nPathColumn, true);
    oPrint.PrintColumns(oRow.asValue);
    EXPECT_EQ(oRecord.sRows, "\n" + std::string(oRow.sRow));
  }
}

TEST_F(CXPrintTest, ForgetsPathsWithNewColumnsAndKnowsItsColumns) {
  CXPrint oPrint(oPrinter);
  oPrint.SetColumns({0, 1000});
  oPrint.SetColumnIsPath(1, true);
  EXPECT_TRUE(oPrint.ColumnIsPath(1));
  oPrint.SetColumns({0, 1000});
  EXPECT_FALSE(oPrint.ColumnIsPath(1));
  EXPECT_THROW(oPrint.SetColumnIsPath(2, true), Failure);
  EXPECT_THROW(oPrint.ColumnIsPath(-1), Failure);
}

}  // namespace
