// Trace exits: one statement of the template in front of each Exit statement of a traced body, on
// the same line, so that it runs under the same condition as the Exit.
#pragma once

#include "LikePattern.h"
#include "Sections.h"
#include "TemplateRows.h"
#include "Text.h"

namespace TraceExits {

/// The statement for one procedure, trimmed and without a comment, which would make one of the Exit
/// behind it; empty when the row holds no code.
Text GetTraceExit(const LineRow& row, const SectionValues& values);

/// The line with traceExit in front of its first `Exit <baseType>` in code. baseType has its
/// case; a mark in a literal or comment doesn't count. traceExit is trimmed and not empty.
Text Insert(TextView line, TextView baseType, TextView traceExit);

/// The line without its trace exits. First the exact statement of this procedure in front of its
/// Exit (behind Then, Else or a line number as well), then every statement that fits the pattern:
/// the procedure may have been renamed since. A line with none comes back as it was.
Text Remove(TextView line, TextView baseType, TextView traceExit, const LikePattern& pattern);

}  // namespace TraceExits
