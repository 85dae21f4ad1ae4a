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
  /// Rows lFirst to lLast, both included; directive rows among them are passed over.
  RowMatch(const std::vector<LineRow>& oLines, std::int32_t lFirst, std::int32_t lLast,
           const Signature& oSignature);

  /// True when the folded line is blank, the stretch's one signature, or fits a row not yet used.
  bool Passes(TextView sFolded);
  /// As Passes, but a blank line doesn't pass.
  bool Takes(TextView sFolded);
  /// The row that took the last line; null when that was the signature.
  const LineRow* LastRow() const { return mpLast; }
  /// True when every row without a condition that isn't blank has served a line.
  bool AllUnconditionalUsed() const;
  /// True when a row that no line has used waits for the folded line: it fits the row, or, where
  /// the row has a condition, reads as these values write it.
  bool WaitsFor(TextView sFolded, const SectionValues& oValues) const;

 private:
  struct Entry {
    const LineRow* pRow;
    bool bMatched = false;
  };
  std::vector<Entry> moRows;
  const Signature& moSignature;
  const LineRow* mpLast = nullptr;
  bool mbSignatureSeen = false;
};
