#include "Rewriter.h"

#include "Insertion.h"
#include "JumpTargets.h"
#include "LineWriter.h"
#include "MQuillon.h"
#include "Proof.h"
#include "Removal.h"

namespace {

using MQuillon::LineNumAction;

bool IsTemplateName(TextView name) {
  return !name.empty() && name != MQuillon::NoneName;
}

/// One rewrite, step by step; each step works on the lines that the one before left.
class Rewriting {
 public:
  Rewriting(const ParsedProcedure& procedure, const WantedSettings& wanted,
            const RewriteOptions& options, const MRules::Values& rules)
      : mProcedure(procedure),
        mTemplates(procedure.Templates()),
        mWanted(wanted),
        mOptions(options),
        mRules(rules),
        mLines(&procedure.Code()) {}

  Rewrite Run() {
    if (TakeOut() && (mWanted.hasTemplate ? PutIn() : PutLock())) Finish();
    if (mResult.Refused()) {
      mResult.text = mProcedure.Source();
      mResult.blankLines = 0;
    }
    return std::move(mResult);
  }

 private:
  bool Refuse(Refusal refusal) {
    mResult.refusals.push_back(std::move(refusal));
    return false;
  }

  bool TakeOut() {
    const TextView name = mProcedure.Settings().sTemplate();
    if (!IsTemplateName(name)) return true;
    const TemplateRow* const row = mTemplates.Find(name);
    if (!row) return Refuse({RefusalKind::TemplateNotFound, 0, Text(name)});
    mOld = row;
    Removal removal = RemoveTemplate(mProcedure, *row, mRules);
    mResult.refusals = std::move(removal.refusals);
    mResult.stuck = mResult.Refused();
    if (mResult.stuck) return false;
    mBare = std::move(removal.code);
    mResult.blankLines = static_cast<std::int32_t>(mBare.CutEmptyTail());
    mLines = &mBare;
    return true;
  }

  /// A lock without a template. One that stands there already is left as it is.
  bool PutLock() {
    const CProcSettings& settings = mProcedure.Settings();
    const bool hasLock =
        !IsTemplateName(settings.sTemplate()) && settings.eLocked() == MQuillon::TriState::True;
    if (mWanted.locked && !hasLock) {
      LockedCode locked =
          WithLock(mTemplates, *mLines, mProcedure.HeadLine(), mProcedure.IsDeclarations(), true);
      mResult.refusals = std::move(locked.refusals);
      if (mResult.Refused()) return false;
      mUnlocked = std::move(locked.code);
      mLines = &mUnlocked;
    } else if (!mWanted.locked && mProcedure.IsSigned()) {
      DropLocks();
    }
    mResult.text = mLines->Joined();
    if (mOptions.prove) {
      if (auto lost = JumpTargets::FirstLost(mProcedure.Code(), *mLines)) return Refuse(*lost);
    }
    return true;
  }

  /// Two signatures never stand in one text: a lock's own goes before the template's comes.
  void DropLocks() {
    mHeadLine = mProcedure.HeadLine();
    mUnlocked = mTemplates.Signatures().WithoutLocks(*mLines, mHeadLine);
    mLines = &mUnlocked;
  }

  bool PutIn() {
    if (Trim(mWanted.templateName).empty()) return Refuse({RefusalKind::NoTemplateNamed});
    const TemplateRow* const row = mTemplates.Find(mWanted.templateName);
    if (!row) return Refuse({RefusalKind::TemplateNotFound, 0, Text(mWanted.templateName)});
    mHeadLine = mProcedure.HeadLine();
    if (mProcedure.IsSigned()) DropLocks();
    Insertion insertion = InsertTemplate({.templates = mTemplates,
                                          .rules = mRules,
                                          .row = *row,
                                          .values = ValuesFor(mProcedure, mWanted),
                                          .declarations = mProcedure.IsDeclarations(),
                                          .locked = mWanted.locked,
                                          .signedCode = mProcedure.IsSigned(),
                                          .headLine = mHeadLine,
                                          .numbering = mOptions.numbering},
                                         *mLines);
    mResult.refusals = std::move(insertion.refusals);
    if (mResult.Refused()) return false;
    mResult.text = std::move(insertion.text);
    if (!mOptions.prove) return true;
    if (!Same(mResult.text, mProcedure.Source())) return IsProved(insertion, *row);
    if (mOptions.noteUnchanged) {
      Note(PutOf(insertion, mProcedure.Code(), *row));
    }
    return true;
  }

  bool IsProved(const Insertion& insertion, const TemplateRow& row) {
    const ParsedProcedure after(mTemplates, mResult.text, mProcedure.Name(), mHeadLine);
    if (auto lost = JumpTargets::FirstLost(mProcedure.Code(), after.Code())) return Refuse(*lost);
    const bool numbered =
        mOptions.numbering != LineNumAction::Leave || mRules.eLineNumAction != LineNumAction::Leave;
    auto fault = Proof::FirstFault(*mLines, insertion, after, row, mRules, numbered);
    return fault ? Refuse(Located(std::move(*fault))) : KeepsMeaning(insertion, after.Code(), row);
  }

  /// With the line as it stands in the module, for one that counts in the text without template.
  Refusal Located(Refusal refusal) const {
    const bool countsThere = !MeaningIdOf(refusal.kind).empty() ||
                             refusal.kind == RefusalKind::LineChanged ||
                             refusal.kind == RefusalKind::LineLost;
    if (!countsThere || refusal.line == 0 || refusal.line > mLines->Count()) return refusal;
    const std::size_t line = mLines->LineIn(mProcedure.Code(), refusal.line - 1);
    if (line < mProcedure.Code().Count()) refusal.line = refusal.sourceLine = line + 1;
    return refusal;
  }

  Meaning::Put PutOf(const Insertion& insertion, const ProcText& after,
                     const TemplateRow& row) const {
    return {mProcedure, *mLines, insertion, after, row, mOld, mHeadLine, mOptions.moduleNames};
  }

  bool KeepsMeaning(const Insertion& insertion, const ProcText& after, const TemplateRow& row) {
    const Meaning::Put put = PutOf(insertion, after, row);
    if (auto fault = Meaning::FirstFault(put, mOptions.allowed))
      return Refuse(Located(std::move(*fault)));
    Note(put);
    return true;
  }

  void Note(const Meaning::Put& put) {
    mResult.notes = Meaning::Notes(put);
    std::erase_if(mResult.notes,
                  [&](const Refusal& note) { return mOptions.allowed.Has(note.kind); });
    for (Refusal& note : mResult.notes) note = Located(std::move(note));
  }

  void Finish() {
    while (mResult.text.ends_with(CrLf)) {
      mResult.text.resize(mResult.text.size() - CrLf.size());
      ++mResult.blankLines;
    }
    mResult.changed = mResult.blankLines != 0 || !Same(mResult.text, mProcedure.Source());
    if (mOptions.listChanges && mResult.changed) ListChanges();
  }

  void ListChanges() {
    const auto linesOf = [](const ProcText& code) {
      std::vector<TextView> lines;
      for (std::size_t i = 0; i < code.Count(); ++i) lines.push_back(code.Line(i));
      return lines;
    };
    const ProcText after(mResult.text);
    std::vector<TextView> lines = linesOf(after);
    lines.resize(lines.size() + static_cast<std::size_t>(mResult.blankLines));
    mResult.changes = LineDifferences(linesOf(mProcedure.Code()), lines);
  }

  const ParsedProcedure& mProcedure;
  const TemplateSet& mTemplates;
  const WantedSettings& mWanted;
  const RewriteOptions& mOptions;
  const MRules::Values& mRules;
  const ProcText* mLines;             ///< what the next step starts from
  ProcText mBare;                     ///< without the old template
  ProcText mUnlocked;                 ///< with other locks than mBare
  const TemplateRow* mOld = nullptr;  ///< the template that was taken out
  std::int32_t mHeadLine = 1;
  Rewrite mResult;
};

}  // namespace

Rewrite RewriteProcedure(const ParsedProcedure& procedure, const WantedSettings& wanted,
                         const RewriteOptions& options, const MRules::Values& rules) {
  return Rewriting(procedure, wanted, options, rules).Run();
}

SectionValues ValuesFor(const ParsedProcedure& procedure, const WantedSettings& wanted) {
  SectionValues values = procedure.NameValues();
  values.signature = wanted.templateName;
  values.boundary = wanted.boundary;
  values.severity = wanted.severity;
  values.retry = wanted.retry;
  values.trace = wanted.trace;
  return values;
}

LockedCode WithLock(const TemplateSet& templates, const ProcText& code, std::int32_t headLine,
                    bool declarations, bool locked) {
  const Signature& signatures = templates.Signatures();
  LockedCode result;
  const ProcText clean = signatures.WithoutLocks(code, headLine);
  const Text line = signatures.Line({}, locked);
  if (!line.empty() && !signatures.IsReadable({}, locked)) {
    result.refusals.push_back({RefusalKind::LockNotReadable});
  } else if (!declarations && HeadHoldsEnd(clean, headLine)) {
    result.refusals.push_back({RefusalKind::HeadAndEndShareLine});
  } else if (!declarations && !HasHead(clean, headLine)) {
    result.refusals.push_back({RefusalKind::HeadNotFound});
  }
  if (!result.refusals.empty()) return result;
  const std::size_t place = declarations ? BehindOptions(clean) : BehindHead(clean, headLine);
  result.code.Keep(clean, 0, place);
  if (!line.empty()) result.code.Add(line);
  result.code.Keep(clean, place, clean.Count());
  return result;
}
