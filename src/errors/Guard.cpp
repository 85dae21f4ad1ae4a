#include "Guard.h"

#include <csignal>
#include <new>

#include "Utf8.h"

namespace {

Failure FailureInFlight() {
  try {
    throw;
  } catch (const Failure& oFailure) {
    return oFailure;
  } catch (const std::bad_alloc&) {
    return Failure(7);
  } catch (const std::exception& oException) {
    return Failure(51, FailureText(51) + u": " + FromUtf8(oException.what()));
  } catch (...) {
    return Failure(51);
  }
}

/// Reports a failure that no inner routine has reported, and gives the action.
std::int32_t Report(Failure& oFailure, const Routine& oRoutine) {
  std::int32_t eAction = ErrorIds::ActionLeave;
  if (oFailure.Reported()) return eAction;
  oFailure.SetReported();
  goError->ReportError(oFailure, oRoutine.sModule, oRoutine.sProcedure, {}, oRoutine.eBoundary,
                       oRoutine.eSeverity, oRoutine.eRetry, eAction);
  return eAction;
}

}  // namespace

GuardScope::GuardScope(const Routine& oRoutine)
    : moRoutine(oRoutine), mbTraced(goError->TraceEnabled()) {
  if (mbTraced) goError->TraceEnter(moRoutine.sModule, moRoutine.sProcedure);
}

GuardScope::~GuardScope() {
  if (mbTraced) goError->TraceExit(moRoutine.sModule, moRoutine.sProcedure);
}

bool GuardScope::RepeatsFailedStep() {
  Failure oFailure = FailureInFlight();
  const std::int32_t eAction = Report(oFailure, moRoutine);
  if (eAction == ErrorIds::ActionNext) return false;
  if (eAction != ErrorIds::ActionRetry) throw oFailure;
  // A developer asked for it: the debugger stops here, ahead of the repetition.
  if (goError->BreakRequested()) std::raise(SIGINT);
  return true;
}

void GuardScope::LeaveReported() {
  Failure failure = FailureInFlight();
  failure.SetReported();
  throw failure;
}

void GuardScope::EndOfRoutine() {
  Failure oFailure = FailureInFlight();
  // Outside of a step nothing can be repeated or skipped, so the user must not be offered Retry or
  // Ignore.
  Routine oOnlyLeaves = moRoutine;
  oOnlyLeaves.eRetry = ErrorIds::RetryNone;
  Report(oFailure, oOnlyLeaves);
  goError->CloseError(static_cast<std::int16_t>(moRoutine.eBoundary));
  if (moRoutine.eBoundary == ErrorIds::BoundaryNone) throw oFailure;
}
