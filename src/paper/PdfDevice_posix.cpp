// In order: the fonts, the document, the device that joins them.
#include "PdfDevice.h"

#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <map>
#include <new>
#include <tuple>

#include "Failure.h"
#include "MXDate.h"

namespace Paper {

namespace {

constexpr double TwipsPerPoint = 20;
// The least height of a line in font sizes, since some fonts define no space between lines. A
// choice, near to what common fonts have.
constexpr double LeastLineHeight = 1.15;

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

double Twips(int nPangoUnits) {
  return TwipsPerPoint * nPangoUnits / PANGO_SCALE;
}

}  // namespace

/// Shapes and measures lines of text independent of any screen: no hinting, no rounding to pixels,
/// so that what was measured is what gets printed.
class PdfDevice::Fonts {
 public:
  Fonts();

  /// One line of text, in points; valid until the next call.
  PangoLayoutLine* Shape(TextView sLine, const PrintFont& oFont);
  /// In twips.
  double WidthOf(TextView sLine, const PrintFont& oFont);
  /// Of the font itself, in twips: letters that come from other fonts don't move a line.
  double Ascent(const PrintFont& oFont) { return MetricsOf(oFont).dAscent; }
  double Height(const PrintFont& oFont) { return MetricsOf(oFont).dHeight; }

 private:
  struct Unref {
    void operator()(void* p) const { g_object_unref(p); }
  };
  struct Metrics {
    double dAscent, dHeight;
  };
  struct FreeDescription {
    void operator()(PangoFontDescription* p) const { pango_font_description_free(p); }
  };
  using Description = std::unique_ptr<PangoFontDescription, FreeDescription>;

  static Description Describe(const PrintFont& oFont);
  const Metrics& MetricsOf(const PrintFont& oFont);

  std::unique_ptr<PangoFontMap, Unref> moMap;
  std::unique_ptr<PangoContext, Unref> moContext;
  std::unique_ptr<PangoLayout, Unref> moLayout;
  std::map<std::tuple<Text, double, bool>, Metrics> moMetrics;
};

PdfDevice::Fonts::Fonts()
    : moMap(pango_cairo_font_map_new()),
      moContext(pango_font_map_create_context(moMap.get())),
      moLayout(nullptr) {
  cairo_font_options_t* poOptions = cairo_font_options_create();
  cairo_font_options_set_hint_style(poOptions, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(poOptions, CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(moContext.get(), poOptions);
  cairo_font_options_destroy(poOptions);
  // 72 to the inch: one unit of the page is one point.
  pango_cairo_context_set_resolution(moContext.get(), 72);
  pango_context_set_round_glyph_positions(moContext.get(), FALSE);
  moLayout.reset(pango_layout_new(moContext.get()));
  pango_layout_set_single_paragraph_mode(moLayout.get(), TRUE);
}

PdfDevice::Fonts::Description PdfDevice::Fonts::Describe(const PrintFont& oFont) {
  Description oDescription(pango_font_description_new());
  pango_font_description_set_family(oDescription.get(), ToUtf8(oFont.sName).c_str());
  pango_font_description_set_size(oDescription.get(), static_cast<int>(oFont.dSize * PANGO_SCALE));
  pango_font_description_set_weight(oDescription.get(),
                                    oFont.bBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  return oDescription;
}

PangoLayoutLine* PdfDevice::Fonts::Shape(TextView sLine, const PrintFont& oFont) {
  const std::string sUtf8 = ToUtf8(sLine);
  pango_layout_set_font_description(moLayout.get(), Describe(oFont).get());
  // A text is mostly measured and then drawn, so that the last one is kept shaped.
  if (sUtf8 != pango_layout_get_text(moLayout.get())) {
    pango_layout_set_text(moLayout.get(), sUtf8.data(), static_cast<int>(sUtf8.size()));
  }
  return pango_layout_get_line_readonly(moLayout.get(), 0);
}

double PdfDevice::Fonts::WidthOf(TextView sLine, const PrintFont& oFont) {
  PangoRectangle oExtents;
  pango_layout_line_get_extents(Shape(sLine, oFont), nullptr, &oExtents);
  return Twips(oExtents.width);
}

const PdfDevice::Fonts::Metrics& PdfDevice::Fonts::MetricsOf(const PrintFont& oFont) {
  const auto [oPlace, bNew] =
      moMetrics.try_emplace({oFont.sName, oFont.dSize, oFont.bBold}, Metrics{});
  if (bNew) {
    PangoFontMetrics* poMetrics =
        pango_context_get_metrics(moContext.get(), Describe(oFont).get(), nullptr);
    const int nAscent = pango_font_metrics_get_ascent(poMetrics);
    const int nDescent = pango_font_metrics_get_descent(poMetrics);
    pango_font_metrics_unref(poMetrics);
    oPlace->second = {Twips(nAscent), std::max(Twips(nAscent + nDescent),
                                               LeastLineHeight * oFont.dSize * TwipsPerPoint)};
  }
  return oPlace->second;
}

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
    : mfnDeliver(std::move(fnDeliver)), moFonts(std::make_unique<Fonts>()) {}

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
