// The parts of CheckTemplate, one per subject, and what they share. Only TemplateCheck*.cpp
// include this.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "CTemplate.h"
#include "Sections.h"
#include "TemplateCheck.h"

namespace TemplateChecks {

/// The template under check and what was found in it so far.
class Findings {
 public:
  explicit Findings(const CTemplate& oTemplate) : moTemplate(oTemplate) {}

  const CTemplate& Template() const { return moTemplate; }
  const LineRow& Line(std::int32_t lRow) const {
    return moTemplate.Lines()[static_cast<std::size_t>(lRow)];
  }
  /// The parts of the message are joined.
  void Add(std::int32_t lFileLine, std::initializer_list<TextView> asPart);
  bool Empty() const { return moFindings.empty(); }
  bool HasLine(std::int32_t lFileLine) const;
  /// In file order; what was found first in a line stays first.
  std::vector<TemplateFinding> Take();

 private:
  const CTemplate& moTemplate;
  std::vector<TemplateFinding> moFindings;
};

/// Rows lFirst up to and not including lLast of matLine.
struct Stretch {
  std::int32_t lFirst = 0;
  std::int32_t lLast = 0;
};
/// What is written between two directives; empty when one is missing or they are out of order.
Stretch Between(const TemplateRow& oTemplate, Section eFrom, Section eTo);
/// The stretches that are written into code: one for a module, two or three for a procedure, in
/// their order; for the signature the one row that makes the line.
std::vector<Stretch> WrittenStretches(const TemplateRow& oTemplate);

/// Values as a procedure (a declarations section for a module template) would give them, with
/// trace on. Bits 1, 2 and 4 of lWithout leave out boundary, severity and retry.
SectionValues SampleValues(const TemplateRow& oTemplate, std::uint32_t lWithout);
/// `boundary and retry` for 5; empty for 0.
Text NamesOf(std::uint32_t lWithout);

/// A line of ordinary code that the pattern fits, or empty: such a pattern tells nothing.
TextView OrdinaryCodeFitting(const LikePattern& oPattern);
/// The same among the lines of a declarations section.
TextView OrdinaryDeclarationFitting(const LikePattern& oPattern);

/// Conditions, tokens, patterns and the self-fit of every script row.
void CheckRows(Findings& oFindings);
/// The first template and its line.
void CheckSignature(Findings& oFindings);
/// Names, and the order of directives.
void CheckTemplates(Findings& oFindings);
/// The four places by which a procedure's template is found again.
void CheckPlaces(Findings& oFindings);
/// Puts each template into sample code, reads it back and takes it out: what the other checks
/// can't foresee shows here. For a file without findings.
void TryTemplates(Findings& oFindings);

}  // namespace TemplateChecks
