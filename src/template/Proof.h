// Proves a rewrite on texts alone: what was put in comes out again, no jump loses its target, and
// the module reads each line of the template as the line that it was meant to be.
#pragma once

#include <optional>

#include "Insertion.h"
#include "MRules.h"
#include "ParsedProcedure.h"
#include "ProcText.h"
#include "Refusal.h"

namespace Proof {

/// Compares the lines ahead of an insertion with the lines that a removal gives back: the first
/// difference, or nothing. The clean-up block ('FireExit: lines) may have moved and lost blank
/// lines. numbered: line numbers were put in, changed or taken out, so numbers and indentation may
/// differ as well.
std::optional<Refusal> FirstDifference(const ProcText& before, const ProcText& back, bool numbered);

/// What is wrong with an insertion, or nothing. bare: the lines that it started from; after: its
/// text, taken apart as a module would read it; row: of the template that was put in.
std::optional<Refusal> FirstFault(const ProcText& bare, const Insertion& insertion,
                                  const ParsedProcedure& after, const TemplateRow& row,
                                  const MRules::Values& rules, bool numbered);

}  // namespace Proof
