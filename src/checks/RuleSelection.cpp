#include "RuleSelection.h"

#include "LikePattern.h"

RuleSelection::RuleSelection(const std::vector<std::string>& select,
                             const std::vector<std::string>& ignore) {
  if (select.empty()) {
    for (const RuleRow& row : CheckRules())
      mTaken.set(static_cast<std::size_t>(row.rule), row.byDefault);
  } else {
    mTaken = Named(select);
  }
  mTaken &= ~Named(ignore);
}

RuleSelection::Rules RuleSelection::Named(const std::vector<std::string>& words) {
  Rules named;
  for (const std::string& word : words) {
    const LikePattern pattern(LowerCase(FromUtf8(word)));
    Rules fitting;
    for (const RuleRow& row : CheckRules())
      if (pattern.Matches(FromUtf8(row.id))) fitting.set(static_cast<std::size_t>(row.rule));
    if (fitting.none() && mUnknown.empty()) mUnknown = word;
    named |= fitting;
  }
  return named;
}
