// The picture of the open project group: records that tie IDE objects to integer handles, filled
// lazily, and every operation on procedures: reading settings, changing Pending, suggesting,
// applying. It keeps no copy of source: each reader asks the IDE's CodeModule.
//
// Handles count from 1 and stay valid for the life of the object; 0 or less means none. A handle
// outside the model is Failure 9. One object serves one opening of a template:
//
//   CIDEHandler oHandler;
//   oHandler.LoadProjects(oVBE);
//   oHandler.oTemplate = &oTemplate;
//   oHandler.ForceLoadGroupComponents();
//   oHandler.EnumProjects(); ...
//
// Walks answer by synchronous events. The three settings of a procedure: Current is what the code
// holds, Pending what the user asked for, Suggested what the rules propose; a procedure is dirty
// when Pending differs from Current.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <set>
#include <unordered_set>
#include <vector>

#include "CProcSettings.h"
#include "CTemplate.h"
#include "ModelRecords.h"
#include "Signal.h"
#include "Text.h"
#include "VBE.h"

class GuardScope;

class CIDEHandler {
 public:
  using Handle = std::int32_t;
  enum class Version { Current, Pending, Suggested };

  CIDEHandler();
  ~CIDEHandler();
  CIDEHandler(const CIDEHandler&) = delete;
  CIDEHandler& operator=(const CIDEHandler&) = delete;

  /// Set before the first LoadComponent; not owned, outlives this object.
  CTemplate* oTemplate = nullptr;
  /// Proves each insertion by taking it out again before the code is written; refuses what can't
  /// be proved and what would take away a line number that a jump names.
  bool bProve = false;

  void LoadProjects(VBE& oVBInst);

  // Walks (CIDEHandler_Registry.cpp).
  void EnumProjects();
  void EnumComponentsEx(Handle hProject, std::int32_t lFolderType);
  void EnumProcedures(Handle hComponent);
  void ForceLoadProjectComponents(Handle hProject);
  void ForceLoadGroupComponents();

  // Analysis (CIDEHandler_Analysis.cpp).
  void LoadComponent(Handle hComponent);

  // Property access (CIDEHandler_Access.cpp).
  Text GetProcCode(Handle hProcedure, std::int32_t& lBodyStart);
  void GetProcDetails(Handle hProcedure, Text& sModuleName, Text& sProcName, Text& sProcType);
  void GetPendingSettings(Handle hProcedure, CProcSettings& oProcSettings);
  void GetCurrentSettings(Handle hProcedure, CProcSettings& oProcSettings);
  void GetSuggestSettings(Handle hProcedure, CProcSettings& oProcSettings);
  Text ProcTemplate(Handle hProcedure);
  void SetProcTemplate(Handle hProcedure, TextView sTemplate);
  MQuillon::TriState Locked(Handle hProcedure);
  void SetLocked(Handle hProcedure, MQuillon::TriState eValue);
  MQuillon::Boundary BoundaryId(Handle hProcedure);
  void SetBoundaryId(Handle hProcedure, MQuillon::Boundary eValue);
  MQuillon::Severity SeverityId(Handle hProcedure);
  void SetSeverityId(Handle hProcedure, MQuillon::Severity eValue);
  void SetRetryType(Handle hProcedure, MQuillon::Retry eValue);
  MQuillon::Retry RetryId(Handle hProcedure);
  MQuillon::TriState Trace(Handle hProcedure);
  void SetTrace(Handle hProcedure, MQuillon::TriState eValue);
  bool ProcedureIsDirty(Handle hProcedure);
  bool ComponentIsDirty(Handle hComponent);
  bool GroupIsDirty();
  Text ComponentType(Handle hComponent);
  Text ComponentFileName(Handle hComponent);
  Text ComponentName(Handle hComponent);
  Text ComponentFolderName(Handle hComponent);
  Text ProjectFileName(Handle hProject);
  Text ProjectName(Handle hProject);
  std::int32_t ProjectCount();
  bool ComponentReadOnly(Handle hComponent);

  // Applying (CIDEHandler_Apply.cpp). The first argument that is given (above 0, or true) decides
  // the scope: procedure, component, project, group.
  void ApplySuggestedSettings(Handle ihProcedure, Handle Component, Handle Project, bool Group);
  void ApplyCurrentSettings(Handle ihProcedure, Handle Component, Handle Project, bool Group);
  void ApplyPendingSettings(Handle ihProcedure, Handle Component, Handle Project, bool Group,
                            bool Refresh, MQuillon::LineNumAction LineNumAction);
  void RefreshSuggestions();
  /// What ApplyPendingSettings would make of the procedure, line numbers as the rule says: the same
  /// way as a rewrite, without writing anything back or telling anybody. The present text when
  /// nothing would be rewritten, and when the rewrite would be refused: then bRefused is set, and
  /// sMessage says why.
  Text PendingCode(Handle hProcedure, bool& bRefused, Text& sMessage);

  // Reading side for reports and programs: records by handle, ranges from 1 to the counts.
  Handle ComponentCount() const { return static_cast<Handle>(moComponents.size()) - 1; }
  Handle ProcedureCount() const { return static_cast<Handle>(moProcedures.size()) - 1; }
  Handle ProjectRecordCount() const { return static_cast<Handle>(moProjects.size()) - 1; }
  const ProjectRecord& Project(Handle hProject) const;
  const ComponentRecord& Component(Handle hComponent) const;
  const ProcedureRecord& Procedure(Handle hProcedure) const;
  /// "(declarations)" or the member's name.
  Text ProcName(Handle hProcedure) const;

  // Events, in their order.
  Signal<> ProgressStart;
  Signal<> ProgressEnd;
  Signal<std::int16_t, TextView> Progress;                 ///< percent, caption
  Signal<Handle, TextView, ProjectType> EnumProjectsProc;  ///< hProject, sTitle, nType
  Signal<> EnumComponentsExBOF;
  Signal<> EnumComponentsExEOF;
  Signal<const ComponentRow&> EnumComponentsExProc;
  Signal<> EnumComponentsBOF;  ///< nothing raises it
  Signal<Handle> EnumComponentsEOF;
  Signal<Handle, Handle, TextView, ::ComponentType> EnumComponentsProc;
  Signal<Handle, const LoadError&> EnumProceduresError;
  Signal<> EnumProceduresBOF;
  Signal<> EnumProceduresEOF;
  Signal<const ProcedureRow&> EnumProceduresProc;
  /// One procedure could not be rewritten: handle and reason, beside the engine's own messages.
  Signal<Handle, TextView> ProcedureRefused;

 private:
  struct Loading;
  struct Run;
  struct Draft;
  struct Scope {
    Handle hProcedure, hComponent, hProject;
    bool bGroup;
  };
  using Visitor = std::function<void(Handle)>;

  // Access by handle; Failure 9 outside the model.
  ProjectRecord& ProjectAt(Handle hProject);
  ComponentRecord& ComponentAt(Handle hComponent);
  ProcedureRecord& ProcedureAt(Handle hProcedure);
  /// Failure 91 when it isn't set.
  CTemplate& Template() const;
  /// The code module of a component, asked afresh; Failure 91 when there is none.
  CodeModule& ModuleOf(GuardScope& oScope, Handle hComponent);
  Text ReadProcCode(GuardScope& oScope, const ProcedureRecord& oRecord, std::int32_t& lBodyStart);
  Text NameOf(GuardScope& oScope, const ProcedureRecord& oRecord) const;
  static bool IsDirty(const ProcedureRecord& oRecord);

  // Registry.
  void ProjectAdd(VBProject& oProject);
  void ComponentAdd(VBComponent& oComponent);
  void FillComponent(GuardScope& oScope, ComponentRecord& oRecord);
  void RowOfComponent(GuardScope& oScope, Handle hComponent);
  void RowOfProcedure(GuardScope& oScope, Handle hProcedure);
  void RaiseProgressStart();
  void RaiseProgressEnd();
  void RaiseProgress(const VBComponent& oComponent, const Member& oMember);

  // Analysis.
  bool TakesProgress(const ComponentRecord& oRecord);
  void AnalyseComponent(GuardScope& oScope, Handle hComponent);
  void AddEventSource(Handle hComponent, TextView sName);
  void AddControlSources(GuardScope& oScope, Handle hComponent);
  void AddForeignInterfaces(Loading& oLoading);
  void AddVariableSources(Loading& oLoading);
  void LoadMembers(Loading& oLoading);
  void LoadDeclarations(Loading& oLoading);
  void LoadMethod(Loading& oLoading, Member& oMember, std::int32_t lLocation);
  void LoadProperty(Loading& oLoading, Member& oMember, ProcKind nKind);
  void ReadProcedure(GuardScope& oScope, ProcedureRecord& oRecord, TextView sType);
  void ReadSettings(const ProcedureRecord& oRecord, TextView sCode, CProcSettings& oFresh) const;
  void AddProcedure(Loading& oLoading, ProcedureRecord& oRecord);
  Text EventHandlerType(Loading& oLoading, TextView sName);
  TextView TypeName(TextView sType);

  // Suggestions; they take the record, which may not be in the model yet.
  void SuggestMethodSettings(Handle hComponent, ProcedureRecord& oRecord);
  void SuggestPropertySettings(Handle hComponent, ProcedureRecord& oRecord);
  void SuggestDeclarationsSettings(Handle hComponent, ProcedureRecord& oRecord);

  // Applying.
  void WalkScope(const Scope& oWanted, bool bLoad, const Visitor& oVisit);
  void WalkComponent(Handle hComponent, const Visitor& oVisit);
  void ApplyPendingTo(Handle hProcedure, Run& oRun);
  void RewriteProcedure(GuardScope& oScope, Handle hProcedure, Run& oRun);
  void TakeAnew(ProcedureRecord& oRecord, TextView sCode) const;
  void TakeDeclarationsAnew(GuardScope& oScope, const ProcedureRecord& oRecord, Run& oRun);
  /// From sOld to sNew. False: refused, told through the engine's ReportError.
  bool Recast(const ProcedureRecord& oRecord, const Run& oRun, Draft& oDraft);
  bool RemoveOld(const ProcedureRecord& oRecord, Draft& oDraft);
  bool PutNew(const ProcedureRecord& oRecord, const Run& oRun, Draft& oDraft);
  bool PutSignature(const ProcedureRecord& oRecord, Draft& oDraft);
  Text WhatIsNotProved(const ProcedureRecord& oRecord, const Run& oRun, const Draft& oDraft);
  void TakeOver(ProcedureRecord& oRecord, const Run& oRun, const Draft& oDraft);
  bool ReplaceProcedure(Handle hProcedure, const Draft& oDraft);

  std::vector<ProjectRecord> moProjects;
  std::vector<ComponentRecord> moComponents;
  /// A deque: rows hand out the settings, and a record must not move when others are loaded.
  std::deque<ProcedureRecord> moProcedures;
  std::deque<EventSourceRecord> moEventSources;
  std::vector<Text> moForeignInterfaces;
  /// Names of all components in lower case: what an Implements is looked up in.
  std::unordered_set<Text> moComponentNames;
  std::set<Text, std::less<>> moTypeNames;
  VBE* VBInst = nullptr;
  std::int32_t mlProgressTotal = 0;
  std::int32_t mlProgressCount = 0;
};
