// Script rows: what a row says (condition, tokens), and whether what it writes can be told again.
#include <algorithm>
#include <array>

#include "MXStringVB.h"
#include "ProcText.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

constexpr std::array<TextView, 4> asCondition = {u"boundary", u"severity", u"retry", u"trace"};
constexpr std::array<TextView, 7> asToken = {u"<%Signature>", u"<%ModuleName>", u"<%ProcName>",
                                             u"<%ProcType>",  u"<%Boundary>",   u"<%Severity>",
                                             u"<%Retry>"};
/// The tokens that a trace exit is given.
constexpr std::array<TextView, 3> asTraceToken = {u"<%ModuleName>", u"<%ProcName>", u"<%ProcType>"};

bool Contains(std::span<const TextView> asText, TextView sText) {
  return std::find(asText.begin(), asText.end(), sText) != asText.end();
}

TextView WithoutCase(std::span<const TextView> asText, TextView sText) {
  for (TextView s : asText) {
    if (EqualNoCase(s, sText)) return s;
  }
  return {};
}

void CheckCondition(Findings& oFindings, const LineRow& oRow) {
  const TextView sCondition = oRow.sIfCondition;
  if (sCondition.empty()) {
    if (LowerCase(Trim(oRow.sLine)).starts_with(u"<#if ")) {
      oFindings.Add(oRow.lFileLine,
                    {u"The condition has no \">\", so the whole line would be written "
                     u"into code; close it behind the condition"});
    }
    return;
  }
  if (Contains(asCondition, sCondition)) return;
  const TextView sMeant = WithoutCase(asCondition, Trim(sCondition));
  if (!sMeant.empty()) {
    oFindings.Add(oRow.lFileLine, {u"The condition [", sCondition, u"] is never met; write <#if ",
                                   sMeant, u"> without further blanks"});
    return;
  }
  oFindings.Add(oRow.lFileLine, {u"The condition [", sCondition,
                                 u"] is never met; write boundary, severity, retry or trace"});
}

void CheckToken(Findings& oFindings, std::int32_t lFileLine, TextView sToken) {
  if (Contains(asToken, sToken)) return;
  const TextView sMeant = WithoutCase(asToken, sToken);
  if (!sMeant.empty()) {
    oFindings.Add(lFileLine, {u"The token ", sToken,
                              u" would stay in the code; its case counts: write ", sMeant});
    return;
  }
  oFindings.Add(lFileLine,
                {u"The token ", sToken,
                 u" would stay in the code; there are <%Signature>, <%ModuleName>, <%ProcName>, "
                 u"<%ProcType>, <%Boundary>, <%Severity> and <%Retry>"});
}

// Calls oDo for each <%...> of the line; false when the last isn't closed.
template <class Do>
bool ForEachToken(TextView sLine, Do oDo) {
  for (std::size_t lOpen = sLine.find(u"<%"); lOpen != TextView::npos;) {
    const std::size_t lClose = sLine.find(u'>', lOpen);
    if (lClose == TextView::npos) return false;
    oDo(sLine.substr(lOpen, lClose + 1 - lOpen));
    lOpen = sLine.find(u"<%", lClose);
  }
  return true;
}

void CheckText(Findings& oFindings, const LineRow& oRow) {
  const bool bClosed = ForEachToken(
      oRow.sLine, [&](TextView sToken) { CheckToken(oFindings, oRow.lFileLine, sToken); });
  if (!bClosed) {
    oFindings.Add(oRow.lFileLine, {u"A token begins with \"<%\" and has no \">\" behind it"});
  }
  if (oRow.sLine.find_first_of(TextView(u"\r\n\0", 3)) != Text::npos) {
    oFindings.Add(oRow.lFileLine,
                  {u"The line holds a CR, a LF or a NUL of its own; lines end in CR LF "
                   u"pairs"});
  }
}

// There is no way to write such a character so that it stands for itself.
constexpr TextView MoveAway = u"; move that code into a procedure that the line calls";

// True when the pattern can be used.
bool CheckPattern(Findings& oFindings, const LineRow& oRow) {
  if (oRow.sLike.IsValid()) return true;
  oFindings.Add(
      oRow.lFileLine,
      {u"The line's pattern [", oRow.sLike.Pattern(),
       u"] can't be read: \"[\" begins a list of characters, which must be closed by \"]\" "
       u"and whose ranges must run upwards",
       MoveAway});
  return false;
}

void ReportUnfit(Findings& oFindings, const LineRow& oRow, const SectionValues& oValues,
                 std::uint32_t lWithout) {
  if (oFindings.HasLine(oRow.lFileLine)) return;  // most likely from the same cause
  const Text sFolded = FoldedRow(oRow, oValues);
  if (lWithout != 0) {
    oFindings.Add(
        oRow.lFileLine,
        {u"In a procedure without ", NamesOf(lWithout), u" the line reads [", sFolded,
         u"], which doesn't fit its pattern [", oRow.sLike.Pattern(),
         u"], so it could never be taken out; write it under <#if> with that condition, or "
         u"without a blank beside the token"});
    return;
  }
  const TextView sPattern = oRow.sLike.Pattern();
  TextView sWhy = u"a token of it may be empty, so write no blank beside that";
  TextView sAdvice;
  if (sPattern.find_first_of(u"#[") != TextView::npos) {
    sWhy = u"there # stands for a digit and [ ] for one character";
    sAdvice = MoveAway;
  }
  oFindings.Add(oRow.lFileLine,
                {u"The line reads [", sFolded, u"] in code, which doesn't fit its pattern [",
                 sPattern, u"], so it could never be taken out: ", sWhy, sAdvice});
}

void CheckSelfFit(Findings& oFindings, const LineRow& oRow, const TemplateRow& oTemplate) {
  for (std::uint32_t lWithout = 0; lWithout < 8; ++lWithout) {
    const SectionValues oValues = SampleValues(oTemplate, lWithout);
    if (!IsWritten(oRow, oValues) || FitsItself(oRow, oValues)) continue;
    ReportUnfit(oFindings, oRow, oValues, lWithout);
    return;
  }
}

bool IsEndLine(TextView sFolded) {
  return sFolded == u"end sub" || sFolded == u"end function" || sFolded == u"end property";
}

void CheckWrittenRow(Findings& oFindings, const LineRow& oRow, const TemplateRow& oTemplate) {
  if (!oRow.bScript || IsBlankRow(oRow) || !oRow.sLike.IsValid()) return;
  CheckSelfFit(oFindings, oRow, oTemplate);
  if (oTemplate.eType == TemplateType::Module) {
    const TextView sOrdinary = OrdinaryDeclarationFitting(oRow.sLike);
    if (!sOrdinary.empty()) {
      oFindings.Add(oRow.lFileLine,
                    {u"The pattern [", oRow.sLike.Pattern(), u"] fits [", sOrdinary,
                     u"] too, and such a line of the user's would be taken out with the "
                     u"template; write a line that only the template has"});
    }
  } else if (IsEndLine(FoldedRow(oRow, SampleValues(oTemplate, 0)))) {
    oFindings.Add(oRow.lFileLine, {u"The line would be taken for the end of the procedure"});
  }
}

/// pNext: the row that is written behind it, null for code of the user's.
void CheckContinuation(Findings& oFindings, const LineRow& oRow, const LineRow* pNext) {
  if (!oRow.bScript || !Continues(oRow.sLine)) return;
  if (pNext && (pNext->sIfCondition.empty() || pNext->sIfCondition == oRow.sIfCondition)) return;
  oFindings.Add(oRow.lFileLine,
                {u"The line goes on into the next one, which isn't always the template's; write "
                 u"it as one line, or both under the same condition"});
}

void CheckTraceExit(Findings& oFindings, const TemplateRow& oTemplate) {
  if (oTemplate.lTraceExit == 0) return;
  const LineRow& oRow = oFindings.Line(oTemplate.lTraceExit);
  if (MXStringVB::SplitStatements(oRow.sLine).size() > 2 || Continues(oRow.sLine) ||
      CommentStart(oRow.sLine) < oRow.sLine.size()) {
    oFindings.Add(oRow.lFileLine,
                  {u"A trace exit must be one statement on one line without a comment, since it "
                   u"is put ahead of an Exit on the same line"});
  }
  ForEachToken(oRow.sLine, [&](TextView sToken) {
    if (!Contains(asToken, sToken) || Contains(asTraceToken, sToken)) return;
    oFindings.Add(oRow.lFileLine, {u"The token ", sToken,
                                   u" would stay in the code where the line is put ahead of an "
                                   u"Exit; a trace exit is given <%ModuleName>, <%ProcName> and "
                                   u"<%ProcType>"});
  });
  // A model in the Global section isn't among the written rows.
  const SectionValues oValues = SampleValues(oTemplate, 0);
  if (oRow.sLike.IsValid() && !FitsItself(oRow, oValues)) {
    ReportUnfit(oFindings, oRow, oValues, 0);
  }
}

}  // namespace

void CheckRows(Findings& oFindings) {
  const CTemplate& oTemplate = oFindings.Template();
  for (const LineRow& oRow : oTemplate.Lines()) {
    if (!oRow.bScript) continue;
    CheckCondition(oFindings, oRow);
    CheckText(oFindings, oRow);
    CheckPattern(oFindings, oRow);
  }
  for (const TemplateRow& oRow : oTemplate.Templates()) {
    if (oRow.eType == TemplateType::Unknown) continue;
    for (const Stretch& oStretch : WrittenStretches(oRow)) {
      for (std::int32_t l = oStretch.lFirst; l < oStretch.lLast; ++l) {
        CheckWrittenRow(oFindings, oFindings.Line(l), oRow);
        CheckContinuation(oFindings, oFindings.Line(l),
                          l + 1 < oStretch.lLast ? &oFindings.Line(l + 1) : nullptr);
      }
    }
    CheckTraceExit(oFindings, oRow);
  }
}

}  // namespace TemplateChecks
