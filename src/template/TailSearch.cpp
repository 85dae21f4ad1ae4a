#include "TailSearch.h"

#include "RowMatch.h"

namespace {

/// The tail whose first line is that one, if the lines are accounted for.
std::optional<Tail> TailAt(const TemplateSet& templates, const TemplateRow& row,
                           const ProcText& code, std::size_t line, std::size_t end) {
  const Section last = row.bFire ? Section::FireStart : Section::End;
  RowMatch rows(templates.lines, row.lStart[Section::BodyEnd], row.lStart[last],
                templates.Signatures());
  for (std::size_t i = line; i < end; ++i) {
    const TextView folded = code.Folded(i);
    if (!rows.Passes(folded)) return std::nullopt;
    const bool mayEnd = row.bFire && row.sLike[Section::FireStart].Matches(folded);
    if (mayEnd && rows.AllUnconditionalUsed()) return Tail{line, i};
  }
  if (row.bFire || !rows.AllUnconditionalUsed()) return std::nullopt;
  return Tail{line, 0};
}

}  // namespace

std::optional<Tail> FindTail(const TemplateSet& templates, const TemplateRow& row,
                             const ProcText& code, std::size_t first, std::size_t end) {
  if (!row.tailFromEnd) return std::nullopt;
  std::optional<Tail> lowest;
  for (std::size_t i = end; i > first; --i) {
    const std::size_t line = i - 1;
    if (!row.sLike[Section::BodyEnd].Matches(code.Folded(line)) || code.IsContinued(line)) continue;
    if (auto tail = TailAt(templates, row, code, line, end)) return tail;
    if (!lowest) lowest = Tail{line, 0};
  }
  return lowest;
}

bool IsAtEnd(const TemplateRow& row, Section place) {
  const bool last = place == (row.bFire ? Section::FireEnd : Section::BodyEnd);
  return last && row.sLike[place].IsEmpty();
}
