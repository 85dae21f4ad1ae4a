#include "LineAlign.h"

#include <algorithm>
#include <bit>

#include "ByteText.h"

namespace {

// Between anchors an equal line is looked for that far only, to stay linear.
constexpr std::size_t Window = 32;

struct Pair {
  std::size_t lNew;
  std::size_t lOld;
};

/// How often the lines of one hash stand on each side, and where the last of them does.
struct Seen {
  std::size_t lHash = 0;
  std::uint32_t lNewCount = 0, lOldCount = 0;
  std::uint32_t lOld = 0;
};

/// The lines of both sides by their hashes.
class SeenLines {
 public:
  explicit SeenLines(std::size_t lLines) : moSlots(std::bit_ceil(2 * lLines)) {}
  Seen& operator[](std::size_t lHash) {
    std::size_t l = lHash & (moSlots.size() - 1);
    while (moSlots[l].lNewCount + moSlots[l].lOldCount > 0 && moSlots[l].lHash != lHash) {
      l = (l + 1) & (moSlots.size() - 1);
    }
    moSlots[l].lHash = lHash;
    return moSlots[l];
  }

 private:
  std::vector<Seen> moSlots;
};

class Aligner {
 public:
  Aligner(const std::vector<std::string_view>& asOld, const std::vector<std::string_view>& asNew)
      : masOld(asOld), masNew(asNew), malOld(asNew.size(), -1) {}

  std::vector<std::int32_t> Run() {
    Pair oFrom{0, 0};
    Pair oTo{masNew.size(), masOld.size()};
    Shrink(oFrom, oTo);
    if (oFrom.lNew == oTo.lNew || oFrom.lOld == oTo.lOld) return std::move(malOld);
    if (!TakeAllOld(oFrom, oTo) && !TakeAllNew(oFrom, oTo)) AlignMiddle(oFrom, oTo);
    return std::move(malOld);
  }

 private:
  bool Equal(std::size_t lNew, std::size_t lOld) const { return masNew[lNew] == masOld[lOld]; }
  void Set(std::size_t lNew, std::size_t lOld) { malOld[lNew] = static_cast<std::int32_t>(lOld); }

  // Takes equal lines at both ends.
  void Shrink(Pair& oFrom, Pair& oTo) {
    while (oFrom.lNew < oTo.lNew && oFrom.lOld < oTo.lOld && Equal(oFrom.lNew, oFrom.lOld)) {
      Set(oFrom.lNew++, oFrom.lOld++);
    }
    while (oFrom.lNew < oTo.lNew && oFrom.lOld < oTo.lOld && Equal(oTo.lNew - 1, oTo.lOld - 1)) {
      Set(--oTo.lNew, --oTo.lOld);
    }
  }

  // A template that comes or goes leaves all other lines in their order: one walk tells.
  bool TakeAllOld(const Pair& oFrom, const Pair& oTo) {
    if (oTo.lOld - oFrom.lOld > oTo.lNew - oFrom.lNew) return false;
    std::size_t lOld = oFrom.lOld;
    for (std::size_t l = oFrom.lNew; l < oTo.lNew && lOld < oTo.lOld; ++l) {
      if (Equal(l, lOld)) Set(l, lOld++);
    }
    return lOld == oTo.lOld || Clear(oFrom, oTo);
  }

  bool TakeAllNew(const Pair& oFrom, const Pair& oTo) {
    if (oTo.lNew - oFrom.lNew > oTo.lOld - oFrom.lOld) return false;
    std::size_t lNew = oFrom.lNew;
    for (std::size_t l = oFrom.lOld; l < oTo.lOld && lNew < oTo.lNew; ++l) {
      if (Equal(lNew, l)) Set(lNew++, l);
    }
    return lNew == oTo.lNew || Clear(oFrom, oTo);
  }

  bool Clear(const Pair& oFrom, const Pair& oTo) {
    for (std::size_t l = oFrom.lNew; l < oTo.lNew; ++l) malOld[l] = -1;
    return false;
  }

  void AlignMiddle(Pair oFrom, const Pair& oTo) {
    for (const Pair& oAnchor : Anchors(oFrom, oTo)) {
      AlignGap(oFrom, oAnchor);
      Set(oAnchor.lNew, oAnchor.lOld);
      oFrom = {oAnchor.lNew + 1, oAnchor.lOld + 1};
    }
    AlignGap(oFrom, oTo);
  }

  void AlignGap(Pair oFrom, Pair oTo) {
    Shrink(oFrom, oTo);
    for (; oFrom.lNew < oTo.lNew; ++oFrom.lNew) {
      const std::size_t lLast = std::min(oTo.lOld, oFrom.lOld + Window);
      std::size_t lOld = oFrom.lOld;
      while (lOld < lLast && !Equal(oFrom.lNew, lOld)) ++lOld;
      if (lOld == lLast) continue;
      Set(oFrom.lNew, lOld);
      oFrom.lOld = lOld + 1;
    }
  }

  // Lines that are unique on both sides, as many of them as keep their order.
  std::vector<Pair> Anchors(const Pair& oFrom, const Pair& oTo) const {
    SeenLines oSeen(oTo.lNew - oFrom.lNew + oTo.lOld - oFrom.lOld);
    for (std::size_t l = oFrom.lOld; l < oTo.lOld; ++l) {
      Seen& o = oSeen[LineHash(masOld[l])];
      ++o.lOldCount;
      o.lOld = static_cast<std::uint32_t>(l);
    }
    std::vector<std::size_t> alHash;
    alHash.reserve(oTo.lNew - oFrom.lNew);
    for (std::size_t l = oFrom.lNew; l < oTo.lNew; ++l) {
      alHash.push_back(LineHash(masNew[l]));
      ++oSeen[alHash.back()].lNewCount;
    }
    std::vector<Pair> oPairs;
    for (std::size_t l = oFrom.lNew; l < oTo.lNew; ++l) {
      const Seen& o = oSeen[alHash[l - oFrom.lNew]];
      if (o.lNewCount == 1 && o.lOldCount == 1 && Equal(l, o.lOld)) oPairs.push_back({l, o.lOld});
    }
    return Rising(std::move(oPairs));
  }

  // The longest run of pairs whose old lines rise as well.
  static std::vector<Pair> Rising(std::vector<Pair> oPairs) {
    const auto Lower = [](const Pair& a, const Pair& b) { return a.lOld < b.lOld; };
    if (std::is_sorted(oPairs.begin(), oPairs.end(), Lower)) return oPairs;
    std::vector<std::size_t> oBest;  // of each length the pair that ends it lowest
    std::vector<std::size_t> oBefore(oPairs.size());
    for (std::size_t l = 0; l < oPairs.size(); ++l) {
      const auto p = std::lower_bound(
          oBest.begin(), oBest.end(), oPairs[l].lOld,
          [&](std::size_t lPair, std::size_t lOld) { return oPairs[lPair].lOld < lOld; });
      oBefore[l] = p == oBest.begin() ? oPairs.size() : *(p - 1);
      if (p == oBest.end())
        oBest.push_back(l);
      else
        *p = l;
    }
    std::vector<Pair> oRun;
    for (std::size_t l = oBest.empty() ? oPairs.size() : oBest.back(); l < oPairs.size();) {
      oRun.push_back(oPairs[l]);
      l = oBefore[l];
    }
    std::reverse(oRun.begin(), oRun.end());
    return oRun;
  }

  const std::vector<std::string_view>& masOld;
  const std::vector<std::string_view>& masNew;
  std::vector<std::int32_t> malOld;
};

}  // namespace

std::vector<std::int32_t> AlignLines(const std::vector<std::string_view>& asOld,
                                     const std::vector<std::string_view>& asNew) {
  return Aligner(asOld, asNew).Run();
}
