#include "PdfFonts.h"

#include <string>

namespace Paper {

namespace {

constexpr double TwipsPerPoint = 20;

double Twips(int nPangoUnits) {
  return TwipsPerPoint * nPangoUnits / PANGO_SCALE;
}

}  // namespace

PdfFonts::PdfFonts()
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

PdfFonts::Description PdfFonts::Describe(const PrintFont& oFont) {
  Description oDescription(pango_font_description_new());
  pango_font_description_set_family(oDescription.get(), ToUtf8(oFont.sName).c_str());
  pango_font_description_set_size(oDescription.get(), static_cast<int>(oFont.dSize * PANGO_SCALE));
  pango_font_description_set_weight(oDescription.get(),
                                    oFont.bBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  return oDescription;
}

PangoLayoutLine* PdfFonts::Shape(TextView sLine, const PrintFont& oFont) {
  const std::string sUtf8 = ToUtf8(sLine);
  pango_layout_set_font_description(moLayout.get(), Describe(oFont).get());
  pango_layout_set_text(moLayout.get(), sUtf8.data(), static_cast<int>(sUtf8.size()));
  return pango_layout_get_line_readonly(moLayout.get(), 0);
}

double PdfFonts::WidthOf(TextView sLine, const PrintFont& oFont) {
  PangoRectangle oExtents;
  pango_layout_line_get_extents(Shape(sLine, oFont), nullptr, &oExtents);
  return Twips(oExtents.width);
}

const PdfFonts::Metrics& PdfFonts::MetricsOf(const PrintFont& oFont) {
  const auto [oPlace, bNew] =
      moMetrics.try_emplace({oFont.sName, oFont.dSize, oFont.bBold}, Metrics{});
  if (bNew) {
    PangoFontMetrics* poMetrics =
        pango_context_get_metrics(moContext.get(), Describe(oFont).get(), nullptr);
    const int nAscent = pango_font_metrics_get_ascent(poMetrics);
    const int nDescent = pango_font_metrics_get_descent(poMetrics);
    pango_font_metrics_unref(poMetrics);
    oPlace->second = {Twips(nAscent), Twips(nAscent + nDescent)};
  }
  return oPlace->second;
}

}  // namespace Paper
