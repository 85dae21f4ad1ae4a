// The six properties of one procedure, or, as an aggregate, what a selection has in common.
// Two rules live in the setters: a foreign template (its name begins with "(" or "[") freezes the
// object, and reading a foreign aggregate gives nothing. There is no reset: an accumulator serves
// one selection. hTemplate comes from the process-wide lookups.
#pragma once

#include <cstdint>

#include "Choices.h"
#include "Text.h"

class CProcSettings {
 public:
  bool BoundaryInherited = false;
  bool SeverityInherited = false;
  bool RetryInherited = false;
  bool bTemplateLeave = false;
  bool bSeverityLeave = false;
  bool bRetryLeave = false;
  bool bTraceLeave = false;
  bool bBoundaryExpert = false;
  bool bFirewallLeave = false;
  bool bBoundaryLeave = false;
  bool bTemplateClearsErr = false;

  void CopyFrom(const CProcSettings& oProcSettings);
  bool Equals(const CProcSettings& oProcSettings) const;
  void Aggregate(const CProcSettings& oProcSettings);

  /// The name of the template; the view lives as long as the process (names are kept once).
  TextView sTemplate() const;
  Text sTemplateSelectionName() const;
  void SetsTemplate(TextView name);
  MQuillon::Boundary eBoundary() const { return Shown(meBoundary); }
  void SeteBoundary(MQuillon::Boundary value) {
    if (!mbForeign) meBoundary = value;
  }
  MQuillon::Severity eSeverity() const { return Shown(meSeverity); }
  void SeteSeverity(MQuillon::Severity value) {
    if (!mbForeign) meSeverity = value;
  }
  MQuillon::Retry eRetry() const { return Shown(meRetry); }
  void SeteRetry(MQuillon::Retry value) {
    if (!mbForeign) meRetry = value;
  }
  MQuillon::TriState eTrace() const { return Shown(meTrace); }
  void SeteTrace(MQuillon::TriState value) {
    if (!mbForeign) meTrace = value;
  }
  bool bForeign() const { return mbAggregate ? mbAggregateForeign : mbForeign; }
  MQuillon::TriState eLocked() const { return meLocked; }
  void SeteLocked(MQuillon::TriState value) { meLocked = value; }
  /// By the process-wide lookups of now; 0 for a name that they don't have, and of an aggregate.
  std::int32_t hTemplate() const;

 private:
  template <class Choice>
  Choice Shown(Choice value) const {
    return mbAggregateForeign ? Choice::Unset : value;
  }
  /// The name as it is kept; null for the empty one.
  const Text* KeptTemplate() const;
  void TakeTemplate(const Text* name);
  void TakeValues(const CProcSettings& oProcSettings);
  void KeepCommonValues(const CProcSettings& oProcSettings);

  bool mbForeign = false;
  bool mbAggregate = false;
  bool mbAggregateForeign = false;
  MQuillon::Boundary meBoundary = MQuillon::Boundary::Unset;
  MQuillon::Severity meSeverity = MQuillon::Severity::Unset;
  MQuillon::Retry meRetry = MQuillon::Retry::Unset;
  MQuillon::TriState meLocked = MQuillon::TriState::Unset, meTrace = MQuillon::TriState::Unset;
  // Names come from one template file and repeat per procedure three times: each text is kept
  // once for the process, so a record of a large group stays small. Null is the empty name.
  const Text* mTemplate = nullptr;
  const Text* mForeignTemplate = nullptr;
};
