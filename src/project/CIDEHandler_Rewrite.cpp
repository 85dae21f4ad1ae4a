// The rewrite of one procedure: compare code and model, have the new text made, write it back, take
// the settings over.
#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MRules.h"
#include "ModuleEdit.h"
#include "ParsedProcedure.h"
#include "ReadOnlyRule.h"
#include "Rewriter.h"
#include "Run.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace {

/// Empty lines at the end never go through the engine: those of the IDE's text stay in the module
/// untouched. So no text that ends in a line end is ever inserted, which IDEs take in different
/// ways.
TextView WithoutEmptyTail(TextView text) {
  while (text.ends_with(CrLf)) text.remove_suffix(CrLf.size());
  return text;
}

/// The names of the values that a procedure states in its code. Under an inheriting template these
/// are only those that differ from its module's.
struct StatedValues {
  TextView boundary, severity, retry;

  StatedValues(const CProcSettings& own, const CProcSettings* inherited) {
    if (!inherited || own.eBoundary() != inherited->eBoundary()) {
      boundary = MQuillon::BoundaryName(own.eBoundary());
    }
    if (!inherited || own.eSeverity() != inherited->eSeverity()) {
      severity = MQuillon::SeverityName(own.eSeverity());
    }
    if (!inherited || own.eRetry() != inherited->eRetry()) {
      retry = MQuillon::RetryName(own.eRetry());
    }
  }
};

}  // namespace

void CIDEHandler::RewriteOne(GuardScope& oScope, ProcedureHandle hProcedure, Run& oRun) {
  ProcedureRecord& oRecord = ProcedureAt(hProcedure);
  const Text& sModule = ComponentAt(oRecord.hComponent).sName;
  oRun.sProcName = NameOf(oScope, oRecord);
  std::int32_t lHeadLine = 1;
  const Text sCode = ReadProcCode(oScope, oRecord, lHeadLine);
  CompareDeclarations(oScope, oRecord, oRun);
  const ParsedProcedure oProcedure(Template().Set(), WithoutEmptyTail(sCode),
                                   {sModule, oRun.sProcName, oRecord.sDeclType}, lHeadLine);
  TakeInCode(oRecord, oProcedure.Settings());
  if (!oRun.CallsFor(oRecord)) return;
  Template().BatchItem(sModule, oRun.sProcName);
  oRun.bCounted = true;
  Rewrite oRewrite = RewriteAsPending(oRecord, oProcedure, oRun);
  oRun.refusals = std::move(oRewrite.refusals);
  if (!oRun.refusals.empty()) return;
  if (oRewrite.changed && !ReplaceProcedure(hProcedure, oRun.sProcName, oProcedure, oRewrite)) {
    oRun.refusals.push_back({RefusalKind::LinesFallToProcedure});
    return;
  }
  TakeOver(oRecord, oRun);
}

Rewrite CIDEHandler::RewriteAsPending(const ProcedureRecord& oRecord,
                                      const ParsedProcedure& oProcedure, const Run& oRun) const {
  const CProcSettings& oNew = oRun.bRefresh ? oRecord.oCurrent : oRecord.oPending;
  const bool bInherits = InheritsModule(oRecord, oNew);
  const ProcedureHandle hModule = Component(oRecord.hComponent).lFirstProcedure;
  const StatedValues oStated(oNew, bInherits ? &Procedure(hModule).oPending : nullptr);
  const WantedSettings oWanted{.templateName = oNew.sTemplate(),
                               .hasTemplate = oRun.bRefresh || !oNew.sTemplate().empty(),
                               .locked = oNew.eLocked() == MQuillon::TriState::True,
                               .boundary = oStated.boundary,
                               .severity = oStated.severity,
                               .retry = oStated.retry,
                               .trace = oNew.eTrace() == MQuillon::TriState::True};
  return RewriteProcedure(
      oProcedure, oWanted,
      {.numbering = oRun.eLineNumAction, .prove = bProve, .listChanges = oRun.bListChanges},
      MRules::oRules);
}

Rewrite CIDEHandler::PendingRewrite(ProcedureHandle hProcedure, bool listChanges) {
  return Result(u"PendingRewrite", [&](GuardScope& oScope) {
    // A copy: what changed behind the model is taken in by the rewrite itself, not by a look.
    ProcedureRecord oRecord = ProcedureAt(hProcedure);
    const ComponentRecord& oComponent = ComponentAt(oRecord.hComponent);
    const Run oRun{.eLineNumAction = MRules::oRules.eLineNumAction, .bListChanges = listChanges};
    const Text sName = NameOf(oScope, oRecord);
    std::int32_t lHeadLine = 1;
    const Text sCode = ReadProcCode(oScope, oRecord, lHeadLine);
    const TextView sSource = WithoutEmptyTail(sCode);
    const ParsedProcedure oProcedure(Template().Set(), sSource,
                                     {oComponent.sName, sName, oRecord.sDeclType}, lHeadLine);
    TakeInCode(oRecord, oProcedure.Settings());
    Rewrite oRewrite;
    oRewrite.text = sSource;
    if (!IsPassedOver(oComponent) && oRun.CallsFor(oRecord)) {
      oRewrite = RewriteAsPending(oRecord, oProcedure, oRun);
    }
    for (; oRewrite.blankLines > 0; --oRewrite.blankLines) oRewrite.text.append(CrLf);
    oRewrite.text.append(sCode, sSource.size());
    return oRewrite;
  });
}

void CIDEHandler::TakeInCode(ProcedureRecord& oRecord, const CProcSettings& oRead) const {
  CProcSettings oFresh = oRead;
  InheritFromModule(oRecord, oFresh);
  if (oFresh.Equals(oRecord.oCurrent)) return;
  // Changed behind the model: by hand, or through another component over the same file.
  const bool bWasClean = !IsDirty(oRecord);
  oRecord.oCurrent = oFresh;
  if (bWasClean) oRecord.oPending = oFresh;
}

void CIDEHandler::CompareDeclarations(GuardScope& oScope, const ProcedureRecord& oRecord,
                                      Run& oRun) {
  if (oRun.hDeclarationsRead == oRecord.hComponent) return;
  oRun.hDeclarationsRead = oRecord.hComponent;
  if (oRecord.nKind == MQuillon::ProcKind::Declarations) return;
  ProcedureRecord& oDeclarations = ProcedureAt(ComponentAt(oRecord.hComponent).hDeclarations);
  std::int32_t lBodyStart = 1;
  CProcSettings oRead;
  Template().ExtractProcSettings(ReadProcCode(oScope, oDeclarations, lBodyStart), oRead);
  TakeInCode(oDeclarations, oRead);
}

bool CIDEHandler::InheritsModule(const ProcedureRecord& oRecord, const CProcSettings& oNew) const {
  return oRecord.nKind != MQuillon::ProcKind::Declarations && Template().Inherit(oNew.sTemplate());
}

void CIDEHandler::TakeOver(ProcedureRecord& oRecord, const Run& oRun) {
  CProcSettings& oNew = oRun.bRefresh ? oRecord.oCurrent : oRecord.oPending;
  CProcSettings& oCurrent = oRecord.oCurrent;
  if (oNew.sTemplate().empty()) {
    oNew.SeteBoundary(MQuillon::Boundary::Unset);
    oNew.SeteSeverity(MQuillon::Severity::Unset);
    oNew.SeteRetry(MQuillon::Retry::Unset);
    oNew.SeteTrace(MQuillon::TriState::Unset);
  }
  if (&oNew != &oCurrent) oCurrent.CopyFrom(oNew);
  if (!InheritsModule(oRecord, oCurrent)) return;
  const CProcSettings& oModule =
      ProcedureAt(ComponentAt(oRecord.hComponent).hDeclarations).oCurrent;
  oCurrent.BoundaryInherited = oCurrent.eBoundary() == oModule.eBoundary();
  oCurrent.SeverityInherited = oCurrent.eSeverity() == oModule.eSeverity();
  oCurrent.RetryInherited = oCurrent.eRetry() == oModule.eRetry();
}

bool CIDEHandler::ReplaceProcedure(ProcedureHandle hProcedure, TextView sProcName,
                                   const ParsedProcedure& oProcedure, const Rewrite& oRewrite) {
  bool bStands = true;
  Guard(Named(u"ReplaceProcedure"), [&](GuardScope& oScope) {
    const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
    CodeModule& oModule = ModuleOf(oScope, oRecord.hComponent);
    if (!oRecord.oMember) {
      bStands = ModuleEdit::ReplaceDeclarations(oScope, oModule, oProcedure.Source(), oRewrite.text,
                                                oRewrite.blankLines);
      return;
    }
    const auto lStart = SteppedModule(oScope, oModule).ProcStartLine(sProcName, oRecord.nKind);
    const ModuleEdit::Attributes oSaved = ModuleEdit::Save(oScope, *oRecord.oMember);
    std::exception_ptr pFailure;
    try {
      ModuleEdit::ReplaceLines(oScope, oModule, lStart, oProcedure.Source(), oRewrite.text,
                               oRewrite.blankLines);
    } catch (...) {
      pFailure = std::current_exception();
    }
    const Text sFailed = ModuleEdit::Restore(*oRecord.oMember, oSaved);
    if (!sFailed.empty()) Template().BatchNote(u"Attributes could not be set again: " + sFailed);
    if (pFailure) std::rethrow_exception(pFailure);
  });
  return bStands;
}
