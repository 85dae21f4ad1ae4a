// Numbers in the rows of tests as choices, and back.
#pragma once

#include <array>
#include <type_traits>

#include "Choices.h"

/// The number of a row as whatever choice it is passed to: `o.SeteRetry(Id{3})`.
struct Id {
  std::int32_t number;
  template <class Choice>
  requires std::is_enum_v<Choice>
  operator Choice() const { return MQuillon::FromNumber<Choice>(number); }
};

template <class... Choice>
std::array<std::int32_t, sizeof...(Choice)> Numbers(Choice... choice) {
  return {MQuillon::ToNumber(choice)...};
}
