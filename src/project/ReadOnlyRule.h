// The rule that every walk over components starts with.
#pragma once

#include "MRules.h"
#include "ModelRecords.h"

/// True when a read-only component counts as not there.
inline bool IsPassedOver(const ComponentRecord& record) {
  return MRules::oRules.bSkipReadOnly && record.bReadOnly;
}
