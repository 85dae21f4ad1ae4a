// The rewrite of one procedure: compare code and model, take the old template out, put the new
// one in, prove it, write it back, take the settings over.
#include "CIDEHandler.h"
#include "Draft.h"
#include "HandlerGuard.h"
#include "MRules.h"
#include "ModuleEdit.h"
#include "Proof.h"
#include "ReadOnlyRule.h"
#include "Run.h"

using namespace HandlerGuard;

namespace {

bool IsNoTemplate(TextView sTemplate) {
  return sTemplate.empty() || sTemplate == MQuillon::NoneName;
}

/// Silences the engine for as long as it lives; the first message is kept.
class Muted {
 public:
  explicit Muted(CTemplate& oTemplate) : moTemplate(oTemplate) {
    std::swap(moTemplate.ReportError, moOthers);
    moLink = moTemplate.ReportError.Connect([this](TextView s) {
      if (sFirst.empty()) sFirst = Trim(s);
    });
  }
  ~Muted() { std::swap(moTemplate.ReportError, moOthers); }
  Muted(const Muted&) = delete;
  Muted& operator=(const Muted&) = delete;

  Text sFirst;

 private:
  CTemplate& moTemplate;
  Signal<TextView> moOthers;
  Connection moLink;
};

/// Takes the template out of sText, with the blank lines at its end in lBlankLines. The engine
/// ends each line of a declarations section that it gives back, the last one too.
bool TakeOut(CTemplate& oTemplate, TextView sModuleName, TextView sProcName, TextView sProcType,
             std::int32_t lBodyStart, TextView sTemplate, Text& sText, std::int32_t& lBlankLines) {
  bool bErrors = false;
  oTemplate.RemoveTemplate(sModuleName, sProcName, sProcType, sText, lBodyStart, sTemplate,
                           bErrors);
  if (bErrors) return false;
  const std::int32_t lEnds = ModuleEdit::CutBlankTail(sText);
  lBlankLines += sText.empty() || lEnds == 0 ? lEnds : lEnds - 1;
  return true;
}

}  // namespace

void CIDEHandler::RewriteProcedure(GuardScope& oScope, ProcedureHandle hProcedure, Run& oRun) {
  ProcedureRecord& oRecord = ProcedureAt(hProcedure);
  Draft oDraft;
  oDraft.sModuleName = ComponentAt(oRecord.hComponent).sName;
  oRun.sProcName = oDraft.sProcName = NameOf(oScope, oRecord);
  oDraft.sOld = ReadProcCode(oScope, oRecord, oDraft.lBodyStart);
  TakeDeclarationsAnew(oScope, oRecord, oRun);
  TakeAnew(oRecord, oDraft.sOld);
  if (!oRun.CallsFor(oRecord)) return;
  Template().BatchItem(oDraft.sModuleName, oDraft.sProcName);
  oRun.bCounted = true;
  ModuleEdit::CutBlankTail(oDraft.sOld);
  oRun.bErrors = !Recast(oRecord, oRun, oDraft);
  if (oRun.bErrors) return;
  oRun.bErrors = oDraft.IsChanged() && !ReplaceProcedure(hProcedure, oDraft);
  if (oRun.bErrors) return;
  TakeOver(oRecord, oRun, oDraft);
}

bool CIDEHandler::Recast(const ProcedureRecord& oRecord, const Run& oRun, Draft& oDraft) {
  oDraft.sNew = oDraft.sOld;
  if (!RemoveOld(oRecord, oDraft) || !PutNew(oRecord, oRun, oDraft)) return false;
  oDraft.lBlankLines += ModuleEdit::CutBlankTail(oDraft.sNew);
  if (!bProve || !oDraft.IsChanged()) return true;
  const Text sDoubt = WhatIsNotProved(oRecord, oRun, oDraft);
  if (!sDoubt.empty()) Template().ReportError(u"    " + sDoubt);
  return sDoubt.empty();
}

Text CIDEHandler::PendingCode(ProcedureHandle hProcedure, bool& bRefused, Text& sMessage) {
  return Result(u"PendingCode", [&](GuardScope& oScope) {
    bRefused = false;
    sMessage.clear();
    // A copy: what changed behind the model is taken in by the rewrite itself, not by a look.
    ProcedureRecord oRecord = ProcedureAt(hProcedure);
    const ComponentRecord& oComponent = ComponentAt(oRecord.hComponent);
    const Run oRun{.eLineNumAction = MRules::oRules.eLineNumAction};
    Draft oDraft;
    oDraft.sModuleName = oComponent.sName;
    oDraft.sProcName = NameOf(oScope, oRecord);
    oDraft.sOld = ReadProcCode(oScope, oRecord, oDraft.lBodyStart);
    const Text sPresent = oDraft.sOld;
    TakeAnew(oRecord, sPresent);
    if (IsPassedOver(oComponent) || !oRun.CallsFor(oRecord)) return sPresent;
    const std::int32_t lTail = ModuleEdit::CutBlankTail(oDraft.sOld);
    Muted oMuted(Template());
    bRefused = !Recast(oRecord, oRun, oDraft);
    sMessage = oMuted.sFirst;
    if (bRefused) return sPresent;
    for (std::int32_t i = 0; i < oDraft.lBlankLines + lTail; ++i) oDraft.sNew.append(CrLf);
    return oDraft.sNew;
  });
}

void CIDEHandler::TakeAnew(ProcedureRecord& oRecord, TextView sCode) const {
  CProcSettings oFresh;
  ReadSettings(oRecord, sCode, oFresh);
  if (oFresh.Equals(oRecord.oCurrent)) return;
  // Changed behind the model: by hand, or through another component over the same file.
  const bool bWasClean = !IsDirty(oRecord);
  oRecord.oCurrent = oFresh;
  if (bWasClean) oRecord.oPending = oFresh;
}

void CIDEHandler::TakeDeclarationsAnew(GuardScope& oScope, const ProcedureRecord& oRecord,
                                       Run& oRun) {
  if (oRun.hDeclarationsRead == oRecord.hComponent) return;
  oRun.hDeclarationsRead = oRecord.hComponent;
  if (oRecord.nKind == MQuillon::ProcKind::Declarations) return;
  ProcedureRecord& oDeclarations = ProcedureAt(ComponentAt(oRecord.hComponent).hDeclarations);
  std::int32_t lBodyStart = 1;
  TakeAnew(oDeclarations, ReadProcCode(oScope, oDeclarations, lBodyStart));
}

bool CIDEHandler::RemoveOld(const ProcedureRecord& oRecord, Draft& oDraft) {
  const CProcSettings& oCurrent = oRecord.oCurrent;
  if (!IsNoTemplate(oCurrent.sTemplate())) {
    return TakeOut(Template(), oDraft.sModuleName, oDraft.sProcName, oRecord.sDeclType,
                   oDraft.lBodyStart, oCurrent.sTemplate(), oDraft.sNew, oDraft.lBlankLines);
  }
  return true;
}

bool CIDEHandler::PutSignature(const ProcedureRecord& oRecord, Draft& oDraft) {
  const bool bLock = oRecord.oPending.eLocked() == MQuillon::TriState::True;
  const bool bHasLock = IsNoTemplate(oRecord.oCurrent.sTemplate()) &&
                        oRecord.oCurrent.eLocked() == MQuillon::TriState::True;
  bool bErrors = false;
  if (bLock && !bHasLock) {
    Template().InsertSignatureOnly(oDraft.sProcName, oRecord.sDeclType, oDraft.sNew,
                                   oDraft.lBodyStart, true, bErrors);
  } else if (!bLock) {
    // RemoveSignatureOnly would take the user's blank lines behind the signature along.
    oDraft.sNew = Template().WithoutLockSignature(oDraft.sNew);
  }
  return !bErrors;
}

bool CIDEHandler::PutNew(const ProcedureRecord& oRecord, const Run& oRun, Draft& oDraft) {
  if (!oRun.bRefresh && oRecord.oPending.sTemplate().empty()) {
    return PutSignature(oRecord, oDraft);
  }
  const CProcSettings& oNew = oRun.bRefresh ? oRecord.oCurrent : oRecord.oPending;
  const CProcSettings& oModule =
      ProcedureAt(ComponentAt(oRecord.hComponent).lFirstProcedure).oPending;
  const bool bProcedure = oRecord.nKind != MQuillon::ProcKind::Declarations;
  bool bErrors = false;
  oDraft.bInherit = Template().Inherit(oNew.sTemplate());
  // Under an inheriting template a procedure states only what differs from its module.
  const auto Stated = [&](Text sName, auto eOwn, auto eModule) {
    return oDraft.bInherit && bProcedure && eOwn == eModule ? Text() : sName;
  };
  // The engine takes a lock's own signature out first: two never stand in one text.
  if (bProve) oDraft.sBare = Template().WithoutLockSignature(oDraft.sNew);
  Template().InsertTemplate(
      oDraft.sModuleName, oDraft.sProcName, oRecord.sDeclType, oDraft.sNew, oDraft.lBodyStart,
      oNew.sTemplate(), oNew.eLocked() == MQuillon::TriState::True,
      Stated(MQuillon::BoundaryName(oNew.eBoundary()), oNew.eBoundary(), oModule.eBoundary()),
      Stated(MQuillon::SeverityName(oNew.eSeverity()), oNew.eSeverity(), oModule.eSeverity()),
      Stated(MQuillon::RetryName(oNew.eRetry()), oNew.eRetry(), oModule.eRetry()),
      oNew.eTrace() == MQuillon::TriState::True, oRun.eLineNumAction, bErrors);
  oDraft.bInserted = !bErrors;
  return !bErrors;
}

Text CIDEHandler::WhatIsNotProved(const ProcedureRecord& oRecord, const Run& oRun,
                                  const Draft& oDraft) {
  const Text sLost = Proof::LostJumpTarget(oDraft.sOld, oDraft.sNew);
  if (!sLost.empty() || !oDraft.bInserted) return sLost;
  const CProcSettings& oNew = oRun.bRefresh ? oRecord.oCurrent : oRecord.oPending;
  Text sBack = oDraft.sNew;
  std::int32_t lBlankLines = 0;
  Muted oMuted(Template());
  if (!TakeOut(Template(), oDraft.sModuleName, oDraft.sProcName, oRecord.sDeclType,
               oDraft.lBodyStart, oNew.sTemplate(), sBack, lBlankLines)) {
    return u"The template could not be taken out again: " + oMuted.sFirst;
  }
  for (std::int32_t i = 0; i < lBlankLines; ++i) sBack.append(CrLf);
  const bool bNumbered = oRun.eLineNumAction != MQuillon::LineNumAction::Leave ||
                         MRules::oRules.eLineNumAction != MQuillon::LineNumAction::Leave;
  return Proof::FirstDifference(oDraft.sBare, sBack, bNumbered);
}

void CIDEHandler::TakeOver(ProcedureRecord& oRecord, const Run& oRun, const Draft& oDraft) {
  CProcSettings& oNew = oRun.bRefresh ? oRecord.oCurrent : oRecord.oPending;
  CProcSettings& oCurrent = oRecord.oCurrent;
  if (oNew.sTemplate().empty()) {
    oNew.SeteBoundary(MQuillon::Boundary::Unset);
    oNew.SeteSeverity(MQuillon::Severity::Unset);
    oNew.SeteRetry(MQuillon::Retry::Unset);
    oNew.SeteTrace(MQuillon::TriState::Unset);
  }
  if (&oNew != &oCurrent) oCurrent.CopyFrom(oNew);
  if (!oDraft.bInherit || oRecord.nKind == MQuillon::ProcKind::Declarations) return;
  const CProcSettings& oModule =
      ProcedureAt(ComponentAt(oRecord.hComponent).hDeclarations).oCurrent;
  oCurrent.BoundaryInherited = oCurrent.eBoundary() == oModule.eBoundary();
  oCurrent.SeverityInherited = oCurrent.eSeverity() == oModule.eSeverity();
  oCurrent.RetryInherited = oCurrent.eRetry() == oModule.eRetry();
}

bool CIDEHandler::ReplaceProcedure(ProcedureHandle hProcedure, const Draft& oDraft) {
  bool bStands = true;
  Guard(Named(u"ReplaceProcedure"), [&](GuardScope& oScope) {
    const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
    CodeModule& oModule = ModuleOf(oScope, oRecord.hComponent);
    if (!oRecord.oMember) {
      bStands = ModuleEdit::ReplaceDeclarations(oScope, oModule, oDraft.sOld, oDraft.sNew,
                                                oDraft.lBlankLines);
      return;
    }
    const auto lStart =
        Need(oScope, [&] { return oModule.ProcStartLine(oDraft.sProcName, oRecord.nKind); });
    const ModuleEdit::Attributes oSaved = ModuleEdit::Save(*oRecord.oMember);
    std::exception_ptr pFailure;
    try {
      ModuleEdit::ReplaceLines(oScope, oModule, lStart, oDraft.sOld, oDraft.sNew,
                               oDraft.lBlankLines);
    } catch (...) {
      pFailure = std::current_exception();
    }
    const Text sFailed = ModuleEdit::Restore(*oRecord.oMember, oSaved);
    if (!sFailed.empty()) {
      Template().ReportError(u"    Attributes could not be set again: " + sFailed);
    }
    if (pFailure) std::rethrow_exception(pFailure);
  });
  if (!bStands) {
    Template().ReportError(
        u"    These lines would fall to the first procedure: no declaration keeps them from it");
  }
  return bStands;
}
