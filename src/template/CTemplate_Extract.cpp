// Reading a procedure's settings back out of its text: the code itself is the record.
#include <cstdint>

#include "CTemplate.h"
#include "MQuillon.h"
#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"

namespace {

bool IsR(char16_t c) {
  return (c | 0x20) == u'r';
}

/// True when a text holds two of "r" in a row, in any case. Without a way out in its middle, so
/// that the compiler can look at many units at once.
bool HoldsTwoR(TextView sText) {
  std::uint16_t nFound = 0;
  for (std::size_t i = 1; i < sText.size(); ++i) {
    const int nFirst = IsR(sText[i - 1]), nSecond = IsR(sText[i]);
    nFound = static_cast<std::uint16_t>(nFound | (nFirst & nSecond));
  }
  return nFound != 0;
}

/// True when the text holds the word in any case. Most texts are long and don't: the two letters
/// behind its first are rare.
bool HoldsError(TextView sText) {
  constexpr TextView sWord = u"error";
  constexpr std::size_t lBlock = 128;
  for (std::size_t lStart = 0; lStart + sWord.size() <= sText.size(); lStart += lBlock) {
    // The second letters of words that begin in the block, and what is behind them.
    const TextView sBlock = sText.substr(lStart + 1, lBlock + 1);
    if (!HoldsTwoR(sBlock)) continue;
    for (std::size_t i = 1; i < sBlock.size(); i += IsR(sBlock[i]) ? 1 : 2) {
      if (IsR(sBlock[i]) && IsR(sBlock[i - 1]) &&
          EqualNoCase(sText.substr(lStart + i - 1, sWord.size()), sWord)) {
        return true;
      }
    }
  }
  return false;
}

/// True when the code handles errors on its own: anything but balanced pairs of Resume Next and
/// GoTo 0.
bool IsBespoke(TextView sProcCode) {
  if (!HoldsError(sProcCode)) return false;
  const ProcText oProc(sProcCode);
  bool bInside = false;
  for (std::size_t i = 0; i < oProc.Count(); ++i) {
    const TextView sFolded = oProc.Folded(i);
    if (sFolded.find(u"on error ") == TextView::npos) continue;
    const Text sCode = MXStringVB::TrimVBLiterals(MXStringVB::TrimVBComments(sFolded));
    const auto Has = [&](TextView sPart) { return sCode.find(sPart) != Text::npos; };
    const bool bGoTo0 = Has(u"on error goto 0");
    if (!bGoTo0 && Has(u"on error goto ")) return true;
    if (Has(u"on error resume next")) {
      if (bInside) return true;
      bInside = true;
    } else if (bGoTo0) {
      if (!bInside) return true;
      bInside = false;
    }
  }
  return bInside;
}

/// The constant's value that a code line holds in the place of a token; Unset when it holds none.
template <class Choice>
Choice IdFromLine(const LineRow& oRow, TextView sFolded, TextView sToken,
                  Choice (*ToId)(TextView)) {
  Text sTemplateLine;
  MXString::FoldLine(oRow.sLine, sTemplateLine);
  const auto sValue = ExtractTokenValue(sTemplateLine, sFolded, sToken);
  return sValue ? ToId(Trim(*sValue)) : Choice::Unset;
}

}  // namespace

void CTemplate::ExtractProcSettings(TextView sProcCode, CProcSettings& oProcSettings) const {
  const auto oSignature = Signatures().Find(sProcCode);
  oProcSettings.SeteLocked(oSignature && oSignature->bLocked ? MQuillon::TriState::True
                                                             : MQuillon::TriState::False);
  if (!oSignature || oSignature->sTemplate.empty()) {
    oProcSettings.SetsTemplate(IsBespoke(sProcCode) ? MQuillon::BespokeName : TextView());
    return;
  }
  const std::int32_t lTemplate = LookupTemplate(oSignature->sTemplate);
  if (lTemplate == 0) {
    oProcSettings.SetsTemplate(u"[" + oSignature->sTemplate + u"]");
    return;
  }
  const TemplateRow& oTemplate = matTemplate[static_cast<std::size_t>(lTemplate)];
  oProcSettings.SetsTemplate(oTemplate.sName);
  ExtractValues(oTemplate, ProcText(sProcCode), oProcSettings);
}

void CTemplate::ExtractValues(const TemplateRow& oTemplate, const ProcText& oProc,
                              CProcSettings& oProcSettings) const {
  const auto Row = [&](std::int32_t l) -> const LineRow& {
    return matLine[static_cast<std::size_t>(l)];
  };
  const LineRow &oBoundary = Row(oTemplate.lBoundary), &oSeverity = Row(oTemplate.lSeverity),
                &oRetry = Row(oTemplate.lRetry), &oTrace = Row(oTemplate.lTrace);
  for (std::size_t i = 0; i < oProc.Count(); ++i) {
    const TextView sFolded = oProc.Folded(i);
    if (sFolded.empty()) continue;
    if (oProcSettings.eBoundary() == MQuillon::Boundary::Unset &&
        oBoundary.sLike.Matches(sFolded)) {
      oProcSettings.SeteBoundary(
          IdFromLine(oBoundary, sFolded, u"%boundary", MQuillon::BoundaryId));
    }
    if (oProcSettings.eSeverity() == MQuillon::Severity::Unset &&
        oSeverity.sLike.Matches(sFolded)) {
      oProcSettings.SeteSeverity(
          IdFromLine(oSeverity, sFolded, u"%severity", MQuillon::SeverityId));
    }
    if (oProcSettings.eRetry() == MQuillon::Retry::Unset && oRetry.sLike.Matches(sFolded)) {
      oProcSettings.SeteRetry(IdFromLine(oRetry, sFolded, u"%retry", MQuillon::RetryId));
    }
    if (oProcSettings.eTrace() == MQuillon::TriState::Unset && oTrace.sLike.Matches(sFolded)) {
      oProcSettings.SeteTrace(MQuillon::TriState::True);
    }
  }
  if (oProcSettings.eTrace() == MQuillon::TriState::Unset)
    oProcSettings.SeteTrace(MQuillon::TriState::False);
}
