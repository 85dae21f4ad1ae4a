#include "CodeDiff.h"

#include <algorithm>
#include <span>

namespace CodeDiff {

namespace {

using Lines = std::span<const TextView>;

/// The table of the comparison has a cell for each pair of lines; beyond this it isn't worth it.
constexpr std::size_t MostCells = 4'000'000;

void Add(std::vector<Line>& oResult, Lines asLine, Fate eFate) {
  for (const TextView s : asLine) oResult.push_back({s, eFate});
}

/// Cell (i, j): how many lines the rests from old line i and new line j have in common, in order.
class CommonLines {
 public:
  CommonLines(Lines asOld, Lines asNew)
      : mlWidth(asNew.size() + 1), malCommon((asOld.size() + 1) * mlWidth) {
    for (std::size_t i = asOld.size(); i-- > 0;) {
      for (std::size_t j = asNew.size(); j-- > 0;) {
        Cell(i, j) = Same(asOld[i], asNew[j]) ? Cell(i + 1, j + 1) + 1
                                              : std::max(Cell(i + 1, j), Cell(i, j + 1));
      }
    }
  }
  std::uint32_t& Cell(std::size_t i, std::size_t j) { return malCommon[i * mlWidth + j]; }

 private:
  std::size_t mlWidth;
  std::vector<std::uint32_t> malCommon;
};

void AddDifferent(std::vector<Line>& oResult, Lines asOld, Lines asNew) {
  if (asOld.size() * asNew.size() > MostCells) {
    Add(oResult, asOld, Fate::Goes);
    return Add(oResult, asNew, Fate::Comes);
  }
  CommonLines oCommon(asOld, asNew);
  std::size_t i = 0, j = 0;
  while (i < asOld.size() && j < asNew.size()) {
    if (Same(asOld[i], asNew[j])) {
      oResult.push_back({asOld[i++], Fate::Stays});
      ++j;
    } else if (oCommon.Cell(i + 1, j) >= oCommon.Cell(i, j + 1)) {
      oResult.push_back({asOld[i++], Fate::Goes});
    } else {
      oResult.push_back({asNew[j++], Fate::Comes});
    }
  }
  Add(oResult, asOld.subspan(i), Fate::Goes);
  Add(oResult, asNew.subspan(j), Fate::Comes);
}

}  // namespace

std::vector<Line> Compare(TextView sOld, TextView sNew) {
  const std::vector<TextView> asOldLine = SplitLines(sOld), asNewLine = SplitLines(sNew);
  Lines asOld = asOldLine, asNew = asNewLine;
  const auto [itOld, itNew] = std::mismatch(asOld.begin(), asOld.end(), asNew.begin(), asNew.end());
  const auto lHead = static_cast<std::size_t>(itOld - asOld.begin());
  const Lines asHead = asOld.first(lHead);
  asOld = asOld.subspan(lHead);
  asNew = asNew.subspan(lHead);
  const auto [itOldEnd, itNewEnd] =
      std::mismatch(asOld.rbegin(), asOld.rend(), asNew.rbegin(), asNew.rend());
  const auto lTail = static_cast<std::size_t>(itOldEnd - asOld.rbegin());

  std::vector<Line> oResult;
  oResult.reserve(asOldLine.size() + asNewLine.size());
  Add(oResult, asHead, Fate::Stays);
  AddDifferent(oResult, asOld.first(asOld.size() - lTail), asNew.first(asNew.size() - lTail));
  Add(oResult, asOld.last(lTail), Fate::Stays);
  return oResult;
}

}  // namespace CodeDiff
