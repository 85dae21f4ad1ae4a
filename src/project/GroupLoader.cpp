#include "GroupLoader.h"

#include "ComponentLoader.h"
#include "HandlerGuard.h"
#include "LoadFailure.h"
#include "MQuillon.h"
#include "MXFile.h"
#include "ReadOnlyRule.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;

namespace {

std::int32_t FolderOfType(ComponentType type) {
  const auto& folders = MQuillon::aiFolderOfType;
  const auto index = static_cast<std::size_t>(type);
  return type > ComponentType::Unknown && index < folders.size() ? folders[index] : 0;
}

/// The object name of a component's own events.
Text DesignerName(TextView designerId, ComponentType type) {
  if (!designerId.empty()) return Text(designerId.substr(designerId.rfind(u'.') + 1));
  if (type == ComponentType::PropPage) return u"PropertyPage";
  if (type == ComponentType::UserControl) return u"UserControl";
  if (type == ComponentType::UserDocument) return u"UserDocument";
  return {};
}

}  // namespace

void GroupLoader::LoadProjects(VBE& ide) {
  Guard(Named(u"LoadProjects"), [&](GuardScope& scope) {
    const SteppedProjects projects(scope, ide);
    const auto count = projects.Count();
    for (std::int32_t i = 1; i <= count; ++i) AddProject(projects.Item(i));
  });
}

void GroupLoader::AddProject(VBProject& project) {
  Guard(Named(u"ProjectAdd"), [&](GuardScope& scope) {
    mModel.AddProject(project);
    const SteppedComponents components(scope, SteppedProject(scope, project).VBComponents());
    const auto count = components.Count();
    for (std::int32_t i = 1; i <= count; ++i) {
      VBComponent& component = components.Item(i);
      const auto type = SteppedComponent(scope, component).Type();
      if (type != ComponentType::RelatedDocument && type != ComponentType::ResFile) {
        AddComponent(component);
      }
    }
  });
}

void GroupLoader::AddComponent(VBComponent& component) {
  ComponentRecord& record = mModel.AddComponent(component);
  try {
    Guard(Named(u"ComponentAdd"), [&](GuardScope& scope) { FillComponent(scope, record); });
  } catch (...) {
    // Already reported; one component that can't be asked must not close the whole group.
    LoadFailure::KeepCurrent(record.oError);
    LoadFailure::Mark(record, u"Properties of VBComponent Object");
  }
}

void GroupLoader::FillComponent(GuardScope& scope, ComponentRecord& record) {
  const SteppedComponent component(scope, *record.oComponent);
  const auto type = component.Type();
  record.sName = component.Name();
  mModel.AddComponentName(record.sName);
  record.lFolderType = FolderOfType(type);
  if (!LoadFailure::FindModule(*record.oComponent, record.oError)) {
    LoadFailure::Mark(record, u"CodeModule Property of VBComponent Object");
  } else if (type == ComponentType::Class &&
             component.TypeOfProject() != ProjectType::StandardExe) {
    record.lInstancing = component.Property(u"Instancing");
    record.bPublicClass = record.lInstancing >= 2;
  }
  const Text file = component.FirstFile();
  record.bReadOnly = !file.empty() && MXFile::FileReadOnly(file);
  if (!record.bReadOnly) record.readOnlyReason = component.ReadOnlyReason();
  record.bReadOnly |= !record.readOnlyReason.empty();
  record.sDesignerName = DesignerName(component.DesignerID(), type);
}

void GroupLoader::LoadComponent(ComponentHandle component) {
  const Routine routine{u"CIDEHandler", u"LoadComponent", ErrorIds::BoundaryFirewall};
  Guard(routine, [&](GuardScope& scope) {
    ComponentRecord& record = mModel.Component(component);
    if (record.bLoaded || record.bLoadError) return;
    const bool ownsProgress = mProgress.BeginFor(*record.oComponent);
    std::exception_ptr failure;
    try {
      ComponentLoader(scope, mOptions, mModel, mProgress, component).Load();
    } catch (...) {
      // The procedures read so far stay. Marked, so that the component is shown as one that
      // can't be read in full, and never read a second time.
      failure = std::current_exception();
      LoadFailure::KeepCurrent(record.oError);
      LoadFailure::Mark(record, u"Procedures of CodeModule Object");
    }
    record.bLoaded = true;
    if (ownsProgress) mProgress.End();
    if (failure) std::rethrow_exception(failure);
  });
}

std::int32_t GroupLoader::MembersToLoad(ProjectHandle project) const {
  std::int32_t members = 0;
  for (const ComponentHandle h : mModel.ComponentsOf(project)) {
    const ComponentRecord& record = mModel.Component(h);
    if (record.bLoaded || record.bLoadError || IsPassedOver(record)) continue;
    members += LoadProgress::MembersOf(*record.oComponent);
  }
  return members;
}

void GroupLoader::LoadComponentsOf(ProjectHandle project) {
  Guard(Named(u"ForceLoadProjectComponents"), [&](GuardScope&) {
    if (!mModel.Project(project).lFirstComponent) return mProgress.End();
    mProgress.Begin(MembersToLoad(project));
    for (const ComponentHandle h : mModel.ComponentsOf(project)) {
      if (!IsPassedOver(mModel.Component(h))) LoadComponent(h);
    }
    mProgress.End();
  });
}

void GroupLoader::LoadAllComponents() {
  Guard(Named(u"ForceLoadGroupComponents"), [&](GuardScope&) {
    for (const ComponentHandle h : mModel.Components()) {
      if (!IsPassedOver(mModel.Component(h))) LoadComponent(h);
    }
  });
}
