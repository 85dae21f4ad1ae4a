// A whole template file: every fault is counted and told, every place is a row of the table, and
// the checks for authors take whatever was loaded.
#include <cstdlib>

#include "CTemplate.h"
#include "TemplateCheck.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t lSize) {
  const MRules::Values oRules;
  CTemplate oTemplate(oRules);
  std::int32_t lTold = 0;
  auto oLink = oTemplate.ReportError.Connect(
      [&](TextView sText) { lTold += sText.starts_with(u"    Line ") ? 1 : 0; });
  oTemplate.LoadTemplateText(u"f", FromUtf8({reinterpret_cast<const char*>(pBytes), lSize}));
  if (lTold != oTemplate.LoadErrors()) std::abort();

  const auto lLines = static_cast<std::int32_t>(oTemplate.Lines().size());
  for (const TemplateRow& oRow : oTemplate.Templates()) {
    for (std::int32_t lStart : oRow.lStart.values) {
      if (lStart < -1 || lStart >= lLines) std::abort();
    }
    if (!oRow.sName.empty() && oTemplate.LookupTemplate(oRow.sName) < 1) std::abort();
  }
  std::int32_t lLast = 0;
  for (const TemplateFinding& oFinding : CheckTemplate(oTemplate)) {
    if (oFinding.line < lLast || oFinding.message.empty()) std::abort();
    lLast = oFinding.line;
  }
  return 0;
}
