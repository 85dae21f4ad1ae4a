// Moves settings between the three sets of a procedure and makes the code agree with Pending: takes
// a procedure's code, has the new text made, writes it back and takes the settings over.
//
//   applier.TakeSuggested(ModelScope::Group());
//   applier.ApplyPending(ModelScope::Group(), false, MQuillon::LineNumAction::AsRule);
//
// A procedure that can't be rewritten is told to the template's batch account and to the signal;
// its code and settings stay, and the walk goes on.
#pragma once

#include <vector>

#include "GroupLoader.h"
#include "GroupModel.h"
#include "ModelOptions.h"
#include "ModelScope.h"
#include "Rewriter.h"
#include "Signal.h"
#include "Trial.h"

class Applier {
 public:
  using Refused = Signal<ProcedureHandle, const std::vector<Refusal>&>;
  using Rewritten = Signal<ProcedureHandle>;

  /// All outlive this object.
  Applier(const ModelOptions& options, GroupModel& model, GroupLoader& loader, Refused& refused,
          Rewritten& rewritten)
      : mOptions(options),
        mModel(model),
        mLoader(loader),
        mRefused(refused),
        mRewritten(rewritten) {}

  /// Suggested becomes Pending, but for the lock, where the procedure isn't locked; loads the
  /// scope.
  void TakeSuggested(const ModelScope& scope);
  /// Current becomes Pending again, but for the lock, where Pending isn't locked.
  void TakeCurrent(const ModelScope& scope);
  /// refresh: loads the scope and rewrites clean procedures too, from Current.
  void ApplyPending(const ModelScope& scope, bool refresh, MQuillon::LineNumAction numbering);
  /// What ApplyPending would make of the procedure, line numbers as the rule says; writes nothing
  /// back and tells nobody. The text is the present one when nothing would be rewritten.
  Rewrite PendingRewrite(ProcedureHandle procedure, bool listChanges);
  /// What a refresh, and ApplyPending, would make of the procedure, from one look at its code.
  Trial TryOut(ProcedureHandle procedure, const TrialWants& wants);
  /// The template whose lines stand in the procedure's code without a signature that names it: the
  /// one of the fewest rows that could be taken out; empty for none.
  Text UnsignedTemplate(ProcedureHandle procedure);

 private:
  struct Run;

  /// Calls use(record, parsedProcedure, code) for the code as it stands now.
  template <class Use>
  auto WithCode(GuardScope& scope, ProcedureHandle procedure, Use&& use) const;
  void ApplyTo(ProcedureHandle procedure, Run& run);
  void RewriteOne(GuardScope& scope, ProcedureHandle procedure, Run& run);
  Rewrite RewriteAsPending(GuardScope& scope, const ProcedureRecord& record,
                           const ParsedProcedure& procedure, const Run& run) const;
  /// name: of the record's member. The views are those of the model and of this object; those of
  /// the project and the file hold until a procedure of another component is asked for.
  ProcedureName NameOf(GuardScope& scope, const ProcedureRecord& record, TextView name) const;
  /// What the record's module declares for itself alone.
  const Meaning::ModuleNames& PrivateNamesOf(GuardScope& scope,
                                             const ProcedureRecord& record) const;
  /// Refuses a rewrite by which the module would get more lines than it can hold.
  void CheckModuleLines(GuardScope& scope, const ProcedureRecord& record,
                        const ParsedProcedure& procedure, Rewrite& rewrite) const;
  /// Settings that were read from the code take the place of Current when they differ.
  void TakeInCode(ProcedureRecord& record, const CProcSettings& read) const;
  void CompareDeclarations(GuardScope& scope, const ProcedureRecord& record, Run& run);
  bool InheritsModule(const ProcedureRecord& record, const CProcSettings& settings) const;
  /// Current takes what was written.
  void TakeOver(ProcedureRecord& record, const Run& run);
  /// False: the lines don't stay in the declarations; the module has its old ones.
  bool WriteBack(const ProcedureRecord& record, const ParsedProcedure& procedure,
                 const Rewrite& rewrite, Run& run);
  void ReplaceMember(GuardScope& scope, const ProcedureRecord& record,
                     const ParsedProcedure& procedure, const Rewrite& rewrite, Run& run);

  const ModelOptions& mOptions;
  GroupModel& mModel;
  GroupLoader& mLoader;
  Refused& mRefused;
  Rewritten& mRewritten;
  /// Of the component that was asked for last.
  mutable struct {
    ComponentHandle component{};
    Meaning::ModuleNames names{};
  } mPrivateNames;
  /// The same, for templates that name it.
  mutable struct {
    ComponentHandle component{};
    Text project{}, file{};
  } mOrigin;
};
