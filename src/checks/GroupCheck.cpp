#include "GroupCheck.h"

#include <algorithm>

#include "Fingerprints.h"
#include "MQuillon.h"

using MQuillon::TriState;

namespace {

/// False when the section ends in a declaration, which keeps all lines ahead of it from falling to
/// the first procedure.
bool MayLoseLines(const Rewrite& declarations) {
  const ProcText code(declarations.text);
  if (declarations.blankLines > 0 || code.Count() == 0 || code.IsContinued(code.Count() - 1)) {
    return true;
  }
  const TextView last = code.Folded(code.Count() - 1);
  return last.empty() || last.front() == u'#' || CommentStart(last) == 0;
}

/// Lines from 1, both included.
Text LinesOf(const Text& text, std::size_t first, std::size_t last) {
  const ProcText code(text);
  Text lines;
  for (std::size_t i = first; i <= last && i <= code.Count(); ++i)
    lines.append(code.Line(i - 1)).append(u"\n");
  return lines;
}

}  // namespace

void GroupCheck::Procedure(ProcedureHandle procedure) {
  ++mResult.procedures;
  const CProcSettings& current = mHandler.Procedure(procedure).oCurrent;
  if (current.bForeign()) return Foreign(procedure);
  if (!current.sTemplate().empty()) mResult.namesKnown = true;
  if (current.eLocked() == TriState::True) {
    ++mResult.passedOver.locked;
  } else {
    Own(procedure);
  }
}

/// Code with handlers that no template of the file wrote, or of which it isn't known.
void GroupCheck::Foreign(ProcedureHandle procedure) {
  const TextView name = mHandler.Procedure(procedure).oCurrent.sTemplate();
  if (name != MQuillon::BespokeName) {
    mResult.namesUnknown = true;
    std::int32_t headLine = 1;
    const Text text = mHandler.GetProcCode(procedure, headLine);
    const std::size_t line = mEngine.Set().Signatures().FindNamed(ProcText(text)) + 1;
    return AddAt(procedure, {CheckRule::UnknownTemplate, line, line,
                             "there is no template " + ToUtf8(name.substr(1, name.size() - 2)) +
                                 " in the template file"});
  }
  const Text unsignedName = mHandler.UnsignedTemplate(procedure);
  if (!unsignedName.empty()) {
    return AddAt(procedure, {CheckRule::BrokenTemplate, 0, 0,
                             "the lines of template " + ToUtf8(unsignedName) +
                                 " stand here without their signature"});
  }
  if (!mRules.Has(CheckRule::OwnHandling)) ++mResult.passedOver.ownHandling;
  AddAt(procedure, {CheckRule::OwnHandling, 0, 0, "handles errors on its own"});
}

void GroupCheck::Own(ProcedureHandle procedure) {
  for (const TextView name : mHandler.RulesJudgingOtherwise(procedure))
    ++mResult.judgedOtherwise[ToUtf8(name)];
  mHandler.ApplySuggestedSettings(procedure);
  const ProcedureRecord& record = mHandler.Procedure(procedure);
  if (record.oCurrent.sTemplate().empty() && !IsDirty(record)) return;
  const Trial trial = mHandler.TryOut(procedure, {.unnumbered = mRules.Has(CheckRule::Numbered)});
  const auto& templates = mEngine.Set();
  SettingsFinding(procedure, trial);
  for (const TrialFinding& found :
       FindingsOf(templates, templates.Find(record.oCurrent.sTemplate()), trial))
    AddAt(procedure, found);
}

/// A suggestion that changes no code is none: a value that the template has no line for, or a
/// trace in a declarations section, would be found again after every apply.
void GroupCheck::SettingsFinding(ProcedureHandle procedure, const Trial& trial) {
  if (!trial.pending) return;
  const Rewrite& pending = *trial.pending;
  const bool isRefreshed = trial.refresh && pending.changed && pending.text == trial.refresh->text;
  if (!pending.Refused() && (!pending.changed || isRefreshed)) return;
  const ProcedureRecord& record = mHandler.Procedure(procedure);
  const bool isDeclarations = record.nKind == ProcKind::Declarations;
  Finding finding = At(
      record.oCurrent.sTemplate().empty() ? CheckRule::MissingTemplate : CheckRule::SettingsDiffer,
      record.hComponent);
  finding.procedure = procedure;
  finding.line = finding.endLine = mPlaces.LineOf(procedure, 0);
  finding.settings = {record.oCurrent, record.oPending, !isDeclarations};
  Add(std::move(finding));
  if (isDeclarations && pending.changed && MayLoseLines(pending)) {
    mDeclarations.push_back(procedure);
  }
}

/// What keeps lines out of a module's declarations shows only when they are put there.
void GroupCheck::TryInModule(ProcedureHandle procedure) {
  std::vector<Refusal> refusals;
  const auto refused = mHandler.ProcedureRefused.Connect(
      [&](ProcedureHandle, const std::vector<Refusal>& reasons) { refusals = reasons; });
  mHandler.ApplyPendingSettings(procedure, false, MQuillon::LineNumAction::AsRule);
  for (const Refusal& refusal : refusals)
    AddAt(procedure, {CheckRule::WouldRefuse, 0, 0, ToUtf8(Trim(MessageOf(refusal)))});
}

void GroupCheck::Unreadable(ComponentHandle component, std::string reason) {
  Finding finding = At(CheckRule::Unreadable, component);
  if (!finding.file->empty() && !mUnreadable.insert(finding.file).second) return;
  finding.message = std::move(reason);
  Add(std::move(finding));
}

void GroupCheck::Unreadable(std::string file, std::int32_t line, std::string reason) {
  Add({.rule = CheckRule::Unreadable,
       .file = Kept(file),
       .line = line,
       .endLine = line,
       .message = std::move(reason)});
}

void GroupCheck::ReadOnly(ComponentHandle component, bool isPassedOver) {
  Finding finding = At(CheckRule::ReadOnly, component);
  finding.message = isPassedOver ? "the file is read-only and was passed over"
                                 : "the file is read-only and can't be written";
  mResult.passedOver.readOnlyFiles += isPassedOver;
  Add(std::move(finding));
}

void GroupCheck::ConflictingConstants(ComponentHandle component, std::int32_t line,
                                      std::string message) {
  Finding finding = At(CheckRule::ConflictingConstants, component);
  finding.line = finding.endLine = line;
  finding.message = std::move(message);
  Add(std::move(finding));
}

void GroupCheck::AddAt(ProcedureHandle procedure, const TrialFinding& found) {
  Finding finding = At(found.rule, mHandler.Procedure(procedure).hComponent);
  finding.procedure = procedure;
  finding.message = found.message;
  finding.textLine = found.line;
  finding.textEndLine = std::max(found.line, found.endLine);
  if (mRules.Has(found.rule)) {
    finding.line = mPlaces.LineOf(procedure, found.line);
    finding.endLine =
        found.endLine > found.line ? mPlaces.LineOf(procedure, found.endLine) : finding.line;
  }
  Add(std::move(finding));
}

void GroupCheck::Add(Finding finding) {
  if (mRules.Has(finding.rule)) {
    mResult.findings.push_back(std::move(finding));
  } else if (RowOf(finding.rule).byDefault) {
    ++mResult.ignored[static_cast<std::size_t>(finding.rule)];
  }
}

Finding GroupCheck::At(CheckRule rule, ComponentHandle component) {
  if (component != mComponent || !mFile) mFile = Kept(mPlaces.FileOf(component));
  mComponent = component;
  return {.rule = rule, .file = mFile, .component = component};
}

const std::string* GroupCheck::Kept(const std::string& file) {
  const std::string*& kept = mFiles[file];
  if (!kept) kept = &mResult.files.emplace_back(file);
  return kept;
}

void GroupCheck::AddFingerprints() {
  Fingerprints prints;
  for (Finding& finding : mResult.findings) {
    std::string component = *finding.file, procedure;
    Text code;
    if (finding.component) component = ToUtf8(mHandler.Component(finding.component).sName);
    // Two halves of a property have one name.
    if (finding.procedure)
      procedure = ToUtf8(mHandler.ProcName(finding.procedure)) + ' ' +
                  ToUtf8(mHandler.Procedure(finding.procedure).sProcType);
    if (finding.textLine > 0) {
      std::int32_t headLine = 0;
      code = mHandler.GetProcCode(finding.procedure, headLine);
      code = LinesOf(code, finding.textLine, finding.textEndLine);
    }
    finding.fingerprint = prints.Of({RowOf(finding.rule).id, component, procedure, code});
  }
}

CheckResult GroupCheck::Finish() {
  for (const ProcedureHandle h : mDeclarations) TryInModule(h);
  SortFindings(mResult.findings);
  AddFingerprints();
  return std::move(mResult);
}
