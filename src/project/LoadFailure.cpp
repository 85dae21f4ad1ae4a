#include "LoadFailure.h"

namespace LoadFailure {

void KeepCurrent(LoadError& error) {
  Failure failure(51);
  try {
    throw;
  } catch (const Failure& caught) {
    failure = caught;
  } catch (...) {
    // What isn't a run-time failure keeps number 51 and its text.
  }
  error.lError = failure.Number();
  error.sErrorDesc = failure.Description();
  error.sErrorSource = failure.Source();
}

void Mark(ComponentRecord& record, TextView context) {
  record.bLoadError = true;
  record.oError.sErrorContext = context;
  record.oError.lError &= 0xFFFF;
}

CodeModule* FindModule(VBComponent& component, LoadError& error) {
  error.lError = 0;
  error.sErrorDesc.clear();
  error.sErrorSource.clear();
  try {
    return component.CodeModule();
  } catch (...) {
    KeepCurrent(error);
    return nullptr;
  }
}

}  // namespace LoadFailure
