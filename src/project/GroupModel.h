// The records of the open group by their handles, with what can be asked of the IDE through a
// record: a procedure's name and code. It keeps no copy of source.
//
//   for (const ProcedureHandle h : model.ProceduresOf(component)) {
//     const ProcedureCode code = model.CodeOf(scope, model.Procedure(h));
//     ...
//   }
//
// Records are only ever added, so a handle stays valid; one outside the model is Failure 9. The
// components of a project have consecutive handles, and so have the procedures of a component.
#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <span>
#include <unordered_set>
#include <vector>

#include "ModelRecords.h"
#include "Text.h"

class GuardScope;

/// The lines of a procedure with the comments ahead of its head, joined by CR LF.
struct ProcedureCode {
  Text text;
  std::int32_t headLine = 1;  ///< the line of the head within the text, from 1
};

class GroupModel {
 public:
  GroupModel();

  ProjectRecord& Project(ProjectHandle project);
  const ProjectRecord& Project(ProjectHandle project) const;
  ComponentRecord& Component(ComponentHandle component);
  const ComponentRecord& Component(ComponentHandle component) const;
  ProcedureRecord& Procedure(ProcedureHandle procedure);
  const ProcedureRecord& Procedure(ProcedureHandle procedure) const;

  /// The last handle of each kind; none while there is no record.
  ProjectHandle LastProject() const { return LastOf<ProjectHandle>(mProjects); }
  ComponentHandle LastComponent() const { return LastOf<ComponentHandle>(mComponents); }
  ProcedureHandle LastProcedure() const { return LastOf<ProcedureHandle>(mProcedures); }

  HandleRange<ProjectRecord> Projects() const { return {ProjectHandle(1), LastProject()}; }
  HandleRange<ComponentRecord> Components() const { return {ComponentHandle(1), LastComponent()}; }
  HandleRange<ProcedureRecord> Procedures() const { return {ProcedureHandle(1), LastProcedure()}; }
  HandleRange<ComponentRecord> ComponentsOf(ProjectHandle project) const;
  HandleRange<ProcedureRecord> ProceduresOf(ComponentHandle component) const;

  void AddProject(VBProject& project);
  /// At the end of the last project; the record stays where it is until the next one is added.
  ComponentRecord& AddComponent(VBComponent& component);
  void AddProcedure(const ProcedureRecord& record);
  void AddEventSource(ComponentHandle component, TextView name);
  void AddForeignInterface(ComponentHandle component, Text lowerCaseName);
  /// Letter case doesn't count.
  void AddComponentName(TextView name);
  bool HasComponentNamed(const Text& lowerCaseName) const;
  /// The same text in the model's own store: few type names stand in many records.
  TextView KeptTypeName(TextView name);

  /// The names whose events the component handles, in the order in which they were added. The
  /// views stay valid for the life of the model.
  std::vector<TextView> EventSourcesOf(const ComponentRecord& component) const;
  /// In lower case; valid until another is added.
  std::span<const Text> ForeignInterfacesOf(const ComponentRecord& component) const;

  /// "(declarations)" or the member's name.
  Text NameOf(GuardScope& scope, const ProcedureRecord& record) const;
  /// The code module of a component, asked afresh; Failure 91 when there is none.
  CodeModule& ModuleOf(GuardScope& scope, ComponentHandle component) const;
  ProcedureCode CodeOf(GuardScope& scope, const ProcedureRecord& record) const;

  /// Gives settings that were read from a procedure's code the values of its module where the
  /// code states none.
  void InheritFromModule(const ProcedureRecord& record, CProcSettings& settings) const;

 private:
  /// Element 0 of each list is a dummy that no handle reaches.
  template <class Handle, class Records>
  static Handle LastOf(const Records& records) {
    return Handle(static_cast<std::int32_t>(records.size()) - 1);
  }

  std::vector<ProjectRecord> mProjects;
  std::vector<ComponentRecord> mComponents;
  /// A deque: rows hand out the settings, and a record must not move when others are loaded.
  std::deque<ProcedureRecord> mProcedures;
  std::deque<EventSourceRecord> mEventSources;
  std::vector<Text> mForeignInterfaces;
  /// Names of all components in lower case: what an Implements is looked up in.
  std::unordered_set<Text> mComponentNames;
  std::set<Text, std::less<>> mTypeNames;
};
