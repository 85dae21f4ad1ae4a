#include "Insertion.h"

#include <span>

#include "Failure.h"
#include "LineNumbers.h"
#include "MQuillon.h"
#include "MXString.h"
#include "ProcText.h"
#include "TraceExits.h"

namespace {

/// The first run of clean-up comment lines of a body: indices of its lines, lEnd behind the last.
struct FireBlock {
  std::size_t lFirst = 0;
  std::size_t lEnd = 0;
  bool Found() const { return lEnd > lFirst; }
};

FireBlock FindFireBlock(const ProcText& oProc, const ProcPlaces& oPlaces) {
  const auto IsFire = [&](std::size_t i) { return oProc.Folded(i).starts_with(FireMark); };
  FireBlock oBlock;
  std::size_t i = oPlaces.lFirstBody;
  // A line that continues a comment is no block of its own.
  while (i < oPlaces.lEnd && !(IsFire(i) && !oProc.IsContinued(i))) ++i;
  oBlock.lFirst = i;
  while (i < oPlaces.lEnd && IsFire(i)) ++i;
  oBlock.lEnd = i;
  return oBlock;
}

/// The code of a clean-up comment line: what stands behind the mark and its one blank.
TextView FireCode(TextView sLine) {
  sLine.remove_prefix(sLine.find_first_not_of(u' ') + FireMark.size());
  if (sLine.starts_with(u' ')) sLine.remove_prefix(1);
  return sLine;
}

/// Signature of the procedure as the request asks for it; a message when it couldn't be read back.
Text CheckSignature(const InsertionRequest& oRequest) {
  const TextView sTemplate = oRequest.oValues.sTemplate;
  if (oRequest.pSignature->IsReadable(sTemplate, oRequest.bLocked)) return Text();
  return u"    Signature of Template [" + Text(sTemplate) + u"] could not be read back";
}

Text CheckType(const InsertionRequest& oRequest, TemplateType eType, TextView sWanted) {
  if (oRequest.pTemplate->eType == eType) return Text();
  return u"    Template is not of type " + Text(sWanted) + u" [" + oRequest.pTemplate->sName + u"]";
}

Text CheckNoTemplate(const InsertionRequest& oRequest, const ProcText& oProc) {
  if (!oRequest.bSigned) return Text();
  for (std::size_t i = 0; i < oProc.Count(); ++i) {
    const TextView sFolded = oProc.Folded(i);
    if (sFolded.empty()) continue;
    const auto oValue = oRequest.pSignature->Read(sFolded);
    if (oValue && !oValue->sTemplate.empty()) {
      return u"    Code holds a Template already; Line=" + ToText(static_cast<long long>(i) + 1) +
             u" [" + Text(oProc.Line(i)) + u"]";
    }
  }
  return Text();
}

/// Writes the lines of a body with its trace exits and line numbers.
class BodyWriter {
 public:
  BodyWriter(const InsertionRequest& oRequest, const ProcText& oProc, LineWriter& oWriter)
      : moRequest(oRequest), moProc(oProc), moWriter(oWriter) {
    const TemplateRow& oTemplate = *oRequest.pTemplate;
    if (!oRequest.oValues.bTrace || oTemplate.lTraceExit == 0) return;
    const auto lRow = static_cast<std::size_t>(oTemplate.lTraceExit);
    msTraceExit = TraceExits::GetTraceExit((*oRequest.pLines)[lRow], oRequest.oValues);
  }

  void Write(std::size_t lFirst, std::size_t lEnd) {
    if (moRequest.eLineNumAction == MQuillon::LineNumAction::Leave) {
      WriteLines(lFirst, lEnd, moWriter);
      return;
    }
    LineWriter oTraced;
    WriteLines(lFirst, lEnd, oTraced);
    if (!oTraced.Any()) return;
    const Text sTraced = oTraced.Take();
    std::vector<TextView> asLine;
    for (std::size_t l = 0; l <= sTraced.size(); l += asLine.back().size() + CrLf.size()) {
      asLine.push_back(TextView(sTraced).substr(l, FindLineEnd(sTraced, l) - l));
    }
    moWriter.AddEnded(
        LineNumbers::DoLineNumbers(asLine, moRequest.eLineNumAction, *moRequest.pRules));
  }

 private:
  void WriteLines(std::size_t lFirst, std::size_t lEnd, LineWriter& oWriter) const {
    if (msTraceExit.empty()) return oWriter.Add(moProc, lFirst, lEnd);
    bool bInComment = false;  // in a comment that continues over lines nothing is code
    for (std::size_t i = lFirst; i < lEnd; ++i) {
      const TextView sLine = moProc.Line(i);
      const bool bGoesOn = Continues(sLine);
      const bool bComment = bInComment || (bGoesOn && CommentStart(sLine) < sLine.size());
      if (!bInComment && FindText(sLine, u"Exit ") != TextView::npos) {
        oWriter.Add(TraceExits::Insert(sLine, moRequest.oValues.sBaseType, msTraceExit));
      } else {
        oWriter.Add(sLine);
      }
      bInComment = bGoesOn && bComment;
    }
  }

  const InsertionRequest& moRequest;
  const ProcText& moProc;
  LineWriter& moWriter;
  Text msTraceExit;
};

/// The sections and the body behind the signature.
void WriteSections(const InsertionRequest& oRequest, const ProcText& oProc,
                   const ProcPlaces& oPlaces, LineWriter& oWriter) {
  const TemplateRow& oTemplate = *oRequest.pTemplate;
  const auto Rows = [&](Section eFirst, Section eLast) {
    WriteRows(*oRequest.pLines, oTemplate.lStart[eFirst], oTemplate.lStart[eLast], oRequest.oValues,
              oWriter);
  };
  Rows(Section::Start, Section::BodyStart);
  BodyWriter oBody(oRequest, oProc, oWriter);
  if (!oTemplate.bFire) {
    oBody.Write(oPlaces.lFirstBody, oPlaces.lEnd);
    Rows(Section::BodyEnd, Section::End);
    return;
  }
  const FireBlock oFire = FindFireBlock(oProc, oPlaces);
  oBody.Write(oPlaces.lFirstBody, oFire.Found() ? oFire.lFirst : oPlaces.lEnd);
  if (oFire.Found()) oWriter.Add(oProc, oFire.lEnd, oPlaces.lEnd);
  Rows(Section::BodyEnd, Section::FireStart);
  for (std::size_t i = oFire.lFirst; i < oFire.lEnd; ++i) oWriter.Add(FireCode(oProc.Line(i)));
  Rows(Section::FireEnd, Section::End);
}

}  // namespace

Text InsertIntoProcedure(const InsertionRequest& oRequest, const ProcText& oProc, Text& sResult) {
  Text sRefusal = CheckType(oRequest, TemplateType::Procedure, u"procedure");
  if (sRefusal.empty()) sRefusal = CheckSignature(oRequest);
  if (!sRefusal.empty()) return sRefusal;
  const ProcPlaces oPlaces = FindPlaces(oProc, oRequest.lBodyLine, oRequest.oValues.sBaseType);
  if (oPlaces.Refused()) return oPlaces.sRefusal;
  sRefusal = CheckNoTemplate(oRequest, oProc);
  if (!sRefusal.empty()) return sRefusal;

  LineWriter oWriter;
  oWriter.Reserve(oProc.Units() + 2048);
  oWriter.Add(oProc, 0, oPlaces.lFirstBody);
  oWriter.Add(oRequest.pSignature->Line(oRequest.oValues.sTemplate, oRequest.bLocked));
  try {
    WriteSections(oRequest, oProc, oPlaces, oWriter);
  } catch (const Failure& oFailure) {  // a number that doesn't fit its field
    return u"    " + oFailure.Description();
  }
  oWriter.Add(oProc, oPlaces.lEnd, oProc.Count());
  sResult = oWriter.Take();
  return Text();
}

Text InsertIntoDeclarations(const InsertionRequest& oRequest, const ProcText& oProc,
                            Text& sResult) {
  Text sRefusal = CheckType(oRequest, TemplateType::Module, u"module");
  if (sRefusal.empty()) sRefusal = CheckSignature(oRequest);
  if (!sRefusal.empty()) return sRefusal;
  sRefusal = CheckNoTemplate(oRequest, oProc);
  if (!sRefusal.empty()) return sRefusal;

  const TemplateRow& oTemplate = *oRequest.pTemplate;
  const std::size_t lLines = oProc.Units() == 0 ? 0 : oProc.Count();
  std::size_t lPlace = oProc.Units() == 0 ? 0 : BehindOptions(oProc);
  // What follows the last line end of blank declarations is no line to stand behind.
  if (lPlace > 0 && lPlace == lLines && oProc.Line(lPlace - 1).empty()) --lPlace;
  LineWriter oWriter;
  oWriter.Add(oProc, 0, lPlace);
  oWriter.Add(oRequest.pSignature->Line(oRequest.oValues.sTemplate, oRequest.bLocked));
  WriteRows(*oRequest.pLines, oTemplate.lStart[Section::Start], oTemplate.lStart[Section::End],
            oRequest.oValues, oWriter);
  oWriter.Add(oProc, lPlace, lLines);
  sResult = oWriter.Take();
  return Text();
}
