// What is kept of the failure of an IDE object: the reasons that a component's record shows.
#pragma once

#include "Failure.h"
#include "ModelRecords.h"

namespace LoadFailure {

/// Number, description and source of the exception in flight; call it in a catch block only.
void KeepCurrent(LoadError& oError);
/// Marks the component as one that can't be read.
void Mark(ComponentRecord& oRecord, TextView sContext);
/// The component's code module, or null with the reason in oError. Never fails.
CodeModule* FindModule(VBComponent& oComponent, LoadError& oError);

}  // namespace LoadFailure
