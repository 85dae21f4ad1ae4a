// What every line of source passes through: decoding and scanning a file, and the Like matcher on
// ordinary lines and on a pattern made to be slow.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "CodePage.h"
#include "LikePattern.h"
#include "SourceDocument.h"
#include "VBComponent.h"

namespace {

void ScanFile(benchmark::State& oState) {
  const auto lLines = static_cast<std::size_t>(oState.range(0));
  const std::string sBytes = MakeComponent(VBKind::Class, "CDepot", lLines, 1);
  for (auto _ : oState) {
    const SourceDocument oDocument(sBytes, CodePage::Get("1252"), true, {});
    benchmark::DoNotOptimize(oDocument.MemberCount());
  }
  oState.SetItemsProcessed(oState.iterations() * oState.range(0));
  oState.SetBytesProcessed(oState.iterations() * static_cast<std::int64_t>(sBytes.size()));
}
BENCHMARK(ScanFile)->ArgName("lines")->Arg(100)->Arg(1000)->Arg(10000);

void MatchLine(benchmark::State& oState) {
  const LikePattern oPattern(u"gtrail.traceenter \"*\", \"*\"");
  const Text sFits = u"gtrail.traceenter \"mdepot\", \"updatedepot\"";
  const Text sOther = u"if lcount < 3 then exit sub";
  for (auto _ : oState) {
    benchmark::DoNotOptimize(oPattern.Matches(sFits));
    benchmark::DoNotOptimize(oPattern.Matches(sOther));
  }
  oState.SetItemsProcessed(oState.iterations() * 2);
}
BENCHMARK(MatchLine);

void MatchHostilePattern(benchmark::State& oState) {
  const LikePattern oPattern(u"*a*a*a*a*a*a*a*a*b");
  const Text sText(static_cast<std::size_t>(oState.range(0)), u'a');
  for (auto _ : oState) benchmark::DoNotOptimize(oPattern.Matches(sText));
  oState.SetComplexityN(oState.range(0));
}
BENCHMARK(MatchHostilePattern)->Range(1 << 8, 1 << 14)->Complexity(benchmark::oN);

}  // namespace
