// Handles as the rows of tests write them: 1_project, 2_component, 3_procedure.
#pragma once

#include "Handle.h"

consteval ProjectHandle operator""_project(unsigned long long number) {
  return ProjectHandle(static_cast<std::int32_t>(number));
}
consteval ComponentHandle operator""_component(unsigned long long number) {
  return ComponentHandle(static_cast<std::int32_t>(number));
}
consteval ProcedureHandle operator""_procedure(unsigned long long number) {
  return ProcedureHandle(static_cast<std::int32_t>(number));
}
