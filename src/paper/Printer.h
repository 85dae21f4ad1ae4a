// Visual Basic's Printer object over a device: a page, a position on it, a font.
//
//   PdfDevice oDevice(...);
//   Printer oPrinter(oDevice);
//   oPrinter.SetCurrentX(oPrinter.ScaleLeft());
//   oPrinter.Print(u"Orders");          // the first text opens the document and its first page
//   oPrinter.EndDoc();
//
// Lengths are twips, 1,440 to the inch, whatever the device. Positions count from the upper left
// corner of the page, so (ScaleLeft, ScaleTop) is the first point that the device can print on.
#pragma once

#include "IPrintDevice.h"

namespace Paper {

/// The one scale of this system.
inline constexpr std::int32_t ScaleTwips = 1;

class Printer {
 public:
  /// The device isn't owned and outlives the printer. Paper is what the device has loaded, upright.
  explicit Printer(IPrintDevice& oDevice);

  Text DeviceName() const { return moDevice.DeviceName(); }

  std::int32_t ScaleMode() const { return ScaleTwips; }
  /// Failure 380 for any scale but twips.
  void SetScaleMode(std::int32_t eMode);

  std::int32_t PaperSize() const { return moSheet.ePaperSize; }
  std::int32_t Orientation() const { return moSheet.eOrientation; }
  /// Failure 380 for a size or orientation that isn't known, 396 while a document is open.
  void SetPaperSize(std::int32_t eSize);
  void SetOrientation(std::int32_t eOrientation);

  /// The page.
  double Width() const { return moSheet.lWidth; }
  double Height() const { return moSheet.lHeight; }
  /// Its printable part.
  double ScaleLeft() const { return moStrips.lLeft; }
  double ScaleTop() const { return moStrips.lTop; }
  double ScaleWidth() const { return Width() - moStrips.lLeft - moStrips.lRight; }
  double ScaleHeight() const { return Height() - moStrips.lTop - moStrips.lBottom; }

  double CurrentX() const { return mdX; }
  double CurrentY() const { return mdY; }
  void SetCurrentX(double dX) { mdX = dX; }
  void SetCurrentY(double dY) { mdY = dY; }

  const Text& FontName() const { return moFont.sName; }
  double FontSize() const { return moFont.dSize; }
  bool FontBold() const { return moFont.bBold; }
  /// A family; several in order of preference are separated by commas.
  void SetFontName(TextView sName) { moFont.sName = sName; }
  /// In points. Failure 380 unless above 0.
  void SetFontSize(double dSize);
  void SetFontBold(bool bBold) { moFont.bBold = bBold; }

  /// Of the widest line of sText, and of all its lines together; the empty text is one line high.
  double TextWidth(TextView sText) const;
  double TextHeight(TextView sText) const;

  /// The document's name in a print queue and in a file; for the documents that begin after it.
  void SetTitle(TextView sTitle) { msTitle = sTitle; }

  /// Prints from the current position on, each line under the one before, and goes to the start of
  /// the next line: CurrentX 0, CurrentY down by the height.
  void Print(TextView sText);
  void NewPage();
  /// The number of the page that is being printed, from 1; 1 as well between documents.
  std::int32_t Page() const { return mlPage; }
  /// Hands the document over; nothing when none is open. On a Failure it is lost, and the printer
  /// is ready for the next.
  void EndDoc();
  /// Drops the open document.
  void KillDoc() noexcept;

 private:
  void OpenPage();
  void TakeSheet(const Sheet& oSheet);
  void Rewind() noexcept;

  IPrintDevice& moDevice;
  Sheet moSheet;
  Strips moStrips;
  PrintFont moFont;
  Text msTitle;
  double mdX = 0, mdY = 0;
  std::int32_t mlPage = 1;
  bool mbDocument = false;
};

}  // namespace Paper
