#include "Sections.h"

#include <algorithm>

#include "LineWriter.h"
#include "MXString.h"

namespace {

TextView ValueOf(Token token, const SectionValues& values) {
  switch (token) {
    case Token::ModuleName:
      return values.moduleName;
    case Token::ProcName:
      return values.shownName;
    case Token::ProcType:
      return values.baseType;
    case Token::Signature:
      return values.signature;
    case Token::Boundary:
      return values.boundary;
    case Token::Severity:
      return values.severity;
    case Token::Retry:
      return values.retry;
    case Token::Name:
      return values.name;
    case Token::Project:
      return values.project;
    case Token::File:
      return values.file;
    case Token::None:
      break;
  }
  return {};
}

bool IsName(Token token) {
  return token != Token::Signature && token != Token::Boundary && token != Token::Severity &&
         token != Token::Retry;
}

/// True for a text without blanks at its ends or side by side, which folding leaves as long.
bool IsTidy(TextView value) {
  return !value.empty() && value.front() != u' ' && value.back() != u' ' &&
         FindText(value, u"  ") == TextView::npos;
}

}  // namespace

Text ShownName(TextView procName, TextView propertyKind) {
  Text shown(procName);
  if (!propertyKind.empty()) shown.append(u" [").append(propertyKind).append(u"]");
  return shown;
}

bool IsWritten(const LineRow& row, const SectionValues& values) {
  if (!row.script) return false;
  switch (row.condition) {
    case RowCondition::None:
    case RowCondition::Optional:
      return true;
    case RowCondition::Boundary:
      return !values.boundary.empty();
    case RowCondition::Severity:
      return !values.severity.empty();
    case RowCondition::Retry:
      return !values.retry.empty();
    case RowCondition::Trace:
      return values.trace;
    case RowCondition::Never:
      break;
  }
  return false;
}

void RenderRow(const LineRow& row, const SectionValues& values, Text& text, Tokens tokens) {
  for (const RowPiece& piece : row.pieces) {
    text.append(piece.text);
    if (piece.token == Token::None) continue;
    const bool filled = tokens == Tokens::All || IsName(piece.token);
    text.append(filled ? ValueOf(piece.token, values) : TextOf(piece.token));
  }
}

void WriteRows(const std::vector<LineRow>& rows, std::int32_t first, std::int32_t last,
               const SectionValues& values, LineWriter& writer) {
  last = std::min(last, static_cast<std::int32_t>(rows.size()) - 1);
  for (std::int32_t i = std::max(first, 1); i <= last; ++i) {
    const LineRow& row = rows[static_cast<std::size_t>(i)];
    if (IsWritten(row, values)) RenderRow(row, values, writer.NewLine());
  }
}

Text FoldedRow(const LineRow& row, const SectionValues& values) {
  Text text, folded;
  RenderRow(row, values, text);
  MXString::FoldLine(text, folded);
  return folded;
}

bool FitsItself(const LineRow& row, const SectionValues& values) {
  const auto isTidy = [&](const RowPiece& piece) {
    return piece.token == Token::None || IsTidy(ValueOf(piece.token, values));
  };
  if (row.fitsAllValues && std::all_of(row.pieces.begin(), row.pieces.end(), isTidy)) return true;
  const Text folded = FoldedRow(row, values);
  return folded.empty() || row.sLike.Matches(folded);
}
