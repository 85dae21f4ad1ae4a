// PDF documents by the printer for them that Windows has since version 10: it writes into a file of
// ours, whose bytes are the document.
#include "PdfDevice.h"

#include <windows.h>

#include <filesystem>

#include "AtomicFile.h"
#include "Failure.h"
#include "GdiDevice.h"
#include "PrinterList.h"
#include "Process.h"
#include "WindowsNames.h"

namespace Paper {

namespace {

std::string TemporaryName() {
  static int count = 0;
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  return folder.generic_string() + "/quillon-" + std::to_string(ProcessNumber()) + '-' +
         std::to_string(++count) + ".pdf";
}

Text PrinterOrFailure() {
  if (const auto printer = PdfPrinter()) return *printer;
  throw Failure(482, FailureText(482) +
                         u": there is no printer for PDF files; turn on \"Microsoft Print to PDF\" "
                         u"among the features of Windows, or print as text (--format text)");
}

}  // namespace

/// Measures without any printer.
class PdfDevice::Fonts : public GdiDevice {
 public:
  Fonts() : GdiDevice(Text()) {}
};

class PdfDevice::Document {
 public:
  Document() : mFile(TemporaryName()), mDevice(PrinterOrFailure(), mFile) {}
  ~Document() { DeleteFileW(WideName(mFile).c_str()); }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  GdiDevice& Device() { return mDevice; }
  std::string Finish() {
    mDevice.EndDocument();
    return AtomicFile::Read(mFile);
  }

 private:
  std::string mFile;
  GdiDevice mDevice;
};

PdfDevice::PdfDevice(Deliver fnDeliver)
    : mfnDeliver(std::move(fnDeliver)), moFonts(std::make_unique<Fonts>()) {}

PdfDevice::~PdfDevice() = default;

double PdfDevice::LineWidth(TextView sLine, const PrintFont& oFont) {
  return moFonts->LineWidth(sLine, oFont);
}

double PdfDevice::LineHeight(const PrintFont& oFont) {
  return moFonts->LineHeight(oFont);
}

void PdfDevice::StartDocument(TextView sTitle) {
  moDocument = std::make_unique<Document>();
  moDocument->Device().StartDocument(sTitle);
}

void PdfDevice::StartPage(const Sheet& oSheet) {
  moDocument->Device().StartPage(oSheet);
}

void PdfDevice::DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) {
  moDocument->Device().DrawLine(dX, dY, sLine, oFont);
}

void PdfDevice::EndDocument() {
  const std::unique_ptr<Document> document = std::move(moDocument);
  mfnDeliver(document->Finish());
}

void PdfDevice::KillDocument() noexcept {
  if (moDocument) moDocument->Device().KillDocument();
  moDocument.reset();
}

}  // namespace Paper
