// Brings the open group into the model: first the records of its projects and components, later,
// where a component is asked for, those of its procedures.
//
//   loader.LoadProjects(ide);
//   loader.LoadComponent(component);   // once; nothing when it is loaded or can't be read
//
// A component that can't be asked or read stays in the model, marked with the reason; the others
// are loaded all the same.
#pragma once

#include "GroupModel.h"
#include "LoadProgress.h"
#include "ModelOptions.h"
#include "VBE.h"

class GroupLoader {
 public:
  /// The options, the model and the progress outlive this object.
  GroupLoader(const ModelOptions& options, GroupModel& model, LoadProgress& progress)
      : mOptions(options), mModel(model), mProgress(progress) {}

  void LoadProjects(VBE& ide);
  void LoadComponent(ComponentHandle component);
  /// The components that the read-only rule doesn't pass over, with one progress for all.
  void LoadComponentsOf(ProjectHandle project);
  /// The same for the whole group; each large component shows a progress of its own.
  void LoadAllComponents();

 private:
  void AddProject(VBProject& project);
  void AddComponent(VBComponent& component);
  void FillComponent(GuardScope& scope, ComponentRecord& record);
  std::int32_t MembersToLoad(ProjectHandle project) const;

  const ModelOptions& mOptions;
  GroupModel& mModel;
  LoadProgress& mProgress;
};
