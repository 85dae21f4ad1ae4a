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
  TemplateType type;
  Fault fault;
  Section section;
  Section other;
  TextView message;
};

constexpr TemplateType Any = TemplateType::Unknown;
constexpr Section None = Section::Global;

// In the order of the messages.
constexpr Rule Rules[] = {
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

bool Found(const TemplateRow& row, Section section) {
  return row.lStart[section] >= 1;
}

bool Breaks(const TemplateRow& row, const Rule& rule) {
  const bool found = Found(row, rule.section);
  switch (rule.fault) {
    case Fault::Missing:
      return !found;
    case Fault::Present:
      return found;
    case Fault::Above:
      // A section that isn't there has a row below every other one.
      return found && row.lStart[rule.section] < row.lStart[rule.other];
    case Fault::WithoutPair:
      return found && !Found(row, rule.other);
  }
  return false;
}

}  // namespace

void TemplateLoader::ValidateTemplate(std::int32_t number) {
  const auto count = static_cast<std::int32_t>(mEngine.mSet.templates.size());
  if (number < 1 || number >= count) return;
  TemplateRow& row = mEngine.mSet.templates[static_cast<std::size_t>(number)];
  if (row.bValidated) return;
  row.bValidated = true;
  if (row.eType == TemplateType::Unknown) return;
  if (row.eType == TemplateType::Procedure) row.bFire = Found(row, Section::FireStart);
  for (const Rule& rule : Rules) {
    const bool applies = rule.type == Any || rule.type == row.eType;
    if (applies && Breaks(row, rule)) ReportError(row.lDirectiveLine, rule.message);
  }
  CheckBorders(row);
}

void TemplateLoader::CheckBorders(const TemplateRow& row) {
  static constexpr std::pair<Section, std::int32_t> Borders[] = {{Section::BodyStart, -1},
                                                                 {Section::BodyEnd, 1},
                                                                 {Section::FireStart, -1},
                                                                 {Section::FireEnd, 1}};
  const std::vector<LineRow>& lines = mEngine.mSet.lines;
  for (const auto& [place, step] : Borders) {
    if (!Found(row, place)) continue;
    auto i = static_cast<std::size_t>(row.lStart[place] + step);
    while (i < lines.size() && lines[i].script && Trim(lines[i].sLine).empty()) {
      i += static_cast<std::size_t>(step);
    }
    if (i >= lines.size() || lines[i].sIfCondition != u"optional") continue;
    ReportError(lines[i].fileLine, u"Optional Line found beside the Body or the Clean-up Code");
  }
}
