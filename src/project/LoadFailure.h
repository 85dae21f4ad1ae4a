// What is kept of the failure of an IDE object: the reasons that a component's record shows.
#pragma once

#include "Failure.h"
#include "ModelRecords.h"

namespace LoadFailure {

/// Number, description and source of the exception in flight; call it in a catch block only.
void KeepCurrent(LoadError& error);
/// Marks the component as one that can't be read.
void Mark(ComponentRecord& record, TextView context);
/// The component's code module, or null with the reason in error. Never fails.
CodeModule* FindModule(VBComponent& component, LoadError& error);

}  // namespace LoadFailure
