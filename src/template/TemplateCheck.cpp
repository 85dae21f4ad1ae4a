#include "TemplateCheck.h"

#include <algorithm>
#include <array>

#include "MQuillon.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

// One of each kind of line that a body has anyway. An early Exit is among them: a border row of
// that form would be found in the user's code first.
constexpr std::array<TextView, 12> asOrdinaryCode = {
    u"x = 1",           u"call foo(a, b)", u"foo a, b", u"dim a as long", u"end if",
    u"next i",          u"loop",           u"exit sub", u"exit function", u"exit property",
    u"set o = nothing", u"' a comment"};
constexpr std::array<TextView, 7> asOrdinaryDeclaration = {u"option explicit",
                                                           u"dim a as long",
                                                           u"private msname as string",
                                                           u"public ocars as ccars",
                                                           u"const a = 1",
                                                           u"private const lmax as long = 1",
                                                           u"' a comment"};

TextView FirstFitting(const LikePattern& oPattern, std::span<const TextView> asLine) {
  for (TextView sLine : asLine) {
    if (oPattern.Matches(sLine)) return sLine;
  }
  return {};
}

}  // namespace

void Findings::Add(std::int32_t lFileLine, std::initializer_list<TextView> asPart) {
  TemplateFinding& oFinding = moFindings.emplace_back();
  oFinding.lLine = lFileLine;
  for (TextView sPart : asPart) oFinding.sMessage.append(sPart);
}

bool Findings::HasLine(std::int32_t lFileLine) const {
  return std::any_of(moFindings.begin(), moFindings.end(),
                     [=](const TemplateFinding& oFinding) { return oFinding.lLine == lFileLine; });
}

std::vector<TemplateFinding> Findings::Take() {
  std::stable_sort(moFindings.begin(), moFindings.end(), [](const auto& oLeft, const auto& oRight) {
    return oLeft.lLine < oRight.lLine;
  });
  return std::move(moFindings);
}

Stretch Between(const TemplateRow& oTemplate, Section eFrom, Section eTo) {
  const std::int32_t lFrom = oTemplate.lStart[eFrom], lTo = oTemplate.lStart[eTo];
  if (lFrom < 1 || lTo <= lFrom) return {};
  return {lFrom + 1, lTo};
}

std::vector<Stretch> WrittenStretches(const TemplateRow& oTemplate) {
  if (oTemplate.eType == TemplateType::Module)
    return {Between(oTemplate, Section::Start, Section::End)};
  if (oTemplate.eType == TemplateType::Procedure) {
    const Stretch oStart = Between(oTemplate, Section::Start, Section::BodyStart);
    if (!oTemplate.bFire) return {oStart, Between(oTemplate, Section::BodyEnd, Section::End)};
    return {oStart, Between(oTemplate, Section::BodyEnd, Section::FireStart),
            Between(oTemplate, Section::FireEnd, Section::End)};
  }
  Stretch oLine = Between(oTemplate, Section::Start, Section::End);
  oLine.lLast = std::min(oLine.lLast, oLine.lFirst + 1);
  return {oLine};
}

SectionValues SampleValues(const TemplateRow& oTemplate, std::uint32_t lWithout) {
  static const Text sBoundary = MQuillon::BoundaryName(MQuillon::Boundary::Firewall);
  static const Text sSeverity = MQuillon::SeverityName(MQuillon::Severity::Normal);
  static const Text sRetry = MQuillon::RetryName(MQuillon::Retry::Line);
  const bool bModule = oTemplate.eType == TemplateType::Module;
  SectionValues oValues;
  oValues.signature = oTemplate.sName;
  oValues.moduleName = u"Module1";
  oValues.shownName = bModule ? MQuillon::DeclarationsName : TextView(u"Total");
  oValues.baseType = bModule ? u"" : u"Sub";
  if ((lWithout & 1) == 0) oValues.boundary = sBoundary;
  if ((lWithout & 2) == 0) oValues.severity = sSeverity;
  if ((lWithout & 4) == 0) oValues.retry = sRetry;
  oValues.trace = true;
  return oValues;
}

Text NamesOf(std::uint32_t lWithout) {
  Text sNames;
  std::uint32_t lBit = 1;
  for (TextView sName : {u"boundary", u"severity", u"retry"}) {
    if ((lWithout & lBit) != 0) sNames.append(sNames.empty() ? u"" : u" and ").append(sName);
    lBit *= 2;
  }
  return sNames;
}

TextView OrdinaryCodeFitting(const LikePattern& oPattern) {
  return FirstFitting(oPattern, asOrdinaryCode);
}

TextView OrdinaryDeclarationFitting(const LikePattern& oPattern) {
  return FirstFitting(oPattern, asOrdinaryDeclaration);
}

}  // namespace TemplateChecks

std::vector<TemplateFinding> CheckTemplate(const CTemplate& oTemplate) {
  TemplateChecks::Findings oFindings(oTemplate);
  TemplateChecks::CheckTemplates(oFindings);
  TemplateChecks::CheckRows(oFindings);
  TemplateChecks::CheckSignature(oFindings);
  TemplateChecks::CheckPlaces(oFindings);
  if (oTemplate.LoadErrors() == 0 && oFindings.Empty()) TemplateChecks::TryTemplates(oFindings);
  return oFindings.Take();
}
