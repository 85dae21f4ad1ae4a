// The picture of the open project group: records that tie IDE objects to integer handles, filled
// lazily, and every operation on procedures: reading settings, changing Pending, suggesting,
// applying. It keeps no copy of source: each reader asks the IDE's CodeModule.
//
// Handles stay valid for the life of the object; one outside the model is Failure 9. One object
// serves one opening of a template:
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
#include "ModelScope.h"
#include "Rewriter.h"
#include "Signal.h"
#include "Text.h"
#include "VBE.h"

class GuardScope;

class CIDEHandler {
 public:
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
  void EnumComponentsEx(ProjectHandle hProject, std::int32_t lFolderType);
  void EnumProcedures(ComponentHandle hComponent);
  void ForceLoadProjectComponents(ProjectHandle hProject);
  void ForceLoadGroupComponents();

  // Analysis (CIDEHandler_Analysis.cpp).
  void LoadComponent(ComponentHandle hComponent);

  // Property access (CIDEHandler_Access.cpp).
  Text GetProcCode(ProcedureHandle hProcedure, std::int32_t& lBodyStart);
  void GetProcDetails(ProcedureHandle hProcedure, Text& sModuleName, Text& sProcName,
                      Text& sProcType);
  void GetPendingSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings);
  void GetCurrentSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings);
  void GetSuggestSettings(ProcedureHandle hProcedure, CProcSettings& oProcSettings);
  Text ProcTemplate(ProcedureHandle hProcedure);
  void SetProcTemplate(ProcedureHandle hProcedure, TextView sTemplate);
  MQuillon::TriState Locked(ProcedureHandle hProcedure);
  void SetLocked(ProcedureHandle hProcedure, MQuillon::TriState eValue);
  MQuillon::Boundary BoundaryId(ProcedureHandle hProcedure);
  void SetBoundaryId(ProcedureHandle hProcedure, MQuillon::Boundary eValue);
  MQuillon::Severity SeverityId(ProcedureHandle hProcedure);
  void SetSeverityId(ProcedureHandle hProcedure, MQuillon::Severity eValue);
  void SetRetryType(ProcedureHandle hProcedure, MQuillon::Retry eValue);
  MQuillon::Retry RetryId(ProcedureHandle hProcedure);
  MQuillon::TriState Trace(ProcedureHandle hProcedure);
  void SetTrace(ProcedureHandle hProcedure, MQuillon::TriState eValue);
  bool ProcedureIsDirty(ProcedureHandle hProcedure);
  bool ComponentIsDirty(ComponentHandle hComponent);
  bool GroupIsDirty();
  Text ComponentType(ComponentHandle hComponent);
  Text ComponentFileName(ComponentHandle hComponent);
  Text ComponentName(ComponentHandle hComponent);
  Text ComponentFolderName(ComponentHandle hComponent);
  Text ProjectFileName(ProjectHandle hProject);
  Text ProjectName(ProjectHandle hProject);
  std::int32_t ProjectCount();
  bool ComponentReadOnly(ComponentHandle hComponent);

  // Applying (CIDEHandler_Apply.cpp).
  void ApplySuggestedSettings(const ModelScope& Scope);
  void ApplyCurrentSettings(const ModelScope& Scope);
  void ApplyPendingSettings(const ModelScope& Scope, bool Refresh,
                            MQuillon::LineNumAction LineNumAction);
  void RefreshSuggestions();
  /// What ApplyPendingSettings would make of the procedure, line numbers as the rule says: the same
  /// way as a rewrite, without writing anything back or telling anybody. The text is that of the
  /// whole procedure, with the lines that changed where asked for; the present one when nothing
  /// would be rewritten, or when the rewrite would be refused.
  Rewrite PendingRewrite(ProcedureHandle hProcedure, bool listChanges);

  // Reading side for reports and programs: records by handle, and ranges of all.
  /// The last handle of each kind; none while there is no record.
  ComponentHandle LastComponent() const { return LastOf<ComponentHandle>(moComponents); }
  ProcedureHandle LastProcedure() const { return LastOf<ProcedureHandle>(moProcedures); }
  ProjectHandle LastProject() const { return LastOf<ProjectHandle>(moProjects); }
  HandleRange<ProjectRecord> Projects() const { return {ProjectHandle(1), LastProject()}; }
  HandleRange<ComponentRecord> Components() const { return {ComponentHandle(1), LastComponent()}; }
  HandleRange<ProcedureRecord> Procedures() const { return {ProcedureHandle(1), LastProcedure()}; }
  const ProjectRecord& Project(ProjectHandle hProject) const;
  const ComponentRecord& Component(ComponentHandle hComponent) const;
  const ProcedureRecord& Procedure(ProcedureHandle hProcedure) const;
  /// "(declarations)" or the member's name.
  Text ProcName(ProcedureHandle hProcedure) const;

  // Events, in their order.
  Signal<> ProgressStart;
  Signal<> ProgressEnd;
  Signal<std::int16_t, TextView> Progress;                        ///< percent, caption
  Signal<ProjectHandle, TextView, ProjectType> EnumProjectsProc;  ///< hProject, sTitle, nType
  Signal<> EnumComponentsExBOF;
  Signal<> EnumComponentsExEOF;
  Signal<const ComponentRow&> EnumComponentsExProc;
  Signal<> EnumComponentsBOF;  ///< nothing raises it
  Signal<ProjectHandle> EnumComponentsEOF;
  Signal<ProjectHandle, ComponentHandle, TextView, ::ComponentType> EnumComponentsProc;
  Signal<ComponentHandle, const LoadError&> EnumProceduresError;
  Signal<> EnumProceduresBOF;
  Signal<> EnumProceduresEOF;
  Signal<const ProcedureRow&> EnumProceduresProc;
  /// One procedure could not be rewritten: handle and reasons, beside the engine's own messages.
  Signal<ProcedureHandle, const std::vector<Refusal>&> ProcedureRefused;

 private:
  struct Loading;
  struct Run;
  using Visitor = std::function<void(ProcedureHandle)>;

  /// Element 0 of each list is a dummy that no handle reaches.
  template <class Handle, class Records>
  static Handle LastOf(const Records& oRecords) {
    return Handle(static_cast<std::int32_t>(oRecords.size()) - 1);
  }

  // Access by handle; Failure 9 outside the model.
  ProjectRecord& ProjectAt(ProjectHandle hProject);
  ComponentRecord& ComponentAt(ComponentHandle hComponent);
  ProcedureRecord& ProcedureAt(ProcedureHandle hProcedure);
  /// Failure 91 when it isn't set.
  CTemplate& Template() const;
  /// The code module of a component, asked afresh; Failure 91 when there is none.
  CodeModule& ModuleOf(GuardScope& oScope, ComponentHandle hComponent);
  Text ReadProcCode(GuardScope& oScope, const ProcedureRecord& oRecord, std::int32_t& lBodyStart);
  Text NameOf(GuardScope& oScope, const ProcedureRecord& oRecord) const;
  static bool IsDirty(const ProcedureRecord& oRecord);

  // Registry.
  void ProjectAdd(VBProject& oProject);
  void ComponentAdd(VBComponent& oComponent);
  void FillComponent(GuardScope& oScope, ComponentRecord& oRecord);
  void RowOfComponent(GuardScope& oScope, ComponentHandle hComponent);
  void RowOfProcedure(GuardScope& oScope, ProcedureHandle hProcedure);
  void RaiseProgressStart();
  void RaiseProgressEnd();
  void RaiseProgress(const VBComponent& oComponent, const Member& oMember);

  // Analysis.
  bool TakesProgress(const ComponentRecord& oRecord);
  void AnalyseComponent(GuardScope& oScope, ComponentHandle hComponent);
  void AddEventSource(ComponentHandle hComponent, TextView sName);
  void AddControlSources(GuardScope& oScope, ComponentHandle hComponent);
  void AddForeignInterfaces(Loading& oLoading);
  void AddVariableSources(Loading& oLoading);
  void LoadMembers(Loading& oLoading);
  void LoadDeclarations(Loading& oLoading);
  void LoadMethod(Loading& oLoading, Member& oMember, std::int32_t lLocation);
  void LoadProperty(Loading& oLoading, Member& oMember, ProcKind nKind);
  void ReadProcedure(GuardScope& oScope, ProcedureRecord& oRecord, TextView sType);
  /// Gives a procedure the values of its module where its code states none.
  void InheritFromModule(const ProcedureRecord& oRecord, CProcSettings& oFresh) const;
  void AddProcedure(Loading& oLoading, ProcedureRecord& oRecord);
  Text EventHandlerType(Loading& oLoading, TextView sName);
  TextView TypeName(TextView sType);

  // Suggestions; they take the record, which may not be in the model yet.
  void SuggestMethodSettings(ComponentHandle hComponent, ProcedureRecord& oRecord);
  void SuggestPropertySettings(ComponentHandle hComponent, ProcedureRecord& oRecord);
  void SuggestDeclarationsSettings(ComponentHandle hComponent, ProcedureRecord& oRecord);

  // Applying.
  void WalkScope(const ModelScope& oScope, bool bLoad, const Visitor& oVisit);
  void WalkComponent(ComponentHandle hComponent, const Visitor& oVisit);
  void ApplyPendingTo(ProcedureHandle hProcedure, Run& oRun);
  void RewriteOne(GuardScope& oScope, ProcedureHandle hProcedure, Run& oRun);
  Rewrite RewriteAsPending(const ProcedureRecord& oRecord, const ParsedProcedure& oProcedure,
                           const Run& oRun) const;
  /// Settings that were read from the code take the place of Current when they differ.
  void TakeInCode(ProcedureRecord& oRecord, const CProcSettings& oRead) const;
  void CompareDeclarations(GuardScope& oScope, const ProcedureRecord& oRecord, Run& oRun);
  bool InheritsModule(const ProcedureRecord& oRecord, const CProcSettings& oNew) const;
  void TakeOver(ProcedureRecord& oRecord, const Run& oRun);
  /// False: the lines don't stay in the declarations; the module has its old ones.
  bool ReplaceProcedure(ProcedureHandle hProcedure, TextView sProcName,
                        const ParsedProcedure& oProcedure, const Rewrite& oRewrite);

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
