// What LineDifferences does behind its first look: lines are numbers here, equal ones for equal
// lines.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "LineDifferences.h"

/// A line of each text; the two are equal.
struct LineMatch {
  std::size_t oldLine, newLine;
};

/// Takes matches in order; what lies between two of them is a change.
class ChangeList {
 public:
  /// head: how many lines both texts have ahead of the first that is matched as line 0.
  explicit ChangeList(std::size_t head) : head_(head) {}

  void Clear() {
    changes_.clear();
    next_ = {0, 0};
  }
  void Add(LineMatch match) {
    if (match.oldLine > next_.oldLine || match.newLine > next_.newLine) {
      changes_.push_back({head_ + next_.oldLine, head_ + match.oldLine, head_ + next_.newLine,
                          head_ + match.newLine});
    }
    next_ = {match.oldLine + 1, match.newLine + 1};
  }
  /// The changes, with what lies behind the last match.
  std::vector<LineChange> Finish(std::size_t oldCount, std::size_t newCount) {
    Add({oldCount, newCount});
    return std::move(changes_);
  }

 private:
  std::size_t head_;
  LineMatch next_{0, 0};
  std::vector<LineChange> changes_;
};

/// Adds the lines that stay to the changes. The numbers are below numberCount.
void MatchNumberedLines(std::span<const std::uint32_t> oldLines,
                        std::span<const std::uint32_t> newLines, std::size_t numberCount,
                        ChangeList& changes);
