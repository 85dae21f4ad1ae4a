// Script rows: what a row says (condition, tokens), and whether what it writes can be told again.
#include <algorithm>
#include <array>

#include "MXStringVB.h"
#include "ProcText.h"
#include "TemplateChecks.h"

namespace TemplateChecks {

namespace {

constexpr std::array<TextView, 5> Conditions = {u"boundary", u"severity", u"retry", u"trace",
                                                u"optional"};
constexpr std::array<TextView, 10> TokenNames = {
    u"<%Signature>", u"<%ModuleName>", u"<%ProcName>", u"<%ProcType>", u"<%Boundary>",
    u"<%Severity>",  u"<%Retry>",      u"<%Name>",     u"<%Project>",  u"<%File>"};
/// The tokens that a trace exit is given.
constexpr std::array<TextView, 6> TraceTokens = {u"<%ModuleName>", u"<%ProcName>", u"<%ProcType>",
                                                 u"<%Name>",       u"<%Project>",  u"<%File>"};

bool Contains(std::span<const TextView> texts, TextView text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

TextView WithoutCase(std::span<const TextView> texts, TextView text) {
  for (TextView s : texts) {
    if (EqualNoCase(s, text)) return s;
  }
  return {};
}

void CheckCondition(Findings& findings, const LineRow& row) {
  const TextView condition = row.sIfCondition;
  if (condition.empty()) {
    if (LowerCase(Trim(row.sLine)).starts_with(u"<#if ")) {
      findings.Add(row.fileLine, {u"The condition has no \">\", so the whole line would be written "
                                  u"into code; close it behind the condition"});
    }
    return;
  }
  if (Contains(Conditions, condition)) return;
  const TextView meant = WithoutCase(Conditions, Trim(condition));
  if (!meant.empty()) {
    findings.Add(row.fileLine, {u"The condition [", condition, u"] is never met; write <#if ",
                                meant, u"> without further blanks"});
    return;
  }
  findings.Add(row.fileLine,
               {u"The condition [", condition,
                u"] is never met; write boundary, severity, retry, trace or optional"});
}

void CheckToken(Findings& findings, std::int32_t fileLine, TextView token) {
  if (Contains(TokenNames, token)) return;
  const TextView meant = WithoutCase(TokenNames, token);
  if (!meant.empty()) {
    findings.Add(fileLine, {u"The token ", token,
                            u" would stay in the code; its case counts: write ", meant});
    return;
  }
  findings.Add(
      fileLine,
      {u"The token ", token,
       u" would stay in the code; there are <%Signature>, <%Project>, <%File>, <%ModuleName>, "
       u"<%ProcName>, <%Name>, <%ProcType>, <%Boundary>, <%Severity> and <%Retry>"});
}

// Calls act for each <%...> of the line; false when the last isn't closed.
template <class Do>
bool ForEachToken(TextView line, Do act) {
  for (std::size_t open = line.find(u"<%"); open != TextView::npos;) {
    const std::size_t close = line.find(u'>', open);
    if (close == TextView::npos) return false;
    act(line.substr(open, close + 1 - open));
    open = line.find(u"<%", close);
  }
  return true;
}

void CheckText(Findings& findings, const LineRow& row) {
  const bool closed =
      ForEachToken(row.sLine, [&](TextView token) { CheckToken(findings, row.fileLine, token); });
  if (!closed) {
    findings.Add(row.fileLine, {u"A token begins with \"<%\" and has no \">\" behind it"});
  }
  if (row.sLine.find_first_of(TextView(u"\r\n\0", 3)) != Text::npos) {
    findings.Add(row.fileLine,
                 {u"The line holds a CR, a LF or a NUL of its own; lines end in CR LF "
                  u"pairs"});
  }
}

// There is no way to write such a character so that it stands for itself.
constexpr TextView MoveAway = u"; move that code into a procedure that the line calls";

// True when the pattern can be used.
bool CheckPattern(Findings& findings, const LineRow& row) {
  if (row.sLike.IsValid()) return true;
  findings.Add(
      row.fileLine,
      {u"The line's pattern [", row.sLike.Pattern(),
       u"] can't be read: \"[\" begins a list of characters, which must be closed by \"]\" "
       u"and whose ranges must run upwards",
       MoveAway});
  return false;
}

void ReportUnfit(Findings& findings, const LineRow& row, const SectionValues& values,
                 std::uint32_t without) {
  if (findings.HasLine(row.fileLine)) return;  // most likely from the same cause
  const Text folded = FoldedRow(row, values);
  if (without != 0) {
    findings.Add(
        row.fileLine,
        {u"In a procedure without ", NamesOf(without), u" the line reads [", folded,
         u"], which doesn't fit its pattern [", row.sLike.Pattern(),
         u"], so it could never be taken out; write it under <#if> with that condition, or "
         u"without a blank beside the token"});
    return;
  }
  const TextView pattern = row.sLike.Pattern();
  TextView reason = u"a token of it may be empty, so write no blank beside that";
  TextView advice;
  if (pattern.find_first_of(u"#[") != TextView::npos) {
    reason = u"there # stands for a digit and [ ] for one character";
    advice = MoveAway;
  }
  findings.Add(row.fileLine,
               {u"The line reads [", folded, u"] in code, which doesn't fit its pattern [", pattern,
                u"], so it could never be taken out: ", reason, advice});
}

void CheckSelfFit(Findings& findings, const LineRow& row, const TemplateRow& templateRow) {
  for (std::uint32_t without = 0; without < 8; ++without) {
    const SectionValues values = SampleValues(templateRow, without);
    if (!IsWritten(row, values) || FitsItself(row, values)) continue;
    ReportUnfit(findings, row, values, without);
    return;
  }
}

/// Why a token can't stand in code, behind these words of its line; empty where it can. Texts and
/// comments hold anything.
TextView WhyNotInCode(TextView token, TextView ahead, bool isModule) {
  if (token == TextOf(Token::File)) {
    return u"holds a dot, as in Main.frm, and can stand in a text or a comment only";
  }
  if (isModule && (token == TextOf(Token::ProcName) || token == TextOf(Token::Name))) {
    return u"is (declarations) in a module template, and can stand in a text or a comment only";
  }
  if (token == TextOf(Token::ProcName)) {
    return u"reads Total [Get] on a property, which is no name; write <%Name>";
  }
  if (token == TextOf(Token::ProcType) && !LowerCase(ahead).ends_with(u"exit ") &&
      !LowerCase(ahead).ends_with(u"end ")) {
    return u"is a word of the language, such as Sub, and can stand behind Exit only";
  }
  return {};
}

void CheckTokenPlaces(Findings& findings, const LineRow& row, bool isModule) {
  const TextView line = row.sLine;
  const std::size_t comment = CommentStart(line);
  ForEachToken(line, [&](TextView token) {
    const TextView ahead = line.substr(0, static_cast<std::size_t>(token.data() - line.data()));
    const bool inText = std::count(ahead.begin(), ahead.end(), u'"') % 2 != 0;
    if (ahead.size() >= comment || inText) return;
    const TextView reason = WhyNotInCode(token, ahead, isModule);
    if (!reason.empty()) findings.Add(row.fileLine, {u"The token ", token, u" ", reason});
  });
}

bool IsEndLine(TextView folded) {
  return folded == u"end sub" || folded == u"end function" || folded == u"end property";
}

void CheckWrittenRow(Findings& findings, const LineRow& row, const TemplateRow& templateRow) {
  if (!row.script || IsBlankRow(row) || !row.sLike.IsValid()) return;
  CheckSelfFit(findings, row, templateRow);
  CheckTokenPlaces(findings, row, templateRow.eType == TemplateType::Module);
  if (templateRow.eType == TemplateType::Module) {
    const TextView ordinary = OrdinaryDeclarationFitting(row.sLike);
    if (!ordinary.empty()) {
      findings.Add(row.fileLine,
                   {u"The pattern [", row.sLike.Pattern(), u"] fits [", ordinary,
                    u"] too, and such a line of the user's would be taken out with the "
                    u"template; write a line that only the template has"});
    }
  } else if (IsEndLine(FoldedRow(row, SampleValues(templateRow, 0)))) {
    findings.Add(row.fileLine, {u"The line would be taken for the end of the procedure"});
  }
}

/// next: the row that is written behind it, null for code of the user's.
void CheckContinuation(Findings& findings, const LineRow& row, const LineRow* next) {
  if (!row.script || !Continues(row.sLine)) return;
  if (next && (next->sIfCondition.empty() || next->sIfCondition == row.sIfCondition)) return;
  findings.Add(row.fileLine,
               {u"The line goes on into the next one, which isn't always the template's; write "
                u"it as one line, or both under the same condition"});
}

void CheckTraceExit(Findings& findings, const TemplateRow& templateRow) {
  if (templateRow.lTraceExit == 0) return;
  const LineRow& row = findings.Line(templateRow.lTraceExit);
  if (MXStringVB::SplitStatements(row.sLine).size() > 2 || Continues(row.sLine) ||
      CommentStart(row.sLine) < row.sLine.size()) {
    findings.Add(row.fileLine,
                 {u"A trace exit must be one statement on one line without a comment, since it "
                  u"is put ahead of an Exit on the same line"});
  }
  ForEachToken(row.sLine, [&](TextView token) {
    if (!Contains(TokenNames, token) || Contains(TraceTokens, token)) return;
    findings.Add(row.fileLine, {u"The token ", token,
                                u" would stay in the code where the line is put ahead of an "
                                u"Exit; a trace exit is given <%Project>, <%File>, "
                                u"<%ModuleName>, <%ProcName>, <%Name> and <%ProcType>"});
  });
  // A model in the Global section isn't among the written rows.
  const SectionValues values = SampleValues(templateRow, 0);
  if (row.sLike.IsValid() && !FitsItself(row, values)) {
    ReportUnfit(findings, row, values, 0);
  }
}

}  // namespace

void CheckRows(Findings& findings) {
  const CTemplate& engine = findings.Template();
  for (const LineRow& row : engine.Lines()) {
    if (!row.script) continue;
    CheckCondition(findings, row);
    CheckText(findings, row);
    CheckPattern(findings, row);
  }
  for (const TemplateRow& row : engine.Templates()) {
    if (row.eType == TemplateType::Unknown) continue;
    for (const Stretch& stretch : WrittenStretches(row)) {
      for (std::int32_t l = stretch.first; l < stretch.last; ++l) {
        CheckWrittenRow(findings, findings.Line(l), row);
        CheckContinuation(findings, findings.Line(l),
                          l + 1 < stretch.last ? &findings.Line(l + 1) : nullptr);
      }
    }
    CheckTraceExit(findings, row);
  }
}

}  // namespace TemplateChecks
