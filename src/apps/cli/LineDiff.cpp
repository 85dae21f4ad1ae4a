#include "LineDiff.h"

#include <algorithm>
#include <unordered_map>

namespace {

using Ids = std::vector<std::size_t>;

/// A stretch of both files.
struct Range {
  std::size_t lOld, lOldEnd, lNew, lNewEnd;
};

struct Pair {
  std::size_t lOld, lNew;
};

/// More differing lines than this in one stretch without anchors: replaced whole.
constexpr std::ptrdiff_t MaxScript = 400;
constexpr int MaxDepth = 24;

class Comparison {
 public:
  Comparison(const std::vector<std::string_view>& asOld,
             const std::vector<std::string_view>& asNew) {
    std::unordered_map<std::string_view, std::size_t> oIds;
    for (auto sLine : asOld) moOld.push_back(oIds.try_emplace(sLine, oIds.size()).first->second);
    for (auto sLine : asNew) moNew.push_back(oIds.try_emplace(sLine, oIds.size()).first->second);
    moCount.resize(oIds.size());
  }

  std::vector<LineChange> Run() {
    Compare({0, moOld.size(), 0, moNew.size()}, 0);
    return std::move(moChanges);
  }

 private:
  struct Count {
    std::size_t lOld = 0, lNew = 0, lPlace = 0;
  };

  void Compare(Range oRange, int nDepth) {
    while (oRange.lOld < oRange.lOldEnd && oRange.lNew < oRange.lNewEnd &&
           moOld[oRange.lOld] == moNew[oRange.lNew])
      ++oRange.lOld, ++oRange.lNew;
    while (oRange.lOld < oRange.lOldEnd && oRange.lNew < oRange.lNewEnd &&
           moOld[oRange.lOldEnd - 1] == moNew[oRange.lNewEnd - 1])
      --oRange.lOldEnd, --oRange.lNewEnd;
    if (oRange.lOld == oRange.lOldEnd || oRange.lNew == oRange.lNewEnd) return Replace(oRange);
    std::vector<Pair> oAnchors = nDepth < MaxDepth ? Anchors(oRange) : std::vector<Pair>();
    if (oAnchors.empty()) return CompareShort(oRange);
    for (const Pair& oAnchor : oAnchors) {
      Compare({oRange.lOld, oAnchor.lOld, oRange.lNew, oAnchor.lNew}, nDepth + 1);
      oRange.lOld = oAnchor.lOld + 1;
      oRange.lNew = oAnchor.lNew + 1;
    }
    Compare(oRange, nDepth + 1);
  }

  /// The longest run of lines that stand once in each file, in the same order in both.
  std::vector<Pair> Anchors(const Range& oRange) {
    for (std::size_t i = oRange.lOld; i < oRange.lOldEnd; ++i) ++moCount[moOld[i]].lOld;
    for (std::size_t i = oRange.lNew; i < oRange.lNewEnd; ++i) {
      ++moCount[moNew[i]].lNew;
      moCount[moNew[i]].lPlace = i;
    }
    std::vector<Pair> oUnique;
    for (std::size_t i = oRange.lOld; i < oRange.lOldEnd; ++i) {
      const Count& oCount = moCount[moOld[i]];
      if (oCount.lOld == 1 && oCount.lNew == 1) oUnique.push_back({i, oCount.lPlace});
    }
    for (std::size_t i = oRange.lOld; i < oRange.lOldEnd; ++i) moCount[moOld[i]] = {};
    for (std::size_t i = oRange.lNew; i < oRange.lNewEnd; ++i) moCount[moNew[i]] = {};
    return LongestAscending(oUnique);
  }

  static std::vector<Pair> LongestAscending(const std::vector<Pair>& oPairs) {
    constexpr std::size_t None = static_cast<std::size_t>(-1);
    std::vector<std::size_t> oTop, oBefore(oPairs.size(), None);
    for (std::size_t i = 0; i < oPairs.size(); ++i) {
      auto oPlace = std::lower_bound(
          oTop.begin(), oTop.end(), i,
          [&](std::size_t a, std::size_t b) { return oPairs[a].lNew < oPairs[b].lNew; });
      if (oPlace != oTop.begin()) oBefore[i] = *(oPlace - 1);
      if (oPlace == oTop.end())
        oTop.push_back(i);
      else
        *oPlace = i;
    }
    std::vector<Pair> oResult;
    for (std::size_t i = oTop.empty() ? None : oTop.back(); i != None; i = oBefore[i])
      oResult.push_back(oPairs[i]);
    std::reverse(oResult.begin(), oResult.end());
    return oResult;
  }

  /// The shortest script by the greedy furthest-reaching paths, remembered per length so that the
  /// way back can be read from them.
  void CompareShort(const Range& oRange) {
    const auto lOldCount = static_cast<std::ptrdiff_t>(oRange.lOldEnd - oRange.lOld);
    const auto lNewCount = static_cast<std::ptrdiff_t>(oRange.lNewEnd - oRange.lNew);
    const std::ptrdiff_t lMax = std::min(MaxScript, lOldCount + lNewCount);
    std::vector<std::ptrdiff_t> oReach(static_cast<std::size_t>(2 * lMax + 3), 0);
    auto fnReach = [&](std::ptrdiff_t k) -> std::ptrdiff_t& {
      return oReach[static_cast<std::size_t>(k + lMax + 1)];
    };
    std::vector<std::vector<std::ptrdiff_t>> oHistory;
    for (std::ptrdiff_t d = 0; d <= lMax; ++d) {
      oHistory.push_back({oReach.begin() + (lMax - d), oReach.begin() + (lMax + d + 3)});
      for (std::ptrdiff_t k = -d; k <= d; k += 2) {
        bool bDown = k == -d || (k != d && fnReach(k - 1) < fnReach(k + 1));
        std::ptrdiff_t x = bDown ? fnReach(k + 1) : fnReach(k - 1) + 1;
        while (x < lOldCount && x - k < lNewCount && x - k >= 0 && Same(oRange, x, x - k)) ++x;
        fnReach(k) = x;
        if (x >= lOldCount && x - k >= lNewCount) return WayBack(oRange, oHistory, x, x - k);
      }
    }
    Replace(oRange);
  }

  bool Same(const Range& oRange, std::ptrdiff_t x, std::ptrdiff_t y) const {
    return moOld[oRange.lOld + static_cast<std::size_t>(x)] ==
           moNew[oRange.lNew + static_cast<std::size_t>(y)];
  }

  void WayBack(const Range& oRange, const std::vector<std::vector<std::ptrdiff_t>>& oHistory,
               std::ptrdiff_t x, std::ptrdiff_t y) {
    std::vector<Range> oSteps;
    for (auto d = static_cast<std::ptrdiff_t>(oHistory.size()) - 1; d > 0; --d) {
      // Element k + d + 1 of a row of the history is diagonal k.
      auto fnReach = [&](std::ptrdiff_t k) {
        return oHistory[static_cast<std::size_t>(d)][static_cast<std::size_t>(k + d + 1)];
      };
      std::ptrdiff_t k = x - y;
      bool bDown = k == -d || (k != d && fnReach(k - 1) < fnReach(k + 1));
      std::ptrdiff_t lFromX = fnReach(bDown ? k + 1 : k - 1);
      std::ptrdiff_t lFromY = lFromX - (bDown ? k + 1 : k - 1);
      auto lOld = oRange.lOld + static_cast<std::size_t>(lFromX);
      auto lNew = oRange.lNew + static_cast<std::size_t>(lFromY);
      oSteps.push_back({lOld, lOld + (bDown ? 0 : 1), lNew, lNew + (bDown ? 1 : 0)});
      x = lFromX;
      y = lFromY;
    }
    for (auto it = oSteps.rbegin(); it != oSteps.rend(); ++it) Replace(*it);
  }

  /// Adds a change; one that touches the change before it makes that longer.
  void Replace(const Range& oRange) {
    if (oRange.lOld == oRange.lOldEnd && oRange.lNew == oRange.lNewEnd) return;
    if (!moChanges.empty() && moChanges.back().lOldEnd == oRange.lOld &&
        moChanges.back().lNewEnd == oRange.lNew) {
      moChanges.back().lOldEnd = oRange.lOldEnd;
      moChanges.back().lNewEnd = oRange.lNewEnd;
      return;
    }
    moChanges.push_back({oRange.lOld, oRange.lOldEnd, oRange.lNew, oRange.lNewEnd});
  }

  Ids moOld, moNew;
  std::vector<Count> moCount;
  std::vector<LineChange> moChanges;
};

}  // namespace

std::vector<std::string_view> SplitBytes(std::string_view sBytes) {
  std::vector<std::string_view> asLine;
  while (!sBytes.empty()) {
    std::size_t lEnd = std::min(sBytes.find('\n'), sBytes.size() - 1) + 1;
    asLine.push_back(sBytes.substr(0, lEnd));
    sBytes.remove_prefix(lEnd);
  }
  return asLine;
}

std::vector<LineChange> CompareLines(const std::vector<std::string_view>& asOld,
                                     const std::vector<std::string_view>& asNew) {
  return Comparison(asOld, asNew).Run();
}
