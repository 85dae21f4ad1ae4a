// What a printer prints on: a PDF file, a print queue, plain text, or a test's record. The calls of
// one document come in this order: StartDocument, then for each page StartPage and its texts, then
// EndDocument or KillDocument. Measuring works at any time. Lengths are twips from the upper left
// corner of the page.
#pragma once

#include "Sheet.h"
#include "Text.h"

namespace Paper {

struct PrintFont {
  Text sName;
  double dSize = 0;  ///< points
  bool bBold = false;
};

class IPrintDevice {
 public:
  virtual ~IPrintDevice() = default;

  /// The name under which a person chooses it.
  virtual Text DeviceName() const = 0;
  /// What it prints on unless told otherwise.
  virtual std::int32_t LoadedPaper() { return UsualPaperSize(); }
  virtual Strips Unprintable(const Sheet& oSheet) = 0;

  /// sLine holds no line end.
  virtual double LineWidth(TextView sLine, const PrintFont& oFont) = 0;
  virtual double LineHeight(const PrintFont& oFont) = 0;

  virtual void StartDocument(TextView sTitle) = 0;
  virtual void StartPage(const Sheet& oSheet) = 0;
  /// dX, dY: upper left corner of the line.
  virtual void DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) = 0;
  /// Finishes the last page and hands the document over. A Failure (482, or one with the path of a
  /// file) means that nothing was printed; the device is ready for the next document either way.
  virtual void EndDocument() = 0;
  /// Drops the document.
  virtual void KillDocument() noexcept = 0;
};

}  // namespace Paper
