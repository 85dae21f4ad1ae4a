// The parts of CheckTemplate, one per subject, and what they share. Only TemplateCheck*.cpp
// include this.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <unordered_set>
#include <vector>

#include "CTemplate.h"
#include "Sections.h"
#include "TemplateCheck.h"

namespace TemplateChecks {

/// The template under check and what was found in it so far.
class Findings {
 public:
  explicit Findings(const CTemplate& engine) : mEngine(engine) {}

  const CTemplate& Template() const { return mEngine; }
  const LineRow& Line(std::int32_t row) const {
    return mEngine.Lines()[static_cast<std::size_t>(row)];
  }
  /// The parts of the message are joined.
  void Add(std::int32_t fileLine, std::initializer_list<TextView> parts);
  bool Empty() const { return mFindings.empty(); }
  bool HasLine(std::int32_t fileLine) const { return mLines.contains(fileLine); }
  /// In file order; what was found first in a line stays first.
  std::vector<TemplateFinding> Take();

 private:
  const CTemplate& mEngine;
  std::vector<TemplateFinding> mFindings;
  std::unordered_set<std::int32_t> mLines;  // that have one
};

/// Rows first up to and not including last of matLine.
struct Stretch {
  std::int32_t first = 0;
  std::int32_t last = 0;
};
/// What is written between two directives; empty when one is missing or they are out of order.
Stretch Between(const TemplateRow& templateRow, Section from, Section to);
/// The stretches that are written into code: one for a module, two or three for a procedure, in
/// their order; for the signature the one row that makes the line.
std::vector<Stretch> WrittenStretches(const TemplateRow& templateRow);

/// Values as a procedure (a declarations section for a module template) would give them, with
/// trace on. Bits 1, 2 and 4 of without leave out boundary, severity and retry.
SectionValues SampleValues(const TemplateRow& templateRow, std::uint32_t without);
/// `boundary and retry` for 5; empty for 0.
Text NamesOf(std::uint32_t without);

/// A line of ordinary code that the pattern fits, or empty: such a pattern tells nothing.
TextView OrdinaryCodeFitting(const LikePattern& pattern);
/// The same among the lines of a declarations section.
TextView OrdinaryDeclarationFitting(const LikePattern& pattern);

/// Conditions, tokens, patterns and the self-fit of every script row.
void CheckRows(Findings& findings);
/// The first template and its line.
void CheckSignature(Findings& findings);
/// Names, and the order of directives.
void CheckTemplates(Findings& findings);
/// The four places by which a procedure's template is found again.
void CheckPlaces(Findings& findings);
/// Puts each template into sample code, reads it back and takes it out: what the other checks
/// can't foresee shows here. For a file without findings.
void TryTemplates(Findings& findings);

}  // namespace TemplateChecks
