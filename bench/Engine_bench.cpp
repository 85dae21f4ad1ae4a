// The engine on one procedure of about twenty lines, and the loading of the recommended template
// file. The counter gives lines of the procedure per second.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <span>
#include <string>

#include "CProcSettings.h"
#include "CTemplate.h"
#include "CodePage.h"
#include "LineNumbers.h"
#include "MXFile.h"
#include "Rewriter.h"
#include "VBBody.h"

namespace {

constexpr TextView sName = u"UpdateDepot";

Text TemplateText() {
  std::string sBytes;
  MXFile::FileBinaryRead(FromUtf8(QUILLON_SOURCE_DIR "/samples/Template.dat"), sBytes);
  return CodePage::Get("1252").Decode(sBytes);
}

struct Engine {
  MRules::Values oRules;
  CTemplate oTemplate{oRules};
  Text sCode;
  std::int64_t lLines;

  Engine() {
    oRules.eLineNumAction = MQuillon::LineNumAction::Insert;
    oTemplate.LoadTemplateText(u"Template.dat", TemplateText());
    VBWriter oWriter(1);
    oWriter.Line(0, "Private Sub UpdateDepot(ByVal sName As String, ByRef lCount As Long)");
    WriteBody(oWriter, "Sub", 16);
    oWriter.Line(0, "End Sub");
    lLines = static_cast<std::int64_t>(oWriter.Lines());
    sCode = CodePage::Get("1252").Decode(oWriter.Take());
  }

  Text Inserted() {
    Text sText = sCode;
    bool bErrors = false;
    oTemplate.InsertTemplate(u"MDepot", sName, u"Sub", sText, 1, u"Standard", false,
                             u"tvnBoundaryNone", u"tvnSeverityNormal", u"tvnRetryLine", true,
                             MQuillon::LineNumAction::Insert, bErrors);
    return bErrors ? Text() : sText;
  }
};

void LoadTemplate(benchmark::State& oState) {
  const Text sText = TemplateText();
  const MRules::Values oRules;
  for (auto _ : oState) {
    CTemplate oTemplate(oRules);
    oTemplate.LoadTemplateText(u"Template.dat", sText);
    benchmark::DoNotOptimize(oTemplate.LoadErrors());
  }
}
BENCHMARK(LoadTemplate);

void InsertTemplate(benchmark::State& oState) {
  Engine oEngine;
  if (oEngine.Inserted().empty()) return oState.SkipWithError("the template was refused");
  for (auto _ : oState) benchmark::DoNotOptimize(oEngine.Inserted());
  oState.SetItemsProcessed(oState.iterations() * oEngine.lLines);
}
BENCHMARK(InsertTemplate);

void RemoveTemplate(benchmark::State& oState) {
  Engine oEngine;
  const Text sInserted = oEngine.Inserted();
  bool bErrors = false;
  for (auto _ : oState) {
    Text sText = sInserted;
    oEngine.oTemplate.RemoveTemplate(u"MDepot", sName, u"Sub", sText, 1, u"Standard", bErrors);
    if (bErrors) return oState.SkipWithError("the removal was refused");
    benchmark::DoNotOptimize(sText);
  }
  oState.SetItemsProcessed(oState.iterations() * oEngine.lLines);
}
BENCHMARK(RemoveTemplate);

/// A whole rewrite with its proof: the template's place is taken by the same one, as a refresh
/// does. Counted besides: how many texts were taken apart and had their settings read for each.
void RefreshProcedure(benchmark::State& state) {
  Engine engine;
  const Text text = engine.Inserted();
  const WantedSettings wanted{.templateName = u"Standard"};
  const std::size_t before = ParsedProcedure::Count();
  for (auto _ : state) {
    const ParsedProcedure procedure(engine.oTemplate.Set(), text, {u"MDepot", sName, u"Sub"}, 1);
    const Rewrite rewrite = RewriteProcedure(
        procedure, wanted, {.numbering = MQuillon::LineNumAction::Insert, .prove = true},
        engine.oRules);
    if (rewrite.Refused()) return state.SkipWithError("the rewrite was refused");
  }
  state.counters["texts parsed"] = benchmark::Counter(
      static_cast<double>(ParsedProcedure::Count() - before), benchmark::Counter::kAvgIterations);
}
BENCHMARK(RefreshProcedure);

void ExtractSettings(benchmark::State& oState) {
  Engine oEngine;
  const bool bHasTemplate = oState.range(0) != 0;
  const Text sText = bHasTemplate ? oEngine.Inserted() : oEngine.sCode;
  for (auto _ : oState) {
    CProcSettings oSettings;
    oEngine.oTemplate.ExtractProcSettings(sText, oSettings);
    if (oSettings.sTemplate().empty() == bHasTemplate)
      return oState.SkipWithError("the wrong template was read");
  }
  oState.SetItemsProcessed(oState.iterations() * oEngine.lLines);
}
BENCHMARK(ExtractSettings)->ArgName("template")->Arg(0)->Arg(1);

void NumberLines(benchmark::State& oState) {
  Engine oEngine;
  const auto asLine = SplitLines(oEngine.sCode);
  const auto oBody = std::span(asLine).subspan(1, asLine.size() - 2);
  for (auto _ : oState) {
    benchmark::DoNotOptimize(
        LineNumbers::DoLineNumbers(oBody, MQuillon::LineNumAction::Insert, oEngine.oRules));
  }
  oState.SetItemsProcessed(oState.iterations() * oEngine.lLines);
}
BENCHMARK(NumberLines);

}  // namespace
