#include "LikeBits.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t Ascii = 128;
constexpr std::uint32_t Units = 0x10000;

std::uint64_t Bit(std::size_t lElement) {
  return std::uint64_t{1} << (lElement % 64);
}

}  // namespace

void LikeElements::Add(std::span<const LikeRange> aoRange) {
  moRanges.insert(moRanges.end(), aoRange.begin(), aoRange.end());
  mlFirst.push_back(moRanges.size());
}

bool LikeElements::Accepts(std::size_t lIndex, char16_t cUnit) const {
  const auto aoRange = (*this)[lIndex];
  if (aoRange.size() == 1) return cUnit >= aoRange[0].cLow && cUnit <= aoRange[0].cHigh;
  const auto oAbove = std::upper_bound(aoRange.begin(), aoRange.end(), cUnit,
                                       [](char16_t c, const LikeRange& o) { return c < o.cLow; });
  return oAbove != aoRange.begin() && cUnit <= (oAbove - 1)->cHigh;
}

bool LikeElements::IsLiteral(std::size_t lIndex) const {
  const auto aoRange = (*this)[lIndex];
  return aoRange.size() == 1 && aoRange[0].cLow == aoRange[0].cHigh;
}

LikeBits::LikeBits(const LikeElements& oElements, std::size_t lFirst, std::size_t lCount)
    : mlWords((lCount + 63) / 64), mlCount(lCount) {
  AddClasses(oElements, lFirst);
  for (std::size_t i = 0; i < Ascii; ++i) {
    const auto oAbove = std::upper_bound(mcClassStart.begin(), mcClassStart.end(), i);
    mnAsciiClass.push_back(static_cast<std::uint16_t>(oAbove - mcClassStart.begin() - 1));
  }
}

// Goes up through the units once: where a range of an element begins or ends, that element's bit
// flips, and a new class begins.
void LikeBits::AddClasses(const LikeElements& oElements, std::size_t lFirst) {
  std::vector<std::pair<std::uint32_t, std::size_t>> oEdges;
  for (std::size_t i = 0; i < mlCount; ++i) {
    for (const LikeRange& oRange : oElements[lFirst + i]) {
      oEdges.emplace_back(oRange.cLow, i);
      oEdges.emplace_back(oRange.cHigh + 1u, i);
    }
  }
  std::sort(oEdges.begin(), oEdges.end());
  std::vector<std::uint64_t> lNow(mlWords);
  mcClassStart = {0};
  for (std::size_t i = 0; i < oEdges.size() && oEdges[i].first < Units; ++i) {
    if (oEdges[i].first != mcClassStart.back()) {
      mlMask.insert(mlMask.end(), lNow.begin(), lNow.end());
      mcClassStart.push_back(static_cast<char16_t>(oEdges[i].first));
    }
    lNow[oEdges[i].second / 64] ^= Bit(oEdges[i].second);
  }
  mlMask.insert(mlMask.end(), lNow.begin(), lNow.end());
}

std::size_t LikeBits::ClassOf(char16_t cUnit) const {
  if (cUnit < Ascii) return mnAsciiClass[cUnit];
  const auto oAbove = std::upper_bound(mcClassStart.begin(), mcClassStart.end(), cUnit);
  return static_cast<std::size_t>(oAbove - mcClassStart.begin()) - 1;
}

std::size_t LikeBits::FindBehind(TextView sText, std::size_t lPos) const {
  std::array<std::uint64_t, 4> lSmall{};
  std::vector<std::uint64_t> lLarge(mlWords > lSmall.size() ? mlWords : 0);
  std::uint64_t* const plReached = lLarge.empty() ? lSmall.data() : lLarge.data();
  for (; lPos < sText.size(); ++lPos) {
    const std::uint64_t* const plMask = &mlMask[ClassOf(sText[lPos]) * mlWords];
    std::uint64_t lCarry = 1;
    for (std::size_t i = 0; i < mlWords; ++i) {
      const std::uint64_t lNext = plReached[i] >> 63;
      plReached[i] = ((plReached[i] << 1) | lCarry) & plMask[i];
      lCarry = lNext;
    }
    if (plReached[mlWords - 1] & Bit(mlCount - 1)) return lPos + 1;
  }
  return TextView::npos;
}
