// How the routines of CIDEHandler stand under the common handler.
#pragma once

#include <utility>

#include "Guard.h"
#include "Text.h"

namespace HandlerGuard {

/// The constants of nearly every routine: no boundary, normal severity, retry by line.
inline Routine Named(TextView procedure) {
  return {u"CIDEHandler", procedure};
}

/// A whole routine that gives a result.
template <class Work>
auto Result(TextView procedure, Work&& work) {
  decltype(work(std::declval<GuardScope&>())) result{};
  Guard(Named(procedure), [&](GuardScope& scope) { result = work(scope); });
  return result;
}

}  // namespace HandlerGuard
