#include "MeaningRules.h"

namespace {

constexpr MeaningRule Rules[] = {
    {RefusalKind::ErrRead, u"err-read"},
    {RefusalKind::NameClash, u"name-clash"},
    {RefusalKind::NameClashInModule, u"name-clash"},
    {RefusalKind::HandlerOff, u"handler-off", true},
    {RefusalKind::CleanUpSplit, u"clean-up"},
    {RefusalKind::CleanUpNotLast, u"clean-up"},
    {RefusalKind::CleanUpPassedBy, u"clean-up", true},
    {RefusalKind::NumberTwice, u"number-twice"},
    {RefusalKind::LineTooLong, u"line-length"},
    {RefusalKind::TooManyContinuations, u"continuations"},
    {RefusalKind::ProcedureTooLong, u"procedure-size"},
    {RefusalKind::ModuleTooLong, u"module-lines"},
};

}  // namespace

std::span<const MeaningRule> MeaningRules() {
  return Rules;
}

TextView MeaningIdOf(RefusalKind kind) {
  for (const MeaningRule& rule : Rules) {
    if (rule.kind == kind) return rule.id;
  }
  return {};
}

bool AllowedRules::Allow(TextView id) {
  bool known = false;
  for (const MeaningRule& rule : Rules) {
    if (rule.isNote || rule.id != id) continue;
    mKinds.set(static_cast<std::size_t>(rule.kind));
    known = true;
  }
  return known;
}
