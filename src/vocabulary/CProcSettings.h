// The six properties of one procedure, or, as an aggregate, what a selection has in common.
// Two rules live in the setters: a foreign template (its name begins with "(" or "[") freezes the
// object, and reading a foreign aggregate gives nothing. There is no reset: an accumulator serves
// one selection. hTemplate comes from the process-wide lookups.
#pragma once

#include <cstdint>

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
  std::int32_t eBoundary() const { return mbAggregateForeign ? 0 : meBoundary; }
  void SeteBoundary(std::int32_t eValue) {
    if (!mbForeign) meBoundary = eValue;
  }
  std::int32_t eSeverity() const { return mbAggregateForeign ? 0 : meSeverity; }
  void SeteSeverity(std::int32_t eValue) {
    if (!mbForeign) meSeverity = eValue;
  }
  std::int32_t eRetry() const { return mbAggregateForeign ? 0 : meRetry; }
  void SeteRetry(std::int32_t eValue) {
    if (!mbForeign) meRetry = eValue;
  }
  std::int32_t eTrace() const { return mbAggregateForeign ? 0 : meTrace; }
  void SeteTrace(std::int32_t eValue) {
    if (!mbForeign) meTrace = eValue;
  }
  bool bForeign() const { return mbAggregate ? mbAggregateForeign : mbForeign; }
  std::int32_t eLocked() const { return meLocked; }
  void SeteLocked(std::int32_t eValue) { meLocked = eValue; }
  std::int32_t hTemplate() const { return mhTemplate; }

 private:
  void TakeValues(const CProcSettings& oProcSettings);
  void KeepCommonValues(const CProcSettings& oProcSettings);

  // Names come from one template file and repeat per procedure three times: each text is kept
  // once for the process, so a record of a large group stays small. Null is the empty name.
  const Text* mpTemplate = nullptr;
  const Text* mpForeignTemplate = nullptr;
  std::int32_t mhTemplate = 0;
  std::int32_t meLocked = 0;
  std::int32_t meBoundary = 0, meSeverity = 0, meRetry = 0, meTrace = 0;
  bool mbForeign = false;
  bool mbAggregate = false;
  bool mbAggregateForeign = false;
};
