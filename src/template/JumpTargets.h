// Line numbers that jumps name: GoTo, GoSub, Resume, On x GoTo, Then 10, Else 10, and a comparison
// with Erl.
#pragma once

#include <optional>

#include "ProcText.h"
#include "Refusal.h"

namespace JumpTargets {

/// A line number that a jump of the old lines names must stand ahead of the same statement in the
/// new ones. The first that doesn't, or nothing. Nothing is looked at when no old line is numbered.
std::optional<Refusal> FirstLost(const ProcText& before, const ProcText& after);
/// True when a line begins with a number.
bool HoldsNumberedLine(const ProcText& code);

}  // namespace JumpTargets
