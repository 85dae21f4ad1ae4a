// Reading and changing one procedure, component or project by its handle: access to the records,
// code and names, settings, dirty queries, getters.
#include <algorithm>

#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MQuillon.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace {

template <class Records, class Record>
auto& At(Records& oRecords, Handle<Record> handle) {
  const auto index = static_cast<std::size_t>(handle.Number());
  if (!handle || index >= oRecords.size()) throw Failure(9);
  return oRecords[index];
}

}  // namespace

ProjectRecord& CIDEHandler::ProjectAt(ProjectHandle hProject) {
  return At(moProjects, hProject);
}
ComponentRecord& CIDEHandler::ComponentAt(ComponentHandle hComponent) {
  return At(moComponents, hComponent);
}
ProcedureRecord& CIDEHandler::ProcedureAt(ProcedureHandle hProcedure) {
  return At(moProcedures, hProcedure);
}
const ProjectRecord& CIDEHandler::Project(ProjectHandle hProject) const {
  return At(moProjects, hProject);
}
const ComponentRecord& CIDEHandler::Component(ComponentHandle hComponent) const {
  return At(moComponents, hComponent);
}
const ProcedureRecord& CIDEHandler::Procedure(ProcedureHandle hProcedure) const {
  return At(moProcedures, hProcedure);
}

CTemplate& CIDEHandler::Template() const {
  if (!oTemplate) throw Failure(91);
  return *oTemplate;
}

CodeModule& CIDEHandler::ModuleOf(GuardScope& oScope, ComponentHandle hComponent) {
  return SteppedComponent(oScope, *ComponentAt(hComponent).oComponent).CodeModule();
}

Text CIDEHandler::NameOf(GuardScope& oScope, const ProcedureRecord& oRecord) const {
  if (!oRecord.oMember) return Text(MQuillon::DeclarationsName);
  return SteppedMember(oScope, *oRecord.oMember).Name();
}

bool CIDEHandler::IsDirty(const ProcedureRecord& oRecord) {
  return !oRecord.oPending.Equals(oRecord.oCurrent);
}

Text CIDEHandler::ReadProcCode(GuardScope& oScope, const ProcedureRecord& oRecord,
                               std::int32_t& lBodyStart) {
  const SteppedModule oModule(oScope, ModuleOf(oScope, oRecord.hComponent));
  lBodyStart = 1;
  if (oRecord.nKind == MQuillon::ProcKind::Declarations) {
    const auto lCount = oModule.CountOfDeclarationLines();
    return lCount > 0 ? oModule.Lines(1, lCount) : Text();
  }
  const Text sName = NameOf(oScope, oRecord);
  const auto lStart = oModule.ProcStartLine(sName, oRecord.nKind);
  const auto lBody = oModule.ProcBodyLine(sName, oRecord.nKind);
  const auto lCount = oModule.ProcCountLines(sName, oRecord.nKind);
  lBodyStart = lBody - lStart + 1;
  return oModule.Lines(lStart, lCount);
}

Text CIDEHandler::GetProcCode(ProcedureHandle hProcedure, std::int32_t& lBodyStart) {
  return Result(u"GetProcCode", [&](GuardScope& oScope) {
    return ReadProcCode(oScope, ProcedureAt(hProcedure), lBodyStart);
  });
}

void CIDEHandler::GetProcDetails(ProcedureHandle hProcedure, Text& sModuleName, Text& sProcName,
                                 Text& sProcType) {
  Guard(Named(u"GetProcDetails"), [&](GuardScope& oScope) {
    const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
    if (!oRecord.oMember) throw Failure(91);
    sModuleName = SteppedMember(oScope, *oRecord.oMember).ComponentName();
    sProcName = NameOf(oScope, oRecord);
    sProcType = oRecord.sDeclType;
  });
}

Text CIDEHandler::ProcName(ProcedureHandle hProcedure) const {
  return Result(u"ProcName",
                [&](GuardScope& oScope) { return NameOf(oScope, Procedure(hProcedure)); });
}

void CIDEHandler::GetPendingSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetPendingSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(ProcedureAt(hProcedure).oPending); });
}

void CIDEHandler::GetCurrentSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetCurrentSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(ProcedureAt(hProcedure).oCurrent); });
}

void CIDEHandler::GetSuggestSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetSuggestSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(ProcedureAt(hProcedure).oSuggest); });
}

Text CIDEHandler::ProcTemplate(ProcedureHandle hProcedure) {
  return Result(u"ProcTemplate [Get]",
                [&](GuardScope&) { return Text(ProcedureAt(hProcedure).oPending.sTemplate()); });
}

void CIDEHandler::SetProcTemplate(ProcedureHandle hProcedure, TextView sTemplate) {
  Guard(Named(u"ProcTemplate [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SetsTemplate(sTemplate); });
}

MQuillon::TriState CIDEHandler::Locked(ProcedureHandle hProcedure) {
  return Result(u"Locked [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eLocked(); });
}

void CIDEHandler::SetLocked(ProcedureHandle hProcedure, MQuillon::TriState eValue) {
  Guard(Named(u"Locked [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteLocked(eValue); });
}

MQuillon::Boundary CIDEHandler::BoundaryId(ProcedureHandle hProcedure) {
  return Result(u"BoundaryId [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eBoundary(); });
}

void CIDEHandler::SetBoundaryId(ProcedureHandle hProcedure, MQuillon::Boundary eValue) {
  Guard(Named(u"BoundaryId [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteBoundary(eValue); });
}

MQuillon::Severity CIDEHandler::SeverityId(ProcedureHandle hProcedure) {
  return Result(u"SeverityId [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eSeverity(); });
}

void CIDEHandler::SetSeverityId(ProcedureHandle hProcedure, MQuillon::Severity eValue) {
  Guard(Named(u"SeverityId [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteSeverity(eValue); });
}

void CIDEHandler::SetRetryType(ProcedureHandle hProcedure, MQuillon::Retry eValue) {
  Guard(Named(u"RetryType [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteRetry(eValue); });
}

MQuillon::Retry CIDEHandler::RetryId(ProcedureHandle hProcedure) {
  return Result(u"RetryId [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eRetry(); });
}

MQuillon::TriState CIDEHandler::Trace(ProcedureHandle hProcedure) {
  return Result(u"Trace [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eTrace(); });
}

void CIDEHandler::SetTrace(ProcedureHandle hProcedure, MQuillon::TriState eValue) {
  Guard(Named(u"Trace [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteTrace(eValue); });
}

bool CIDEHandler::ProcedureIsDirty(ProcedureHandle hProcedure) {
  return Result(u"ProcedureIsDirty [Get]",
                [&](GuardScope&) { return IsDirty(ProcedureAt(hProcedure)); });
}

bool CIDEHandler::ComponentIsDirty(ComponentHandle hComponent) {
  return Result(u"ComponentIsDirty [Get]", [&](GuardScope&) {
    const ComponentRecord& oRecord = ComponentAt(hComponent);
    for (const ProcedureHandle h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure)) {
      if (IsDirty(ProcedureAt(h))) return true;
    }
    return false;
  });
}

bool CIDEHandler::GroupIsDirty() {
  return Result(u"GroupIsDirty [Get]", [&](GuardScope&) {
    return std::any_of(moProcedures.begin() + 1, moProcedures.end(), IsDirty);
  });
}

Text CIDEHandler::ComponentType(ComponentHandle hComponent) {
  return Result(u"ComponentType", [&](GuardScope& oScope) {
    const SteppedComponent oComponent(oScope, *ComponentAt(hComponent).oComponent);
    return ToText(MQuillon::ToNumber(oComponent.Type()));
  });
}

Text CIDEHandler::ComponentFileName(ComponentHandle hComponent) {
  return Result(u"ComponentFileName", [&](GuardScope& oScope) {
    return SteppedComponent(oScope, *ComponentAt(hComponent).oComponent).FileNames(1);
  });
}

Text CIDEHandler::ComponentName(ComponentHandle hComponent) {
  return Result(u"ComponentName", [&](GuardScope& oScope) {
    return SteppedComponent(oScope, *ComponentAt(hComponent).oComponent).Name();
  });
}

Text CIDEHandler::ComponentFolderName(ComponentHandle hComponent) {
  return Result(u"ComponentFolderName", [&](GuardScope&) {
    const auto lFolder = static_cast<std::size_t>(ComponentAt(hComponent).lFolderType);
    const TextArray& asName = MQuillon::asFolderItemName;
    return lFolder < asName.size() ? asName[lFolder] : Text();
  });
}

bool CIDEHandler::ComponentReadOnly(ComponentHandle hComponent) {
  return Result(u"ComponentReadOnly",
                [&](GuardScope&) { return ComponentAt(hComponent).bReadOnly; });
}

Text CIDEHandler::ProjectFileName(ProjectHandle hProject) {
  return Result(u"ProjectFileName", [&](GuardScope& oScope) {
    return SteppedProject(oScope, *ProjectAt(hProject).oProject).FileName();
  });
}

Text CIDEHandler::ProjectName(ProjectHandle hProject) {
  return Result(u"ProjectName", [&](GuardScope& oScope) {
    return SteppedProject(oScope, *ProjectAt(hProject).oProject).Name();
  });
}

std::int32_t CIDEHandler::ProjectCount() {
  return Result(u"ProjectCount", [&](GuardScope& oScope) {
    if (!VBInst) throw Failure(91);
    return SteppedProjects(oScope, *VBInst).Count();
  });
}
