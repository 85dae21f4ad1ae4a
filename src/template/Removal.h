// Takes a template out of a procedure or a declarations section. No copy of the old code exists:
// only patterns tell the template's lines from the user's, so a procedure in which they can't be
// accounted for is refused, with a reason for each line that doesn't fit.
#pragma once

#include <vector>

#include "MRules.h"
#include "ParsedProcedure.h"
#include "ProcText.h"
#include "Refusal.h"

struct Removal {
  /// The lines without the template; of no use when something refused it. Lines that stay are those
  /// of the parsed procedure, which must outlive them.
  ProcText code;
  std::vector<Refusal> refusals;
};

/// row: of the template that the code holds, among the procedure's templates.
[[nodiscard]] Removal RemoveTemplate(const ParsedProcedure& procedure, const TemplateRow& row,
                                     const MRules::Values& rules);
