#include "TemplateSet.h"

#include <algorithm>
#include <array>

#include "MXString.h"
#include "ProcText.h"
#include "Sections.h"

namespace {

/// In the order of Token.
constexpr std::array<TextView, 11> TokenTexts = {u"",
                                                 u"<%ModuleName>",
                                                 u"<%ProcName>",
                                                 u"<%ProcType>",
                                                 u"<%Signature>",
                                                 u"<%Boundary>",
                                                 u"<%Severity>",
                                                 u"<%Retry>",
                                                 u"<%Name>",
                                                 u"<%Project>",
                                                 u"<%File>"};

/// The token that the text begins with; None for an unknown one.
Token TokenAt(TextView text) {
  for (std::size_t i = 1; i < TokenTexts.size(); ++i) {
    if (text.starts_with(TokenTexts[i])) return static_cast<Token>(i);
  }
  return Token::None;
}

/// The text as pieces, each with the token behind it. An unknown token is text like any other.
std::vector<RowPiece> PiecesOf(TextView text) {
  std::vector<RowPiece> pieces(1);
  while (!text.empty()) {
    const Token token = TokenAt(text);
    if (token == Token::None) {
      pieces.back().text.push_back(text.front());
      text.remove_prefix(1);
      continue;
    }
    pieces.back().token = token;
    pieces.emplace_back();
    text.remove_prefix(TextOf(token).size());
  }
  return pieces;
}

/// True when the row fits its own pattern whatever its tokens are filled with, as long as each
/// value is a text without blanks at its ends or side by side: then the pattern says of each unit
/// outside the tokens just that unit, and of each token a star.
bool FitsAllValues(const LineRow& row) {
  Text pattern;
  for (const RowPiece& piece : row.pieces) {
    if (piece.text.find_first_of(u"?#[*<") != Text::npos) return false;
    pattern.append(piece.text);
    if (piece.token != Token::None) pattern.push_back(u'*');
  }
  Text folded;
  MXString::FoldLine(pattern, folded);
  return row.sLike.IsValid() && row.sLike.Pattern() == folded;
}

bool Holds(const LineRow& row, Token token) {
  return std::any_of(row.pieces.begin(), row.pieces.end(),
                     [&](const RowPiece& piece) { return piece.token == token; });
}

RowCondition ConditionOf(TextView word) {
  if (word.empty()) return RowCondition::None;
  if (word == u"boundary") return RowCondition::Boundary;
  if (word == u"severity") return RowCondition::Severity;
  if (word == u"retry") return RowCondition::Retry;
  if (word == u"trace") return RowCondition::Trace;
  return word == u"optional" ? RowCondition::Optional : RowCondition::Never;
}

void PrepareRow(LineRow& row) {
  if (!row.script) return;
  row.pieces = PiecesOf(row.sLine);
  MXString::FoldLine(row.sLine, row.folded);
  row.condition = ConditionOf(row.sIfCondition);
  row.blank = IsBlank(row.sLine);
  row.holdsLineEnd = row.sLine.find_first_of(u"\r\n") != Text::npos;
  row.fitsAllValues = FitsAllValues(row);
}

/// A trace exit's pattern ends ahead of the row's comment, which is never written with it.
LikePattern TraceExitPattern(const LikePattern& pattern) {
  const TextView source = pattern.Pattern();
  const std::size_t comment = CommentStart(source);
  return comment == source.size() ? pattern : LikePattern(Trim(source.substr(0, comment)));
}

/// Jumps stand in many a body, and what begins with a token fits labels of the user's.
bool MayStandInBody(const LikePattern& border) {
  const TextView pattern = border.Pattern();
  return pattern.starts_with(u"exit ") || pattern.starts_with(u"goto ") ||
         pattern.starts_with(u"*");
}

}  // namespace

TextView TextOf(Token token) {
  return TokenTexts[static_cast<std::size_t>(token)];
}

void TemplateSet::Prepare() {
  for (LineRow& row : lines) PrepareRow(row);
  for (TemplateRow& row : templates) {
    row.boundaryReader = TokenReader(Row(row.lBoundary).folded);
    row.severityReader = TokenReader(Row(row.lSeverity).folded);
    row.retryReader = TokenReader(Row(row.lRetry).folded);
    if (row.lTraceExit > 0) {
      row.traceExitLike = TraceExitPattern(Row(row.lTraceExit).sLike);
      const Text& pattern = row.traceExitLike.Pattern();
      row.traceExitBegin = Trim(pattern.substr(0, pattern.find_first_of(u"*?#[")));
    }
  }
  mModuleNames.clear();
  for (TemplateRow& row : templates) {
    row.tailFromEnd = MayStandInBody(row.sLike[Section::BodyEnd]);
    row.names = NamesOf(RowsOf(row));
    row.namesVary = NamesOf(RowsOf(row), {.name = u"a", .project = u"a"}) !=
                    NamesOf(RowsOf(row), {.name = u"b", .project = u"b"});
    if (row.eType != TemplateType::Module) continue;
    mModuleNames.insert(row.names.declared.begin(), row.names.declared.end());
  }
  mHoldsLineEnd =
      std::any_of(lines.begin(), lines.end(), [](const LineRow& row) { return row.holdsLineEnd; });
  mNamesOrigin = std::any_of(lines.begin(), lines.end(), [](const LineRow& row) {
    return Holds(row, Token::Project) || Holds(row, Token::File);
  });
  mSignature = std::make_unique<Signature>(templates, lines);
}

std::span<const LineRow> TemplateSet::RowsOf(const TemplateRow& row) const {
  const std::int32_t first = row.lStart[Section::Start], end = row.lStart[Section::End];
  const bool sound = first >= 0 && first < end && static_cast<std::size_t>(end) < lines.size();
  if (!sound) return {};
  return std::span(lines).subspan(static_cast<std::size_t>(first),
                                  static_cast<std::size_t>(end - first));
}

NamesInTemplate TemplateSet::NamesFor(const TemplateRow& row, const SectionValues& values) const {
  return NamesOf(RowsOf(row), values);
}

const TemplateRow* TemplateSet::Find(TextView name) const {
  const auto found = std::find_if(templates.begin() + 1, templates.end(),
                                  [&](const auto& row) { return EqualNoCase(row.sName, name); });
  return found == templates.end() ? nullptr : &*found;
}
