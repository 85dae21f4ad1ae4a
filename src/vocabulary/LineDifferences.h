// The lines in which two texts differ: for differences that are shown or printed, and for edits
// that carry over what belongs to lines that stayed. Time and memory grow with the number of lines,
// also for texts that have nothing in common.
//
// Lines that stand once in each text anchor the comparison, as a reader would take them. Between
// anchors the shortest script of lines that go and come is searched; where it takes hundreds of
// them, piece by piece, and then it may be longer than the shortest.
//
//   const std::vector<TextView> oldLines = SplitLines(oldText), newLines = SplitLines(newText);
//   for (const LineChange& change : LineDifferences(oldLines, newLines)) ...
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "Text.h"

/// A stretch of lines that differ: half-open, from 0; one side may be empty.
struct LineChange {
  std::size_t oldFirst, oldEnd, newFirst, newEnd;
  bool operator==(const LineChange&) const = default;
};

/// The changes that lead from the old lines to the new ones, in order, never touching one another.
/// Equal texts give none, and cost no memory. Never fails.
/// Example: `a b c` against `a x c d` gives {1, 2, 1, 2} and {3, 3, 3, 4}.
std::vector<LineChange> LineDifferences(std::span<const TextView> oldLines,
                                        std::span<const TextView> newLines);
std::vector<LineChange> LineDifferences(std::span<const std::string_view> oldLines,
                                        std::span<const std::string_view> newLines);

/// Splits the bytes of a file at LF for a comparison: each line keeps its line end, and a missing
/// last one stays missing. The views point into the bytes.
std::vector<std::string_view> SplitByteLines(std::string_view bytes);

/// Changes that stand close together, with the unchanged lines around them; half-open, from 0.
struct LineHunk {
  std::size_t oldFirst, oldEnd, newFirst, newEnd;
  std::span<const LineChange> changes;  ///< of the list that the hunks were made from
};

/// Gathers changes with at most twice `around` unchanged lines between them into one hunk; each has
/// `around` unchanged lines ahead and behind, as far as the texts reach.
std::vector<LineHunk> LineHunks(std::span<const LineChange> changes, std::size_t oldCount,
                                std::size_t around);

enum class LineFate { Stays, Goes, Comes };

/// Calls visit(fate, line) for each line of a hunk in the order of reading: those that go ahead of
/// those that come in their place. `line` counts from 0 in the old text for a line that goes, else
/// in the new one.
template <class Visit>
void VisitLines(const LineHunk& hunk, Visit visit) {
  std::size_t at = hunk.newFirst;
  for (const LineChange& change : hunk.changes) {
    while (at < change.newFirst) visit(LineFate::Stays, at++);
    for (std::size_t line = change.oldFirst; line < change.oldEnd; ++line)
      visit(LineFate::Goes, line);
    while (at < change.newEnd) visit(LineFate::Comes, at++);
  }
  while (at < hunk.newEnd) visit(LineFate::Stays, at++);
}
