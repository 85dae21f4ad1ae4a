// The walks over projects, components and procedures, which answer by events.
#include "CIDEHandler.h"
#include "HandlerGuard.h"
#include "MXFile.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

void CIDEHandler::EnumProjects() {
  Guard(Named(u"EnumProjects"), [&](GuardScope& scope) {
    for (const ProjectHandle hProject : Projects()) {
      const SteppedProject project(scope, *mModel.Project(hProject).oProject);
      const Text title = project.Name();
      EnumProjectsProc(hProject, title, project.Type());
      for (const ComponentHandle h : mModel.ComponentsOf(hProject)) {
        const ComponentRecord& record = mModel.Component(h);
        EnumComponentsProc(hProject, h, record.sName,
                           SteppedComponent(scope, *record.oComponent).Type());
      }
      EnumComponentsEOF(hProject);
    }
  });
}

void CIDEHandler::EnumComponentsEx(ProjectHandle hProject, std::int32_t lFolderType) {
  Guard(Named(u"EnumComponentsEx"), [&](GuardScope& scope) {
    const auto components = mModel.ComponentsOf(hProject);
    EnumComponentsExBOF();
    for (const ComponentHandle h : components) {
      if (lFolderType == 0 || mModel.Component(h).lFolderType == lFolderType) {
        RowOfComponent(scope, h);
      }
    }
    EnumComponentsExEOF();
  });
}

void CIDEHandler::RowOfComponent(GuardScope& scope, ComponentHandle handle) {
  const ComponentRecord& record = mModel.Component(handle);
  const SteppedComponent component(scope, *record.oComponent);
  const Text file = component.FirstFile();
  const auto modified = file.empty() ? std::nullopt : MXFile::FileModified(file);
  EnumComponentsExProc({.hComponent = handle,
                        .nComponentType = component.Type(),
                        .sName = record.sName,
                        .lInstancing = record.lInstancing,
                        .bReadOnly = record.bReadOnly,
                        .dModified = modified.value_or(0),
                        .sFileName = file,
                        .isMissing = !file.empty() && !modified});
}

void CIDEHandler::EnumProcedures(ComponentHandle hComponent) {
  Guard(Named(u"EnumProcedures"), [&](GuardScope& scope) {
    const ComponentRecord& record = mModel.Component(hComponent);
    EnumProceduresBOF();
    if (record.bLoadError) {
      EnumProceduresError(hComponent, record.oError);
      return;
    }
    for (const ProcedureHandle h : mModel.ProceduresOf(hComponent)) RowOfProcedure(scope, h);
    EnumProceduresEOF();
  });
}

void CIDEHandler::RowOfProcedure(GuardScope& scope, ProcedureHandle handle) {
  const ProcedureRecord& record = mModel.Procedure(handle);
  EnumProceduresProc({.hProcedure = handle,
                      .bDirty = IsDirty(record),
                      .sPROCEDURE = mModel.NameOf(scope, record),
                      .sProcType = record.sProcType,
                      .nScope = scope.Require([&] { return ScopeOf(record); }),
                      .oProcSettings = &record.oPending});
}
