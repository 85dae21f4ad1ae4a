// What commands would make of a procedure, worked out in memory: nothing is written back, and
// nobody is told.
//
//   const Trial trial = handler.TryOut(procedure, {});
//   if (trial.refresh && trial.refresh->changed) ...
#pragma once

#include <optional>

#include "Rewriter.h"
#include "Text.h"

struct TrialWants {
  bool unnumbered = false;  ///< try as well to take line numbers out
};

/// A command that wouldn't rewrite the procedure has no rewrite here: nothing of a foreign or
/// locked procedure is tried.
struct Trial {
  /// The procedure's text without the empty lines at its end, to which listed changes count; only
  /// there when there are any.
  Text source;
  std::optional<Rewrite> refresh;     ///< with the lines that change
  std::optional<Rewrite> pending;     ///< of what is asked for, when that isn't what the code holds
  std::optional<Rewrite> unnumbered;  ///< as refresh without numbers, and without proof
};
