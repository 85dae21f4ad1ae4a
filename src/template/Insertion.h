// Puts a template around a procedure's body, or into a declarations section. In order: refusals,
// the lines ahead of the body, the body with its trace exits and numbers, the sections behind it
// with the procedure's own clean-up code, the rest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Choices.h"
#include "MRules.h"
#include "ProcText.h"
#include "Refusal.h"
#include "Sections.h"
#include "TemplateSet.h"
#include "Text.h"

/// What a template is to be put around.
struct InsertionRequest {
  const TemplateSet& templates;
  const MRules::Values& rules;
  const TemplateRow& row;
  SectionValues values;
  bool declarations = false;
  bool locked = false;
  bool signedCode = true;     ///< false: the code is known to hold no signature
  std::int32_t headLine = 1;  ///< from 1
  MQuillon::LineNumAction numbering = MQuillon::LineNumAction::Leave;
};

struct Insertion {
  /// Lines of the new text from first up to and not including end, from 0.
  struct Stretch {
    std::size_t first, end;
  };

  Text text;
  /// The lines that come from the template: signature and sections, in their order.
  std::vector<Stretch> templateLines;
  /// Lines of the code that it was put around: a procedure's body, and in it the waiting clean-up
  /// code that the template takes; both empty in declarations.
  Stretch body{0, 0}, cleanUp{0, 0};
  /// What stands ahead of each Exit of a traced body; empty for none.
  Text traceExit;
  std::vector<Refusal> refusals;  ///< with one, the rest is of no use
};

[[nodiscard]] Insertion InsertTemplate(const InsertionRequest& request, const ProcText& code);

/// The mark of clean-up code that waits as comment lines, in lower case.
inline constexpr TextView FireMark = u"'fireexit:";
