// Parts in order: anchors, the shortest way between them, the comparison that puts both together.
#include "LineComparison.h"

#include <algorithm>
#include <utility>

namespace {

/// A stretch of both texts.
struct Range {
  std::size_t oldFirst, oldEnd, newFirst, newEnd;

  std::size_t OldCount() const { return oldEnd - oldFirst; }
  std::size_t NewCount() const { return newEnd - newFirst; }
  bool OneSided() const { return oldFirst == oldEnd || newFirst == newEnd; }
};

/// As many of the matches as keep the order of the new lines too; they come in that of the old.
std::vector<LineMatch> LongestRising(std::vector<LineMatch> matches) {
  const auto lower = [](const LineMatch& a, const LineMatch& b) { return a.newLine < b.newLine; };
  if (std::is_sorted(matches.begin(), matches.end(), lower)) return matches;
  constexpr std::size_t None = static_cast<std::size_t>(-1);
  std::vector<std::size_t> ends;  // of each length the match that ends such a run first
  std::vector<std::size_t> before(matches.size(), None);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    const auto place = std::lower_bound(
        ends.begin(), ends.end(), matches[i].newLine,
        [&](std::size_t match, std::size_t line) { return matches[match].newLine < line; });
    if (place != ends.begin()) before[i] = *(place - 1);
    if (place == ends.end())
      ends.push_back(i);
    else
      *place = i;
  }
  std::vector<LineMatch> run;
  run.reserve(ends.size());
  for (std::size_t i = ends.empty() ? None : ends.back(); i != None; i = before[i])
    run.push_back(matches[i]);
  std::reverse(run.begin(), run.end());
  return run;
}

/// The shortest way through a range without anchors. The place (x, y) stands behind x old and y new
/// lines; a step passes one line of one side, equal lines are passed at no cost. Of each number of
/// steps the furthest places are kept, one for each diagonal x - y: row d holds x for the diagonals
/// -d, -d + 2 ... d, so that place i of it came from place i - 1 or i of the row ahead.
class Paths {
 public:
  Paths(std::span<const std::uint32_t> oldLines, std::span<const std::uint32_t> newLines)
      : oldLines_(oldLines), newLines_(newLines) {}

  struct End {
    std::size_t oldLine, newLine;
  };

  /// Calls found(x, y) for each pair of equal lines on the way. Result: where the way ends, which
  /// is ahead of the ends of both sides when more than MostSteps would be needed.
  template <class Found>
  End Walk(Found found) {
    for (Place steps = 0; steps <= MostSteps; ++steps) {
      rows_.resize(static_cast<std::size_t>((steps + 1) * (steps + 2) / 2));
      for (Place i = 0; i <= steps; ++i) {
        Place x = Entry(steps, i), y = x - Diagonal(steps, i);
        while (x < OldCount() && y < NewCount() && Old(x) == New(y)) ++x, ++y;
        Reach(steps, i) = x;
        if (x >= OldCount() && y >= NewCount()) return WayTo(steps, i, found);
      }
    }
    return WayTo(MostSteps, Furthest(), found);
  }

 private:
  using Place = std::ptrdiff_t;
  /// A choice: 80,000 places to remember. Ordinary edits of a procedure take some dozens of steps.
  static constexpr Place MostSteps = 400;

  Place OldCount() const { return static_cast<Place>(oldLines_.size()); }
  Place NewCount() const { return static_cast<Place>(newLines_.size()); }
  std::uint32_t Old(Place x) const { return oldLines_[static_cast<std::size_t>(x)]; }
  std::uint32_t New(Place y) const { return newLines_[static_cast<std::size_t>(y)]; }
  static Place Diagonal(Place steps, Place i) { return 2 * i - steps; }
  Place& Reach(Place steps, Place i) {
    return rows_[static_cast<std::size_t>(steps * (steps + 1) / 2 + i)];
  }

  /// True when the last step to a place passed a new line.
  bool CameByNew(Place steps, Place i) {
    return i == 0 || (i < steps && Reach(steps - 1, i - 1) < Reach(steps - 1, i));
  }
  /// Where a way enters the diagonal of a place, ahead of the equal lines there.
  Place Entry(Place steps, Place i) {
    if (steps == 0) return 0;
    return CameByNew(steps, i) ? Reach(steps - 1, i) : Reach(steps - 1, i - 1) + 1;
  }

  /// The place in the last row that has passed most lines; of several the one nearest to the
  /// middle.
  Place Furthest() {
    Place best = -1, bestPassed = -1, bestAside = 0;
    for (Place i = 0; i <= MostSteps; ++i) {
      const Place k = Diagonal(MostSteps, i), x = Reach(MostSteps, i), y = x - k;
      if (x > OldCount() || y > NewCount()) continue;
      const Place aside = k < 0 ? -k : k;
      if (x + y < bestPassed || (x + y == bestPassed && aside >= bestAside)) continue;
      best = i, bestPassed = x + y, bestAside = aside;
    }
    return best;
  }

  template <class Found>
  End WayTo(Place steps, Place i, Found found) {
    struct Run {
      Place x, y, count;
    };
    const Place endX = Reach(steps, i), endY = endX - Diagonal(steps, i);
    std::vector<Run> runs;
    for (;;) {
      const Place x = Entry(steps, i);
      runs.push_back({x, x - Diagonal(steps, i), Reach(steps, i) - x});
      if (steps == 0) break;
      if (!CameByNew(steps, i)) --i;
      --steps;
    }
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
      for (Place line = 0; line < run->count; ++line)
        found(static_cast<std::size_t>(run->x + line), static_cast<std::size_t>(run->y + line));
    }
    return {static_cast<std::size_t>(endX), static_cast<std::size_t>(endY)};
  }

  std::span<const std::uint32_t> oldLines_, newLines_;
  std::vector<Place> rows_;
};

/// Compares numbered lines.
class Comparison {
 public:
  Comparison(std::span<const std::uint32_t> oldLines, std::span<const std::uint32_t> newLines,
             std::size_t numberCount, ChangeList& changes)
      : oldLines_(oldLines), newLines_(newLines), seen_(numberCount), changes_(changes) {}

  void Run(Range range, int depth) {
    while (!range.OneSided() && oldLines_[range.oldFirst] == newLines_[range.newFirst])
      changes_.Add({range.oldFirst++, range.newFirst++});
    std::size_t tail = 0;
    for (; !range.OneSided() && oldLines_[range.oldEnd - 1] == newLines_[range.newEnd - 1]; ++tail)
      --range.oldEnd, --range.newEnd;
    if (!range.OneSided()) RunBetween(range, depth);
    for (std::size_t i = 0; i < tail; ++i) changes_.Add({range.oldEnd + i, range.newEnd + i});
  }

 private:
  struct Seen {
    std::uint32_t oldCount = 0, newCount = 0, newLine = 0;
  };
  /// Each depth takes time for all lines, so that their number has to be bounded; after some levels
  /// lines that are unique in ever smaller ranges tell nothing any more.
  static constexpr int MostDepth = 24;

  void RunBetween(Range range, int depth) {
    const std::vector<LineMatch> anchors =
        depth < MostDepth ? Anchors(range) : std::vector<LineMatch>();
    if (anchors.empty()) return FollowPaths(range);
    for (const LineMatch& anchor : anchors) {
      Run({range.oldFirst, anchor.oldLine, range.newFirst, anchor.newLine}, depth + 1);
      changes_.Add(anchor);
      range.oldFirst = anchor.oldLine + 1;
      range.newFirst = anchor.newLine + 1;
    }
    Run(range, depth + 1);
  }

  /// Lines that stand once on each side of the range, as many of them as keep their order.
  std::vector<LineMatch> Anchors(const Range& range) {
    for (std::size_t i = range.oldFirst; i < range.oldEnd; ++i) ++seen_[oldLines_[i]].oldCount;
    for (std::size_t i = range.newFirst; i < range.newEnd; ++i) {
      Seen& seen = seen_[newLines_[i]];
      ++seen.newCount;
      seen.newLine = static_cast<std::uint32_t>(i);
    }
    std::vector<LineMatch> unique;
    for (std::size_t i = range.oldFirst; i < range.oldEnd; ++i) {
      const Seen& seen = seen_[oldLines_[i]];
      if (seen.oldCount == 1 && seen.newCount == 1) unique.push_back({i, seen.newLine});
    }
    for (std::size_t i = range.oldFirst; i < range.oldEnd; ++i) seen_[oldLines_[i]] = {};
    for (std::size_t i = range.newFirst; i < range.newEnd; ++i) seen_[newLines_[i]] = {};
    return LongestRising(std::move(unique));
  }

  void FollowPaths(Range range) {
    while (!range.OneSided()) {
      Paths paths(oldLines_.subspan(range.oldFirst, range.OldCount()),
                  newLines_.subspan(range.newFirst, range.NewCount()));
      const Paths::End end = paths.Walk([&](std::size_t x, std::size_t y) {
        changes_.Add({range.oldFirst + x, range.newFirst + y});
      });
      range.oldFirst += end.oldLine;
      range.newFirst += end.newLine;
    }
  }

  std::span<const std::uint32_t> oldLines_, newLines_;
  std::vector<Seen> seen_;  // by number; empty between two looks for anchors
  ChangeList& changes_;
};

}  // namespace

void MatchNumberedLines(std::span<const std::uint32_t> oldLines,
                        std::span<const std::uint32_t> newLines, std::size_t numberCount,
                        ChangeList& changes) {
  Comparison(oldLines, newLines, numberCount, changes)
      .Run({0, oldLines.size(), 0, newLines.size()}, 0);
}
