// The rules by which a rewrite is refused that would compile and change what the program does, or
// go beyond what the language can hold. Each has an id, by which a user lets it pass.
//
//   AllowedRules allowed;
//   allowed.Allow(u"err-read");                    // false for an id that there is not
//   allowed.Has(RefusalKind::ErrRead)              // true
#pragma once

#include <bitset>
#include <span>

#include "Refusal.h"
#include "Text.h"

struct MeaningRule {
  RefusalKind kind;
  TextView id;
  bool isNote = false;  ///< it refuses nothing, so there is nothing to let pass
};

std::span<const MeaningRule> MeaningRules();
/// Empty for a refusal that no rule makes.
TextView MeaningIdOf(RefusalKind kind);

class AllowedRules {
 public:
  /// Lets a rule pass; false for an unknown id.
  bool Allow(TextView id);
  bool Has(RefusalKind kind) const { return mKinds[static_cast<std::size_t>(kind)]; }

 private:
  std::bitset<64> mKinds;
};
