// The picture of the open project group: records that tie IDE objects to integer handles, filled
// lazily, and every operation on procedures: reading settings, changing Pending, suggesting,
// applying. It keeps no copy of source: each reader asks the IDE's CodeModule.
//
// This class holds the operations and the events alone. What stands behind them: GroupModel (the
// records), GroupLoader and ComponentLoader (how they are filled), ExpertFacts (what is suggested),
// ScopeWalk and Applier (what changes settings and code).
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
#include <vector>

#include "Applier.h"
#include "GroupLoader.h"
#include "GroupModel.h"
#include "LoadProgress.h"
#include "ModelOptions.h"
#include "ModelScope.h"
#include "Reasons.h"
#include "Signal.h"
#include "Text.h"
#include "VBE.h"

/// oTemplate and bProve are told in ModelOptions.h.
class CIDEHandler : public ModelOptions {
 public:
  enum class Version { Current, Pending, Suggested };

  CIDEHandler() = default;
  CIDEHandler(const CIDEHandler&) = delete;
  CIDEHandler& operator=(const CIDEHandler&) = delete;

  // Loading (CIDEHandler.cpp).
  void LoadProjects(VBE& oVBInst);
  void LoadComponent(ComponentHandle hComponent);
  void ForceLoadProjectComponents(ProjectHandle hProject);
  void ForceLoadGroupComponents();

  // Walks (CIDEHandler_Walks.cpp).
  void EnumProjects();
  void EnumComponentsEx(ProjectHandle hProject, std::int32_t lFolderType);
  void EnumProcedures(ComponentHandle hComponent);

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

  // Applying (CIDEHandler.cpp).
  void ApplySuggestedSettings(const ModelScope& Scope);
  void ApplyCurrentSettings(const ModelScope& Scope);
  void ApplyPendingSettings(const ModelScope& Scope, bool Refresh,
                            MQuillon::LineNumAction LineNumAction);
  void RefreshSuggestions();
  /// The rules that are off and would suggest another boundary for the procedure, by stored names.
  std::vector<TextView> RulesJudgingOtherwise(ProcedureHandle procedure) const;
  /// What is suggested, with the facts that decide; by the rules of now.
  Suggestions::Suggestion SuggestionOf(ProcedureHandle procedure) const;
  /// What ApplyPendingSettings would make of the procedure, line numbers as the rule says: the same
  /// way as a rewrite, without writing anything back or telling anybody. The text is that of the
  /// whole procedure, with the lines that changed where asked for; the present one when nothing
  /// would be rewritten, or when the rewrite would be refused.
  Rewrite PendingRewrite(ProcedureHandle hProcedure, bool listChanges);
  /// What a refresh and ApplyPendingSettings would make of the procedure, in memory, from one look
  /// at its code (Trial.h).
  Trial TryOut(ProcedureHandle hProcedure, const TrialWants& wants);
  /// The template whose lines stand in the code without a signature that names it; empty for none.
  Text UnsignedTemplate(ProcedureHandle hProcedure);

  // Reading side for reports and programs: records by handle, and ranges of all.
  /// The last handle of each kind; none while there is no record.
  ComponentHandle LastComponent() const { return mModel.LastComponent(); }
  ProcedureHandle LastProcedure() const { return mModel.LastProcedure(); }
  ProjectHandle LastProject() const { return mModel.LastProject(); }
  HandleRange<ProjectRecord> Projects() const { return mModel.Projects(); }
  HandleRange<ComponentRecord> Components() const { return mModel.Components(); }
  HandleRange<ProcedureRecord> Procedures() const { return mModel.Procedures(); }
  const ProjectRecord& Project(ProjectHandle hProject) const { return mModel.Project(hProject); }
  const ComponentRecord& Component(ComponentHandle hComponent) const {
    return mModel.Component(hComponent);
  }
  const ProcedureRecord& Procedure(ProcedureHandle hProcedure) const {
    return mModel.Procedure(hProcedure);
  }
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
  /// One procedure could not be rewritten, or not in all: handle and reasons, each ahead of the
  /// engine's own message about it.
  Signal<ProcedureHandle, const std::vector<Refusal>&> ProcedureRefused;
  /// One procedure has other lines now.
  Signal<ProcedureHandle> ProcedureRewritten;

 private:
  void RowOfComponent(GuardScope& scope, ComponentHandle component);
  void RowOfProcedure(GuardScope& scope, ProcedureHandle procedure);

  GroupModel mModel;
  LoadProgress mProgress{ProgressStart, ProgressEnd, Progress};
  GroupLoader mLoader{*this, mModel, mProgress};
  Applier mApplier{*this, mModel, mLoader, ProcedureRefused, ProcedureRewritten};
  VBE* VBInst = nullptr;
};
