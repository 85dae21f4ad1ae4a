// Walks the procedures of a scope in handle order, past components that the read-only rule leaves
// out. A component that isn't loaded has nothing to walk.
//
//   const ScopeWalk walk(model, &loader);   // loads the scope first; null loads nothing
//   walk.Visit(scope, [&](ProcedureHandle h) { ... });
#pragma once

#include <functional>

#include "GroupLoader.h"
#include "GroupModel.h"
#include "ModelScope.h"

class ScopeWalk {
 public:
  using Visitor = std::function<void(ProcedureHandle)>;

  ScopeWalk(GroupModel& model, GroupLoader* loader) : mModel(model), mLoader(loader) {}
  void Visit(const ModelScope& scope, const Visitor& visit) const;

 private:
  void Load(ComponentHandle component) const;
  void VisitComponent(ComponentHandle component, const Visitor& visit) const;

  GroupModel& mModel;
  GroupLoader* mLoader;
};
