#include "CXChoosePage.h"

#include "CommonDialogFailure.h"
#include "Printers.h"

using namespace Forms;

namespace {

MarginUnit UnitOf(std::int32_t eScaleMode) {
  switch (eScaleMode) {
    case CXChoosePage::Inches:
      return MarginUnit::ThousandthsOfInch;
    case CXChoosePage::Millimeters:
      return MarginUnit::HundredthsOfMillimeter;
    default:
      return MarginUnit::Default;
  }
}

}  // namespace

bool CXChoosePage::Show() {
  PageDialog oDialog = Request();
  if (!WasConfirmed(moToolkit.ChoosePage(oDialog))) return false;
  Take(oDialog);
  if (SetDefaultPrinter) SetUpPrinter();
  return true;
}

PageDialog CXChoosePage::Request() {
  PageDialog oDialog;
  oDialog.poOwner = Dialog;
  oDialog.eUnit = UnitOf(ScaleMode);
  oDialog.lLeft = LeftMargin;
  oDialog.lRight = RightMargin;
  oDialog.lTop = TopMargin;
  oDialog.lBottom = BottomMargin;
  oDialog.bDisableMargins = DisableMargins;
  oDialog.bDisableOrientation = DisableOrientation;
  oDialog.bDisablePaper = DisablePaper;
  oDialog.bDisablePrinter = DisablePrinter;
  for (std::int32_t i = 1; i <= moPrinters.Count(); ++i)
    oDialog.asDevice.push_back(moPrinters.DeviceName(i));
  for (const Paper::PaperForm& o : Paper::PaperForms())
    oDialog.aoPaper.push_back({o.eSize, Text(o.sName)});
  const Paper::Printer& oPrinter = moPrinters.Current();
  oDialog.sDeviceName = oPrinter.DeviceName();
  oDialog.lPaperSize = oPrinter.PaperSize();
  oDialog.lOrientation = oPrinter.Orientation();
  return oDialog;
}

void CXChoosePage::Take(const PageDialog& oAnswered) {
  LeftMargin = oAnswered.lLeft;
  RightMargin = oAnswered.lRight;
  TopMargin = oAnswered.lTop;
  BottomMargin = oAnswered.lBottom;
  DeviceName = oAnswered.sDeviceName.substr(0, oAnswered.sDeviceName.find(u'\0'));
  PaperSize = oAnswered.lPaperSize;
  Orientation = oAnswered.lOrientation;
}

void CXChoosePage::SetUpPrinter() {
  if (!moPrinters.SetCurrent(DeviceName)) return;
  Paper::Printer& oPrinter = moPrinters.Current();
  // 0 is the system's default, which the printer has already.
  if (PaperSize != 0) oPrinter.SetPaperSize(PaperSize);
  if (Orientation != 0) oPrinter.SetOrientation(Orientation);
}
