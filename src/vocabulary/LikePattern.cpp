#include "LikePattern.h"

#include <algorithm>

namespace {

constexpr std::size_t npos = TextView::npos;
/// A run up to this length is tried at each place of the text: the simplest search, and for so
/// short a run the fastest one, too.
constexpr std::size_t LongRun = 16;
constexpr LikeRange AnyUnit = {0, 0xFFFF};
constexpr LikeRange Digit = {u'0', u'9'};

// Reads the inside of a list. A minus joins two members to a range unless it stands first, last
// or straight behind a range. False for a descending range.
bool ReadRanges(TextView list, std::vector<LikeRange>& ranges) {
  for (std::size_t i = 0; i < list.size();) {
    const bool isRange = i + 2 < list.size() && list[i + 1] == u'-';
    const LikeRange range = {list[i], list[isRange ? i + 2 : i]};
    if (range.low > range.high) return false;
    ranges.push_back(range);
    i += isRange ? 3 : 1;
  }
  return true;
}

// Puts ranges in order and joins those that touch.
void Normalise(std::vector<LikeRange>& ranges) {
  std::sort(ranges.begin(), ranges.end(),
            [](const LikeRange& a, const LikeRange& b) { return a.low < b.low; });
  std::size_t last = 0;
  for (std::size_t i = 1; i < ranges.size(); ++i) {
    if (ranges[i].low <= ranges[last].high + 1) {
      ranges[last].high = std::max(ranges[last].high, ranges[i].high);
    } else {
      ranges[++last] = ranges[i];
    }
  }
  ranges.resize(last + 1);
}

// The units outside normalised ranges.
std::vector<LikeRange> Others(const std::vector<LikeRange>& ranges) {
  std::vector<LikeRange> result;
  std::uint32_t next = 0;
  for (const LikeRange& range : ranges) {
    if (range.low > next) {
      result.push_back({static_cast<char16_t>(next), static_cast<char16_t>(range.low - 1)});
    }
    next = range.high + 1u;
  }
  if (next <= 0xFFFF) result.push_back({static_cast<char16_t>(next), 0xFFFF});
  return result;
}

}  // namespace

LikePattern::LikePattern(TextView pattern) : mPattern(pattern), mValid(Parse()) {
  if (!mHasStar) mHead = mBehindStar = mElements.Count();
  while (mLiteral < mHead && mElements.IsLiteral(mLiteral)) ++mLiteral;
  if (mLiteral > 0) mFirstUnit = mUnits[0];
}

bool LikePattern::Parse() {
  for (std::size_t i = 0; i < mPattern.size();) {
    const char16_t unit = mPattern[i];
    if (unit == u'[') {
      if (!ParseList(i)) return false;
      continue;
    }
    if (unit == u'*') {
      AddStar();
    } else {
      const LikeRange same = {unit, unit};
      AddElement({unit == u'?' ? &AnyUnit : unit == u'#' ? &Digit : &same, 1});
    }
    ++i;
  }
  return true;
}

// pos: of the bracket; afterwards behind the list. False for a list that the language rejects.
bool LikePattern::ParseList(std::size_t& pos) {
  const std::size_t end = mPattern.find(u']', pos);
  if (end == npos) return false;
  TextView list = TextView(mPattern).substr(pos + 1, end - pos - 1);
  pos = end + 1;
  if (list.empty()) return true;
  // A list of the mark alone is no empty negation: the language takes it for the character.
  const bool negated = list.size() > 1 && list.front() == u'!';
  if (negated) list.remove_prefix(1);
  std::vector<LikeRange> ranges;
  if (!ReadRanges(list, ranges)) return false;
  Normalise(ranges);
  AddElement(negated ? Others(ranges) : ranges);
  return true;
}

void LikePattern::AddElement(std::span<const LikeRange> ranges) {
  mElements.Add(ranges);
  mUnits += mElements.IsLiteral(mElements.Count() - 1) ? ranges[0].low : u'\0';
}

// Ends the run of elements that stands ahead of the star.
void LikePattern::AddStar() {
  const std::size_t first = mBehindStar, count = mElements.Count() - first;
  mBehindStar = mElements.Count();
  if (!mHasStar) {
    mHead = count;
    mHasStar = true;
  } else if (count > 0) {
    Run run = {first, count, true, {}};
    for (std::size_t i = 0; i < count; ++i) run.literal &= mElements.IsLiteral(first + i);
    if (count > LongRun) run.bits = LikeBits(mElements, first, count);
    mInner.push_back(std::move(run));
  }
}

// The first fit of each inner run is as good as any later one, since it leaves the most text for
// the runs behind it: no step is ever taken back.
bool LikePattern::MatchesWhole(TextView text) const noexcept {
  const std::size_t count = mElements.Count();
  if (!mValid || text.size() < count || (!mHasStar && text.size() > count)) return false;
  if (!Same(text.substr(0, mLiteral), TextView(mUnits).substr(0, mLiteral))) return false;
  if (!FitsAt(mLiteral, mHead - mLiteral, text.data() + mLiteral)) return false;
  const std::size_t tail = count - mBehindStar;
  if (!FitsAt(mBehindStar, tail, text.data() + (text.size() - tail))) return false;
  text.remove_suffix(tail);
  std::size_t pos = mHead;
  for (const Run& run : mInner) {
    pos = FindBehind(run, text, pos);
    if (pos == npos) return false;
  }
  return true;
}

bool LikePattern::FitsAt(std::size_t first, std::size_t count, const char16_t* text) const {
  for (std::size_t i = 0; i < count; ++i) {
    const char16_t literal = mUnits[first + i];
    if (literal != u'\0' ? literal != text[i] : !mElements.Accepts(first + i, text[i])) {
      return false;
    }
  }
  return true;
}

std::size_t LikePattern::FindBehind(const Run& run, TextView text, std::size_t pos) const {
  if (!run.bits.IsEmpty()) return run.bits.FindBehind(text, pos);
  if (run.literal) {
    const std::size_t hit = text.find(TextView(mUnits).substr(run.first, run.count), pos);
    return hit == npos ? npos : hit + run.count;
  }
  for (; pos + run.count <= text.size(); ++pos) {
    if (FitsAt(run.first, run.count, text.data() + pos)) return pos + run.count;
  }
  return npos;
}
