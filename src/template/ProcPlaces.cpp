#include "ProcPlaces.h"

#include <algorithm>
#include <array>

#include "Directive.h"
#include "MXStringVB.h"
#include "SplitHead.h"

namespace {

constexpr std::array<TextView, 3> BaseTypes = {u"sub", u"function", u"property"};

bool IsWhite(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}

bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

TextView WithoutNumber(TextView folded) {
  while (!folded.empty() && IsDigit(folded.front())) folded.remove_prefix(1);
  return folded;
}

/// What stands behind the End of a statement that begins with it; empty for any other.
TextView BehindEnd(TextView statement) {
  statement = TrimWhite(statement);
  if (!statement.starts_with(u"end") || statement.size() < 5 || !IsWhite(statement[3])) return {};
  return TrimWhite(statement.substr(3));
}

bool BeginsWithEnd(TextView statement) {
  while (!statement.empty() && IsWhite(statement.front())) statement.remove_prefix(1);
  return statement.size() > 3 && statement[0] == u'e' && statement[1] == u'n' &&
         statement[2] == u'd' && IsWhite(statement[3]);
}

/// False for nearly every line: no statement of it begins with End, literals and comments behind
/// a statement included.
bool MayHoldEnd(TextView folded) {
  if (folded.starts_with(u'\'')) return false;
  TextView rest = WithoutNumber(folded);
  for (std::size_t colon = 0; !BeginsWithEnd(rest); rest.remove_prefix(colon + 1)) {
    colon = FindUnit(rest, u':');
    if (colon == TextView::npos) return false;
  }
  return true;
}

/// True when a folded line holds the end in a form that isn't a line of its own.
bool HoldsEnd(TextView folded, TextView lowerType) {
  if (!MayHoldEnd(folded) || FindText(folded, lowerType) == TextView::npos) return false;
  const Text masked = MXStringVB::MaskVBLiterals(folded.substr(0, CommentStart(folded)), u"x");
  TextView rest = WithoutNumber(masked);
  while (!rest.empty()) {
    const std::size_t colon = rest.find(u':');
    if (BehindEnd(rest.substr(0, colon)) == lowerType) return true;
    if (colon == TextView::npos) return false;
    rest.remove_prefix(colon + 1);
  }
  return false;
}

bool IsBalanced(const ProcText& code, std::size_t first, std::size_t last) {
  if (!code.MayHoldDirective()) return true;
  int depth = 0;
  for (std::size_t i = first; i <= last; ++i) {
    switch (DirectiveAt(code, i)) {
      case DirectiveKind::If:
        ++depth;
        break;
      case DirectiveKind::Else:
      case DirectiveKind::ElseIf:
        if (depth == 0) return false;
        break;
      case DirectiveKind::EndIf:
        if (--depth < 0) return false;
        break;
      default:
        break;
    }
  }
  return depth == 0;
}

/// The index of the end line; nothing when there is none by itself on a line.
std::optional<std::size_t> FindEnd(const ProcText& code, std::size_t from, TextView baseType) {
  const Text type = LowerCase(baseType);
  const Text end = u"end " + type;
  for (std::size_t i = from; i < code.Count(); ++i) {
    const TextView folded = code.Folded(i);
    const bool mayHoldEnd =
        code.MayHoldMore(i) ? MayHoldEnd(folded) : BeginsWithEnd(WithoutNumber(folded));
    if (!mayHoldEnd || code.IsContinued(i)) continue;
    if (Same(folded, end)) return i;
    // An end in another form closes the procedure all the same: what follows is other code.
    if (HoldsEnd(folded, type)) return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

ProcPlaces FindPlaces(const ProcText& code, std::int32_t headLine, TextView baseType) {
  ProcPlaces places;
  if (headLine < 1 || static_cast<std::size_t>(headLine) > code.Count()) {
    places.refusal = RefusalKind::HeadNotFound;
    return places;
  }
  if (HeadHoldsEnd(code, headLine)) {
    places.refusal = RefusalKind::HeadAndEndShareLine;
    return places;
  }
  places.firstBody = BehindHead(code, headLine);
  const auto end = FindEnd(code, places.firstBody, baseType);
  if (!end) {
    places.refusal = RefusalKind::EndNotFound;
    return places;
  }
  places.end = *end;
  if (!IsBalanced(code, places.firstBody, places.end)) {
    places.refusal = RefusalKind::DirectivesUnbalanced;
  }
  return places;
}

std::size_t BehindHead(const ProcText& code, std::int32_t headLine) {
  if (headLine < 1 || static_cast<std::size_t>(headLine) > code.Count()) return code.Count();
  const std::size_t head = static_cast<std::size_t>(headLine) - 1;
  const std::size_t behind = BehindStatement(code, head);
  return code.MayHoldDirective() ? BehindSplitHead(code, head, behind) : behind;
}

bool HasHead(const ProcText& code, std::int32_t headLine) {
  if (headLine < 1 || static_cast<std::size_t>(headLine) > code.Count()) return false;
  return !Continues(code.Line(BehindHead(code, headLine) - 1));
}

bool HoldsAnyEnd(TextView folded) {
  if (!MayHoldEnd(folded)) return false;
  for (const TextView type : BaseTypes) {
    if (HoldsEnd(folded, type)) return true;
  }
  return false;
}

bool HeadHoldsEnd(const ProcText& code, std::int32_t headLine) {
  if (headLine < 1) return false;
  const std::size_t behind = BehindHead(code, headLine);
  for (std::size_t i = static_cast<std::size_t>(headLine) - 1; i < behind; ++i) {
    if (HoldsAnyEnd(code.Folded(i))) return true;
  }
  return false;
}

std::size_t BehindOptions(const ProcText& code) {
  const auto statement = [&](std::size_t i) {
    return Trim(MXStringVB::TrimVBComments(code.Folded(i)));
  };
  const auto isOption = [&](std::size_t i) {
    return statement(i).starts_with(u"option ") || statement(i).starts_with(u"def");
  };
  std::size_t i = 0;
  // A line that continues the one ahead of it belongs to that one, whatever it looks like.
  while (i < code.Count() && (code.IsContinued(i) || statement(i).empty())) ++i;
  while (i < code.Count() && (code.IsContinued(i) || isOption(i))) ++i;
  return i;
}

TextView BaseType(TextView procType) {
  constexpr TextView Property = u"Property";
  return procType.starts_with(Property) ? Property : procType;
}

TextView PropertyKind(TextView procType) {
  constexpr TextView Property = u"Property ";
  return procType.starts_with(Property) ? procType.substr(Property.size()) : TextView();
}
