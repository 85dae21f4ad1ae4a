// The operations of CTemplate that change a procedure's text. Each finds its template, hands the
// text to the pure functions, and takes the result over only when nothing refused it.
#include "CTemplate.h"

#include "Guard.h"
#include "Insertion.h"
#include "MQuillon.h"
#include "MXString.h"
#include "ProcText.h"
#include "Removal.h"
#include "TraceExits.h"

namespace {

bool IsDeclarations(TextView sProcName) {
  return sProcName == MQuillon::DeclarationsName;
}

/// True when the text holds a head at that line, and all of it.
bool HasHead(const ProcText& oProc, std::int32_t lBodyLine) {
  if (oProc.Units() == 0 || lBodyLine < 1) return false;
  if (static_cast<std::size_t>(lBodyLine) > oProc.Count()) return false;
  return !Continues(oProc.Line(BehindHead(oProc, lBodyLine) - 1));
}

Text Bracketed(TextView sMessage, TextView sName) {
  return Text(sMessage).append(u"[").append(sName).append(u"]");
}

}  // namespace

const Signature& CTemplate::Signatures() const {
  if (!mpSignature || mlSignatureLines != matLine.size()) {
    mpSignature = std::make_unique<Signature>(matTemplate, matLine);
    mlSignatureLines = matLine.size();
  }
  return *mpSignature;
}

void CTemplate::Refuse(TextView sMessage, bool& bErrors) {
  bErrors = true;
  ReportError(sMessage);
}

std::int32_t CTemplate::FindForRewrite(TextView sTemplate, bool& bErrors) {
  if (Trim(sTemplate).empty()) {
    Refuse(u"    No Template Specified", bErrors);
    return 0;
  }
  const std::int32_t lRow = LookupTemplate(sTemplate);
  if (lRow == 0) Refuse(Bracketed(u"    Template not Found ", sTemplate), bErrors);
  return lRow;
}

void CTemplate::InsertTemplate(TextView sModuleName, TextView sProcName, TextView sProcType,
                               Text& sProcCode, std::int32_t lBodyLine, TextView sTemplate,
                               bool bLocked, TextView sBoundary, TextView sSeverity,
                               TextView sRetry, bool bTrace, MQuillon::LineNumAction eLineNumAction,
                               bool& bErrors) {
  bErrors = true;  // until the work has come to its end
  Guard({u"CTemplate", u"InsertTemplate"}, [&](GuardScope&) {
    bErrors = false;
    const std::int32_t lRow = FindForRewrite(sTemplate, bErrors);
    if (lRow == 0) return;
    InsertionRequest oRequest;
    oRequest.pTemplate = &matTemplate[static_cast<std::size_t>(lRow)];
    oRequest.pLines = &matLine;
    oRequest.pSignature = &Signatures();
    oRequest.pRules = &moRules;
    const bool bDeclarations = IsDeclarations(sProcName);
    const TextView sKind = bDeclarations ? TextView() : PropertyKind(sProcType);
    oRequest.oValues = {sTemplate,
                        sModuleName,
                        ShownName(sProcName, sKind),
                        bDeclarations ? TextView() : BaseType(sProcType),
                        sBoundary,
                        sSeverity,
                        sRetry,
                        bTrace};
    oRequest.bLocked = bLocked;
    oRequest.lBodyLine = lBodyLine;
    oRequest.eLineNumAction = eLineNumAction;
    oRequest.bSigned = Signatures().Find(sProcCode).has_value();
    Text sClean;
    if (oRequest.bSigned) sClean = WithoutLockSignature(sProcCode, oRequest.lBodyLine);
    const ProcText oProc(oRequest.bSigned ? TextView(sClean) : TextView(sProcCode));
    Text sResult;
    const Text sRefusal = bDeclarations ? InsertIntoDeclarations(oRequest, oProc, sResult)
                                        : InsertIntoProcedure(oRequest, oProc, sResult);
    if (!sRefusal.empty()) return Refuse(sRefusal, bErrors);
    sProcCode = std::move(sResult);
  });
}

void CTemplate::RemoveTemplate(TextView sModuleName, TextView sProcName, TextView sProcType,
                               Text& sProcCode, std::int32_t lBodyLine, TextView sTemplate,
                               bool& bErrors) {
  bErrors = true;
  Guard({u"CTemplate", u"RemoveTemplate"}, [&](GuardScope&) {
    bErrors = false;
    const std::int32_t lRow = FindForRewrite(sTemplate, bErrors);
    if (lRow == 0) return;
    const ProcText oProc(sProcCode);
    CProcSettings oCode;
    ExtractValues(matTemplate[static_cast<std::size_t>(lRow)], oProc, oCode);
    const Text sBoundary = MQuillon::BoundaryName(oCode.eBoundary());
    const Text sSeverity = MQuillon::SeverityName(oCode.eSeverity());
    const Text sRetry = MQuillon::RetryName(oCode.eRetry());
    RemovalRequest oRequest;
    oRequest.pTemplate = &matTemplate[static_cast<std::size_t>(lRow)];
    oRequest.pLines = &matLine;
    oRequest.pSignature = &Signatures();
    oRequest.pRules = &moRules;
    const bool bDeclarations = IsDeclarations(sProcName);
    const TextView sKind = bDeclarations ? TextView() : PropertyKind(sProcType);
    oRequest.oValues = {oRequest.pTemplate->sName,
                        sModuleName,
                        ShownName(sProcName, sKind),
                        bDeclarations ? TextView() : BaseType(sProcType),
                        sBoundary,
                        sSeverity,
                        sRetry,
                        oCode.eTrace() == MQuillon::TriState::True};
    oRequest.lBodyLine = lBodyLine;
    Text sResult;
    const std::vector<Text> asRefusal = bDeclarations
                                            ? RemoveFromDeclarations(oRequest, oProc, sResult)
                                            : RemoveFromProcedure(oRequest, oProc, sResult);
    for (const Text& sRefusal : asRefusal) Refuse(sRefusal, bErrors);
    if (asRefusal.empty()) sProcCode = std::move(sResult);
  });
}

Text CTemplate::WithoutLockSignature(TextView sProcCode) const {
  std::int32_t lBodyLine = 0;
  return WithoutLockSignature(sProcCode, lBodyLine);
}

Text CTemplate::WithoutLockSignature(TextView sProcCode, std::int32_t& lBodyLine) const {
  if (!Signatures().Find(sProcCode)) return Text(sProcCode);
  const ProcText oProc(sProcCode);
  const std::int32_t lHead = lBodyLine;
  LineWriter oWriter;
  bool bAny = false;
  for (std::size_t i = 0; i < oProc.Count(); ++i) {
    const auto oValue = oProc.Folded(i).empty() ? std::nullopt : Signatures().Read(oProc.Folded(i));
    // The rest of a comment that goes on is no signature: the line behind would take its place.
    if (oValue && oValue->sTemplate.empty() && !oProc.IsContinued(i)) {
      bAny = true;
      if (static_cast<std::int32_t>(i) + 1 < lHead) --lBodyLine;
    } else {
      oWriter.Add(oProc.Line(i));
    }
  }
  return bAny ? oWriter.Take() : Text(sProcCode);
}

void CTemplate::InsertSignatureOnly(TextView sProcName, TextView, Text& sProcCode,
                                    std::int32_t lBodyLine, bool bLocked, bool& bErrors) {
  bErrors = true;
  Guard({u"CTemplate", u"InsertSignatureOnly"}, [&](GuardScope&) {
    bErrors = false;
    const Text sClean = WithoutLockSignature(sProcCode, lBodyLine);
    const Text sLine = Signatures().Line({}, bLocked);
    const ProcText oProc(sClean);
    const bool bDeclarations = IsDeclarations(sProcName);
    if (!sLine.empty() && !Signatures().IsReadable({}, bLocked)) {
      return Refuse(u"    Signature of a Lock could not be read back", bErrors);
    }
    if (!bDeclarations && HeadHoldsEnd(oProc, lBodyLine)) {
      return Refuse(u"    Procedure Head and End share a Line", bErrors);
    }
    std::size_t lPlace = bDeclarations ? BehindOptions(oProc) : BehindHead(oProc, lBodyLine);
    std::size_t lCount = oProc.Count();
    if (bDeclarations && sClean.empty()) lPlace = lCount = 0;
    if (!bDeclarations && !HasHead(oProc, lBodyLine)) {
      return Refuse(u"    Procedure Head Not Found", bErrors);
    }
    LineWriter oWriter;
    oWriter.Add(oProc, 0, lPlace);
    if (!sLine.empty()) oWriter.Add(sLine);
    oWriter.Add(oProc, lPlace, lCount);
    sProcCode = oWriter.Take();
  });
}

void CTemplate::RemoveSignatureOnly(Text& sProcCode, bool& bErrors) {
  bErrors = true;
  Guard({u"CTemplate", u"RemoveSignatureOnly"}, [&](GuardScope&) {
    bErrors = false;
    const ProcText oProc(sProcCode);
    LineWriter oWriter;
    bool bDrop = false;  // blank lines go with the signature that they stand behind
    for (std::size_t i = 0; i < oProc.Count(); ++i) {
      if (!oProc.Folded(i).empty()) {
        bDrop = Signatures().IsSignature(oProc.Folded(i)) && !oProc.IsContinued(i);
      }
      if (!bDrop) oWriter.Add(oProc.Line(i));
    }
    sProcCode = oWriter.Take();
  });
}

void CTemplate::DoTraceExits(TextArray& asLine, std::int32_t lStartLine, std::int32_t lEndLine,
                             TextView sProcType, TextView sTraceExit) {
  const TextView sTrimmed = Trim(sTraceExit);
  if (sTrimmed.empty()) return;
  for (std::int32_t l = lStartLine; l <= lEndLine; ++l) {
    Text& sLine = asLine[static_cast<std::size_t>(l)];
    sLine = TraceExits::Insert(sLine, sProcType, sTrimmed);
  }
}
