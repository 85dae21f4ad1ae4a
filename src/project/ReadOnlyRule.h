// The rule that every walk over components starts with.
#pragma once

#include "MRules.h"
#include "ModelRecords.h"

/// True when a read-only component counts as not there. One that the IDE won't write doesn't: its
/// procedures would go without their change, and nobody would be told.
inline bool IsPassedOver(const ComponentRecord& record) {
  return MRules::oRules.bSkipReadOnly && record.bReadOnly && record.readOnlyReason.empty();
}
