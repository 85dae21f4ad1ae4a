// Accounts for code lines by the script rows of a section: each row serves one line at most.
#pragma once

#include <cstdint>
#include <vector>

#include "ProcText.h"
#include "Sections.h"
#include "Signature.h"
#include "TemplateRows.h"

class RowMatch {
 public:
  /// Rows first to last, both included; directive rows among them are passed over.
  RowMatch(const std::vector<LineRow>& lines, std::int32_t first, std::int32_t last,
           const Signature& signature);

  /// True when the folded line is blank, the stretch's one signature, or fits a row not yet used.
  bool Passes(TextView folded);
  /// As Passes, but a blank line doesn't pass.
  bool Takes(TextView folded);
  /// The row that took the last line; null when that was the signature.
  const LineRow* LastRow() const { return mLast; }
  /// True when every row without a condition that isn't blank has served a line.
  bool AllUnconditionalUsed() const;
  /// True when a row that no line has used waits for the folded line: it fits the row, or, where
  /// the row has a condition, reads as these values write it.
  bool WaitsFor(TextView folded, const SectionValues& values) const;

 private:
  struct Entry {
    const LineRow* row;
    bool used = false;
  };
  std::vector<Entry> mRows;
  std::size_t mFirstUnused = 0;
  const Signature& mSignature;
  const LineRow* mLast = nullptr;
  bool mSignatureSeen = false;
};
