#include "LineTable.h"

#include <algorithm>

#include "ByteText.h"
#include "Failure.h"
#include "LineSplit.h"

namespace {

constexpr std::size_t MaxBytes = 0x7FFFFFFF;

LineTable::Line MakeLine(std::size_t lOffset, std::size_t lLength, bool bTail) {
  LineTable::Line oLine;
  oLine.lOffset = static_cast<std::uint32_t>(lOffset);
  oLine.lLength = static_cast<std::uint32_t>(lLength) & 0x7FFFFFFFU;
  oLine.bTail = bTail ? 1 : 0;
  return oLine;
}

bool IsEnd(char c) {
  return c == '\r' || c == '\n';
}

std::string_view WithoutEnd(std::string_view sLine) {
  if (!sLine.empty() && sLine.back() == '\n')
    sLine.remove_suffix(1);
  else if (!sLine.empty() && sLine.back() == '\r') {
    sLine.remove_suffix(1);
    return sLine;
  } else
    return sLine;
  if (!sLine.empty() && sLine.back() == '\r') sLine.remove_suffix(1);
  return sLine;
}

// Counts the line ends of a file.
class EndCount {
 public:
  void Add(std::string_view sEnd) {
    if (!sEnd.empty()) ++malCount[sEnd.size() == 2 ? 0 : sEnd[0] == '\n' ? 1 : 2];
  }
  std::string_view Majority() const {
    static constexpr std::string_view asEnd[] = {"\r\n", "\n", "\r"};
    return asEnd[std::max_element(malCount, malCount + 3) - malCount];
  }

 private:
  std::size_t malCount[3] = {};
};

}  // namespace

bool IsMemberAttribute(std::string_view sLine) {
  constexpr std::string_view sWord = "attribute";
  if (!StartsNoCase(sLine, sWord) || sLine.size() == sWord.size()) return false;
  if (!IsBlank(sLine[sWord.size()])) return false;
  const std::string_view sRest = SkipBlanks(sLine.substr(sWord.size()));
  const std::size_t lStop = sRest.find_first_of(".= \t\"");
  return lStop != std::string_view::npos && lStop > 0 && sRest[lStop] == '.' &&
         StartsNoCase(sRest.substr(lStop + 1), "vb_");
}

LineTable::LineTable(std::string sBytes, std::size_t lHeaderLength) : msFile(std::move(sBytes)) {
  if (msFile.size() > MaxBytes) {
    throw Failure(7, u"The file is larger than 2 GB; such a file can't be a source file", u"host");
  }
  mbFinalEnd = msFile.empty() || IsEnd(msFile.back());
  Split(lHeaderLength);
}

void LineTable::Split(std::size_t lHeaderLength) {
  std::vector<Line> oLines;
  oLines.reserve(msFile.size() / 40 + 2);
  oLines.push_back(MakeLine(0, lHeaderLength, false));
  EndCount oEnds;
  LineSplit oSplit(msFile, lHeaderLength);
  while (oSplit.Next()) {
    const std::size_t lLength = oSplit.Behind() - oSplit.Begin();
    oEnds.Add(oSplit.End());
    if (IsMemberAttribute(oSplit.Text())) {
      oLines.back() = MakeLine(oLines.back().lOffset, oLines.back().lLength + lLength, true);
      mbTails = true;
    } else {
      oLines.push_back(MakeLine(oSplit.Begin(), lLength, false));
    }
  }
  if (oLines.size() == 1) {
    LineSplit oHeader(msFile);
    while (oHeader.Next()) oEnds.Add(oHeader.End());
  }
  msOwnEnd = oEnds.Majority();
  oLines.shrink_to_fit();
  moLines.Assign(std::move(oLines));
}

std::string_view LineTable::TextOf(const Line& oLine) const {
  const std::string_view sBytes = BytesOf(oLine);
  if (!oLine.bTail) return WithoutEnd(sBytes);
  std::size_t lEnd = 0;
  while (lEnd < sBytes.size() && !IsEnd(sBytes[lEnd])) ++lEnd;
  return sBytes.substr(0, lEnd);
}

std::string_view LineTable::RunOf(std::int32_t lFirst, std::int32_t lLast,
                                  std::int32_t& lTaken) const {
  std::int32_t l = lFirst;
  std::size_t lLength = 0;
  for (; l < lLast; ++l) {
    const std::string_view bytes = BytesOf(At(l));
    if (At(l).bTail || BytesOf(At(l + 1)).data() != bytes.data() + bytes.size()) break;
    if (!bytes.ends_with("\r\n")) break;
    lLength += bytes.size();
  }
  lTaken = l - lFirst + 1;
  const std::string_view sLast = TextOf(l);
  const char* const pFirst = BytesOf(At(lFirst)).data();
  return {pFirst, lLength + sLast.size()};
}

std::string_view LineTable::EndOf(const Line& oLine) const {
  const std::string_view sRest = BytesOf(oLine).substr(TextOf(oLine).size());
  if (sRest.empty()) return {};
  return sRest.starts_with("\r\n") ? "\r\n" : sRest[0] == '\n' ? "\n" : "\r";
}

std::string_view LineTable::TailOf(const Line& oLine) const {
  if (!oLine.bTail) return {};
  return BytesOf(oLine).substr(TextOf(oLine).size() + EndOf(oLine).size());
}

// True when a line end is missing. A file without a header block begins with its first line of
// code, or with a byte-order mark: neither is a line that ends.
bool LineTable::IsOpen(const Line& oLine) const {
  const std::string_view sBytes = BytesOf(oLine);
  if (sBytes.empty() || IsEnd(sBytes.back())) return false;
  return oLine.lOffset != 0 || sBytes != ByteOrderMark;
}

LineTable::Line LineTable::Add(std::string_view sText, std::string_view sEnd,
                               std::string_view sTail) {
  const bool isOpen = !sTail.empty() && !IsEnd(sTail.back());
  const std::string_view more = isOpen ? msOwnEnd : std::string_view();
  const std::uint32_t offset = moAdded.Add({sText, sEnd, sTail, more});
  mbTails = mbTails || !sTail.empty();
  return MakeLine(offset | AddedText::Limit,
                  sText.size() + sEnd.size() + sTail.size() + more.size(), !sTail.empty());
}

LineTable::Line LineTable::WithTail(const Line& oLine, std::string_view sTail) {
  return Add(BytesOf(oLine), IsOpen(oLine) ? msOwnEnd : std::string_view(), sTail);
}

// Ahead of every change: the saved lines are kept from the first one on. Their bytes never move.
void LineTable::Touch() {
  if (!mbTouched && !mbFileSaved) moSaved = moLines;
  mbTouched = true;
  ++mlVersion;
}

void LineTable::Set(std::int32_t lLine, const Line& oLine) {
  Touch();
  moLines[static_cast<std::size_t>(lLine)] = oLine;
}

std::vector<LineTable::Line> LineTable::Remove(std::int32_t lStart, std::int32_t lCount) {
  Touch();
  std::vector<Line> oGone;
  oGone.reserve(static_cast<std::size_t>(lCount));
  for (std::int32_t l = 0; l < lCount; ++l) oGone.push_back(At(lStart + l));
  moLines.Erase(static_cast<std::size_t>(lStart), oGone.size());
  return oGone;
}

void LineTable::Insert(std::int32_t lLine, const std::vector<Line>& oLines) {
  Touch();
  moLines.Insert(static_cast<std::size_t>(lLine), oLines);
}

// The bytes of a line as they are written: sMore is a line end that has to follow them. poNext: the
// line behind it, null behind the last one.
std::string_view LineTable::PieceOf(const Line& oLine, const Line* poNext,
                                    std::string_view& sMore) const {
  std::string_view sPiece = BytesOf(oLine);
  sMore = {};
  if (poNext && sPiece.ends_with('\n')) return sPiece;  // nearly every line
  if (!poNext) {
    if (mbFinalEnd && IsOpen(oLine)) sMore = msOwnEnd;
    // An empty last line is nothing but its line end.
    if (!mbFinalEnd && !WithoutEnd(sPiece).empty()) sPiece = WithoutEnd(sPiece);
    return sPiece;
  }
  if (IsOpen(oLine)) sMore = msOwnEnd;
  // A lone CR and the LF of an empty line behind it would become one line end.
  if (sPiece.ends_with('\r') && BytesOf(*poNext).starts_with('\n')) sMore = "\n";
  return sPiece;
}

std::string_view LineTable::PieceOf(const GapBuffer<Line>& oLines, std::size_t l,
                                    std::string_view& sMore) const {
  return PieceOf(oLines[l], l + 1 < oLines.Size() ? &oLines[l + 1] : nullptr, sMore);
}

std::string LineTable::Compose(const GapBuffer<Line>& oLines) const {
  std::size_t lLength = msOwnEnd.size();
  for (std::size_t l = 0; l < oLines.Size(); ++l) lLength += oLines[l].lLength;
  std::string sBytes;
  sBytes.reserve(lLength);
  std::string_view run;  // lines that lie behind one another, as most of a file do
  std::string_view sMore;
  for (std::size_t l = 0; l < oLines.Size(); ++l) {
    const std::string_view piece = PieceOf(oLines, l, sMore);
    if (sMore.empty() && piece.data() == run.data() + run.size()) {
      run = {run.data(), run.size() + piece.size()};
      continue;
    }
    sBytes += run;
    run = piece;
    if (sMore.empty()) continue;
    sBytes.append(piece).append(sMore);
    run = {};
  }
  return sBytes += run;
}

std::string LineTable::Bytes() const {
  return mbTouched ? Compose(moLines) : SavedBytes();
}

std::string LineTable::SavedBytes() const {
  return mbFileSaved ? msFile : Compose(mbTouched ? moSaved : moLines);
}

bool LineTable::IsChanged() const {
  if (!mbTouched) return false;
  if (!mbFileSaved) return Bytes() != SavedBytes();
  std::string_view sRest = msFile;
  std::string_view sMore;
  for (std::size_t l = 0; l < moLines.Size(); ++l) {
    const std::string_view sPiece = PieceOf(moLines, l, sMore);
    // Lines that were never touched lie where they are looked for.
    if (sPiece.data() != sRest.data() && !sRest.starts_with(sPiece)) return true;
    if (sPiece.size() > sRest.size()) return true;
    sRest.remove_prefix(sPiece.size());
    if (!sRest.starts_with(sMore)) return true;
    sRest.remove_prefix(sMore.size());
  }
  return !sRest.empty();
}

// As long as little was added, the lines themselves tell the saved bytes: a group that was
// rewritten isn't held twice. Later the bytes that nothing needs any more have to go.
void LineTable::MarkSaved() {
  if (!mbTouched) return;
  std::string bytes = moAdded.Size() > msFile.size() ? Bytes() : std::string();
  mbFileSaved = false;
  if (!bytes.empty() && bytes.size() <= MaxBytes) Rebase(std::move(bytes));
  moSaved = {};
  mbTouched = false;
}

void LineTable::Rebase(std::string sBytes) {
  std::size_t lOffset = 0;
  std::string_view sMore;
  std::vector<Line> oLines;
  oLines.reserve(moLines.Size());
  for (std::size_t l = 0; l < moLines.Size(); ++l) {
    const std::size_t lLength = PieceOf(moLines, l, sMore).size() + sMore.size();
    oLines.push_back(MakeLine(lOffset, lLength, moLines[l].bTail != 0));
    lOffset += lLength;
  }
  msFile = std::move(sBytes);
  moAdded = {};
  moLines.Assign(std::move(oLines));
  mbFileSaved = true;
}
