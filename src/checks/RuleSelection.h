// Which rules are asked for: those that are on by themselves, or those that were selected, without
// those that were ignored.
//
//   const RuleSelection rules({}, {"read-only", "*-name"});
//   rules.Has(CheckRule::Drifted)   // true
//   rules.Unknown()                 // empty: each of the words names a rule
#pragma once

#include <bitset>
#include <string>
#include <vector>

#include "CheckRules.h"

class RuleSelection {
 public:
  /// Words are ids, or Like patterns of ids. Without a word in select the rules that are on by
  /// themselves are taken.
  RuleSelection(const std::vector<std::string>& select, const std::vector<std::string>& ignore);

  bool Has(CheckRule rule) const { return mTaken[static_cast<std::size_t>(rule)]; }
  /// The first word that names no rule; empty when all do.
  const std::string& Unknown() const { return mUnknown; }

 private:
  using Rules = std::bitset<64>;
  Rules Named(const std::vector<std::string>& words);

  Rules mTaken;
  std::string mUnknown;
};
