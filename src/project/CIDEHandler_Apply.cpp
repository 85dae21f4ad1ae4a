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

void CIDEHandler::WalkScope(const Scope& oWanted, bool bLoad, const Visitor& oVisit) {
  if (oWanted.hProcedure >= 1) {
    if (!IsPassedOver(ComponentAt(ProcedureAt(oWanted.hProcedure).hComponent))) {
      oVisit(oWanted.hProcedure);
    }
  } else if (oWanted.hComponent >= 1) {
    if (bLoad && !IsPassedOver(ComponentAt(oWanted.hComponent))) LoadComponent(oWanted.hComponent);
    WalkComponent(oWanted.hComponent, oVisit);
  } else if (oWanted.hProject >= 1) {
    if (bLoad) ForceLoadProjectComponents(oWanted.hProject);
    const ProjectRecord oProject = ProjectAt(oWanted.hProject);
    for (const Handle h : HandleRange(oProject.lFirstComponent, oProject.lLastComponent)) {
      WalkComponent(h, oVisit);
    }
  } else if (oWanted.bGroup) {
    if (bLoad) ForceLoadGroupComponents();
    for (const Handle h : HandleRange(1, ComponentCount())) WalkComponent(h, oVisit);
  }
}

void CIDEHandler::WalkComponent(Handle hComponent, const Visitor& oVisit) {
  const ComponentRecord& oRecord = ComponentAt(hComponent);
  if (IsPassedOver(oRecord)) return;
  for (const Handle h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure)) oVisit(h);
}

void CIDEHandler::ApplySuggestedSettings(Handle ihProcedure, Handle Component, Handle Project,
                                         bool Group) {
  Guard(Named(u"ApplySuggestedSettings"), [&](GuardScope&) {
    WalkScope({ihProcedure, Component, Project, Group}, true, [&](Handle h) {
      ProcedureRecord& oRecord = ProcedureAt(h);
      if (oRecord.oPending.eLocked() == MQuillon::TriState::False) {
        CopyAllButLocked(oRecord.oSuggest, oRecord.oPending);
      }
    });
  });
}

void CIDEHandler::ApplyCurrentSettings(Handle ihProcedure, Handle Component, Handle Project,
                                       bool Group) {
  Guard(Named(u"ApplyCurrentSettings"), [&](GuardScope&) {
    WalkScope({ihProcedure, Component, Project, Group}, false, [&](Handle h) {
      ProcedureRecord& oRecord = ProcedureAt(h);
      if (oRecord.oPending.eLocked() != MQuillon::TriState::True) {
        CopyAllButLocked(oRecord.oCurrent, oRecord.oPending);
      }
    });
  });
}

void CIDEHandler::ApplyPendingSettings(Handle ihProcedure, Handle Component, Handle Project,
                                       bool Group, bool Refresh,
                                       MQuillon::LineNumAction LineNumAction) {
  Guard(Named(u"ApplyPendingSettings"), [&](GuardScope&) {
    Run oRun{.bRefresh = Refresh,
             .eLineNumAction = LineNumAction == MQuillon::LineNumAction::AsRule
                                   ? MRules::oRules.eLineNumAction
                                   : LineNumAction};
    // The engine tells its reasons only here, under the line of the procedure; the first counts.
    const Connection oLink = Template().ReportError.Connect([&](TextView sMessage) {
      if (oRun.sReason.empty() && sMessage.starts_with(u"    ")) oRun.sReason = Trim(sMessage);
    });
    WalkScope({ihProcedure, Component, Project, Group}, Refresh,
              [&](Handle h) { ApplyPendingTo(h, oRun); });
  });
}

void CIDEHandler::ApplyPendingTo(Handle hProcedure, Run& oRun) {
  const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
  if (!oRun.CallsFor(oRecord)) return;
  oRun.Begin();
  try {
    Guard(Named(u"ApplyPendingTo"),
          [&](GuardScope& oScope) { RewriteProcedure(oScope, hProcedure, oRun); });
  } catch (const Failure& oFailure) {
    // The walk ends its failures itself: one procedure must not keep the others from their turn.
    if (!oRun.bCounted) Template().BatchItem(ComponentAt(oRecord.hComponent).sName, oRun.sProcName);
    oRun.sReason.clear();
    oRun.bErrors = true;
    Template().ReportError(u"    " + oFailure.Description());
  }
  if (!oRun.bErrors) return;
  Template().BatchError();
  ProcedureRefused(hProcedure, oRun.sReason);
}
