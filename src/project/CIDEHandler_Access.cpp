// Reading and changing one procedure, component or project by its handle: access to the records,
// code and names, settings, dirty queries, getters.
#include <algorithm>

#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MQuillon.h"

using namespace HandlerGuard;

namespace {

/// Element 0 of each array is a dummy that no handle may reach.
template <class Records>
auto& At(Records& oRecords, std::int32_t h) {
  if (h < 1 || static_cast<std::size_t>(h) >= oRecords.size()) throw Failure(9);
  return oRecords[static_cast<std::size_t>(h)];
}

}  // namespace

ProjectRecord& CIDEHandler::ProjectAt(Handle hProject) {
  return At(moProjects, hProject);
}
ComponentRecord& CIDEHandler::ComponentAt(Handle hComponent) {
  return At(moComponents, hComponent);
}
ProcedureRecord& CIDEHandler::ProcedureAt(Handle hProcedure) {
  return At(moProcedures, hProcedure);
}
const ProjectRecord& CIDEHandler::Project(Handle hProject) const {
  return At(moProjects, hProject);
}
const ComponentRecord& CIDEHandler::Component(Handle hComponent) const {
  return At(moComponents, hComponent);
}
const ProcedureRecord& CIDEHandler::Procedure(Handle hProcedure) const {
  return At(moProcedures, hProcedure);
}

CTemplate& CIDEHandler::Template() const {
  if (!oTemplate) throw Failure(91);
  return *oTemplate;
}

CodeModule& CIDEHandler::ModuleOf(GuardScope& oScope, Handle hComponent) {
  CodeModule* poModule =
      Need(oScope, [&] { return ComponentAt(hComponent).oComponent->CodeModule(); });
  if (!poModule) throw Failure(91);
  return *poModule;
}

Text CIDEHandler::NameOf(GuardScope& oScope, const ProcedureRecord& oRecord) const {
  if (!oRecord.oMember) return Text(MQuillon::DeclarationsName);
  return Need(oScope, [&] { return oRecord.oMember->Name(); });
}

bool CIDEHandler::IsDirty(const ProcedureRecord& oRecord) {
  return !oRecord.oPending.Equals(oRecord.oCurrent);
}

Text CIDEHandler::ReadProcCode(GuardScope& oScope, const ProcedureRecord& oRecord,
                               std::int32_t& lBodyStart) {
  const CodeModule& oModule = ModuleOf(oScope, oRecord.hComponent);
  lBodyStart = 1;
  if (oRecord.nKind == MQuillon::ProcKind::Declarations) {
    const auto lCount = Need(oScope, [&] { return oModule.CountOfDeclarationLines(); });
    return lCount > 0 ? Need(oScope, [&] { return oModule.Lines(1, lCount); }) : Text();
  }
  const Text sName = NameOf(oScope, oRecord);
  const auto lStart = Need(oScope, [&] { return oModule.ProcStartLine(sName, oRecord.nKind); });
  const auto lBody = Need(oScope, [&] { return oModule.ProcBodyLine(sName, oRecord.nKind); });
  const auto lCount = Need(oScope, [&] { return oModule.ProcCountLines(sName, oRecord.nKind); });
  lBodyStart = lBody - lStart + 1;
  return Need(oScope, [&] { return oModule.Lines(lStart, lCount); });
}

Text CIDEHandler::GetProcCode(Handle hProcedure, std::int32_t& lBodyStart) {
  return Result(u"GetProcCode", [&](GuardScope& oScope) {
    return ReadProcCode(oScope, ProcedureAt(hProcedure), lBodyStart);
  });
}

void CIDEHandler::GetProcDetails(Handle hProcedure, Text& sModuleName, Text& sProcName,
                                 Text& sProcType) {
  Guard(Named(u"GetProcDetails"), [&](GuardScope& oScope) {
    const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
    if (!oRecord.oMember) throw Failure(91);
    sModuleName = Need(oScope, [&] { return oRecord.oMember->Parent().Parent().Parent().Name(); });
    sProcName = NameOf(oScope, oRecord);
    sProcType = oRecord.sDeclType;
  });
}

Text CIDEHandler::ProcName(Handle hProcedure) const {
  return Result(u"ProcName",
                [&](GuardScope& oScope) { return NameOf(oScope, Procedure(hProcedure)); });
}

void CIDEHandler::GetPendingSettings(Handle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetPendingSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(ProcedureAt(hProcedure).oPending); });
}

void CIDEHandler::GetCurrentSettings(Handle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetCurrentSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(ProcedureAt(hProcedure).oCurrent); });
}

void CIDEHandler::GetSuggestSettings(Handle hProcedure, CProcSettings& oProcSettings) {
  Guard(Named(u"GetSuggestSettings"),
        [&](GuardScope&) { oProcSettings.CopyFrom(ProcedureAt(hProcedure).oSuggest); });
}

Text CIDEHandler::ProcTemplate(Handle hProcedure) {
  return Result(u"ProcTemplate [Get]",
                [&](GuardScope&) { return Text(ProcedureAt(hProcedure).oPending.sTemplate()); });
}

void CIDEHandler::SetProcTemplate(Handle hProcedure, TextView sTemplate) {
  Guard(Named(u"ProcTemplate [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SetsTemplate(sTemplate); });
}

MQuillon::TriState CIDEHandler::Locked(Handle hProcedure) {
  return Result(u"Locked [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eLocked(); });
}

void CIDEHandler::SetLocked(Handle hProcedure, MQuillon::TriState eValue) {
  Guard(Named(u"Locked [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteLocked(eValue); });
}

MQuillon::Boundary CIDEHandler::BoundaryId(Handle hProcedure) {
  return Result(u"BoundaryId [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eBoundary(); });
}

void CIDEHandler::SetBoundaryId(Handle hProcedure, MQuillon::Boundary eValue) {
  Guard(Named(u"BoundaryId [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteBoundary(eValue); });
}

MQuillon::Severity CIDEHandler::SeverityId(Handle hProcedure) {
  return Result(u"SeverityId [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eSeverity(); });
}

void CIDEHandler::SetSeverityId(Handle hProcedure, MQuillon::Severity eValue) {
  Guard(Named(u"SeverityId [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteSeverity(eValue); });
}

void CIDEHandler::SetRetryType(Handle hProcedure, MQuillon::Retry eValue) {
  Guard(Named(u"RetryType [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteRetry(eValue); });
}

MQuillon::Retry CIDEHandler::RetryId(Handle hProcedure) {
  return Result(u"RetryId [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eRetry(); });
}

MQuillon::TriState CIDEHandler::Trace(Handle hProcedure) {
  return Result(u"Trace [Get]",
                [&](GuardScope&) { return ProcedureAt(hProcedure).oPending.eTrace(); });
}

void CIDEHandler::SetTrace(Handle hProcedure, MQuillon::TriState eValue) {
  Guard(Named(u"Trace [Let]"),
        [&](GuardScope&) { ProcedureAt(hProcedure).oPending.SeteTrace(eValue); });
}

bool CIDEHandler::ProcedureIsDirty(Handle hProcedure) {
  return Result(u"ProcedureIsDirty [Get]",
                [&](GuardScope&) { return IsDirty(ProcedureAt(hProcedure)); });
}

bool CIDEHandler::ComponentIsDirty(Handle hComponent) {
  return Result(u"ComponentIsDirty [Get]", [&](GuardScope&) {
    const ComponentRecord& oRecord = ComponentAt(hComponent);
    for (const Handle h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure)) {
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

Text CIDEHandler::ComponentType(Handle hComponent) {
  return Result(u"ComponentType", [&](GuardScope& oScope) {
    return ToText(MQuillon::ToNumber(
        Need(oScope, [&] { return ComponentAt(hComponent).oComponent->Type(); })));
  });
}

Text CIDEHandler::ComponentFileName(Handle hComponent) {
  return Result(u"ComponentFileName", [&](GuardScope& oScope) {
    return Need(oScope, [&] { return ComponentAt(hComponent).oComponent->FileNames(1); });
  });
}

Text CIDEHandler::ComponentName(Handle hComponent) {
  return Result(u"ComponentName", [&](GuardScope& oScope) {
    return Need(oScope, [&] { return ComponentAt(hComponent).oComponent->Name(); });
  });
}

Text CIDEHandler::ComponentFolderName(Handle hComponent) {
  return Result(u"ComponentFolderName", [&](GuardScope&) {
    const auto lFolder = static_cast<std::size_t>(ComponentAt(hComponent).lFolderType);
    const TextArray& asName = MQuillon::asFolderItemName;
    return lFolder < asName.size() ? asName[lFolder] : Text();
  });
}

bool CIDEHandler::ComponentReadOnly(Handle hComponent) {
  return Result(u"ComponentReadOnly",
                [&](GuardScope&) { return ComponentAt(hComponent).bReadOnly; });
}

Text CIDEHandler::ProjectFileName(Handle hProject) {
  return Result(u"ProjectFileName", [&](GuardScope& oScope) {
    return Need(oScope, [&] { return ProjectAt(hProject).oProject->FileName(); });
  });
}

Text CIDEHandler::ProjectName(Handle hProject) {
  return Result(u"ProjectName", [&](GuardScope& oScope) {
    return Need(oScope, [&] { return ProjectAt(hProject).oProject->Name(); });
  });
}

std::int32_t CIDEHandler::ProjectCount() {
  return Result(u"ProjectCount", [&](GuardScope& oScope) {
    if (!VBInst) throw Failure(91);
    return Need(oScope, [&] { return VBInst->VBProjects().Count(); });
  });
}
