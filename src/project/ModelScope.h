// What an operation on many procedures works on: one procedure, a component, a project or the
// whole group. A handle of none is a scope with nothing in it.
//
//   oHandler.ApplyPendingSettings(hProcedure, false, MQuillon::LineNumAction::AsRule);
//   oHandler.ApplySuggestedSettings(ModelScope::Group());
#pragma once

#include <utility>
#include <variant>

#include "Handle.h"

class ModelScope {
 public:
  struct WholeGroup {};

  ModelScope(ProcedureHandle procedure) : mWhat(procedure) {}
  ModelScope(ComponentHandle component) : mWhat(component) {}
  ModelScope(ProjectHandle project) : mWhat(project) {}
  static ModelScope Group() { return ModelScope(WholeGroup()); }

  /// Calls visit with the handle, or with a WholeGroup.
  template <class Visit>
  decltype(auto) Visited(Visit&& visit) const {
    return std::visit(std::forward<Visit>(visit), mWhat);
  }

 private:
  explicit ModelScope(WholeGroup group) : mWhat(group) {}

  std::variant<ProcedureHandle, ComponentHandle, ProjectHandle, WholeGroup> mWhat;
};
