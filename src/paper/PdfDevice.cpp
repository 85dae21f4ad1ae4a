#include "PdfDevice.h"

#include <cairo-pdf.h>

#include <new>

#include "Failure.h"
#include "MXDate.h"
#include "PdfFonts.h"

namespace Paper {

namespace {

constexpr double TwipsPerPoint = 20;

[[noreturn]] void Fail(cairo_status_t eStatus) {
  throw Failure(482, FailureText(482) + u": the PDF document can't be made (" +
                         FromUtf8(cairo_status_to_string(eStatus)) + u")");
}

// Called from C: no exception may pass.
cairo_status_t Append(void* poBytes, const unsigned char* pData, unsigned int lLength) {
  try {
    static_cast<std::string*>(poBytes)->append(reinterpret_cast<const char*>(pData), lLength);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

}  // namespace

class PdfDevice::Document {
 public:
  explicit Document(TextView sTitle)
      : moSurface(cairo_pdf_surface_create_for_stream(Append, &msBytes, 1, 1)),
        moContext(cairo_create(moSurface)) {
    cairo_pdf_surface_set_metadata(moSurface, CAIRO_PDF_METADATA_TITLE, ToUtf8(sTitle).c_str());
    cairo_pdf_surface_set_metadata(moSurface, CAIRO_PDF_METADATA_CREATE_DATE,
                                   ToUtf8(MXDate::DocumentTime(MXDate::fnNow())).c_str());
  }
  ~Document() {
    cairo_destroy(moContext);
    cairo_surface_destroy(moSurface);
  }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  void StartPage(const Sheet& oSheet) {
    if (mbPage) cairo_show_page(moContext);
    mbPage = true;
    cairo_pdf_surface_set_size(moSurface, oSheet.lWidth / TwipsPerPoint,
                               oSheet.lHeight / TwipsPerPoint);
    Check();
  }

  /// dY: of the line's foot, on which the letters stand.
  void Show(double dX, double dY, PangoLayoutLine* poLine) {
    cairo_move_to(moContext, dX / TwipsPerPoint, dY / TwipsPerPoint);
    pango_cairo_show_layout_line(moContext, poLine);
    Check();
  }

  const std::string& Finish() {
    cairo_show_page(moContext);
    cairo_surface_finish(moSurface);
    if (const auto eStatus = cairo_surface_status(moSurface)) Fail(eStatus);
    return msBytes;
  }

 private:
  void Check() const {
    if (const auto eStatus = cairo_status(moContext)) Fail(eStatus);
  }

  std::string msBytes;  // ahead of the surface, which writes to it until its end
  cairo_surface_t* moSurface;
  cairo_t* moContext;
  bool mbPage = false;
};

PdfDevice::PdfDevice(Deliver fnDeliver)
    : mfnDeliver(std::move(fnDeliver)), moFonts(std::make_unique<PdfFonts>()) {}

PdfDevice::~PdfDevice() = default;

double PdfDevice::LineWidth(TextView sLine, const PrintFont& oFont) {
  return moFonts->WidthOf(sLine, oFont);
}

double PdfDevice::LineHeight(const PrintFont& oFont) {
  return moFonts->Height(oFont);
}

void PdfDevice::StartDocument(TextView sTitle) {
  moDocument = std::make_unique<Document>(sTitle);
}

void PdfDevice::StartPage(const Sheet& oSheet) {
  moDocument->StartPage(oSheet);
}

void PdfDevice::DrawLine(double dX, double dY, TextView sLine, const PrintFont& oFont) {
  const double dFoot = dY + moFonts->Ascent(oFont);
  moDocument->Show(dX, dFoot, moFonts->Shape(sLine, oFont));
}

void PdfDevice::EndDocument() {
  const std::unique_ptr<Document> oDocument = std::move(moDocument);
  mfnDeliver(oDocument->Finish());
}

void PdfDevice::KillDocument() noexcept {
  moDocument.reset();
}

}  // namespace Paper
