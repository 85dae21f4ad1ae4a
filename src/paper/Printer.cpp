#include "Printer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Failure.h"

namespace Paper {

namespace {

// Families in order of preference. The size is chosen so that the widest words of the reports'
// fixed columns fit the default widths.
constexpr TextView UsualFonts = u"Liberation Sans,Arial,Helvetica,DejaVu Sans Condensed,Sans";
constexpr double UsualFontSize = 7.5;

/// At CR LF, CR or LF; always one line at least. The views point into sText.
std::vector<TextView> LinesOf(TextView sText) {
  std::vector<TextView> asLine;
  for (;;) {
    const std::size_t lEnd = sText.find_first_of(u"\r\n");
    asLine.push_back(sText.substr(0, lEnd));
    if (lEnd == TextView::npos) return asLine;
    sText.remove_prefix(lEnd + (sText.substr(lEnd).starts_with(CrLf) ? 2 : 1));
  }
}

}  // namespace

Printer::Printer(IPrintDevice& oDevice)
    : moDevice(oDevice),
      moSheet(MakeSheet(oDevice.LoadedPaper(), Portrait)),
      moStrips(oDevice.Unprintable(moSheet)),
      moFont{Text(UsualFonts), UsualFontSize, false} {}

void Printer::SetScaleMode(std::int32_t eMode) {
  if (eMode != ScaleTwips) throw Failure(380);
}

void Printer::SetPaperSize(std::int32_t eSize) {
  TakeSheet(MakeSheet(eSize, moSheet.eOrientation));
}

void Printer::SetOrientation(std::int32_t eOrientation) {
  TakeSheet(MakeSheet(moSheet.ePaperSize, eOrientation));
}

void Printer::TakeSheet(const Sheet& oSheet) {
  if (mbDocument) throw Failure(396, u"Property cannot be set within a page");
  moStrips = moDevice.Unprintable(oSheet);
  moSheet = oSheet;
}

void Printer::SetFontSize(double dSize) {
  if (!(dSize > 0)) throw Failure(380);
  moFont.dSize = dSize;
}

double Printer::TextWidth(TextView sText) const {
  double dWidth = 0;
  for (const TextView sLine : LinesOf(sText)) {
    dWidth = std::max(dWidth, moDevice.LineWidth(sLine, moFont));
  }
  return dWidth;
}

double Printer::TextHeight(TextView sText) const {
  return static_cast<double>(LinesOf(sText).size()) * moDevice.LineHeight(moFont);
}

void Printer::Print(TextView sText) {
  OpenPage();
  const double dHeight = moDevice.LineHeight(moFont);
  for (const TextView sLine : LinesOf(sText)) {
    if (!sLine.empty()) moDevice.DrawLine(mdX, mdY, sLine, moFont);
    mdY += dHeight;
  }
  mdX = 0;
}

void Printer::NewPage() {
  OpenPage();
  moDevice.StartPage(moSheet);
  ++mlPage;
  mdX = mdY = 0;
}

void Printer::OpenPage() {
  if (mbDocument) return;
  moDevice.StartDocument(msTitle);
  mbDocument = true;
  moDevice.StartPage(moSheet);
}

void Printer::EndDoc() {
  const bool bOpen = std::exchange(mbDocument, false);
  Rewind();
  if (bOpen) moDevice.EndDocument();
}

void Printer::KillDoc() noexcept {
  if (std::exchange(mbDocument, false)) moDevice.KillDocument();
  Rewind();
}

void Printer::Rewind() noexcept {
  mlPage = 1;
  mdX = mdY = 0;
}

}  // namespace Paper
