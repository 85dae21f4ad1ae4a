// Walking a scope of procedures, and what the three bulk operations do to each.
#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MQuillon.h"
#include "MRules.h"
#include "ReadOnlyRule.h"
#include "Run.h"

using namespace HandlerGuard;

namespace {

/// All but the lock, which only the user changes.
void CopyAllButLocked(const CProcSettings& oFrom, CProcSettings& oTo) {
  oTo.SetsTemplate(oFrom.sTemplate());
  oTo.SeteBoundary(oFrom.eBoundary());
  oTo.SeteSeverity(oFrom.eSeverity());
  oTo.SeteRetry(oFrom.eRetry());
  oTo.SeteTrace(oFrom.eTrace());
}

}  // namespace

void CIDEHandler::WalkScope(const ModelScope& oScope, bool bLoad, const Visitor& oVisit) {
  struct Walk {
    CIDEHandler& model;
    bool load;
    const Visitor& visit;

    void operator()(ProcedureHandle h) const {
      if (h && !IsPassedOver(model.ComponentAt(model.ProcedureAt(h).hComponent))) visit(h);
    }
    void operator()(ComponentHandle h) const {
      if (!h) return;
      if (load && !IsPassedOver(model.ComponentAt(h))) model.LoadComponent(h);
      model.WalkComponent(h, visit);
    }
    void operator()(ProjectHandle h) const {
      if (!h) return;
      if (load) model.ForceLoadProjectComponents(h);
      const ProjectRecord oProject = model.ProjectAt(h);
      for (const auto hComponent : HandleRange(oProject.lFirstComponent, oProject.lLastComponent)) {
        model.WalkComponent(hComponent, visit);
      }
    }
    void operator()(ModelScope::WholeGroup) const {
      if (load) model.ForceLoadGroupComponents();
      for (const ComponentHandle h : model.Components()) model.WalkComponent(h, visit);
    }
  };
  oScope.Visited(Walk{*this, bLoad, oVisit});
}

void CIDEHandler::WalkComponent(ComponentHandle hComponent, const Visitor& oVisit) {
  const ComponentRecord& oRecord = ComponentAt(hComponent);
  if (IsPassedOver(oRecord)) return;
  for (const ProcedureHandle h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure))
    oVisit(h);
}

void CIDEHandler::ApplySuggestedSettings(const ModelScope& Scope) {
  Guard(Named(u"ApplySuggestedSettings"), [&](GuardScope&) {
    WalkScope(Scope, true, [&](ProcedureHandle h) {
      ProcedureRecord& oRecord = ProcedureAt(h);
      if (oRecord.oPending.eLocked() == MQuillon::TriState::False) {
        CopyAllButLocked(oRecord.oSuggest, oRecord.oPending);
      }
    });
  });
}

void CIDEHandler::ApplyCurrentSettings(const ModelScope& Scope) {
  Guard(Named(u"ApplyCurrentSettings"), [&](GuardScope&) {
    WalkScope(Scope, false, [&](ProcedureHandle h) {
      ProcedureRecord& oRecord = ProcedureAt(h);
      if (oRecord.oPending.eLocked() != MQuillon::TriState::True) {
        CopyAllButLocked(oRecord.oCurrent, oRecord.oPending);
      }
    });
  });
}

void CIDEHandler::ApplyPendingSettings(const ModelScope& Scope, bool Refresh,
                                       MQuillon::LineNumAction LineNumAction) {
  Guard(Named(u"ApplyPendingSettings"), [&](GuardScope&) {
    Run oRun{.bRefresh = Refresh,
             .eLineNumAction = LineNumAction == MQuillon::LineNumAction::AsRule
                                   ? MRules::oRules.eLineNumAction
                                   : LineNumAction};
    WalkScope(Scope, Refresh, [&](ProcedureHandle h) { ApplyPendingTo(h, oRun); });
  });
}

void CIDEHandler::ApplyPendingTo(ProcedureHandle hProcedure, Run& oRun) {
  const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
  if (!oRun.CallsFor(oRecord)) return;
  oRun.Begin();
  try {
    Guard(Named(u"ApplyPendingTo"),
          [&](GuardScope& oScope) { RewriteOne(oScope, hProcedure, oRun); });
  } catch (const Failure& oFailure) {
    // The walk ends its failures itself: one procedure must not keep the others from their turn.
    if (!oRun.bCounted) Template().BatchItem(ComponentAt(oRecord.hComponent).sName, oRun.sProcName);
    oRun.refusals = {{RefusalKind::HostFailure, 0, Text(oFailure.Description())}};
  }
  if (oRun.refusals.empty()) return;
  Template().BatchRefused(oRun.refusals);
  ProcedureRefused(hProcedure, oRun.refusals);
}
