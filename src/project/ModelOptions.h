// What the owner of the model sets on it; everything behind the model reads it from here.
#pragma once

#include "CTemplate.h"
#include "Failure.h"
#include "MeaningRules.h"

struct ModelOptions {
  /// Set before the first LoadComponent; not owned, outlives the model.
  CTemplate* oTemplate = nullptr;
  /// Proves each insertion by taking it out again before the code is written; refuses what can't
  /// be proved and what would take away a line number that a jump names.
  bool bProve = false;
  /// Rules of meaning (MeaningRules.h) that the proof lets pass.
  AllowedRules allowed{};

  /// Failure 91 when it isn't set.
  CTemplate& Template() const {
    if (!oTemplate) throw Failure(91);
    return *oTemplate;
  }
};
