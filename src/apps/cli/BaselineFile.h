// --baseline and --write-baseline of check.
#pragma once

#include "Finding.h"
#include "RuleSelection.h"
#include "Session.h"

/// Takes the findings that the baseline of the options holds out of the result, and tells of its
/// entries that no longer occur, as far as the scope and the rules would have found them. Stop for
/// a file that can't be read.
void LeaveOutKnown(Session& session, const RuleSelection& rules, CheckResult& result);

/// Replaces the file by the findings. Stop for a scope that isn't the whole group: what lies
/// outside would be lost.
void WriteBaseline(Session& session, const CheckResult& result);
