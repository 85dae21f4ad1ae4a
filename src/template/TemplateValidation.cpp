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
  TemplateType eType;
  Fault eFault;
  Section eSection;
  Section eOther;
  TextView sMessage;
};

constexpr TemplateType Any = TemplateType::Unknown;
constexpr Section None = Section::Global;

// In the order of the messages.
constexpr Rule atRule[] = {
    {Any, Fault::Missing, Section::Start, None, u"#Start Directive not found in Template"},
    {Any, Fault::Missing, Section::End, None, u"#End Directive not found in Template"},

    {TemplateType::Signature, Fault::Present, Section::BodyStart, None,
     u"#BodyStart Directive found in Signature type Template"},
    {TemplateType::Signature, Fault::Present, Section::BodyEnd, None,
     u"#BodyEnd Directive found in Signature type Template"},
    {TemplateType::Signature, Fault::Present, Section::FireStart, None,
     u"#FireExitStart Directive found in Signature type Template"},
    {TemplateType::Signature, Fault::Present, Section::FireEnd, None,
     u"#FireExitEnd Directive found in Signature type Template"},

    {TemplateType::Module, Fault::Present, Section::BodyStart, None,
     u"#BodyStart Directive found in Module type Template"},
    {TemplateType::Module, Fault::Present, Section::BodyEnd, None,
     u"#BodyEnd Directive found in Module type Template"},
    {TemplateType::Module, Fault::Present, Section::FireStart, None,
     u"#FireExitStart Directive found in Module type Template"},
    {TemplateType::Module, Fault::Present, Section::FireEnd, None,
     u"#FireExitEnd Directive found in Module type Template"},

    {TemplateType::Procedure, Fault::Missing, Section::BodyStart, None,
     u"#BodyStart Directive not found in Template"},
    {TemplateType::Procedure, Fault::Missing, Section::BodyEnd, None,
     u"#BodyEnd Directive not found in Template"},
    {TemplateType::Procedure, Fault::Above, Section::BodyEnd, Section::BodyStart,
     u"#BodyEnd Directive found before #BodyStart Directive"},
    {TemplateType::Procedure, Fault::WithoutPair, Section::FireEnd, Section::FireStart,
     u"#FireExitEnd Directive found without corresponding #FireExitStart"},
    {TemplateType::Procedure, Fault::WithoutPair, Section::FireStart, Section::FireEnd,
     u"#FireExitStart Directive found without corresponding #FireExitEnd"},
    {TemplateType::Procedure, Fault::Above, Section::FireEnd, Section::FireStart,
     u"#FireExitEnd Directive found before #FireExitStart Directive"},
    {TemplateType::Procedure, Fault::Above, Section::FireStart, Section::BodyEnd,
     u"#FireExitStart Directive found before #BodyEnd Directive"},
    {TemplateType::Procedure, Fault::Above, Section::FireEnd, Section::BodyEnd,
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
  const auto lCount = static_cast<std::int32_t>(moTemplate.moSet.templates.size());
  if (lTemplate < 1 || lTemplate >= lCount) return;
  TemplateRow& oRow = moTemplate.moSet.templates[static_cast<std::size_t>(lTemplate)];
  if (oRow.bValidated) return;
  oRow.bValidated = true;
  if (oRow.eType == TemplateType::Unknown) return;
  if (oRow.eType == TemplateType::Procedure) oRow.bFire = Found(oRow, Section::FireStart);
  for (const Rule& oRule : atRule) {
    const bool bApplies = oRule.eType == Any || oRule.eType == oRow.eType;
    if (bApplies && Breaks(oRow, oRule)) ReportError(oRow.lDirectiveLine, oRule.sMessage);
  }
}
