// Loading, suggesting and applying: handed on to those who do it.
#include "CIDEHandler.h"

#include "ExpertFacts.h"
#include "HandlerGuard.h"

using namespace HandlerGuard;

void CIDEHandler::LoadProjects(VBE& oVBInst) {
  VBInst = &oVBInst;
  mLoader.LoadProjects(oVBInst);
}

void CIDEHandler::LoadComponent(ComponentHandle hComponent) {
  mLoader.LoadComponent(hComponent);
}

void CIDEHandler::ForceLoadProjectComponents(ProjectHandle hProject) {
  mLoader.LoadComponentsOf(hProject);
}

void CIDEHandler::ForceLoadGroupComponents() {
  mLoader.LoadAllComponents();
}

void CIDEHandler::ApplySuggestedSettings(const ModelScope& Scope) {
  mApplier.TakeSuggested(Scope);
}

void CIDEHandler::ApplyCurrentSettings(const ModelScope& Scope) {
  mApplier.TakeCurrent(Scope);
}

void CIDEHandler::ApplyPendingSettings(const ModelScope& Scope, bool Refresh,
                                       MQuillon::LineNumAction LineNumAction) {
  mApplier.ApplyPending(Scope, Refresh, LineNumAction);
}

Rewrite CIDEHandler::PendingRewrite(ProcedureHandle hProcedure, bool listChanges) {
  return mApplier.PendingRewrite(hProcedure, listChanges);
}

Trial CIDEHandler::TryOut(ProcedureHandle hProcedure, const TrialWants& wants) {
  return mApplier.TryOut(hProcedure, wants);
}

Text CIDEHandler::UnsignedTemplate(ProcedureHandle hProcedure) {
  return mApplier.UnsignedTemplate(hProcedure);
}

std::vector<TextView> CIDEHandler::RulesJudgingOtherwise(ProcedureHandle procedure) const {
  return ExpertFacts::RulesJudgingOtherwise(mModel, mModel.Procedure(procedure));
}

Suggestions::Suggestion CIDEHandler::SuggestionOf(ProcedureHandle procedure) const {
  return ExpertFacts::SuggestionOf(mModel, Template().Set(), mModel.Procedure(procedure));
}

void CIDEHandler::RefreshSuggestions() {
  Guard(Named(u"RefreshSuggestions"), [&](GuardScope&) {
    for (const ProcedureHandle h : Procedures())
      ExpertFacts::Suggest(mModel, Template().Set(), mModel.Procedure(h));
  });
}
