#include "LikeBits.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t Ascii = 128;
constexpr std::uint32_t Units = 0x10000;

std::uint64_t Bit(std::size_t element) {
  return std::uint64_t{1} << (element % 64);
}

}  // namespace

void LikeElements::Add(std::span<const LikeRange> ranges) {
  mRanges.insert(mRanges.end(), ranges.begin(), ranges.end());
  mFirst.push_back(mRanges.size());
}

bool LikeElements::Accepts(std::size_t index, char16_t unit) const {
  const auto ranges = (*this)[index];
  if (ranges.size() == 1) return unit >= ranges[0].low && unit <= ranges[0].high;
  const auto above = std::upper_bound(ranges.begin(), ranges.end(), unit,
                                      [](char16_t c, const LikeRange& o) { return c < o.low; });
  return above != ranges.begin() && unit <= (above - 1)->high;
}

bool LikeElements::IsLiteral(std::size_t index) const {
  const auto ranges = (*this)[index];
  return ranges.size() == 1 && ranges[0].low == ranges[0].high;
}

LikeBits::LikeBits(const LikeElements& elements, std::size_t first, std::size_t count)
    : mWords((count + 63) / 64), mCount(count) {
  AddClasses(elements, first);
  for (std::size_t i = 0; i < Ascii; ++i) {
    const auto above = std::upper_bound(mClassStarts.begin(), mClassStarts.end(), i);
    mAsciiClasses.push_back(static_cast<std::uint16_t>(above - mClassStarts.begin() - 1));
  }
}

// Goes up through the units once: where a range of an element begins or ends, that element's bit
// flips, and a new class begins.
void LikeBits::AddClasses(const LikeElements& elements, std::size_t first) {
  std::vector<std::pair<std::uint32_t, std::size_t>> edges;
  for (std::size_t i = 0; i < mCount; ++i) {
    for (const LikeRange& range : elements[first + i]) {
      edges.emplace_back(range.low, i);
      edges.emplace_back(range.high + 1u, i);
    }
  }
  std::sort(edges.begin(), edges.end());
  std::vector<std::uint64_t> now(mWords);
  mClassStarts = {0};
  for (std::size_t i = 0; i < edges.size() && edges[i].first < Units; ++i) {
    if (edges[i].first != mClassStarts.back()) {
      mMasks.insert(mMasks.end(), now.begin(), now.end());
      mClassStarts.push_back(static_cast<char16_t>(edges[i].first));
    }
    now[edges[i].second / 64] ^= Bit(edges[i].second);
  }
  mMasks.insert(mMasks.end(), now.begin(), now.end());
}

std::size_t LikeBits::ClassOf(char16_t unit) const {
  if (unit < Ascii) return mAsciiClasses[unit];
  const auto above = std::upper_bound(mClassStarts.begin(), mClassStarts.end(), unit);
  return static_cast<std::size_t>(above - mClassStarts.begin()) - 1;
}

std::size_t LikeBits::FindBehind(TextView text, std::size_t pos) const {
  std::array<std::uint64_t, 4> small{};
  std::vector<std::uint64_t> large(mWords > small.size() ? mWords : 0);
  std::uint64_t* const reached = large.empty() ? small.data() : large.data();
  for (; pos < text.size(); ++pos) {
    const std::uint64_t* const mask = &mMasks[ClassOf(text[pos]) * mWords];
    std::uint64_t carry = 1;
    for (std::size_t i = 0; i < mWords; ++i) {
      const std::uint64_t next = reached[i] >> 63;
      reached[i] = ((reached[i] << 1) | carry) & mask[i];
      carry = next;
    }
    if (reached[mWords - 1] & Bit(mCount - 1)) return pos + 1;
  }
  return TextView::npos;
}
