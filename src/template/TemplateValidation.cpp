// What a template of each type must hold and in which order; reported once per template, at the
// line of its <#Template>.
#include "TemplateLoader.h"

namespace {

enum class Fault {
  Missing,     ///< the section's directive isn't there
  Present,     ///< it is there
  Above,       ///< both are there, the section stands above the other
  WithoutPair  ///< the section is there and the other isn't
};

struct Rule {
  std::int32_t eType;
  Fault eFault;
  Section eSection;
  Section eOther;
  TextView sMessage;
};

constexpr Section None = SectionGlobal;

// In the order of the messages.
constexpr Rule atRule[] = {
    {0, Fault::Missing, SectionStart, None, u"#Start Directive not found in Template"},
    {0, Fault::Missing, SectionEnd, None, u"#End Directive not found in Template"},

    {1, Fault::Present, SectionBodyStart, None,
     u"#BodyStart Directive found in Signature type Template"},
    {1, Fault::Present, SectionBodyEnd, None,
     u"#BodyEnd Directive found in Signature type Template"},
    {1, Fault::Present, SectionFireStart, None,
     u"#FireExitStart Directive found in Signature type Template"},
    {1, Fault::Present, SectionFireEnd, None,
     u"#FireExitEnd Directive found in Signature type Template"},

    {2, Fault::Present, SectionBodyStart, None,
     u"#BodyStart Directive found in Module type Template"},
    {2, Fault::Present, SectionBodyEnd, None, u"#BodyEnd Directive found in Module type Template"},
    {2, Fault::Present, SectionFireStart, None,
     u"#FireExitStart Directive found in Module type Template"},
    {2, Fault::Present, SectionFireEnd, None,
     u"#FireExitEnd Directive found in Module type Template"},

    {3, Fault::Missing, SectionBodyStart, None, u"#BodyStart Directive not found in Template"},
    {3, Fault::Missing, SectionBodyEnd, None, u"#BodyEnd Directive not found in Template"},
    {3, Fault::Above, SectionBodyEnd, SectionBodyStart,
     u"#BodyEnd Directive found before #BodyStart Directive"},
    {3, Fault::WithoutPair, SectionFireEnd, SectionFireStart,
     u"#FireExitEnd Directive found without corresponding #FireExitStart"},
    {3, Fault::WithoutPair, SectionFireStart, SectionFireEnd,
     u"#FireExitStart Directive found without corresponding #FireExitEnd"},
    {3, Fault::Above, SectionFireEnd, SectionFireStart,
     u"#FireExitEnd Directive found before #FireExitStart Directive"},
    {3, Fault::Above, SectionFireStart, SectionBodyEnd,
     u"#FireExitStart Directive found before #BodyEnd Directive"},
    {3, Fault::Above, SectionFireEnd, SectionBodyEnd,
     u"#FireExitEnd Directive found before #BodyEnd Directive"},
};

bool Found(const TemplateRow& oRow, Section eSection) {
  return oRow.lStart[eSection] >= 1;
}

bool Breaks(const TemplateRow& oRow, const Rule& oRule) {
  const bool bFound = Found(oRow, oRule.eSection);
  switch (oRule.eFault) {
    case Fault::Missing:
      return !bFound;
    case Fault::Present:
      return bFound;
    case Fault::Above:
      // A section that isn't there has a row below every other one.
      return bFound && oRow.lStart[oRule.eSection] < oRow.lStart[oRule.eOther];
    case Fault::WithoutPair:
      return bFound && !Found(oRow, oRule.eOther);
  }
  return false;
}

}  // namespace

void TemplateLoader::ValidateTemplate(std::int32_t lTemplate) {
  const auto lCount = static_cast<std::int32_t>(moTemplate.matTemplate.size());
  if (lTemplate < 1 || lTemplate >= lCount) return;
  TemplateRow& oRow = moTemplate.matTemplate[static_cast<std::size_t>(lTemplate)];
  if (oRow.bValidated) return;
  oRow.bValidated = true;
  if (oRow.eType == TemplateUnknown) return;
  if (oRow.eType == TemplateProcedure) oRow.bFire = Found(oRow, SectionFireStart);
  for (const Rule& oRule : atRule) {
    const bool bApplies = oRule.eType == 0 || oRule.eType == oRow.eType;
    if (bApplies && Breaks(oRow, oRule)) ReportError(oRow.lDirectiveLine, oRule.sMessage);
  }
}
