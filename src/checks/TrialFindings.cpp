// In order: what kind of lines differ, a refresh that changes, refusals, all together.
#include "TrialFindings.h"

#include <algorithm>

#include "MXString.h"
#include "MXStringVB.h"
#include "MeaningRules.h"
#include "ProcText.h"

namespace {

/// Two lines that stand for each other; an empty view for one that comes or goes.
struct LinePair {
  TextView before, after;
};

Text Folded(TextView line) {
  Text folded;
  MXString::FoldLine(line, folded);
  return folded;
}

Text Unnumbered(TextView line) {
  Text text(line);
  MXStringVB::RemoveVBLineNumber(text);
  return Text(LeftTrim(text));
}

bool DifferInNumber(const LinePair& pair) {
  return Unnumbered(pair.before) == Unnumbered(pair.after);
}

bool HoldsName(const LineRow& row) {
  return std::any_of(row.pieces.begin(), row.pieces.end(), [](const RowPiece& piece) {
    return piece.token == Token::ModuleName || piece.token == Token::ProcName ||
           piece.token == Token::Name || piece.token == Token::Project ||
           piece.token == Token::File;
  });
}

/// True when a row with a name in it can have written both lines: nothing but the name changed.
bool DifferInName(const TemplateSet& templates, const TemplateRow& row, const LinePair& pair) {
  const Text before = Folded(pair.before), after = Folded(pair.after);
  for (std::int32_t i = row.lStart[Section::Start]; i <= row.lStart[Section::End]; ++i) {
    const LineRow& line = templates.Row(i);
    if (line.script && HoldsName(line) && line.sLike.Matches(before) && line.sLike.Matches(after))
      return true;
  }
  if (row.lTraceExit <= 0 || row.traceExitBegin.empty()) return false;
  return HoldsName(templates.Row(row.lTraceExit)) &&
         FindText(before, row.traceExitBegin) != TextView::npos &&
         FindText(after, row.traceExitBegin) != TextView::npos;
}

std::string Quoted(TextView line) {
  return '[' + ToUtf8(Trim(line)) + ']';
}

std::string WouldWrite(const LinePair& pair) {
  if (pair.before.data() == nullptr) return "refresh would put in " + Quoted(pair.after);
  if (pair.after.data() == nullptr) return "refresh would take out " + Quoted(pair.before);
  return "refresh would write " + Quoted(pair.after) + " for " + Quoted(pair.before);
}

/// The lines of one text that differ in the same way, told by the first of them.
struct Group {
  TrialFinding finding;
  std::size_t lines = 0;

  void Add(CheckRule rule, std::size_t line, const LinePair& pair) {
    if (lines++ == 0) finding = {rule, line, line, WouldWrite(pair)};
    finding.endLine = std::max(finding.endLine, line);
  }
  void Finish(std::vector<TrialFinding>& findings) {
    if (lines == 0) return;
    if (lines > 1) finding.message += ", and more in " + std::to_string(lines - 1) + " lines";
    findings.push_back(std::move(finding));
  }
};

/// Calls visit(line, pair) for each line that differs; line from 1 in the text before.
template <class Visit>
void ForEachPair(const ProcText& before, const ProcText& after,
                 const std::vector<LineChange>& changes, const Visit& visit) {
  const auto lineOf = [](const ProcText& text, std::size_t i, std::size_t end) {
    if (i >= end) return TextView();
    return i < text.Count() ? text.Line(i) : TextView(u"");
  };
  for (const LineChange& change : changes) {
    const std::size_t count =
        std::max(change.oldEnd - change.oldFirst, change.newEnd - change.newFirst);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t line =
          std::min(change.oldFirst + i + 1, std::max<std::size_t>(before.Count(), 1));
      visit(line, LinePair{lineOf(before, change.oldFirst + i, change.oldEnd),
                           lineOf(after, change.newFirst + i, change.newEnd)});
    }
  }
}

/// numbers: lines that differ in their number count as well.
void AddDrift(const TemplateSet& templates, const TemplateRow& row, const Trial& trial,
              bool numbers, std::vector<TrialFinding>& findings) {
  const ProcText before(trial.source), after(trial.refresh->text);
  Group names, others;
  ForEachPair(before, after, trial.refresh->changes, [&](std::size_t line, const LinePair& pair) {
    const bool isPair = pair.before.data() && pair.after.data();
    if (isPair && DifferInNumber(pair)) {
      if (numbers) others.Add(CheckRule::Drifted, line, pair);
    } else if (isPair && DifferInName(templates, row, pair)) {
      names.Add(CheckRule::StaleName, line, pair);
    } else {
      others.Add(CheckRule::Drifted, line, pair);
    }
  });
  names.Finish(findings);
  others.Finish(findings);
}

/// The lines that differ in nothing but a number that goes. True when there are any.
bool AddNumbered(const Trial& trial, std::vector<TrialFinding>& findings) {
  if (!trial.unnumbered || !trial.unnumbered->changed) return false;
  const ProcText before(trial.source), after(trial.unnumbered->text);
  TrialFinding finding{CheckRule::Numbered};
  ForEachPair(before, after, trial.unnumbered->changes,
              [&](std::size_t line, const LinePair& pair) {
                if (!pair.before.data() || !pair.after.data() || !DifferInNumber(pair)) return;
                if (finding.line == 0) finding.line = line;
                finding.endLine = line;
              });
  if (finding.line == 0) return false;
  finding.message = "its lines are numbered";
  findings.push_back(std::move(finding));
  return true;
}

CheckRule RuleOf(const Refusal& refusal, bool stuck) {
  // Nothing is asked of the host in a trial but whether it would write.
  if (refusal.kind == RefusalKind::HostFailure) return CheckRule::ReadOnly;
  if (!MeaningIdOf(refusal.kind).empty()) return CheckRule::UnprovedMeaning;
  return stuck ? CheckRule::BrokenTemplate : CheckRule::WouldRefuse;
}

void AddRefusals(const std::vector<Refusal>& refusals, bool stuck,
                 std::vector<TrialFinding>& findings) {
  for (const Refusal& refusal : refusals) {
    const std::size_t line = SourceLine(refusal);
    TrialFinding finding{RuleOf(refusal, stuck), line, line, ToUtf8(Trim(MessageOf(refusal)))};
    // A refresh and what is asked for are refused for the same reason more often than not.
    const bool isThere = std::any_of(findings.begin(), findings.end(), [&](const auto& other) {
      return other.rule == finding.rule && other.line == line && other.message == finding.message;
    });
    if (!isThere) findings.push_back(std::move(finding));
  }
}

/// What refuses a rewrite, and what is to be known of it.
void AddRefusals(const Rewrite& rewrite, std::vector<TrialFinding>& findings) {
  AddRefusals(rewrite.refusals, rewrite.stuck, findings);
  AddRefusals(rewrite.notes, false, findings);
}

}  // namespace

std::vector<TrialFinding> FindingsOf(const TemplateSet& templates, const TemplateRow* row,
                                     const Trial& trial) {
  std::vector<TrialFinding> findings;
  const bool isNumbered = AddNumbered(trial, findings);
  if (row && trial.refresh) {
    AddRefusals(*trial.refresh, findings);
    if (trial.refresh->changed) AddDrift(templates, *row, trial, !isNumbered, findings);
  }
  if (trial.pending) AddRefusals(*trial.pending, findings);
  return findings;
}
