// How projects and components enter the model, and the walks over it: in order, loading the
// group, the three walks, forced loading, progress.
#include <cmath>

#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "IFileOps.h"
#include "LoadFailure.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "PathText.h"
#include "ReadOnlyRule.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace {

constexpr std::int64_t NanosecondsPerSecond = 1'000'000'000;

std::int32_t FolderOfType(ComponentType eType) {
  const auto& aiFolder = MQuillon::aiFolderOfType;
  const auto lIndex = static_cast<std::size_t>(eType);
  return eType > ComponentType::Unknown && lIndex < aiFolder.size() ? aiFolder[lIndex] : 0;
}

/// The object name of a component's own events.
Text DesignerName(TextView sDesignerID, ComponentType nType) {
  if (!sDesignerID.empty()) return Text(sDesignerID.substr(sDesignerID.rfind(u'.') + 1));
  if (nType == ComponentType::PropPage) return u"PropertyPage";
  if (nType == ComponentType::UserControl) return u"UserControl";
  if (nType == ComponentType::UserDocument) return u"UserDocument";
  return {};
}

Text FirstFile(const SteppedComponent& oComponent) {
  return oComponent.FileCount() > 0 ? oComponent.FileNames(1) : Text();
}

/// Date of a file, 0 without a name. A file that can't be asked is reported, but the walk that
/// lists it goes on: one vanished file must not empty the list.
std::int64_t FileModified(TextView sFile) {
  if (sFile.empty()) return 0;
  try {
    return Result(u"FileModified", [&](GuardScope&) {
      IFileOps::Stat oStat;
      if (SystemFileOps().GetStat(PathOfText(sFile), oStat) != 0) {
        throw Failure(53, u"File not found: " + Text(sFile));
      }
      return oStat.lModified / NanosecondsPerSecond;
    });
  } catch (const Failure&) {
    return 0;
  }
}

/// 0 for a component whose module can't be had: its load tells why.
std::int32_t MemberCount(VBComponent& oComponent) {
  try {
    CodeModule* poModule = oComponent.CodeModule();
    return poModule ? poModule->Members().Count() : 0;
  } catch (const Failure&) {
    return 0;
  }
}

}  // namespace

CIDEHandler::CIDEHandler()
    : moProjects(1), moComponents(1), moProcedures(1), moEventSources(1), moForeignInterfaces(1) {}

CIDEHandler::~CIDEHandler() = default;

void CIDEHandler::LoadProjects(VBE& oVBInst) {
  Guard(Named(u"LoadProjects"), [&](GuardScope& oScope) {
    VBInst = &oVBInst;
    const SteppedProjects oProjects(oScope, oVBInst);
    const auto lCount = oProjects.Count();
    for (std::int32_t i = 1; i <= lCount; ++i) ProjectAdd(oProjects.Item(i));
  });
}

void CIDEHandler::ProjectAdd(VBProject& oProject) {
  Guard(Named(u"ProjectAdd"), [&](GuardScope& oScope) {
    moProjects.push_back({.oProject = &oProject});
    const SteppedComponents oComponents(oScope, SteppedProject(oScope, oProject).VBComponents());
    const auto lCount = oComponents.Count();
    for (std::int32_t i = 1; i <= lCount; ++i) {
      VBComponent& oComponent = oComponents.Item(i);
      const auto nType = SteppedComponent(oScope, oComponent).Type();
      if (nType != ComponentType::RelatedDocument && nType != ComponentType::ResFile)
        ComponentAdd(oComponent);
    }
  });
}

void CIDEHandler::ComponentAdd(VBComponent& oComponent) {
  ComponentRecord& oRecord = moComponents.emplace_back();
  const ComponentHandle hComponent = LastComponent();
  oRecord.hProject = LastProject();
  oRecord.oComponent = &oComponent;
  ProjectRecord& oProject = moProjects.back();
  if (!oProject.lFirstComponent) oProject.lFirstComponent = hComponent;
  oProject.lLastComponent = hComponent;
  try {
    Guard(Named(u"ComponentAdd"), [&](GuardScope& oScope) { FillComponent(oScope, oRecord); });
  } catch (...) {
    // Already reported; one component that can't be asked must not close the whole group.
    LoadFailure::KeepCurrent(oRecord.oError);
    LoadFailure::Mark(oRecord, u"Properties of VBComponent Object");
  }
}

void CIDEHandler::FillComponent(GuardScope& oScope, ComponentRecord& oRecord) {
  const SteppedComponent oComponent(oScope, *oRecord.oComponent);
  const auto nType = oComponent.Type();
  oRecord.sName = oComponent.Name();
  moComponentNames.insert(LowerCase(oRecord.sName));
  oRecord.lFolderType = FolderOfType(nType);
  if (!LoadFailure::FindModule(*oRecord.oComponent, oRecord.oError)) {
    LoadFailure::Mark(oRecord, u"CodeModule Property of VBComponent Object");
  } else if (nType == ComponentType::Class &&
             oComponent.TypeOfProject() != ProjectType::StandardExe) {
    oRecord.lInstancing = oComponent.Property(u"Instancing");
    oRecord.bPublicClass = oRecord.lInstancing >= 2;
  }
  const Text sFile = FirstFile(oComponent);
  oRecord.bReadOnly = !sFile.empty() && MXFile::FileReadOnly(sFile);
  oRecord.sDesignerName = DesignerName(oComponent.DesignerID(), nType);
}

void CIDEHandler::EnumProjects() {
  Guard(Named(u"EnumProjects"), [&](GuardScope& oScope) {
    for (const ProjectHandle hProject : Projects()) {
      const ProjectRecord oProject = ProjectAt(hProject);
      const SteppedProject oStepped(oScope, *oProject.oProject);
      const Text sTitle = oStepped.Name();
      EnumProjectsProc(hProject, sTitle, oStepped.Type());
      for (const ComponentHandle h :
           HandleRange(oProject.lFirstComponent, oProject.lLastComponent)) {
        const ComponentRecord& oRecord = ComponentAt(h);
        EnumComponentsProc(hProject, h, oRecord.sName,
                           SteppedComponent(oScope, *oRecord.oComponent).Type());
      }
      EnumComponentsEOF(hProject);
    }
  });
}

void CIDEHandler::EnumComponentsEx(ProjectHandle hProject, std::int32_t lFolderType) {
  Guard(Named(u"EnumComponentsEx"), [&](GuardScope& oScope) {
    const ProjectRecord oProject = ProjectAt(hProject);
    EnumComponentsExBOF();
    for (const ComponentHandle h : HandleRange(oProject.lFirstComponent, oProject.lLastComponent)) {
      if (lFolderType == 0 || ComponentAt(h).lFolderType == lFolderType) RowOfComponent(oScope, h);
    }
    EnumComponentsExEOF();
  });
}

void CIDEHandler::RowOfComponent(GuardScope& oScope, ComponentHandle hComponent) {
  const ComponentRecord& oRecord = ComponentAt(hComponent);
  const SteppedComponent oComponent(oScope, *oRecord.oComponent);
  const Text sFile = FirstFile(oComponent);
  EnumComponentsExProc({.hComponent = hComponent,
                        .nComponentType = oComponent.Type(),
                        .sName = oRecord.sName,
                        .lInstancing = oRecord.lInstancing,
                        .bReadOnly = oRecord.bReadOnly,
                        .dModified = FileModified(sFile),
                        .sFileName = sFile});
}

void CIDEHandler::EnumProcedures(ComponentHandle hComponent) {
  Guard(Named(u"EnumProcedures"), [&](GuardScope& oScope) {
    const ComponentRecord& oRecord = ComponentAt(hComponent);
    EnumProceduresBOF();
    if (oRecord.bLoadError) {
      EnumProceduresError(hComponent, oRecord.oError);
      return;
    }
    for (const ProcedureHandle h : HandleRange(oRecord.lFirstProcedure, oRecord.lLastProcedure)) {
      RowOfProcedure(oScope, h);
    }
    EnumProceduresEOF();
  });
}

void CIDEHandler::RowOfProcedure(GuardScope& oScope, ProcedureHandle hProcedure) {
  const ProcedureRecord& oRecord = ProcedureAt(hProcedure);
  const auto nScope =
      oRecord.oMember ? SteppedMember(oScope, *oRecord.oMember).Scope() : MemberScope::Unset;
  EnumProceduresProc({.hProcedure = hProcedure,
                      .bDirty = IsDirty(oRecord),
                      .sPROCEDURE = NameOf(oScope, oRecord),
                      .sProcType = oRecord.sProcType,
                      .nScope = nScope,
                      .oProcSettings = &oRecord.oPending});
}

void CIDEHandler::ForceLoadProjectComponents(ProjectHandle hProject) {
  Guard(Named(u"ForceLoadProjectComponents"), [&](GuardScope&) {
    const ProjectRecord oProject = ProjectAt(hProject);
    const HandleRange oRange(oProject.lFirstComponent, oProject.lLastComponent);
    mlProgressTotal = mlProgressCount = 0;
    if (!oProject.lFirstComponent) return RaiseProgressEnd();
    for (const ComponentHandle h : oRange) {
      const ComponentRecord& oRecord = ComponentAt(h);
      if (oRecord.bLoaded || oRecord.bLoadError || IsPassedOver(oRecord)) continue;
      mlProgressTotal += MemberCount(*oRecord.oComponent);
    }
    RaiseProgressStart();
    for (const ComponentHandle h : oRange) {
      if (!IsPassedOver(ComponentAt(h))) LoadComponent(h);
    }
    RaiseProgressEnd();
  });
}

void CIDEHandler::ForceLoadGroupComponents() {
  Guard(Named(u"ForceLoadGroupComponents"), [&](GuardScope&) {
    for (const ComponentHandle h : Components()) {
      if (!IsPassedOver(ComponentAt(h))) LoadComponent(h);
    }
  });
}

bool CIDEHandler::TakesProgress(const ComponentRecord& oRecord) {
  constexpr std::int32_t MembersWorthProgress = 30;
  if (mlProgressTotal != 0) return false;
  mlProgressTotal = MemberCount(*oRecord.oComponent);
  if (mlProgressTotal < MembersWorthProgress) {
    mlProgressTotal = 0;
  } else {
    mlProgressCount = 0;
    RaiseProgressStart();
  }
  return true;
}

void CIDEHandler::RaiseProgressStart() {
  ProgressStart();
}

void CIDEHandler::RaiseProgressEnd() {
  mlProgressTotal = 0;
  ProgressEnd();
}

void CIDEHandler::RaiseProgress(const VBComponent& oComponent, const Member& oMember) {
  if (mlProgressTotal <= 0) return;
  ++mlProgressCount;
  // nearbyint: halves go to the even number, as everywhere in Visual Basic.
  const double dPercent = std::nearbyint(100.0 * mlProgressCount / mlProgressTotal);
  Progress(static_cast<std::int16_t>(dPercent), oComponent.Name() + u"." + oMember.Name());
}
