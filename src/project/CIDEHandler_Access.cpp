// Reading and changing one procedure, component or project by its handle: code and names, settings,
// dirty queries, getters.
#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MQuillon.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

Text CIDEHandler::GetProcCode(ProcedureHandle hProcedure, std::int32_t& lBodyStart) {
  return Result(u"GetProcCode", [&](GuardScope& scope) {
    ProcedureCode code = mModel.CodeOf(scope, mModel.Procedure(hProcedure));
    lBodyStart = code.headLine;
    return std::move(code.text);
  });
}

void CIDEHandler::GetProcDetails(ProcedureHandle hProcedure, Text& sModuleName, Text& sProcName,
                                 Text& sProcType) {
  Guard(Named(u"GetProcDetails"), [&](GuardScope& scope) {
    const ProcedureRecord& record = mModel.Procedure(hProcedure);
    if (!record.oMember) throw Failure(91);
    sModuleName = SteppedMember(scope, *record.oMember).ComponentName();
    sProcName = mModel.NameOf(scope, record);
    sProcType = record.sDeclType;
  });
}

Text CIDEHandler::ProcName(ProcedureHandle hProcedure) const {
  return Result(u"ProcName", [&](GuardScope& scope) {
    return mModel.NameOf(scope, mModel.Procedure(hProcedure));
  });
}

void CIDEHandler::GetPendingSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetPendingSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(mModel.Procedure(hProcedure).oPending); });
}

void CIDEHandler::GetCurrentSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetCurrentSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(mModel.Procedure(hProcedure).oCurrent); });
}

void CIDEHandler::GetSuggestSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetSuggestSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(mModel.Procedure(hProcedure).oSuggest); });
}

Text CIDEHandler::ProcTemplate(ProcedureHandle hProcedure) {
  return Result(u"ProcTemplate [Get]", [&](GuardScope&) {
    return Text(mModel.Procedure(hProcedure).oPending.sTemplate());
  });
}

void CIDEHandler::SetProcTemplate(ProcedureHandle hProcedure, TextView sTemplate) {
  Guard(Named(u"ProcTemplate [Let]"),
        [&](GuardScope&) { mModel.Procedure(hProcedure).oPending.SetsTemplate(sTemplate); });
}

MQuillon::TriState CIDEHandler::Locked(ProcedureHandle hProcedure) {
  return Result(u"Locked [Get]",
                [&](GuardScope&) { return mModel.Procedure(hProcedure).oPending.eLocked(); });
}

void CIDEHandler::SetLocked(ProcedureHandle hProcedure, MQuillon::TriState eValue) {
  Guard(Named(u"Locked [Let]"),
        [&](GuardScope&) { mModel.Procedure(hProcedure).oPending.SeteLocked(eValue); });
}

MQuillon::Boundary CIDEHandler::BoundaryId(ProcedureHandle hProcedure) {
  return Result(u"BoundaryId [Get]",
                [&](GuardScope&) { return mModel.Procedure(hProcedure).oPending.eBoundary(); });
}

void CIDEHandler::SetBoundaryId(ProcedureHandle hProcedure, MQuillon::Boundary eValue) {
  Guard(Named(u"BoundaryId [Let]"),
        [&](GuardScope&) { mModel.Procedure(hProcedure).oPending.SeteBoundary(eValue); });
}

MQuillon::Severity CIDEHandler::SeverityId(ProcedureHandle hProcedure) {
  return Result(u"SeverityId [Get]",
                [&](GuardScope&) { return mModel.Procedure(hProcedure).oPending.eSeverity(); });
}

void CIDEHandler::SetSeverityId(ProcedureHandle hProcedure, MQuillon::Severity eValue) {
  Guard(Named(u"SeverityId [Let]"),
        [&](GuardScope&) { mModel.Procedure(hProcedure).oPending.SeteSeverity(eValue); });
}

void CIDEHandler::SetRetryType(ProcedureHandle hProcedure, MQuillon::Retry eValue) {
  Guard(Named(u"RetryType [Let]"),
        [&](GuardScope&) { mModel.Procedure(hProcedure).oPending.SeteRetry(eValue); });
}

MQuillon::Retry CIDEHandler::RetryId(ProcedureHandle hProcedure) {
  return Result(u"RetryId [Get]",
                [&](GuardScope&) { return mModel.Procedure(hProcedure).oPending.eRetry(); });
}

MQuillon::TriState CIDEHandler::Trace(ProcedureHandle hProcedure) {
  return Result(u"Trace [Get]",
                [&](GuardScope&) { return mModel.Procedure(hProcedure).oPending.eTrace(); });
}

void CIDEHandler::SetTrace(ProcedureHandle hProcedure, MQuillon::TriState eValue) {
  Guard(Named(u"Trace [Let]"),
        [&](GuardScope&) { mModel.Procedure(hProcedure).oPending.SeteTrace(eValue); });
}

bool CIDEHandler::ProcedureIsDirty(ProcedureHandle hProcedure) {
  return Result(u"ProcedureIsDirty [Get]",
                [&](GuardScope&) { return IsDirty(mModel.Procedure(hProcedure)); });
}

bool CIDEHandler::ComponentIsDirty(ComponentHandle hComponent) {
  return Result(u"ComponentIsDirty [Get]", [&](GuardScope&) {
    for (const ProcedureHandle h : mModel.ProceduresOf(hComponent)) {
      if (IsDirty(mModel.Procedure(h))) return true;
    }
    return false;
  });
}

bool CIDEHandler::GroupIsDirty() {
  return Result(u"GroupIsDirty [Get]", [&](GuardScope&) {
    for (const ProcedureHandle h : mModel.Procedures()) {
      if (IsDirty(mModel.Procedure(h))) return true;
    }
    return false;
  });
}

Text CIDEHandler::ComponentType(ComponentHandle hComponent) {
  return Result(u"ComponentType", [&](GuardScope& scope) {
    const SteppedComponent component(scope, *mModel.Component(hComponent).oComponent);
    return ToText(MQuillon::ToNumber(component.Type()));
  });
}

Text CIDEHandler::ComponentFileName(ComponentHandle hComponent) {
  return Result(u"ComponentFileName", [&](GuardScope& scope) {
    return SteppedComponent(scope, *mModel.Component(hComponent).oComponent).FileNames(1);
  });
}

Text CIDEHandler::ComponentName(ComponentHandle hComponent) {
  return Result(u"ComponentName", [&](GuardScope& scope) {
    return SteppedComponent(scope, *mModel.Component(hComponent).oComponent).Name();
  });
}

Text CIDEHandler::ComponentFolderName(ComponentHandle hComponent) {
  return Result(u"ComponentFolderName", [&](GuardScope&) {
    const auto folder = static_cast<std::size_t>(mModel.Component(hComponent).lFolderType);
    const TextArray& names = MQuillon::asFolderItemName;
    return folder < names.size() ? names[folder] : Text();
  });
}

bool CIDEHandler::ComponentReadOnly(ComponentHandle hComponent) {
  return Result(u"ComponentReadOnly",
                [&](GuardScope&) { return mModel.Component(hComponent).bReadOnly; });
}

Text CIDEHandler::ProjectFileName(ProjectHandle hProject) {
  return Result(u"ProjectFileName", [&](GuardScope& scope) {
    return SteppedProject(scope, *mModel.Project(hProject).oProject).FileName();
  });
}

Text CIDEHandler::ProjectName(ProjectHandle hProject) {
  return Result(u"ProjectName", [&](GuardScope& scope) {
    return SteppedProject(scope, *mModel.Project(hProject).oProject).Name();
  });
}

std::int32_t CIDEHandler::ProjectCount() {
  return Result(u"ProjectCount", [&](GuardScope& scope) {
    if (!VBInst) throw Failure(91);
    return SteppedProjects(scope, *VBInst).Count();
  });
}
