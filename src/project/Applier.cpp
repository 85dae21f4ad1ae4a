// In order: what a run carries, the two moves of settings, the rewrite of a scope, the rewrite of
// one procedure, taking over, writing back.
#include "Applier.h"

#include "HandlerGuard.h"
#include "MQuillon.h"
#include "MRules.h"
#include "ModuleEdit.h"
#include "ParsedProcedure.h"
#include "ReadOnlyRule.h"
#include "Removal.h"
#include "ScopeWalk.h"
#include "SteppedIDE.h"

using namespace HandlerGuard;
using MQuillon::LineNumAction;
using MQuillon::TriState;

namespace {

/// All but the lock, which only the user changes.
void CopyAllButLocked(const CProcSettings& from, CProcSettings& to) {
  to.SetsTemplate(from.sTemplate());
  to.SeteBoundary(from.eBoundary());
  to.SeteSeverity(from.eSeverity());
  to.SeteRetry(from.eRetry());
  to.SeteTrace(from.eTrace());
}

/// Empty lines at the end never go through the engine: those of the IDE's text stay in the module
/// untouched. So no text that ends in a line end is ever inserted, which IDEs take in different
/// ways.
TextView WithoutEmptyTail(TextView text) {
  while (text.ends_with(CrLf)) text.remove_suffix(CrLf.size());
  return text;
}

/// A path's last part. Paths with slashes may show a byte as \xE9: there a backslash separates
/// nothing.
Text FileTitle(TextView path) {
  const bool hasSlash = path.find(u'/') != TextView::npos;
  return Text(path.substr(path.find_last_of(hasSlash ? u'/' : u'\\') + 1));
}

/// The names of the values that a procedure states in its code. Under an inheriting template these
/// are only those that differ from its module's.
struct StatedValues {
  TextView boundary, severity, retry;

  StatedValues(const CProcSettings& own, const CProcSettings* inherited) {
    if (!inherited || own.eBoundary() != inherited->eBoundary()) {
      boundary = MQuillon::BoundaryName(own.eBoundary());
    }
    if (!inherited || own.eSeverity() != inherited->eSeverity()) {
      severity = MQuillon::SeverityName(own.eSeverity());
    }
    if (!inherited || own.eRetry() != inherited->eRetry()) {
      retry = MQuillon::RetryName(own.eRetry());
    }
  }
};

}  // namespace

/// What was asked of one rewrite of a scope, and the state of the procedure in hand.
struct Applier::Run {
  bool refresh = false;
  LineNumAction numbering = LineNumAction::Leave;
  bool listChanges = false;
  bool unproved = false;
  bool alone = false;  ///< nothing else is asked for: the module stays as it is
  /// The component whose declarations were compared with their code last.
  ComponentHandle declarationsRead{};

  bool counted = false;  ///< the procedure's line stands in the account
  Text name{};           ///< as soon as it is known
  std::vector<Refusal> refusals{};
  Text note{};  ///< what went wrong though the code was replaced

  void Begin() {
    counted = false;
    name.clear();
    refusals.clear();
    note.clear();
  }

  /// Whether the procedure's settings call for a rewrite.
  bool CallsFor(const ProcedureRecord& record) const {
    if (record.oCurrent.bForeign()) return false;
    if (IsDirty(record)) return true;
    return refresh && !record.oCurrent.sTemplate().empty() &&
           record.oPending.eLocked() != TriState::True;
  }
};

void Applier::TakeSuggested(const ModelScope& scope) {
  Guard(Named(u"ApplySuggestedSettings"), [&](GuardScope&) {
    ScopeWalk(mModel, &mLoader).Visit(scope, [&](ProcedureHandle h) {
      ProcedureRecord& record = mModel.Procedure(h);
      if (record.oPending.eLocked() == TriState::False) {
        CopyAllButLocked(record.oSuggest, record.oPending);
      }
    });
  });
}

void Applier::TakeCurrent(const ModelScope& scope) {
  Guard(Named(u"ApplyCurrentSettings"), [&](GuardScope&) {
    ScopeWalk(mModel, nullptr).Visit(scope, [&](ProcedureHandle h) {
      ProcedureRecord& record = mModel.Procedure(h);
      if (record.oPending.eLocked() != TriState::True) {
        CopyAllButLocked(record.oCurrent, record.oPending);
      }
    });
  });
}

void Applier::ApplyPending(const ModelScope& scope, bool refresh, LineNumAction numbering) {
  Guard(Named(u"ApplyPendingSettings"), [&](GuardScope&) {
    if (numbering == LineNumAction::AsRule) numbering = MRules::oRules.eLineNumAction;
    Run run{.refresh = refresh, .numbering = numbering};
    mPrivateNames = {};
    const ScopeWalk walk(mModel, refresh ? &mLoader : nullptr);
    walk.Visit(scope, [&](ProcedureHandle h) { ApplyTo(h, run); });
  });
}

void Applier::ApplyTo(ProcedureHandle procedure, Run& run) {
  const ProcedureRecord& record = mModel.Procedure(procedure);
  if (!run.CallsFor(record)) return;
  run.Begin();
  CTemplate& account = mOptions.Template();
  try {
    Guard(Named(u"ApplyPendingTo"), [&](GuardScope& scope) { RewriteOne(scope, procedure, run); });
  } catch (const Failure& failure) {
    // The walk ends its failures itself: one procedure must not keep the others from their turn.
    if (!run.counted) account.BatchItem(mModel.Component(record.hComponent).sName, run.name);
    run.refusals = {{RefusalKind::HostFailure, 0, Text(failure.Description())}};
  }
  // The signal first: who tells the messages of the account knows then whose they are.
  if (!run.note.empty()) {
    mRefused(procedure, {{RefusalKind::HostFailure, 0, run.note}});
    account.BatchNote(run.note);
  }
  if (run.refusals.empty()) return;
  mRefused(procedure, run.refusals);
  account.BatchRefused(run.refusals);
}

void Applier::RewriteOne(GuardScope& scope, ProcedureHandle handle, Run& run) {
  ProcedureRecord& record = mModel.Procedure(handle);
  CTemplate& engine = mOptions.Template();
  const Text& module = mModel.Component(record.hComponent).sName;
  run.name = mModel.NameOf(scope, record);
  const ProcedureCode code = mModel.CodeOf(scope, record);
  CompareDeclarations(scope, record, run);
  const ParsedProcedure procedure(engine.Set(), WithoutEmptyTail(code.text),
                                  NameOf(scope, record, run.name), code.headLine);
  TakeInCode(record, procedure.Settings());
  if (!run.CallsFor(record)) return;
  engine.BatchItem(module, run.name);
  run.counted = true;
  Rewrite rewrite = RewriteAsPending(scope, record, procedure, run);
  run.refusals = std::move(rewrite.refusals);
  if (!run.refusals.empty()) return;
  if (rewrite.changed && !WriteBack(record, procedure, rewrite, run)) {
    run.refusals.push_back({RefusalKind::LinesFallToProcedure});
    return;
  }
  if (rewrite.changed) mRewritten(handle);
  TakeOver(record, run);
}

Rewrite Applier::RewriteAsPending(GuardScope& scope, const ProcedureRecord& record,
                                  const ParsedProcedure& procedure, const Run& run) const {
  const CProcSettings& wanted = run.refresh ? record.oCurrent : record.oPending;
  const ProcedureHandle module = mModel.Component(record.hComponent).lFirstProcedure;
  const ProcedureRecord& declarations = mModel.Procedure(module);
  const CProcSettings& inherited = run.alone ? declarations.oCurrent : declarations.oPending;
  const StatedValues stated(wanted, InheritsModule(record, wanted) ? &inherited : nullptr);
  const bool prove = mOptions.bProve && !run.unproved;
  Rewrite rewrite =
      RewriteProcedure(procedure,
                       {.templateName = wanted.sTemplate(),
                        .hasTemplate = run.refresh || !wanted.sTemplate().empty(),
                        .locked = wanted.eLocked() == TriState::True,
                        .boundary = stated.boundary,
                        .severity = stated.severity,
                        .retry = stated.retry,
                        .trace = wanted.eTrace() == TriState::True},
                       {.numbering = run.numbering,
                        .prove = prove,
                        .listChanges = run.listChanges,
                        .noteUnchanged = run.listChanges,
                        .allowed = mOptions.allowed,
                        .moduleNames = prove ? &PrivateNamesOf(scope, record) : nullptr},
                       MRules::oRules);
  if (prove && rewrite.changed) CheckModuleLines(scope, record, procedure, rewrite);
  const Text& readOnly = mModel.Component(record.hComponent).readOnlyReason;
  if (rewrite.changed && !readOnly.empty()) {
    rewrite.refusals.push_back({RefusalKind::HostFailure, 0, readOnly});
  }
  return rewrite;
}

ProcedureName Applier::NameOf(GuardScope& scope, const ProcedureRecord& record,
                              TextView name) const {
  const ComponentRecord& component = mModel.Component(record.hComponent);
  ProcedureName full{component.sName, name, record.sDeclType};
  if (!mOptions.Template().Set().NamesOrigin()) return full;
  if (mOrigin.component != record.hComponent) {
    mOrigin = {record.hComponent,
               SteppedProject(scope, *mModel.Project(component.hProject).oProject).Name(),
               FileTitle(SteppedComponent(scope, *component.oComponent).FirstFile())};
  }
  full.project = mOrigin.project;
  full.file = mOrigin.file;
  return full;
}

const Meaning::ModuleNames& Applier::PrivateNamesOf(GuardScope& scope,
                                                    const ProcedureRecord& record) const {
  if (mPrivateNames.component == record.hComponent) return mPrivateNames.names;
  mPrivateNames = {record.hComponent, {}};
  const SteppedMembers members(
      scope, SteppedModule(scope, mModel.ModuleOf(scope, record.hComponent)).Members());
  const std::int32_t count = members.Count();
  for (std::int32_t i = 1; i <= count; ++i) {
    const SteppedMember member(scope, members.Item(i));
    if (member.Scope() == MemberScope::Private) {
      mPrivateNames.names.insert(LowerCase(member.Name()));
    }
  }
  return mPrivateNames.names;
}

void Applier::CheckModuleLines(GuardScope& scope, const ProcedureRecord& record,
                               const ParsedProcedure& procedure, Rewrite& rewrite) const {
  const auto lines = static_cast<std::size_t>(
      SteppedModule(scope, mModel.ModuleOf(scope, record.hComponent)).CountOfLines());
  // Two units make a line at least: most modules are far from the limit.
  if (lines + rewrite.text.size() / CrLf.size() < Meaning::ModuleLines) return;
  const std::size_t before = procedure.Code().Count();
  const std::size_t after =
      ProcText(rewrite.text).Count() + static_cast<std::size_t>(rewrite.blankLines);
  const std::size_t now = lines - std::min(lines, before) + after;
  if (after <= before || now <= Meaning::ModuleLines) return;
  if (mOptions.allowed.Has(RefusalKind::ModuleTooLong)) return;
  rewrite.refusals.push_back({RefusalKind::ModuleTooLong, 0, ToText(static_cast<long long>(now))});
}

template <class Use>
auto Applier::WithCode(GuardScope& scope, ProcedureHandle handle, Use&& use) const {
  // A copy: what changed behind the model is taken in by the rewrite itself, not by a look.
  ProcedureRecord record = mModel.Procedure(handle);
  const Text name = mModel.NameOf(scope, record);
  const ProcedureCode code = mModel.CodeOf(scope, record);
  const ParsedProcedure procedure(mOptions.Template().Set(), WithoutEmptyTail(code.text),
                                  NameOf(scope, record, name), code.headLine);
  TakeInCode(record, procedure.Settings());
  return use(std::as_const(record), procedure, code);
}

Rewrite Applier::PendingRewrite(ProcedureHandle handle, bool listChanges) {
  return Result(u"PendingRewrite", [&](GuardScope& scope) {
    return WithCode(
        scope, handle, [&](const auto& record, const auto& procedure, const ProcedureCode& code) {
          const Run run{.numbering = MRules::oRules.eLineNumAction, .listChanges = listChanges};
          Rewrite rewrite;
          rewrite.text = procedure.Source();
          if (!IsPassedOver(mModel.Component(record.hComponent)) && run.CallsFor(record)) {
            rewrite = RewriteAsPending(scope, record, procedure, run);
          }
          for (; rewrite.blankLines > 0; --rewrite.blankLines) rewrite.text.append(CrLf);
          rewrite.text.append(code.text, procedure.Source().size());
          return rewrite;
        });
  });
}

Trial Applier::TryOut(ProcedureHandle handle, const TrialWants& wants) {
  return Result(u"TryOut", [&](GuardScope& scope) {
    return WithCode(
        scope, handle,
        [&](const ProcedureRecord& record, const auto& procedure, const ProcedureCode&) {
          Trial trial;
          const auto attempt = [&](std::optional<Rewrite>& rewrite, const Run& run) {
            rewrite = RewriteAsPending(scope, record, procedure, run);
            if (run.listChanges && rewrite->changed) trial.source = procedure.Source();
          };
          const LineNumAction numbering = MRules::oRules.eLineNumAction;
          const Run refresh{
              .refresh = true, .numbering = numbering, .listChanges = true, .alone = true};
          if (record.oCurrent.bForeign() || record.oCurrent.eLocked() == TriState::True)
            return trial;
          if (!record.oCurrent.sTemplate().empty()) attempt(trial.refresh, refresh);
          if (IsDirty(record)) attempt(trial.pending, {.numbering = numbering});
          if (wants.unnumbered && trial.refresh && !trial.refresh->Refused()) {
            attempt(trial.unnumbered, {.refresh = true,
                                       .numbering = LineNumAction::Remove,
                                       .listChanges = true,
                                       .unproved = true,
                                       .alone = true});
          }
          return trial;
        });
  });
}

Text Applier::UnsignedTemplate(ProcedureHandle handle) {
  return Result(u"UnsignedTemplate", [&](GuardScope& scope) {
    return WithCode(
        scope, handle, [](const auto&, const ParsedProcedure& procedure, const ProcedureCode&) {
          const TemplateRow* found = nullptr;
          const auto rowsOf = [](const TemplateRow& row) {
            return row.lStart[Section::End] - row.lStart[Section::Start];
          };
          for (const TemplateRow& row : procedure.Templates().templates) {
            if (row.eType != TemplateType::Procedure) continue;
            if (found && rowsOf(*found) <= rowsOf(row)) continue;
            const Removal removal = RemoveTemplate(procedure, row, MRules::oRules);
            // One line alone would be found in many a procedure.
            const bool holdsIt =
                removal.refusals.empty() && removal.code.Count() + 1 < procedure.Code().Count();
            if (holdsIt) found = &row;
          }
          return found ? found->sName : Text();
        });
  });
}

void Applier::TakeInCode(ProcedureRecord& record, const CProcSettings& read) const {
  CProcSettings fresh = read;
  mModel.InheritFromModule(record, fresh);
  if (fresh.Equals(record.oCurrent)) return;
  // Changed behind the model: by hand, or through another component over the same file.
  const bool wasClean = !IsDirty(record);
  record.oCurrent = fresh;
  if (wasClean) record.oPending = fresh;
}

void Applier::CompareDeclarations(GuardScope& scope, const ProcedureRecord& record, Run& run) {
  if (run.declarationsRead == record.hComponent) return;
  run.declarationsRead = record.hComponent;
  if (record.nKind == ProcKind::Declarations) return;
  ProcedureRecord& declarations =
      mModel.Procedure(mModel.Component(record.hComponent).hDeclarations);
  CProcSettings read;
  mOptions.Template().ExtractProcSettings(mModel.CodeOf(scope, declarations).text, read);
  TakeInCode(declarations, read);
}

bool Applier::InheritsModule(const ProcedureRecord& record, const CProcSettings& settings) const {
  return record.nKind != ProcKind::Declarations &&
         mOptions.Template().Inherit(settings.sTemplate());
}

void Applier::TakeOver(ProcedureRecord& record, const Run& run) {
  CProcSettings& written = run.refresh ? record.oCurrent : record.oPending;
  CProcSettings& current = record.oCurrent;
  if (written.sTemplate().empty()) {
    written.SeteBoundary(MQuillon::Boundary::Unset);
    written.SeteSeverity(MQuillon::Severity::Unset);
    written.SeteRetry(MQuillon::Retry::Unset);
    written.SeteTrace(TriState::Unset);
  }
  if (&written != &current) current.CopyFrom(written);
  if (!InheritsModule(record, current)) return;
  const CProcSettings& module =
      mModel.Procedure(mModel.Component(record.hComponent).hDeclarations).oCurrent;
  current.BoundaryInherited = current.eBoundary() == module.eBoundary();
  current.SeverityInherited = current.eSeverity() == module.eSeverity();
  current.RetryInherited = current.eRetry() == module.eRetry();
}

bool Applier::WriteBack(const ProcedureRecord& record, const ParsedProcedure& procedure,
                        const Rewrite& rewrite, Run& run) {
  bool stands = true;
  Guard(Named(u"ReplaceProcedure"), [&](GuardScope& scope) {
    if (record.oMember) {
      ReplaceMember(scope, record, procedure, rewrite, run);
    } else {
      stands =
          ModuleEdit::ReplaceDeclarations(scope, mModel.ModuleOf(scope, record.hComponent),
                                          procedure.Source(), rewrite.text, rewrite.blankLines);
    }
  });
  return stands;
}

void Applier::ReplaceMember(GuardScope& scope, const ProcedureRecord& record,
                            const ParsedProcedure& procedure, const Rewrite& rewrite, Run& run) {
  CodeModule& module = mModel.ModuleOf(scope, record.hComponent);
  const auto start = SteppedModule(scope, module).ProcStartLine(run.name, record.nKind);
  const ModuleEdit::Attributes saved = ModuleEdit::Save(scope, *record.oMember);
  std::exception_ptr failure;
  try {
    ModuleEdit::ReplaceLines(scope, module, start, procedure.Source(), rewrite.text,
                             rewrite.blankLines);
  } catch (...) {
    failure = std::current_exception();
  }
  const Text notSet = ModuleEdit::Restore(*record.oMember, saved);
  if (!notSet.empty()) run.note = u"Attributes could not be set again: " + notSet;
  if (failure) std::rethrow_exception(failure);
}
