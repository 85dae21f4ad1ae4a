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

  void CopyFrom(const CProcSettings& oProcSettings);
  bool Equals(const CProcSettings& oProcSettings) const;
  void Aggregate(const CProcSettings& oProcSettings);

  /// The name of the template; the view lives as long as the process (names are kept once).
  TextView sTemplate() const;
  Text sTemplateSelectionName() const;
  void SetsTemplate(TextView sName);
  MQuillon::Boundary eBoundary() const { return Shown(meBoundary); }
  void SeteBoundary(MQuillon::Boundary eValue) {
    if (!mbForeign) meBoundary = eValue;
  }
  MQuillon::Severity eSeverity() const { return Shown(meSeverity); }
  void SeteSeverity(MQuillon::Severity eValue) {
    if (!mbForeign) meSeverity = eValue;
  }
  MQuillon::Retry eRetry() const { return Shown(meRetry); }
  void SeteRetry(MQuillon::Retry eValue) {
    if (!mbForeign) meRetry = eValue;
  }
  MQuillon::TriState eTrace() const { return Shown(meTrace); }
  void SeteTrace(MQuillon::TriState eValue) {
    if (!mbForeign) meTrace = eValue;
  }
  bool bForeign() const { return mbAggregate ? mbAggregateForeign : mbForeign; }
  MQuillon::TriState eLocked() const { return meLocked; }
  void SeteLocked(MQuillon::TriState eValue) { meLocked = eValue; }
  std::int32_t hTemplate() const { return mhTemplate; }

 private:
  template <class Choice>
  Choice Shown(Choice eValue) const {
    return mbAggregateForeign ? Choice::Unset : eValue;
  }
  void TakeValues(const CProcSettings& oProcSettings);
  void KeepCommonValues(const CProcSettings& oProcSettings);

  // Names come from one template file and repeat per procedure three times: each text is kept
  // once for the process, so a record of a large group stays small. Null is the empty name.
  const Text* mpTemplate = nullptr;
  const Text* mpForeignTemplate = nullptr;
  std::int32_t mhTemplate = 0;
  MQuillon::Boundary meBoundary = MQuillon::Boundary::Unset;
  MQuillon::Severity meSeverity = MQuillon::Severity::Unset;
  MQuillon::Retry meRetry = MQuillon::Retry::Unset;
  MQuillon::TriState meLocked = MQuillon::TriState::Unset, meTrace = MQuillon::TriState::Unset;
  bool mbForeign = false;
  bool mbAggregate = false;
  bool mbAggregateForeign = false;
};
