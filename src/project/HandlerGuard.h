// How the routines of CIDEHandler stand under the common handler.
#pragma once

#include <utility>

#include "Guard.h"
#include "Text.h"

namespace HandlerGuard {

/// The constants of nearly every routine: no boundary, normal severity, retry by line.
inline Routine Named(TextView sProcedure) {
  return {u"CIDEHandler", sProcedure};
}

/// A whole routine that gives a result.
template <class Work>
auto Result(TextView sProcedure, Work&& oWork) {
  decltype(oWork(std::declval<GuardScope&>())) oResult{};
  Guard(Named(sProcedure), [&](GuardScope& oScope) { oResult = oWork(oScope); });
  return oResult;
}

}  // namespace HandlerGuard
