#include "Removal.h"

#include <algorithm>

#include "Insertion.h"
#include "MQuillon.h"
#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"
#include "RowMatch.h"
#include "TraceExits.h"

namespace {

constexpr std::size_t None = static_cast<std::size_t>(-1);

Text LineMessage(TextView sMessage, std::size_t lLine, TextView sLine) {
  return Text(sMessage) + u"; Line=" + ToText(static_cast<long long>(lLine) + 1) + u" [" +
         Text(sLine) + u"]";
}

/// True when the row, as it was written, may not fit its pattern. A value that the code doesn't
/// state may have been changed by hand, or never have been there: then the text itself tells.
bool CouldStayBehind(const LineRow& oRow, SectionValues oValues, const ProcText& oProc) {
  if (!oRow.bScript || !IsWritten(oRow, oValues) || FitsItself(oRow, oValues)) return false;
  const Text sOwn = FoldedRow(oRow, oValues);
  for (TextView* pValue : {&oValues.sBoundary, &oValues.sSeverity, &oValues.sRetry})
    if (pValue->empty()) *pValue = u"0";
  if (!FitsItself(oRow, oValues)) return true;
  for (std::size_t i = 0; i < oProc.Count(); ++i)
    if (oProc.Folded(i) == sOwn) return true;
  return false;
}

Text UnfitMessage(const LineRow& oRow) {
  return u"    Template Line does not fit its own Pattern [" + oRow.sLine + u"]";
}

/// Removal from one procedure: the places first, then whether they can be trusted, then the text.
class ProcedureRemoval {
 public:
  ProcedureRemoval(const RemovalRequest& oRequest, const ProcText& oProc)
      : moRequest(oRequest), moTemplate(*oRequest.pTemplate), moProc(oProc) {}

  std::vector<Text> Run(Text& sResult) {
    const ProcPlaces oPlaces = FindPlaces(moProc, moRequest.lBodyLine, moRequest.oValues.sBaseType);
    mlFirstBody = oPlaces.lFirstBody;
    mlProcEnd = oPlaces.Refused() ? None : oPlaces.lEnd;
    if (mlFirstBody == 0) return {oPlaces.sRefusal};
    FindBorders();
    CheckPlaces(oPlaces.sRefusal);
    if (masMessage.empty()) CheckOwnText();
    if (masMessage.empty()) CheckSections();
    if (masMessage.empty()) sResult = Compose();
    return masMessage;
  }

 private:
  std::size_t FindFirst(Section ePlace) const {
    for (std::size_t i = mlFirstBody; i < moProc.Count(); ++i) {
      if (moTemplate.sLike[ePlace].Matches(moProc.Folded(i))) return i;
    }
    return None;
  }

  void FindBorders() {
    mlBodyStart = FindFirst(Section::BodyStart);
    mlBodyEnd = FindFirst(Section::BodyEnd);
    if (!moTemplate.bFire) return;
    mlFireStart = FindFirst(Section::FireStart);
    mlFireEnd = FindFirst(Section::FireEnd);
  }

  void Test(bool bFails, TextView sMessage) {
    if (bFails) masMessage.emplace_back(sMessage);
  }
  static bool NotAbove(std::size_t lUpper, std::size_t lLower) {
    return lUpper != None && lLower != None && lUpper >= lLower;
  }

  void CheckPlaces(TextView sEndRefusal) {
    Test(mlBodyStart == None, u"    BodyStart Not Found");
    Test(mlBodyEnd == None, u"    BodyEnd Not Found");
    Test(NotAbove(mlBodyStart, mlBodyEnd), u"    BodyEnd Found before BodyStart");
    Test(mlProcEnd == None, sEndRefusal);
    if (moTemplate.bFire) {
      Test(mlFireStart == None, u"    FireStart Not Found");
      Test(mlFireEnd == None, u"    FireEnd Not Found");
      Test(NotAbove(mlFireStart, mlFireEnd), u"    FireEnd Found before FireStart");
      Test(NotAbove(mlBodyEnd, mlFireStart), u"    FireStart Found before BodyEnd");
    }
    // Lines behind the end are other code: a place found there isn't this procedure's.
    Test(NotAbove(mlBodyStart, mlProcEnd), u"    Procedure End Found before BodyStart");
    Test(NotAbove(mlBodyEnd, mlProcEnd), u"    Procedure End Found before BodyEnd");
    if (!moTemplate.bFire) return;
    Test(NotAbove(mlFireStart, mlProcEnd), u"    Procedure End Found before FireStart");
    Test(NotAbove(mlFireEnd, mlProcEnd), u"    Procedure End Found before FireEnd");
  }

  /// A row whose own text doesn't fit its pattern can't be found again: taking out the others would
  /// leave it behind, or let it pass as the user's.
  void CheckOwnText() {
    CheckOwnText(Section::Start, Section::BodyStart);
    CheckOwnText(Section::BodyEnd, moTemplate.bFire ? Section::FireStart : Section::End);
    if (moTemplate.bFire) CheckOwnText(Section::FireEnd, Section::End);
  }
  void CheckOwnText(Section eFirst, Section eLast) {
    for (std::int32_t l = moTemplate.lStart[eFirst]; l <= moTemplate.lStart[eLast]; ++l) {
      const LineRow& oRow = (*moRequest.pLines)[static_cast<std::size_t>(l)];
      if (CouldStayBehind(oRow, moRequest.oValues, moProc))
        masMessage.push_back(UnfitMessage(oRow));
    }
  }

  void CheckSections() {
    CheckLines(mlFirstBody, mlBodyStart + 1, Section::Start, Section::BodyStart);
    if (!moTemplate.bFire) {
      CheckLines(mlBodyEnd, mlProcEnd, Section::BodyEnd, Section::End);
    } else {
      CheckLines(mlBodyEnd, mlFireStart + 1, Section::BodyEnd, Section::FireStart);
      CheckLines(mlFireEnd, mlProcEnd, Section::FireEnd, Section::End);
    }
    if (masMessage.empty()) CheckBorders();
    if (masMessage.empty()) masMessage = std::move(masBeyond);
  }

  void CheckLines(std::size_t lFirst, std::size_t lEnd, Section eFirst, Section eLast) {
    RowMatch oRows(*moRequest.pLines, moTemplate.lStart[eFirst], moTemplate.lStart[eLast],
                   *moRequest.pSignature);
    for (std::size_t i = lFirst; i < lEnd; ++i) {
      if (oRows.Passes(moProc.Folded(i))) continue;
      masMessage.push_back(LineMessage(u"    Code does not match Template", i, moProc.Line(i)));
    }
    if (!oRows.AllUnconditionalUsed()) mbIncomplete[eFirst] = true;
    if (eLast == Section::BodyStart) CheckBeyond(oRows, lEnd, mlBodyEnd, u"BodyStart");
    if (eFirst == Section::BodyEnd) CheckBeyond(oRows, lFirst, mlBodyStart + 1, u"BodyEnd");
    if (eLast == Section::FireStart) CheckBeyond(oRows, lEnd, mlFireEnd, u"FireStart");
    if (eFirst == Section::FireEnd) CheckBeyond(oRows, lFirst, mlFireStart + 1, u"FireEnd");
    // A row that reads as the procedure's end.
    if (eLast == Section::End) CheckBeyond(oRows, mlProcEnd + 1, moProc.Count(), u"Procedure End");
  }

  /// A template's lines stand side by side. A line beyond the border that a row waits for says that
  /// the border is another line: what lies beyond would stay in the code and be written again.
  /// Looks at the lines from lBorder up to lOther, or down from the one above it.
  void CheckBeyond(const RowMatch& oRows, std::size_t lBorder, std::size_t lOther, TextView sName) {
    const bool bUp = lOther < lBorder;
    for (std::size_t l = lBorder; l != lOther; bUp ? --l : ++l) {
      const std::size_t i = bUp ? l - 1 : l;
      if (moProc.Folded(i).empty()) continue;
      if (oRows.WaitsFor(moProc.Folded(i), moRequest.oValues)) {
        masBeyond.push_back(CannotTell(sName, i));
      }
      return;
    }
  }

  Text CannotTell(TextView sName, std::size_t lLine) const {
    return LineMessage(u"    " + Text(sName) + u" can't be told from other Code", lLine,
                       moProc.Line(lLine));
  }

  /// A border that fits several lines was taken at the first of them. That holds when the section
  /// is complete with it; when the template's own lines are missing there, the border may be a
  /// line of the user's, and the template's lines would be left in the body, or the user's go.
  void CheckBorders() {
    CheckBorder(Section::BodyStart, Section::Start, mlBodyStart, mlBodyEnd, u"BodyStart");
    CheckBorder(Section::BodyEnd, Section::BodyEnd, mlBodyEnd,
                moTemplate.bFire ? mlFireStart + 1 : mlProcEnd, u"BodyEnd");
    if (!moTemplate.bFire) return;
    CheckBorder(Section::FireStart, Section::BodyEnd, mlFireStart, mlFireEnd, u"FireStart");
    CheckBorder(Section::FireEnd, Section::FireEnd, mlFireEnd, mlProcEnd, u"FireEnd");
  }

  void CheckBorder(Section ePlace, Section eSection, std::size_t lPlace, std::size_t lEnd,
                   TextView sName) {
    const LikePattern& oLike = moTemplate.sLike[ePlace];
    std::size_t lOther = lPlace + 1;
    while (lOther < lEnd && !oLike.Matches(moProc.Folded(lOther))) ++lOther;
    if (lOther >= lEnd) return;
    const bool bFirstIsOwn = IsOwnText(ePlace, moProc.Folded(lPlace));
    const bool bOtherIsOwn = IsOwnText(ePlace, moProc.Folded(lOther));
    const bool bTooMany =
        ePlace == eSection && LinesFitting(oLike, lPlace, lEnd) > RowsFitting(ePlace);
    if (!mbIncomplete[eSection] && !bTooMany && (bFirstIsOwn || !bOtherIsOwn)) return;
    masMessage.push_back(CannotTell(sName, lOther));
  }

  std::size_t LinesFitting(const LikePattern& oLike, std::size_t lFirst, std::size_t lEnd) const {
    std::size_t lCount = 0;
    for (std::size_t i = lFirst; i < lEnd; ++i) lCount += oLike.Matches(moProc.Folded(i));
    return lCount;
  }

  /// How many lines that fit the pattern of a section's first place the template wrote there.
  std::size_t RowsFitting(Section ePlace) const {
    const bool bToFire = ePlace == Section::BodyEnd && moTemplate.bFire;
    const std::int32_t lEnd = moTemplate.lStart[bToFire ? Section::FireStart : Section::End];
    std::size_t lCount = 0;
    for (std::int32_t l = moTemplate.lStart[ePlace]; l <= lEnd; ++l) {
      const LineRow& oRow = (*moRequest.pLines)[static_cast<std::size_t>(l)];
      if (!IsWritten(oRow, moRequest.oValues)) continue;
      lCount += moTemplate.sLike[ePlace].Matches(FoldedRow(oRow, moRequest.oValues));
    }
    return lCount;
  }

  /// True when the folded line reads as the row of the border is written in this procedure.
  bool IsOwnText(Section ePlace, TextView sFolded) const {
    const auto Fits = [&](const LineRow& oRow) {
      if (!oRow.bScript || !IsWritten(oRow, moRequest.oValues)) return false;
      return FoldedRow(oRow, moRequest.oValues) == sFolded;
    };
    const auto& oLines = *moRequest.pLines;
    const bool bAbove = ePlace == Section::BodyStart || ePlace == Section::FireStart;
    const std::int32_t lFirst =
        bAbove ? moTemplate.lStart[ePlace == Section::BodyStart ? Section::Start : Section::BodyEnd]
               : moTemplate.lStart[ePlace];
    const std::int32_t lLast = bAbove ? moTemplate.lStart[ePlace] : moTemplate.lStart[Section::End];
    for (std::int32_t l = lFirst; l <= lLast; ++l) {
      if (l > 0 && Fits(oLines[static_cast<std::size_t>(l)])) return true;
    }
    return false;
  }

  /// How many blank rows the template wrote next to the body, at one side of it.
  std::size_t BlankRowsAbove() const {
    std::size_t lCount = 0;
    for (std::int32_t l = moTemplate.lStart[Section::BodyStart] - 1;
         l > moTemplate.lStart[Section::Start]; --l) {
      if (!CountBlank(l, lCount)) break;
    }
    return lCount;
  }
  std::size_t BlankRowsBelow() const {
    const std::int32_t lEnd =
        moTemplate.lStart[moTemplate.bFire ? Section::FireStart : Section::End];
    std::size_t lCount = 0;
    for (std::int32_t l = moTemplate.lStart[Section::BodyEnd] + 1; l < lEnd; ++l) {
      if (!CountBlank(l, lCount)) break;
    }
    return lCount;
  }
  /// False at the first written row that isn't blank.
  bool CountBlank(std::int32_t lRow, std::size_t& lCount) const {
    const LineRow& oRow = (*moRequest.pLines)[static_cast<std::size_t>(lRow)];
    if (!IsWritten(oRow, moRequest.oValues)) return true;
    if (!IsBlankRow(oRow)) return false;
    ++lCount;
    return true;
  }

  Text Compose() {
    LineWriter oWriter;
    oWriter.Reserve(moProc.Units());
    oWriter.Add(moProc, 0, mlFirstBody);
    std::size_t lFirst = mlBodyStart + 1;
    std::size_t lEnd = mlBodyEnd;
    for (std::size_t n = BlankRowsAbove(); n > 0 && lFirst < lEnd && IsBlank(moProc.Line(lFirst));
         --n) {
      ++lFirst;
    }
    // A blank line that ends a continued statement belongs to that statement.
    for (std::size_t n = BlankRowsBelow();
         n > 0 && lEnd > lFirst && IsBlank(moProc.Line(lEnd - 1)) && !moProc.IsContinued(lEnd - 1);
         --n) {
      --lEnd;
    }
    WriteBody(lFirst, lEnd, oWriter);
    if (moTemplate.bFire) WriteFireBlock(oWriter);
    oWriter.Add(moProc, mlProcEnd, moProc.Count());
    return oWriter.Take();
  }

  void WriteBody(std::size_t lFirst, std::size_t lEnd, LineWriter& oWriter) {
    const bool bNumbers = moRequest.pRules->eLineNumAction != MQuillon::LineNumAction::Leave;
    const LineRow* pTrace =
        moTemplate.lTraceExit > 0
            ? &(*moRequest.pLines)[static_cast<std::size_t>(moTemplate.lTraceExit)]
            : nullptr;
    const Text sTraceExit = pTrace ? TraceExits::GetTraceExit(*pTrace, moRequest.oValues) : Text();
    if (sTraceExit.empty()) pTrace = nullptr;
    LikePattern oCut;
    const LikePattern* pPattern = pTrace ? &TraceExits::Pattern(*pTrace, oCut) : nullptr;
    bool bInComment = false;
    for (std::size_t i = lFirst; i < lEnd; ++i) {
      Text sLine(moProc.Line(i));
      if (bNumbers && (i == lFirst || !moProc.IsContinued(i)))
        MXStringVB::RemoveVBLineNumber(sLine);
      if (pTrace && !bInComment && MayHoldTrace(i, sLine, *pPattern)) {
        sLine = TraceExits::Remove(sLine, moRequest.oValues.sBaseType, sTraceExit, *pPattern);
      }
      bInComment = Continues(moProc.Line(i)) && (bInComment || CommentStart(sLine) < sLine.size());
      oWriter.Add(sLine);
    }
  }

  /// Most lines hold one statement: the whole of it fits the pattern or nothing in it can.
  bool MayHoldTrace(std::size_t i, TextView sLine, const LikePattern& oPattern) const {
    return sLine.find(u':') != TextView::npos || sLine != moProc.Line(i) ||
           oPattern.Matches(moProc.Folded(i));
  }

  /// Clean-up code waits behind the body as comment lines until a template takes it back.
  void WriteFireBlock(LineWriter& oWriter) {
    bool bGoesOn = false;
    for (std::size_t i = mlFireStart + 1; i < mlFireEnd; ++i) {
      const TextView sLine = moProc.Line(i);
      // A blank line is dropped, but not one that ends a continued statement: without it the
      // comment would go on into the next line.
      if (!IsBlank(sLine) || bGoesOn) oWriter.Add(u"'FireExit: " + Text(sLine));
      bGoesOn = Continues(sLine);
    }
  }

  const RemovalRequest& moRequest;
  const TemplateRow& moTemplate;
  const ProcText& moProc;
  std::vector<Text> masMessage, masBeyond;
  std::size_t mlFirstBody = 0, mlProcEnd = None;
  std::size_t mlBodyStart = None, mlBodyEnd = None, mlFireStart = None, mlFireEnd = None;
  BySection<bool> mbIncomplete;
};

/// Blank rows that the template writes directly behind a row; nullptr: behind its <#Start>.
std::size_t BlankRowsBehind(const RemovalRequest& oRequest, const LineRow* pRow) {
  const auto& oLines = *oRequest.pLines;
  const TemplateRow& oTemplate = *oRequest.pTemplate;
  std::int32_t l =
      pRow ? static_cast<std::int32_t>(pRow - oLines.data()) : oTemplate.lStart[Section::Start];
  std::size_t lCount = 0;
  for (++l; l < oTemplate.lStart[Section::End]; ++l) {
    const LineRow& oRow = oLines[static_cast<std::size_t>(l)];
    if (!IsWritten(oRow, oRequest.oValues)) continue;
    if (!IsBlankRow(oRow)) break;
    ++lCount;
  }
  return lCount;
}

}  // namespace

std::vector<Text> RemoveFromProcedure(const RemovalRequest& oRequest, const ProcText& oProc,
                                      Text& sResult) {
  return ProcedureRemoval(oRequest, oProc).Run(sResult);
}

std::vector<Text> RemoveFromDeclarations(const RemovalRequest& oRequest, const ProcText& oProc,
                                         Text& sResult) {
  const TemplateRow& oTemplate = *oRequest.pTemplate;
  std::vector<Text> asMessage;
  for (std::int32_t l = oTemplate.lStart[Section::Start]; l <= oTemplate.lStart[Section::End];
       ++l) {
    if (l < 1) continue;
    const LineRow& oRow = (*oRequest.pLines)[static_cast<std::size_t>(l)];
    if (CouldStayBehind(oRow, oRequest.oValues, oProc)) asMessage.push_back(UnfitMessage(oRow));
  }
  if (!asMessage.empty()) return asMessage;

  // The template was written behind its signature: lines ahead of that are the user's.
  std::size_t lSignature = 0;
  while (lSignature < oProc.Count() &&
         !oRequest.pSignature->IsSignature(oProc.Folded(lSignature))) {
    ++lSignature;
  }
  if (lSignature == oProc.Count()) lSignature = 0;
  RowMatch oRows(*oRequest.pLines, oTemplate.lStart[Section::Start], oTemplate.lStart[Section::End],
                 *oRequest.pSignature);
  LineWriter oWriter;
  std::size_t lBlankRows = 0;  // blank lines that the template wrote behind the row just dropped
  // A line end at the end of the text makes no line of its own here: one is always put back.
  const bool bEnded = oProc.Line(oProc.Count() - 1).empty();
  const std::size_t lLines = oProc.Count() - (bEnded ? 1 : 0);
  for (std::size_t i = 0; i < lLines; ++i) {
    const TextView sFolded = oProc.Folded(i);
    if (i >= lSignature && sFolded.empty() && lBlankRows > 0) {
      --lBlankRows;
    } else if (i >= lSignature && oRows.Takes(sFolded)) {
      lBlankRows = BlankRowsBehind(oRequest, oRows.LastRow());
    } else {
      lBlankRows = 0;
      oWriter.Add(oProc.Line(i));
    }
  }
  const bool bAny = oWriter.Any();
  sResult = oWriter.Take();
  if (bAny) sResult.append(CrLf);
  return asMessage;
}
