// Proves a rewrite on texts alone: what was put in comes out again, and no jump loses its target.
// Used by the model when its option bProve is on; the engine itself never calls it.
#pragma once

#include "Text.h"

namespace Proof {

/// Compares the text ahead of an insertion with the text that a removal gives back.
/// The clean-up block ('FireExit: lines) may have moved and lost blank lines. bNumbered: line
/// numbers were put in, changed or taken out, so numbers and indentation may differ as well.
/// Empty when they agree, else a message that names the first line that differs, such as
/// `Line 12 would come back as [x = 2] and not as [x = 1]`.
Text FirstDifference(TextView sBefore, TextView sBack, bool bNumbered);

/// A line number that a jump of sBefore names (GoTo, GoSub, Resume, On x GoTo, Then 10, Else 10,
/// a comparison with Erl) must stand ahead of the same statement in sAfter.
/// Empty when all do, else a message such as `Line number 10 is the target of a jump`.
Text LostJumpTarget(TextView sBefore, TextView sAfter);

}  // namespace Proof
