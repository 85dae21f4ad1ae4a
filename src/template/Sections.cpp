#include "Sections.h"

#include <algorithm>
#include <span>

#include "MXString.h"
#include "ProcText.h"

namespace {

/// Clamps a stretch of rows to the table; false when nothing is left.
bool Clamp(const std::vector<LineRow>& oRows, std::int32_t& lFirst, std::int32_t& lLast) {
  lFirst = std::max(lFirst, 1);
  lLast = std::min(lLast, static_cast<std::int32_t>(oRows.size()) - 1);
  return lFirst <= lLast;
}

/// The value of the token at the start of sText; false when it isn't one of the seven.
bool TokenValue(TextView sText, const SectionValues& oValues, Tokens eTokens, TextView& sValue,
                std::size_t& lLength) {
  const struct {
    TextView sToken;
    TextView sValue;
  } oTokens[] = {
      {u"<%ModuleName>", oValues.sModuleName}, {u"<%ProcName>", oValues.sShownName},
      {u"<%ProcType>", oValues.sBaseType},     {u"<%Signature>", oValues.sTemplate},
      {u"<%Boundary>", oValues.sBoundary},     {u"<%Severity>", oValues.sSeverity},
      {u"<%Retry>", oValues.sRetry},
  };
  constexpr std::size_t lNames = 3;  // the first ones
  for (const auto& oToken : std::span(oTokens).first(eTokens == Tokens::All ? 7 : lNames)) {
    if (!Same(sText.substr(0, oToken.sToken.size()), oToken.sToken)) continue;
    sValue = oToken.sValue;
    lLength = oToken.sToken.size();
    return true;
  }
  return false;
}

}  // namespace

Text ShownName(TextView sProcName, TextView sPropertyKind) {
  Text sShown(sProcName);
  if (!sPropertyKind.empty()) sShown.append(u" [").append(sPropertyKind).append(u"]");
  return sShown;
}

bool IsWritten(const LineRow& oRow, const SectionValues& oValues) {
  if (!oRow.bScript) return false;
  const TextView sCondition = oRow.sIfCondition;
  if (sCondition.empty()) return true;
  if (Same(sCondition, u"boundary")) return !oValues.sBoundary.empty();
  if (Same(sCondition, u"severity")) return !oValues.sSeverity.empty();
  if (Same(sCondition, u"retry")) return !oValues.sRetry.empty();
  if (Same(sCondition, u"trace")) return oValues.bTrace;
  return false;
}

void RenderRow(const LineRow& oRow, const SectionValues& oValues, Text& sText, Tokens eTokens) {
  TextView sRest = oRow.sLine;
  for (;;) {
    const std::size_t lMark = FindText(sRest, u"<%");
    sText.append(sRest.substr(0, lMark));
    if (lMark == TextView::npos) return;
    sRest.remove_prefix(lMark);
    TextView sValue = sRest.substr(0, 2);  // an unknown token stays as it is written
    std::size_t lLength = 2;
    TokenValue(sRest, oValues, eTokens, sValue, lLength);
    sText.append(sValue);
    sRest.remove_prefix(lLength);
  }
}

void WriteRows(const std::vector<LineRow>& oRows, std::int32_t lFirst, std::int32_t lLast,
               const SectionValues& oValues, LineWriter& oWriter) {
  if (!Clamp(oRows, lFirst, lLast)) return;
  for (std::int32_t l = lFirst; l <= lLast; ++l) {
    const LineRow& oRow = oRows[static_cast<std::size_t>(l)];
    if (IsWritten(oRow, oValues)) RenderRow(oRow, oValues, oWriter.NewLine());
  }
}

bool IsBlankRow(const LineRow& oRow) {
  return oRow.bScript && IsBlank(oRow.sLine);
}

Text FoldedRow(const LineRow& oRow, const SectionValues& oValues) {
  Text sText, sFolded;
  RenderRow(oRow, oValues, sText);
  MXString::FoldLine(sText, sFolded);
  return sFolded;
}

bool FitsItself(const LineRow& oRow, const SectionValues& oValues) {
  const Text sFolded = FoldedRow(oRow, oValues);
  return sFolded.empty() || oRow.sLike.Matches(sFolded);
}
