// Turns one component into procedure records: event sources, foreign interfaces, declarations,
// methods and properties, each with the settings that its code holds and those suggested for it.
//
//   ComponentLoader(scope, options, model, progress, component).Load();
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "GroupModel.h"
#include "Guard.h"
#include "LoadProgress.h"
#include "ModelOptions.h"

class ComponentLoader {
 public:
  /// All but the handle outlive this object; it serves one load. scope: the routine that loads.
  ComponentLoader(GuardScope& scope, const ModelOptions& options, GroupModel& model,
                  LoadProgress& progress, ComponentHandle component);

  /// Adds the records. A component without a module is marked; a failure leaves the records that
  /// were made so far.
  void Load();

 private:
  void AddControlSources();
  void AddForeignInterfaces();
  void AddVariableSources();
  void AddVariableSource(const Member& member);
  void LoadDeclarations();
  void LoadMembers();
  void LoadMethod(Member& member, std::int32_t location);
  void LoadProperty(Member& member, ProcKind kind);
  void ReadProcedure(GuardScope& scope, ProcedureRecord& record, TextView type);
  void AddProcedure(const ProcedureRecord& record);
  Text EventHandlerType(TextView name);
  bool FitsSourceNoCase(TextView name);

  GuardScope& mScope;
  const ModelOptions& mOptions;
  GroupModel& mModel;
  LoadProgress& mProgress;
  ComponentHandle mComponent;
  ComponentRecord& mRecord;
  CodeModule* mModule = nullptr;  ///< set before anything is read
  std::int32_t mDeclarationLines = 0;
  std::int32_t mVariableLine = 0;  ///< the line that was looked at last for WithEvents; 0: none
  bool mHasEvents = false;         ///< whether it has one
  /// Places of the members that have a record, so that none is read twice.
  std::unordered_set<std::int32_t> mLocations;
  /// The event sources by name, with the place of the first of each, from 1.
  std::unordered_map<TextView, std::int32_t> mSources;
  std::unordered_set<Text> mLowerSources;
};
