// The page setup dialog: margins, paper, and the printer that reports go to.
#pragma once

#include <cstdint>

#include "Toolkit.h"

namespace Paper {
class Printers;
}

class CXChoosePage {
 public:
  /// Values of ScaleMode; any other leaves the unit to the system.
  static constexpr std::int32_t Inches = 5, Millimeters = 6;

  /// oPrinters outlives this object.
  CXChoosePage(Forms::Toolkit& oToolkit, Paper::Printers& oPrinters)
      : moToolkit(oToolkit), moPrinters(oPrinters) {}

  Forms::Form* Dialog = nullptr;  ///< the owner; null for none
  /// The chosen printer becomes the current one of the collection, with paper and orientation.
  bool SetDefaultPrinter = true;
  bool DisableMargins = false, DisableOrientation = false, DisablePaper = false,
       DisablePrinter = false;
  /// In and out: thousandths of an inch with ScaleMode Inches, hundredths of a millimetre with
  /// Millimeters.
  std::int32_t LeftMargin = 0, RightMargin = 0, TopMargin = 0, BottomMargin = 0;
  /// When confirmed, the chosen ones; the dialog starts on the current printer.
  Text DeviceName;
  std::int32_t PaperSize = 0, Orientation = 0;
  std::int32_t ScaleMode = Inches;

  /// True when the user confirmed. Failures as those of WasConfirmed, and those of Printer for
  /// paper that it can't take; margins and names are the chosen ones then as well.
  bool Show();

 private:
  Forms::PageDialog Request();
  void Take(const Forms::PageDialog& oAnswered);
  void SetUpPrinter();

  Forms::Toolkit& moToolkit;
  Paper::Printers& moPrinters;
};
