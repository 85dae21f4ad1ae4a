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
bool ReadRanges(TextView sList, std::vector<LikeRange>& oRanges) {
  for (std::size_t i = 0; i < sList.size();) {
    const bool bRange = i + 2 < sList.size() && sList[i + 1] == u'-';
    const LikeRange oRange = {sList[i], sList[bRange ? i + 2 : i]};
    if (oRange.cLow > oRange.cHigh) return false;
    oRanges.push_back(oRange);
    i += bRange ? 3 : 1;
  }
  return true;
}

// Puts ranges in order and joins those that touch.
void Normalise(std::vector<LikeRange>& oRanges) {
  std::sort(oRanges.begin(), oRanges.end(),
            [](const LikeRange& a, const LikeRange& b) { return a.cLow < b.cLow; });
  std::size_t lLast = 0;
  for (std::size_t i = 1; i < oRanges.size(); ++i) {
    if (oRanges[i].cLow <= oRanges[lLast].cHigh + 1) {
      oRanges[lLast].cHigh = std::max(oRanges[lLast].cHigh, oRanges[i].cHigh);
    } else {
      oRanges[++lLast] = oRanges[i];
    }
  }
  oRanges.resize(lLast + 1);
}

// The units outside normalised ranges.
std::vector<LikeRange> Others(const std::vector<LikeRange>& oRanges) {
  std::vector<LikeRange> oResult;
  std::uint32_t lNext = 0;
  for (const LikeRange& oRange : oRanges) {
    if (oRange.cLow > lNext) {
      oResult.push_back({static_cast<char16_t>(lNext), static_cast<char16_t>(oRange.cLow - 1)});
    }
    lNext = oRange.cHigh + 1u;
  }
  if (lNext <= 0xFFFF) oResult.push_back({static_cast<char16_t>(lNext), 0xFFFF});
  return oResult;
}

}  // namespace

LikePattern::LikePattern(TextView sPattern) : msPattern(sPattern), mbValid(Parse()) {
  if (!mbStar) mlHead = mlBehindStar = moElements.Count();
  while (mlLiteral < mlHead && moElements.IsLiteral(mlLiteral)) ++mlLiteral;
  if (mlLiteral > 0) mcFirst = msUnits[0];
}

bool LikePattern::Parse() {
  for (std::size_t i = 0; i < msPattern.size();) {
    const char16_t cUnit = msPattern[i];
    if (cUnit == u'[') {
      if (!ParseList(i)) return false;
      continue;
    }
    if (cUnit == u'*') {
      AddStar();
    } else {
      const LikeRange oUnit = {cUnit, cUnit};
      AddElement({cUnit == u'?' ? &AnyUnit : cUnit == u'#' ? &Digit : &oUnit, 1});
    }
    ++i;
  }
  return true;
}

// lPos: of the bracket; afterwards behind the list. False for a list that the language rejects.
bool LikePattern::ParseList(std::size_t& lPos) {
  const std::size_t lEnd = msPattern.find(u']', lPos);
  if (lEnd == npos) return false;
  TextView sList = TextView(msPattern).substr(lPos + 1, lEnd - lPos - 1);
  lPos = lEnd + 1;
  if (sList.empty()) return true;
  // A list of the mark alone is no empty negation: the language takes it for the character.
  const bool bNegated = sList.size() > 1 && sList.front() == u'!';
  if (bNegated) sList.remove_prefix(1);
  std::vector<LikeRange> oRanges;
  if (!ReadRanges(sList, oRanges)) return false;
  Normalise(oRanges);
  AddElement(bNegated ? Others(oRanges) : oRanges);
  return true;
}

void LikePattern::AddElement(std::span<const LikeRange> aoRange) {
  moElements.Add(aoRange);
  msUnits += moElements.IsLiteral(moElements.Count() - 1) ? aoRange[0].cLow : u'\0';
}

// Ends the run of elements that stands ahead of the star.
void LikePattern::AddStar() {
  const std::size_t lFirst = mlBehindStar, lCount = moElements.Count() - lFirst;
  mlBehindStar = moElements.Count();
  if (!mbStar) {
    mlHead = lCount;
    mbStar = true;
  } else if (lCount > 0) {
    Run oRun = {lFirst, lCount, true, {}};
    for (std::size_t i = 0; i < lCount; ++i) oRun.bLiteral &= moElements.IsLiteral(lFirst + i);
    if (lCount > LongRun) oRun.oBits = LikeBits(moElements, lFirst, lCount);
    moInner.push_back(std::move(oRun));
  }
}

// The first fit of each inner run is as good as any later one, since it leaves the most text for
// the runs behind it: no step is ever taken back.
bool LikePattern::MatchesWhole(TextView sText) const noexcept {
  const std::size_t lCount = moElements.Count();
  if (!mbValid || sText.size() < lCount || (!mbStar && sText.size() > lCount)) return false;
  if (!Same(sText.substr(0, mlLiteral), TextView(msUnits).substr(0, mlLiteral))) return false;
  if (!FitsAt(mlLiteral, mlHead - mlLiteral, sText.data() + mlLiteral)) return false;
  const std::size_t lTail = lCount - mlBehindStar;
  if (!FitsAt(mlBehindStar, lTail, sText.data() + (sText.size() - lTail))) return false;
  sText.remove_suffix(lTail);
  std::size_t lPos = mlHead;
  for (const Run& oRun : moInner) {
    lPos = FindBehind(oRun, sText, lPos);
    if (lPos == npos) return false;
  }
  return true;
}

bool LikePattern::FitsAt(std::size_t lFirst, std::size_t lCount, const char16_t* pText) const {
  for (std::size_t i = 0; i < lCount; ++i) {
    const char16_t cLiteral = msUnits[lFirst + i];
    if (cLiteral != u'\0' ? cLiteral != pText[i] : !moElements.Accepts(lFirst + i, pText[i])) {
      return false;
    }
  }
  return true;
}

std::size_t LikePattern::FindBehind(const Run& oRun, TextView sText, std::size_t lPos) const {
  if (!oRun.oBits.IsEmpty()) return oRun.oBits.FindBehind(sText, lPos);
  if (oRun.bLiteral) {
    const std::size_t lHit = sText.find(TextView(msUnits).substr(oRun.lFirst, oRun.lCount), lPos);
    return lHit == npos ? npos : lHit + oRun.lCount;
  }
  for (; lPos + oRun.lCount <= sText.size(); ++lPos) {
    if (FitsAt(oRun.lFirst, oRun.lCount, sText.data() + lPos)) return lPos + oRun.lCount;
  }
  return npos;
}
