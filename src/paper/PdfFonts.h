// Shapes and measures lines of text for a PDF document, independent of any screen: no hinting, no
// rounding to pixels, so that what was measured is what gets printed. For the sources of PdfDevice
// alone: it names types of the text library.
#pragma once

#include <pango/pangocairo.h>

#include <map>
#include <memory>
#include <tuple>

#include "IPrintDevice.h"

namespace Paper {

class PdfFonts {
 public:
  PdfFonts();

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

}  // namespace Paper
