#include "Proof.h"

#include <algorithm>
#include <vector>

#include "MXStringVB.h"
#include "ModuleReading.h"
#include "Removal.h"

namespace {

/// Walks the lines of a text that aren't clean-up comments; of those it gathers the code, blank
/// ones left out.
class CodeLines {
 public:
  explicit CodeLines(const ProcText& code) : mCode(code) { SkipCleanUp(); }

  bool AtEnd() const { return mIndex >= mCode.Count(); }
  std::size_t Index() const { return mIndex; }
  TextView Line() const { return mCode.Line(mIndex); }
  void Next() {
    ++mIndex;
    SkipCleanUp();
  }
  /// A line as numbering leaves it comparable: without its number and its indentation.
  Text Unnumbered() const {
    Text line(Line());
    if (!mCode.IsContinued(mIndex)) MXStringVB::RemoveVBLineNumber(line);
    return Text(LeftTrim(line));
  }
  /// In order. Complete at the end only.
  const std::vector<Text>& CleanUp() {
    std::sort(mCleanUp.begin(), mCleanUp.end());
    return mCleanUp;
  }

 private:
  void SkipCleanUp() {
    for (; !AtEnd() && IsCleanUp(mCode.Folded(mIndex)); ++mIndex) {
      TextView code = Trim(mCode.Line(mIndex)).substr(FireMark.size());
      if (code.starts_with(u' ')) code.remove_prefix(1);
      if (!IsBlank(code)) mCleanUp.emplace_back(code);
    }
  }

  static bool IsCleanUp(TextView folded) {
    return !folded.empty() && folded.front() == FireMark.front() && folded.starts_with(FireMark);
  }

  const ProcText& mCode;
  std::size_t mIndex = 0;
  std::vector<Text> mCleanUp;
};

}  // namespace

std::optional<Refusal> Proof::FirstDifference(const ProcText& before, const ProcText& back,
                                              bool numbered) {
  CodeLines left(before), right(back);
  for (; !left.AtEnd() && !right.AtEnd(); left.Next(), right.Next()) {
    if (Same(left.Line(), right.Line())) continue;
    if (numbered && left.Unnumbered() == right.Unnumbered()) continue;
    return Refusal{RefusalKind::LineChanged, left.Index() + 1, Text(left.Line()),
                   Text(right.Line())};
  }
  if (!left.AtEnd()) {
    return Refusal{RefusalKind::LineLost, left.Index() + 1, Text(left.Line())};
  }
  if (!right.AtEnd()) return Refusal{RefusalKind::LineAdded, 0, Text(right.Line())};
  if (left.CleanUp() != right.CleanUp()) return Refusal{RefusalKind::CleanUpChanged};
  return std::nullopt;
}

std::optional<Refusal> Proof::FirstFault(const ProcText& bare, const Insertion& insertion,
                                         const ParsedProcedure& after, const TemplateRow& row,
                                         const MRules::Values& rules, bool numbered) {
  if (auto misread = FirstMisread(after.Templates(), after.Code(), insertion.templateLines))
    return misread;
  if (insertion.traceExit.find_first_of(u"\r\n") != Text::npos) {
    return Refusal{RefusalKind::RowHoldsLineEnd, 0, insertion.traceExit};
  }
  Removal removal = RemoveTemplate(after, row, rules);
  if (!removal.refusals.empty()) {
    return Refusal{RefusalKind::NotRemovable, 0, MessageOf(removal.refusals.front())};
  }
  return FirstDifference(bare, removal.code, numbered);
}
