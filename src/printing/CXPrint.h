// Turns a report into printed pages: margins, a header and a footer of three parts on each page,
// page breaks, lines and rows of columns. It knows nothing of what it prints.
//
//   CXPrint oPrint(oPrinter);
//   oPrint.SetLeftMargin(720);
//   oPrint.Footer(u"Stock", u"Page &[Page]", u"&[Date] &[Time]");
//   oPrint.SetColumns({0, 2000, 5000});
//   oPrint.PrintColumns({u"Name", u"Type", u"File"});
//   oPrint.Finish();
//
// All lengths are in the printer's scale, twips, and positions count from the upper left corner of
// the page. Created, set up, used and finished once; what isn't finished is dropped.
#pragma once

#include <cstdint>
#include <vector>

#include "Printer.h"
#include "Text.h"

class CXPrint {
 public:
  /// From the top margin down to the first line of the body, in twips; a part of the
  /// reports' layout.
  std::int32_t HeaderMargin = 500;
  /// What the body keeps above the bottom margin.
  std::int32_t FooterMargin = 500;
  /// Of the body; it may change between lines, as SpaceAfter may.
  bool FontBold = false;
  /// Extra space under a line, as a fraction of its height.
  float SpaceAfter = 0;

  /// oPrinter outlives this object.
  explicit CXPrint(Paper::Printer& oPrinter) : moPrinter(oPrinter) {}
  ~CXPrint();
  CXPrint(const CXPrint&) = delete;
  CXPrint& operator=(const CXPrint&) = delete;

  /// A margin is never narrower than the strip that the device can't print on, so it may read back
  /// larger than it was set.
  std::int32_t LeftMargin() const { return mlLeftMargin; }
  std::int32_t TopMargin() const { return mlTopMargin; }
  std::int32_t RightMargin() const { return mlRightMargin; }
  std::int32_t BottomMargin() const { return mlBottomMargin; }
  void SetLeftMargin(std::int32_t lMargin);
  void SetTopMargin(std::int32_t lMargin);
  void SetRightMargin(std::int32_t lMargin);
  void SetBottomMargin(std::int32_t lMargin);

  /// The marks &[Date], &[Time] and &[Page] are replaced each time the text is written.
  void Header(TextView sLeft, TextView sCenter, TextView sRight);
  void Footer(TextView sLeft, TextView sCenter, TextView sRight);

  void PrintLine(TextView sLine);
  /// A blank line; nothing at the top of a page.
  void PrintBlank();
  /// Breaks the page unless nLines more lines fit on it.
  void CheckPage(std::int16_t nLines);

  /// Positions from the left margin, from index 0, each column 100 short of the next one; the last
  /// runs to the right margin. Afterwards no column is marked as a path.
  void SetColumns(const std::vector<std::int32_t>& alPosition);
  /// A path is shortened in its middle, any other text is cut at its end. lColumn from 0; Failure 9
  /// out of range.
  bool ColumnIsPath(std::int32_t lColumn) const;
  void SetColumnIsPath(std::int32_t lColumn, bool bIsPath);
  /// One row. Values beyond the last column are dropped; columns without a value stay empty.
  void PrintColumns(const std::vector<Text>& asValue);

  /// Writes the last page's footer and ends the document. A report without a line prints a footer.
  void Finish();

 private:
  struct ThreeTexts {
    Text sLeft, sCenter, sRight;
  };
  struct Column {
    std::int64_t lLeft = 0, lWidth = 0;
    bool bIsPath = false;
  };

  void Begin();
  void WriteHeader();
  void WriteFooter();
  enum class Edge { Top, Bottom };
  void WriteTexts(const ThreeTexts& oTexts, Edge eEdge);
  void WriteAt(double dX, TextView sText, Edge eEdge);
  Text DoSubstitutions(TextView sText) const;
  double RowHeight(TextView sText, int nLines = 1) const;
  bool Fits(double dHeight) const;
  void BreakPage();
  Text Fitted(const Column& oColumn, TextView sValue) const;
  std::size_t IndexOf(std::int32_t lColumn) const;

  Paper::Printer& moPrinter;
  ThreeTexts moHeader, moFooter;
  std::vector<Column> moColumns;
  std::int32_t mlLeftMargin = 500, mlTopMargin = 500, mlRightMargin = 500, mlBottomMargin = 500;
  bool mbFirstPage = true;
  bool mbFinished = false;
};
