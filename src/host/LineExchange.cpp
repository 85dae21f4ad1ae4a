#include "LineExchange.h"

#include <algorithm>

#include "ByteText.h"
#include "LineSplit.h"
#include "MemberScan.h"

namespace {

using Line = LineTable::Line;

constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t RecentCount = 128;
// A line is looked for that far ahead on the other side, so that the walk stays linear.
constexpr std::size_t Ahead = 48;

/// The lines with their ends; nothing when one ends in anything but CR LF.
std::optional<std::vector<std::string_view>> WholeLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  lines.reserve(bytes.size() / 24 + 4);
  for (LineSplit split(bytes); split.Next();) {
    if (split.End().size() != LineEnd.size()) return {};
    lines.push_back(bytes.substr(split.Begin(), split.Behind() - split.Begin()));
  }
  return lines;
}

class Walk {
 public:
  Walk(LineTable& table, RecentLines& recent, const std::vector<Line>& gone,
       const std::vector<std::string_view>& coming)
      : mTable(table), mRecent(recent), mGone(gone), mComing(coming) {
    mOld.reserve(mGone.size());
    for (const Line& line : mGone) mOld.push_back(mTable.BytesOf(line));
    mMade.lines.reserve(mComing.size());
  }

  /// False when a line goes that has to be looked at more closely.
  bool Run() {
    while (mNow < mComing.size()) {
      if (mThen == mGone.size()) {
        Add();
      } else if (IsSame(mNow, mThen)) {
        Keep();
      } else if (!Resume()) {
        return false;
      }
    }
    while (mThen < mGone.size()) {
      if (!Drop()) return false;
    }
    return true;
  }

  LineExchange Take() {
    mFirstChange = std::min(mFirstChange, mComing.size());
    mMade.sameAhead = mIsPlain && mLastKept ? static_cast<std::int32_t>(mFirstChange) : 0;
    return std::move(mMade);
  }

 private:
  bool IsSame(std::size_t newLine, std::size_t oldLine) const {
    const std::string_view wanted = mComing[newLine], there = mOld[oldLine];
    if (mGone[oldLine].bTail) return there.starts_with(wanted);
    return there.size() == wanted.size() && there == wanted;
  }

  // Two lines differ: new ones come ahead of the old one, or old ones go ahead of the new one, or
  // one has become the other.
  bool Resume() {
    const std::size_t newEnd = std::min(mComing.size(), mNow + Ahead);
    for (std::size_t i = mNow + 1; i < newEnd; ++i) {
      if (!IsSame(i, mThen)) continue;
      while (mNow < i) Add();
      return true;
    }
    const std::size_t oldEnd = std::min(mGone.size(), mThen + Ahead);
    for (std::size_t i = mThen + 1; i < oldEnd; ++i) {
      if (!IsSame(mNow, i)) continue;
      while (mThen < i) {
        if (!Drop()) return false;
      }
      return true;
    }
    Add();
    return Drop();
  }

  void Keep() {
    mMade.lines.push_back(mGone[mThen++]);
    ++mNow;
    mLastKept = true;
  }

  void Add() {
    const std::string_view line = mComing[mNow];
    const RecentLines::Entry& added =
        mRecent.Add(line.substr(0, line.size() - LineEnd.size()), LineEnd);
    Differ(mNow, added.isPlain, mNow > 0 ? mComing[mNow - 1] : std::string_view());
    mMade.lines.push_back(added.line);
    ++mNow;
  }

  bool Drop() {
    const std::string_view line = mOld[mThen];
    if (mGone[mThen].bTail || !line.ends_with(LineEnd)) return false;
    Differ(mThen, IsPlainLine(TextOf(line)), mThen > 0 ? mOld[mThen - 1] : std::string_view());
    ++mThen;
    return true;
  }

  void Differ(std::size_t number, bool isPlainLine, std::string_view before) {
    mFirstChange = std::min(mFirstChange, number);
    mLastKept = false;
    mIsPlain = mIsPlain && number > 0 && isPlainLine &&
               ContinuationMark(TextOf(before)) == std::string_view::npos;
  }

  /// Of a line with its end, and perhaps hidden lines behind that.
  static std::string_view TextOf(std::string_view line) {
    return line.substr(0, line.find(LineEnd.front()));
  }

  LineTable& mTable;
  RecentLines& mRecent;
  const std::vector<Line>& mGone;
  const std::vector<std::string_view>& mComing;
  std::vector<std::string_view> mOld;
  LineExchange mMade;
  std::size_t mNow = 0, mThen = 0;  // the next of the lines that come, and of those that went
  std::size_t mFirstChange = SIZE_MAX;
  bool mIsPlain = true;
  bool mLastKept = false;
};

}  // namespace

const RecentLines::Entry& RecentLines::Add(std::string_view text, std::string_view end) {
  if (mEntries.empty()) mEntries.resize(RecentCount);
  const std::size_t place = LineHash(text) % RecentCount;
  Entry *const first = &mEntries[place], *const second = &mEntries[place ^ 1];
  for (Entry* entry : {first, second}) {
    const std::string_view bytes = mTable.BytesOf(entry->line);
    if (bytes.size() != text.size() + end.size() || bytes.empty()) continue;
    if (!bytes.starts_with(text) || !bytes.ends_with(end)) continue;
    if (entry->uses < UINT16_MAX) ++entry->uses;
    return *entry;
  }
  Entry& rarest = first->uses <= second->uses ? *first : *second;
  rarest = {mTable.Add(text, end), 0, IsPlainLine(text)};
  return rarest;
}

bool IsPlainLine(std::string_view line) {
  const std::string_view code = SkipBlanks(line);
  return !MayEndBody(line, code) && !code.starts_with('#');
}

std::optional<LineExchange> ExchangeLines(LineTable& table, RecentLines& recent,
                                          const std::vector<Line>& gone, std::string_view bytes) {
  if (gone.empty() || table.OwnEnd() != LineEnd) return {};
  const auto coming = WholeLines(bytes);
  if (!coming) return {};
  Walk walk(table, recent, gone, *coming);
  if (!walk.Run()) return {};
  return walk.Take();
}
