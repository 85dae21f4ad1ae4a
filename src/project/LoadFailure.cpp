#include "LoadFailure.h"

namespace LoadFailure {

void KeepCurrent(LoadError& oError) {
  Failure oFailure(51);
  try {
    throw;
  } catch (const Failure& oCaught) {
    oFailure = oCaught;
  } catch (...) {
    // What isn't a run-time failure keeps number 51 and its text.
  }
  oError.lError = oFailure.Number();
  oError.sErrorDesc = oFailure.Description();
  oError.sErrorSource = oFailure.Source();
}

void Mark(ComponentRecord& oRecord, TextView sContext) {
  oRecord.bLoadError = true;
  oRecord.oError.sErrorContext = sContext;
  oRecord.oError.lError &= 0xFFFF;
}

CodeModule* FindModule(VBComponent& oComponent, LoadError& oError) {
  oError.lError = 0;
  oError.sErrorDesc.clear();
  oError.sErrorSource.clear();
  try {
    return oComponent.CodeModule();
  } catch (...) {
    KeepCurrent(oError);
    return nullptr;
  }
}

}  // namespace LoadFailure
