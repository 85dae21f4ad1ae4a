#include "TemplateCheck.h"

#include <algorithm>
#include <array>

#include "MQuillon.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

// One of each kind of line that a body has anyway. An early Exit is among them: a border row of
// that form would be found in the user's code first.
constexpr std::array<TextView, 12> OrdinaryCode = {
    u"x = 1",           u"call foo(a, b)", u"foo a, b", u"dim a as long", u"end if",
    u"next i",          u"loop",           u"exit sub", u"exit function", u"exit property",
    u"set o = nothing", u"' a comment"};
constexpr std::array<TextView, 7> OrdinaryDeclarations = {u"option explicit",
                                                          u"dim a as long",
                                                          u"private msname as string",
                                                          u"public ocars as ccars",
                                                          u"const a = 1",
                                                          u"private const lmax as long = 1",
                                                          u"' a comment"};

TextView FirstFitting(const LikePattern& pattern, std::span<const TextView> lines) {
  for (TextView line : lines) {
    if (pattern.Matches(line)) return line;
  }
  return {};
}

}  // namespace

void Findings::Add(std::int32_t fileLine, std::initializer_list<TextView> parts) {
  TemplateFinding& finding = mFindings.emplace_back();
  finding.line = fileLine;
  mLines.insert(fileLine);
  for (TextView part : parts) finding.message.append(part);
}

std::vector<TemplateFinding> Findings::Take() {
  std::stable_sort(mFindings.begin(), mFindings.end(),
                   [](const auto& left, const auto& right) { return left.line < right.line; });
  return std::move(mFindings);
}

Stretch Between(const TemplateRow& templateRow, Section from, Section to) {
  const std::int32_t first = templateRow.lStart[from], last = templateRow.lStart[to];
  if (first < 1 || last <= first) return {};
  return {first + 1, last};
}

std::vector<Stretch> WrittenStretches(const TemplateRow& templateRow) {
  if (templateRow.eType == TemplateType::Module)
    return {Between(templateRow, Section::Start, Section::End)};
  if (templateRow.eType == TemplateType::Procedure) {
    const Stretch start = Between(templateRow, Section::Start, Section::BodyStart);
    if (!templateRow.bFire) return {start, Between(templateRow, Section::BodyEnd, Section::End)};
    return {start, Between(templateRow, Section::BodyEnd, Section::FireStart),
            Between(templateRow, Section::FireEnd, Section::End)};
  }
  Stretch row = Between(templateRow, Section::Start, Section::End);
  row.last = std::min(row.last, row.first + 1);
  return {row};
}

SectionValues SampleValues(const TemplateRow& templateRow, std::uint32_t without) {
  const bool isModule = templateRow.eType == TemplateType::Module;
  SectionValues values;
  values.signature = templateRow.sName;
  values.moduleName = u"Module1";
  values.shownName = isModule ? MQuillon::DeclarationsName : TextView(u"Total");
  values.baseType = isModule ? u"" : u"Sub";
  if ((without & 1) == 0) values.boundary = MQuillon::BoundaryName(MQuillon::Boundary::Firewall);
  if ((without & 2) == 0) values.severity = MQuillon::SeverityName(MQuillon::Severity::Normal);
  if ((without & 4) == 0) values.retry = MQuillon::RetryName(MQuillon::Retry::Line);
  values.trace = true;
  values.name = values.shownName;
  values.project = u"Project1";
  values.file = u"Module1.bas";
  return values;
}

Text NamesOf(std::uint32_t without) {
  Text names;
  std::uint32_t bit = 1;
  for (TextView name : {u"boundary", u"severity", u"retry"}) {
    if ((without & bit) != 0) names.append(names.empty() ? u"" : u" and ").append(name);
    bit *= 2;
  }
  return names;
}

TextView OrdinaryCodeFitting(const LikePattern& pattern) {
  return FirstFitting(pattern, OrdinaryCode);
}

TextView OrdinaryDeclarationFitting(const LikePattern& pattern) {
  return FirstFitting(pattern, OrdinaryDeclarations);
}

}  // namespace TemplateChecks

std::vector<TemplateFinding> CheckTemplate(const CTemplate& engine) {
  TemplateChecks::Findings findings(engine);
  TemplateChecks::CheckTemplates(findings);
  TemplateChecks::CheckRows(findings);
  TemplateChecks::CheckSignature(findings);
  TemplateChecks::CheckPlaces(findings);
  if (engine.LoadErrors() == 0 && findings.Empty()) TemplateChecks::TryTemplates(findings);
  return findings.Take();
}
