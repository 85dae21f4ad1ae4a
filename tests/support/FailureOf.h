// Failures as values, for tables and comparisons.
#pragma once

#include "Failure.h"

/// The number of the Failure that the call throws; 0 for none.
template <class Call>
std::int32_t FailureOf(Call&& call) {
  try {
    call();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}
