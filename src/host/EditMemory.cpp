#include "EditMemory.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "ByteText.h"
#include "LineDifferences.h"
#include "LineSplit.h"
#include "MemberAttributes.h"
#include "MemberScan.h"

using Line = LineTable::Line;

namespace {

std::size_t Index(std::int32_t l) {
  return static_cast<std::size_t>(l);
}

std::string Folded(std::string_view sName) {
  std::string sFolded(sName);
  std::transform(sFolded.begin(), sFolded.end(), sFolded.begin(), AsciiLower);
  return sFolded;
}

// Where the declarations among some lines end, by name. Read at the first question.
class DeclarationEnds {
 public:
  DeclarationEnds(const LineTable& oLines, LexicalScan& oScan, std::int32_t lFirst,
                  std::int32_t lLast)
      : moLines(oLines), moScan(oScan), mlFirst(lFirst), mlLast(lLast) {}

  // The line for hidden lines to stand behind; near lNear when their name isn't declared here.
  std::int32_t Find(std::string_view sTail, std::int32_t lNear) {
    if (!mbRead) Read();
    LineSplit oSplit(sTail);
    oSplit.Next();
    const auto pFound = moEnds.find(Folded(ReadAttributeLine(oSplit.Text()).sName));
    if (pFound != moEnds.end()) return pFound->second;
    // Not into the middle of a continued statement.
    while (lNear > 0 && lNear < mlLast &&
           ContinuationMark(moLines.TextOf(lNear)) != std::string_view::npos) {
      ++lNear;
    }
    return lNear;
  }

 private:
  void Read() {
    mbRead = true;
    for (std::int32_t l = mlFirst; l <= mlLast; l = moScan.LastLine() + 1) {
      moScan.Start(l);
      if (moScan.NextStatement()) ReadNames(ReadStatement(moScan));
    }
  }

  void ReadNames(const Statement& oStatement) {
    std::vector<std::string> asName{Folded(oStatement.oName.sText)};
    Token oName;
    const bool bList = oStatement.eKind == StatementKind::Variables;
    while (bList && NextName(moScan, oName)) asName.push_back(Folded(oName.sText));
    const std::int32_t lEnd = moScan.LastLine();
    for (std::string& sName : asName) {
      if (!sName.empty()) moEnds.emplace(std::move(sName), std::min(lEnd, mlLast));
    }
  }

  const LineTable& moLines;
  LexicalScan& moScan;
  std::int32_t mlFirst;
  std::int32_t mlLast;
  bool mbRead = false;
  std::unordered_map<std::string, std::int32_t> moEnds;
};

constexpr std::size_t SearchLines = 64;

std::string_view WithoutNumber(std::string_view sLine) {
  sLine = SkipBlanks(sLine);
  while (!sLine.empty() && IsDigit(sLine.front())) sLine.remove_prefix(1);
  return TrimBlanks(sLine);
}

// True when, but for a line number, one text is the other with a piece put in: a statement that got
// a call ahead of it.
bool IsChanged(std::string_view sOne, std::string_view sOther) {
  sOne = WithoutNumber(sOne);
  sOther = WithoutNumber(sOther);
  const std::size_t lSize = std::min(sOne.size(), sOther.size());
  std::size_t lSame = 0;
  while (lSame < lSize && sOne[lSame] == sOther[lSame]) ++lSame;
  std::size_t lEnd = 0;
  while (lEnd < lSize - lSame && sOne[sOne.size() - lEnd - 1] == sOther[sOther.size() - lEnd - 1])
    ++lEnd;
  return lSize > 0 && lSame + lEnd == lSize;
}

bool IsPlain(std::string_view sAhead, std::string_view sLine) {
  return IsPlainLine(sLine) && ContinuationMark(sAhead) == std::string_view::npos;
}

}  // namespace

void EditMemory::Delete(std::int32_t lStart, std::int32_t lCount) {
  const bool bAhead = !moGone.empty() && lStart + lCount == mlPlace;
  if (!bAhead && lStart != mlPlace) moGone.clear();
  const std::vector<Line> oGone = moLines.Remove(lStart, lCount);
  moGone.insert(bAhead ? moGone.begin() : moGone.end(), oGone.begin(), oGone.end());
  mlPlace = lStart;
}

EditMemory::Inserted EditMemory::Insert(std::int32_t line, std::string bytes, LexicalScan& scan) {
  if (mlPlace != line) moGone.clear();
  moLines.MakeRoom(Needed(bytes));
  bytes += "\r\n";
  const auto exchange = ExchangeLines(moLines, moRecent, moGone, bytes);
  if (!exchange) return InsertAligned(line, bytes, scan);
  moLines.Insert(line, exchange->lines);
  moGone.clear();
  return {static_cast<std::int32_t>(exchange->lines.size()), exchange->sameAhead};
}

EditMemory::Inserted EditMemory::InsertAligned(std::int32_t line, std::string_view bytes,
                                               LexicalScan& scan) {
  std::vector<std::string_view> asNew;
  LineSplit split(bytes);
  while (split.Next()) asNew.push_back(split.Text());
  const auto count = static_cast<std::int32_t>(asNew.size());
  moLines.Insert(line, NewLines(asNew));
  const bool hasTails =
      std::any_of(moGone.begin(), moGone.end(), [](const Line& gone) { return gone.bTail; });
  if (hasTails) PlaceTails(line, count, scan);
  const std::int32_t sameAhead = SameAhead(asNew);
  moGone.clear();
  return {count, sameAhead};
}

std::int32_t EditMemory::SameAhead(const std::vector<std::string_view>& asNew) const {
  if (moGone.empty() || asNew.empty() || !mabKept.back() ||
      Index(malPartner.back()) + 1 != moGone.size()) {
    return 0;
  }
  std::size_t lFirst = asNew.size();
  for (std::size_t l = asNew.size(); l-- > 0;) {
    if (malPartner[l] >= 0 && mabKept[Index(malPartner[l])]) continue;
    if (l == 0 || !IsPlain(asNew[l - 1], asNew[l])) return 0;
    lFirst = l;
  }
  for (std::size_t l = moGone.size(); l-- > 0;) {
    if (mabKept[l]) continue;
    if (l == 0 || !IsPlain(moLines.TextOf(moGone[l - 1]), moLines.TextOf(moGone[l]))) return 0;
    lFirst = std::min(lFirst, l);
  }
  return static_cast<std::int32_t>(lFirst);
}

// At most: all lines new, all hidden lines moved, each time with the line that carries them.
std::size_t EditMemory::Needed(std::string_view bytes) const {
  // An empty line of the new text is one byte of it, and may become two.
  const std::size_t lBytes = 2 * bytes.size() + 2;
  std::size_t lTails = 0;
  for (const Line& oLine : moGone) {
    if (oLine.bTail) lTails += moLines.TailOf(oLine).size() + 4;
  }
  return lTails == 0 ? lBytes : 2 * lBytes + 2 * lTails;
}

std::vector<Line> EditMemory::NewLines(const std::vector<std::string_view>& asNew) {
  std::vector<std::string_view> asOld;
  asOld.reserve(moGone.size());
  for (const Line& oLine : moGone) asOld.push_back(moLines.TextOf(oLine));
  malPartner.assign(asNew.size(), -1);
  mabKept.assign(moGone.size(), false);
  std::vector<Line> oMade;
  oMade.reserve(asNew.size());
  std::vector<LineChange> oChanges = LineDifferences(asOld, asNew);
  oChanges.push_back({asOld.size(), asOld.size(), asNew.size(), asNew.size()});
  std::size_t lOld = 0;
  std::size_t lNew = 0;
  for (const LineChange& oChange : oChanges) {
    for (; lOld < oChange.oldFirst; ++lOld, ++lNew) {
      malPartner[lNew] = static_cast<std::int32_t>(lOld);
      mabKept[lOld] = true;
      oMade.push_back(moGone[lOld]);
    }
    PairChanged(asNew, oChange.newFirst, oChange.newEnd, oChange.oldFirst, oChange.oldEnd);
    AddChanged(asNew, oChange.newFirst, oChange.newEnd, oMade);
    lOld = oChange.oldEnd;
    lNew = oChange.newEnd;
  }
  return oMade;
}

// As many new lines as old ones between two that stayed: they are the same lines, changed. Of more
// or fewer the old ones with a line end of another kind are looked for, for they have to keep it.
void EditMemory::PairChanged(const std::vector<std::string_view>& asNew, std::size_t lFrom,
                             std::size_t lTo, std::size_t lOld, std::size_t lOldTo) {
  const bool bAll = lTo - lFrom == lOldTo - lOld;
  for (std::size_t l = lFrom; lOld < lOldTo; ++lOld) {
    const std::string_view sEnd = moLines.EndOf(moGone[lOld]);
    if (!bAll && (sEnd.empty() || sEnd == moLines.OwnEnd())) continue;
    std::size_t lFound = l;
    const std::size_t lLast = bAll ? l : std::min(lTo, l + SearchLines);
    while (lFound < lLast && !IsChanged(moLines.TextOf(moGone[lOld]), asNew[lFound])) ++lFound;
    if (!bAll && lFound == lLast) continue;
    malPartner[lFound] = static_cast<std::int32_t>(lOld);
    l = lFound + 1;
  }
}

void EditMemory::AddChanged(const std::vector<std::string_view>& asNew, std::size_t lFrom,
                            std::size_t lTo, std::vector<Line>& oMade) {
  for (std::size_t l = lFrom; l < lTo; ++l) {
    std::string_view sEnd;
    if (malPartner[l] >= 0) sEnd = moLines.EndOf(moGone[Index(malPartner[l])]);
    oMade.push_back(moRecent.Add(asNew[l], sEnd.empty() ? moLines.OwnEnd() : sEnd).line);
  }
}

// Hidden lines return together with the line that they stand behind. If that line didn't come back,
// they go behind the declaration of their name, or else behind the nearest line ahead that did.
void EditMemory::PlaceTails(std::int32_t lLine, std::int32_t lCount, LexicalScan& oScan) {
  DeclarationEnds oEnds(moLines, oScan, lLine, lLine + lCount - 1);
  std::int32_t lNear = lLine - 1;
  std::int32_t lNew = 0;
  for (std::size_t l = 0; l < moGone.size(); ++l) {
    for (; lNew < lCount && malPartner[Index(lNew)] <= static_cast<std::int32_t>(l); ++lNew) {
      if (malPartner[Index(lNew)] >= 0) lNear = lLine + lNew;
    }
    if (!moGone[l].bTail || mabKept[l]) continue;
    const std::string sTail(moLines.TailOf(moGone[l]));
    const std::int32_t lTo = oEnds.Find(sTail, lNear);
    moLines.Set(lTo, moLines.WithTail(moLines.At(lTo), sTail));
  }
}
