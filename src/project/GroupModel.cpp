#include "GroupModel.h"

#include "MQuillon.h"
#include "SteppedIDE.h"

namespace {

template <class Records, class Record>
auto& At(Records& records, Handle<Record> handle) {
  const auto index = static_cast<std::size_t>(handle.Number());
  if (!handle || index >= records.size()) throw Failure(9);
  return records[index];
}

template <class Choice>
void InheritId(Choice own, Choice module, CProcSettings& settings,
               void (CProcSettings::*set)(Choice), bool& inherited) {
  if (own != Choice::Unset) return;
  (settings.*set)(module);
  inherited = module != Choice::Unset;
}

}  // namespace

GroupModel::GroupModel()
    : mProjects(1), mComponents(1), mProcedures(1), mEventSources(1), mForeignInterfaces(1) {}

ProjectRecord& GroupModel::Project(ProjectHandle project) {
  return At(mProjects, project);
}
const ProjectRecord& GroupModel::Project(ProjectHandle project) const {
  return At(mProjects, project);
}
ComponentRecord& GroupModel::Component(ComponentHandle component) {
  return At(mComponents, component);
}
const ComponentRecord& GroupModel::Component(ComponentHandle component) const {
  return At(mComponents, component);
}
ProcedureRecord& GroupModel::Procedure(ProcedureHandle procedure) {
  return At(mProcedures, procedure);
}
const ProcedureRecord& GroupModel::Procedure(ProcedureHandle procedure) const {
  return At(mProcedures, procedure);
}

HandleRange<ComponentRecord> GroupModel::ComponentsOf(ProjectHandle project) const {
  const ProjectRecord& record = Project(project);
  return {record.lFirstComponent, record.lLastComponent};
}

HandleRange<ProcedureRecord> GroupModel::ProceduresOf(ComponentHandle component) const {
  const ComponentRecord& record = Component(component);
  return {record.lFirstProcedure, record.lLastProcedure};
}

void GroupModel::AddProject(VBProject& project) {
  mProjects.push_back({.oProject = &project});
}

ComponentRecord& GroupModel::AddComponent(VBComponent& component) {
  ComponentRecord& record = mComponents.emplace_back();
  record.hProject = LastProject();
  record.oComponent = &component;
  ProjectRecord& project = mProjects.back();
  if (!project.lFirstComponent) project.lFirstComponent = LastComponent();
  project.lLastComponent = LastComponent();
  return record;
}

void GroupModel::AddProcedure(const ProcedureRecord& record) {
  mProcedures.push_back(record);
  ComponentRecord& component = Component(record.hComponent);
  if (!component.lFirstProcedure) component.lFirstProcedure = LastProcedure();
  component.lLastProcedure = LastProcedure();
}

void GroupModel::AddEventSource(ComponentHandle component, TextView name) {
  const auto index = static_cast<std::int32_t>(mEventSources.size());
  mEventSources.push_back({component, Text(name)});
  ComponentRecord& record = Component(component);
  if (record.lFirstEventSource == -1) record.lFirstEventSource = index;
  record.lLastEventSource = index;
}

void GroupModel::AddForeignInterface(ComponentHandle component, Text lowerCaseName) {
  const auto index = static_cast<std::int32_t>(mForeignInterfaces.size());
  mForeignInterfaces.push_back(std::move(lowerCaseName));
  ComponentRecord& record = Component(component);
  if (record.lFirstInterface == -1) record.lFirstInterface = index;
  record.lLastInterface = index;
}

void GroupModel::AddComponentName(TextView name) {
  mComponentNames.insert(LowerCase(name));
}

bool GroupModel::HasComponentNamed(const Text& lowerCaseName) const {
  return mComponentNames.contains(lowerCaseName);
}

TextView GroupModel::KeptTypeName(TextView name) {
  if (name.empty()) return {};
  auto found = mTypeNames.find(name);
  if (found == mTypeNames.end()) found = mTypeNames.emplace(name).first;
  return *found;
}

std::vector<TextView> GroupModel::EventSourcesOf(const ComponentRecord& component) const {
  std::vector<TextView> names;
  for (auto i = component.lFirstEventSource; i != -1 && i <= component.lLastEventSource; ++i) {
    names.push_back(mEventSources[static_cast<std::size_t>(i)].sName);
  }
  return names;
}

std::span<const Text> GroupModel::ForeignInterfacesOf(const ComponentRecord& component) const {
  if (component.lFirstInterface == -1) return {};
  const auto first = static_cast<std::size_t>(component.lFirstInterface);
  const auto last = static_cast<std::size_t>(component.lLastInterface);
  return std::span(mForeignInterfaces).subspan(first, last - first + 1);
}

Text GroupModel::NameOf(GuardScope& scope, const ProcedureRecord& record) const {
  if (!record.oMember) return Text(MQuillon::DeclarationsName);
  return SteppedMember(scope, *record.oMember).Name();
}

CodeModule& GroupModel::ModuleOf(GuardScope& scope, ComponentHandle component) const {
  return SteppedComponent(scope, *Component(component).oComponent).CodeModule();
}

ProcedureCode GroupModel::CodeOf(GuardScope& scope, const ProcedureRecord& record) const {
  const SteppedModule module(scope, ModuleOf(scope, record.hComponent));
  if (record.nKind == ProcKind::Declarations) {
    const auto count = module.CountOfDeclarationLines();
    return {count > 0 ? module.Lines(1, count) : Text()};
  }
  const Text name = NameOf(scope, record);
  const auto start = module.ProcStartLine(name, record.nKind);
  const auto head = module.ProcBodyLine(name, record.nKind);
  const auto count = module.ProcCountLines(name, record.nKind);
  return {module.Lines(start, count), head - start + 1};
}

void GroupModel::InheritFromModule(const ProcedureRecord& record, CProcSettings& settings) const {
  if (record.nKind == ProcKind::Declarations) return;
  const CProcSettings& module = Procedure(Component(record.hComponent).hDeclarations).oCurrent;
  InheritId(settings.eBoundary(), module.eBoundary(), settings, &CProcSettings::SeteBoundary,
            settings.BoundaryInherited);
  InheritId(settings.eSeverity(), module.eSeverity(), settings, &CProcSettings::SeteSeverity,
            settings.SeverityInherited);
  InheritId(settings.eRetry(), module.eRetry(), settings, &CProcSettings::SeteRetry,
            settings.RetryInherited);
}
