#include "RowMatch.h"

#include <algorithm>

RowMatch::RowMatch(const std::vector<LineRow>& lines, std::int32_t first, std::int32_t last,
                   const Signature& signature)
    : mSignature(signature) {
  first = std::max(first, 1);
  last = std::min(last, static_cast<std::int32_t>(lines.size()) - 1);
  if (first <= last) mRows.reserve(static_cast<std::size_t>(last - first + 1));
  for (std::int32_t i = first; i <= last; ++i) {
    const LineRow& row = lines[static_cast<std::size_t>(i)];
    if (row.script) mRows.push_back({&row});
  }
}

bool RowMatch::Passes(TextView folded) {
  return folded.empty() || Takes(folded);
}

bool RowMatch::Takes(TextView folded) {
  if (folded.empty()) return false;
  if (!mSignatureSeen && mSignature.IsSignature(folded)) {
    mSignatureSeen = true;
    mLast = nullptr;
    return true;
  }
  // A template's lines mostly stand in the order of its rows: those that are used lie ahead.
  while (mFirstUnused < mRows.size() && mRows[mFirstUnused].used) ++mFirstUnused;
  for (std::size_t i = mFirstUnused; i < mRows.size(); ++i) {
    Entry& entry = mRows[i];
    if (entry.used || !entry.row->sLike.Matches(folded)) continue;
    entry.used = true;
    mLast = entry.row;
    return true;
  }
  return false;
}

bool RowMatch::AllUnconditionalUsed() const {
  return std::all_of(mRows.begin(), mRows.end(), [](const Entry& entry) {
    return entry.used || !entry.row->sIfCondition.empty() || IsBlankRow(*entry.row);
  });
}

bool RowMatch::WaitsFor(TextView folded, const SectionValues& values) const {
  return std::any_of(mRows.begin(), mRows.end(), [&](const Entry& entry) {
    const LineRow& row = *entry.row;
    if (entry.used || IsBlankRow(row)) return false;
    if (row.sIfCondition.empty()) return row.sLike.Matches(folded);
    return IsWritten(row, values) && FoldedRow(row, values) == folded;
  });
}
