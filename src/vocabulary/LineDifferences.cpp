#include "LineDifferences.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "LineComparison.h"

namespace {

template <class Line>
using Lines = std::span<const Line>;

bool Equal(TextView left, TextView right) {
  return Same(left, right);
}
bool Equal(std::string_view left, std::string_view right) {
  return left == right;
}

template <class Line>
std::size_t EqualAtStart(Lines<Line> oldLines, Lines<Line> newLines) {
  const std::size_t most = std::min(oldLines.size(), newLines.size());
  std::size_t count = 0;
  while (count < most && Equal(oldLines[count], newLines[count])) ++count;
  return count;
}

template <class Line>
std::size_t EqualAtEnd(Lines<Line> oldLines, Lines<Line> newLines) {
  const std::size_t most = std::min(oldLines.size(), newLines.size());
  std::size_t count = 0;
  while (count < most &&
         Equal(oldLines[oldLines.size() - count - 1], newLines[newLines.size() - count - 1]))
    ++count;
  return count;
}

/// Calls found(inShorter, inLonger) for all lines of the shorter text, when the longer one has them
/// in the same order: what a template does that comes or goes. False when some are missing, or when
/// one could be taken from another place as well: the anchors choose the place that reads better.
template <class Line, class Found>
bool FindAll(Lines<Line> shorter, Lines<Line> longer, Found found) {
  std::size_t next = 0;
  for (std::size_t line = 0; line < longer.size(); ++line) {
    if (next < shorter.size() && Equal(longer[line], shorter[next]))
      found(next++, line);
    else if (next > 0 && Equal(longer[line], shorter[next - 1]))
      return false;
  }
  return next == shorter.size();
}

/// True, and the lines that stay are in the changes, when lines only came or only went. This is the
/// most frequent edit, and needs no table of lines.
template <class Line>
bool OnlyGrewOrShrank(Lines<Line> oldLines, Lines<Line> newLines, ChangeList& changes) {
  const bool found = oldLines.size() <= newLines.size()
                         ? FindAll(oldLines, newLines,
                                   [&](std::size_t inOld, std::size_t inNew) {
                                     changes.Add({inOld, inNew});
                                   })
                         : FindAll(newLines, oldLines, [&](std::size_t inNew, std::size_t inOld) {
                             changes.Add({inOld, inNew});
                           });
  if (!found) changes.Clear();
  return found;
}

/// Eight bytes at a time, in far fewer instructions than the library's hash takes; all of the
/// line, since lines of source often agree at both ends.
std::size_t HashOf(const char* bytes, std::size_t count) {
  std::uint64_t hash = count;
  const auto mix = [&](const char* from, std::size_t part) {
    std::uint64_t word = 0;
    std::memcpy(&word, from, part);
    hash = (hash ^ word) * 0x9E3779B97F4A7C15U;  // 2^64 over the golden ratio: spreads all bits
    hash ^= hash >> 32U;
  };
  for (; count > 8; bytes += 8, count -= 8) mix(bytes, 8);
  mix(bytes, count);
  return static_cast<std::size_t>(hash);
}
std::size_t HashOf(std::string_view line) {
  return HashOf(line.data(), line.size());
}
std::size_t HashOf(TextView line) {
  return HashOf(reinterpret_cast<const char*>(line.data()), line.size() * sizeof(char16_t));
}

/// Gives equal lines equal numbers, from 0 on.
template <class Line>
class LineNumbering {
 public:
  explicit LineNumbering(std::size_t lineCount) : slots_(std::bit_ceil(2 * lineCount + 1), Free) {
    lines_.reserve(lineCount);
  }

  std::vector<std::uint32_t> Of(Lines<Line> lines) {
    std::vector<std::uint32_t> numbers;
    numbers.reserve(lines.size());
    for (const Line line : lines) numbers.push_back(Number(line));
    return numbers;
  }
  std::size_t Count() const { return lines_.size(); }

 private:
  static constexpr std::uint32_t Free = ~std::uint32_t{};

  std::uint32_t Number(Line line) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = HashOf(line) & mask;
    while (slots_[slot] != Free && !Equal(lines_[slots_[slot]], line)) slot = (slot + 1) & mask;
    if (slots_[slot] == Free) {
      slots_[slot] = static_cast<std::uint32_t>(lines_.size());
      lines_.push_back(line);
    }
    return slots_[slot];
  }

  std::vector<std::uint32_t> slots_;  // at least half of them stay free
  std::vector<Line> lines_;           // by number
};

template <class Line>
std::vector<LineChange> Differences(Lines<Line> oldLines, Lines<Line> newLines) {
  const std::size_t head = EqualAtStart(oldLines, newLines);
  oldLines = oldLines.subspan(head);
  newLines = newLines.subspan(head);
  const std::size_t tail = EqualAtEnd(oldLines, newLines);
  oldLines = oldLines.first(oldLines.size() - tail);
  newLines = newLines.first(newLines.size() - tail);
  ChangeList changes(head);
  const bool oneSided = oldLines.empty() || newLines.empty();
  if (!oneSided && !OnlyGrewOrShrank(oldLines, newLines, changes)) {
    LineNumbering<Line> numbering(oldLines.size() + newLines.size());
    const auto oldNumbers = numbering.Of(oldLines), newNumbers = numbering.Of(newLines);
    MatchNumberedLines(oldNumbers, newNumbers, numbering.Count(), changes);
  }
  return changes.Finish(oldLines.size(), newLines.size());
}

}  // namespace

std::vector<LineChange> LineDifferences(std::span<const TextView> oldLines,
                                        std::span<const TextView> newLines) {
  return Differences(oldLines, newLines);
}

std::vector<LineChange> LineDifferences(std::span<const std::string_view> oldLines,
                                        std::span<const std::string_view> newLines) {
  return Differences(oldLines, newLines);
}

std::vector<std::string_view> SplitByteLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
    lines.push_back(bytes.substr(0, end));
    bytes.remove_prefix(end);
  }
  return lines;
}

std::vector<LineHunk> LineHunks(std::span<const LineChange> changes, std::size_t oldCount,
                                std::size_t around) {
  std::vector<LineHunk> hunks;
  for (std::size_t first = 0, end = 0; first < changes.size(); first = end) {
    end = first + 1;
    while (end < changes.size() && changes[end].oldFirst - changes[end - 1].oldEnd <= 2 * around)
      ++end;
    const LineChange &from = changes[first], &to = changes[end - 1];
    const std::size_t ahead = std::min(around, from.oldFirst);
    const std::size_t behind = std::min(around, oldCount - to.oldEnd);
    hunks.push_back({from.oldFirst - ahead, to.oldEnd + behind, from.newFirst - ahead,
                     to.newEnd + behind, changes.subspan(first, end - first)});
  }
  return hunks;
}
