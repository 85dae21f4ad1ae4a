#include "RowMatch.h"

#include <algorithm>

RowMatch::RowMatch(const std::vector<LineRow>& oLines, std::int32_t lFirst, std::int32_t lLast,
                   const Signature& oSignature)
    : moSignature(oSignature) {
  lFirst = std::max(lFirst, 1);
  lLast = std::min(lLast, static_cast<std::int32_t>(oLines.size()) - 1);
  for (std::int32_t l = lFirst; l <= lLast; ++l) {
    const LineRow& oRow = oLines[static_cast<std::size_t>(l)];
    if (oRow.bScript) moRows.push_back({&oRow});
  }
}

bool RowMatch::Passes(TextView sFolded) {
  return sFolded.empty() || Takes(sFolded);
}

bool RowMatch::Takes(TextView sFolded) {
  if (sFolded.empty()) return false;
  if (!mbSignatureSeen && moSignature.IsSignature(sFolded)) {
    mbSignatureSeen = true;
    mpLast = nullptr;
    return true;
  }
  for (Entry& oEntry : moRows) {
    if (oEntry.bMatched || !oEntry.pRow->sLike.Matches(sFolded)) continue;
    oEntry.bMatched = true;
    mpLast = oEntry.pRow;
    return true;
  }
  return false;
}

bool RowMatch::AllUnconditionalUsed() const {
  return std::all_of(moRows.begin(), moRows.end(), [](const Entry& oEntry) {
    return oEntry.bMatched || !oEntry.pRow->sIfCondition.empty() || IsBlankRow(*oEntry.pRow);
  });
}

bool RowMatch::WaitsFor(TextView sFolded, const SectionValues& oValues) const {
  return std::any_of(moRows.begin(), moRows.end(), [&](const Entry& oEntry) {
    const LineRow& oRow = *oEntry.pRow;
    if (oEntry.bMatched || IsBlankRow(oRow)) return false;
    if (oRow.sIfCondition.empty()) return oRow.sLike.Matches(sFolded);
    return IsWritten(oRow, oValues) && FoldedRow(oRow, oValues) == sFolded;
  });
}
