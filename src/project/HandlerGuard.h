// How the routines of CIDEHandler stand under the common handler.
#pragma once

#include <exception>
#include <utility>

#include "Guard.h"
#include "Text.h"

namespace HandlerGuard {

/// The constants of nearly every routine: no boundary, normal severity, retry by line.
inline Routine Named(TextView sProcedure) {
  return {u"CIDEHandler", sProcedure};
}

/// Throws a failure that a step has reported already.
[[noreturn]] inline void LeaveReported(const std::exception_ptr& pFailure) {
  try {
    std::rethrow_exception(pFailure);
  } catch (Failure& oFailure) {
    oFailure.SetReported();
    throw;
  }
}

/// Runs a step whose result the rest can't do without: when the answer to its failure is to go on
/// behind it, the failure leaves the routine all the same. Gives what the call gives.
template <class Call>
auto Need(GuardScope& oScope, Call&& oCall) {
  decltype(oCall()) oResult{};
  std::exception_ptr pFailure;
  const bool bDone = oScope.Step([&] {
    try {
      oResult = oCall();
    } catch (...) {
      pFailure = std::current_exception();
      throw;
    }
  });
  if (!bDone) LeaveReported(pFailure);
  return oResult;
}

/// The same for a call that gives nothing.
template <class Call>
void NeedDone(GuardScope& oScope, Call&& oCall) {
  Need(oScope, [&] { return oCall(), true; });
}

/// A whole routine that gives a result.
template <class Work>
auto Result(TextView sProcedure, Work&& oWork) {
  decltype(oWork(std::declval<GuardScope&>())) oResult{};
  Guard(Named(sProcedure), [&](GuardScope& oScope) { oResult = oWork(oScope); });
  return oResult;
}

}  // namespace HandlerGuard
