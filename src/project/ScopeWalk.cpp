#include "ScopeWalk.h"

#include "ReadOnlyRule.h"

void ScopeWalk::Visit(const ModelScope& scope, const Visitor& visit) const {
  struct Cases {
    const ScopeWalk& walk;
    const Visitor& visit;

    void operator()(ProcedureHandle h) const {
      const GroupModel& model = walk.mModel;
      if (h && !IsPassedOver(model.Component(model.Procedure(h).hComponent))) visit(h);
    }
    void operator()(ComponentHandle h) const {
      if (!h) return;
      walk.Load(h);
      walk.VisitComponent(h, visit);
    }
    void operator()(ProjectHandle h) const {
      if (!h) return;
      if (walk.mLoader) walk.mLoader->LoadComponentsOf(h);
      for (const ComponentHandle c : walk.mModel.ComponentsOf(h)) walk.VisitComponent(c, visit);
    }
    void operator()(ModelScope::WholeGroup) const {
      if (walk.mLoader) walk.mLoader->LoadAllComponents();
      for (const ComponentHandle c : walk.mModel.Components()) walk.VisitComponent(c, visit);
    }
  };
  scope.Visited(Cases{*this, visit});
}

void ScopeWalk::Load(ComponentHandle component) const {
  if (mLoader && !IsPassedOver(mModel.Component(component))) mLoader->LoadComponent(component);
}

void ScopeWalk::VisitComponent(ComponentHandle component, const Visitor& visit) const {
  if (IsPassedOver(mModel.Component(component))) return;
  for (const ProcedureHandle h : mModel.ProceduresOf(component)) visit(h);
}
