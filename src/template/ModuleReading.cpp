#include "ModuleReading.h"

#include <algorithm>
#include <iterator>

#include "LogicalLine.h"
#include "ProcPlaces.h"

namespace {

bool IsWordUnit(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (unit >= u'a' && unit <= u'z');
}

/// The first word of a folded text, which becomes what follows it; empty when it begins with
/// another sign.
TextView TakeWord(TextView& text) {
  text = TrimWhite(text);
  std::size_t end = 0;
  while (end < text.size() && IsWordUnit(text[end])) ++end;
  const TextView word = text.substr(0, end);
  text.remove_prefix(end);
  return word;
}

bool IsOneOf(TextView word, std::initializer_list<TextView> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// Attribute, a name, a point, and a name that begins with VB_.
bool IsAttribute(TextView folded) {
  if (TakeWord(folded) != u"attribute") return false;
  folded = TrimWhite(folded);
  const std::size_t stop = folded.find_first_of(u".= \t\"");
  return stop != TextView::npos && stop > 0 && folded[stop] == u'.' &&
         folded.substr(stop + 1).starts_with(u"vb_");
}

/// One statement, folded, without literals and comment.
bool BeginsProcedure(TextView statement) {
  TextView word = TakeWord(statement);
  while (IsOneOf(word, {u"public", u"private", u"friend", u"global", u"static"})) {
    word = TakeWord(statement);
  }
  if (!IsOneOf(word, {u"sub", u"function", u"property"})) return false;
  return !TakeWord(statement).empty();
}

/// Any statement of a logical line.
template <class Test>
bool AnyStatement(TextView line, Test&& test) {
  while (!line.empty() && line.front() >= u'0' && line.front() <= u'9') line.remove_prefix(1);
  for (;;) {
    const std::size_t colon = line.find(u':');
    if (test(line.substr(0, colon))) return true;
    if (colon == TextView::npos) return false;
    line.remove_prefix(colon + 1);
  }
}

/// The statement that begins in a line, which may go on below it.
std::optional<RefusalKind> MisreadStatement(std::span<const TextView> lines) {
  LogicalLines logical(lines);
  if (!logical.Next()) return std::nullopt;
  if (HoldsAnyEnd(logical.Statement())) return RefusalKind::RowEndsProcedure;
  if (AnyStatement(logical.Statement(), BeginsProcedure)) return RefusalKind::RowBeginsProcedure;
  return std::nullopt;
}

/// False for nearly every statement: it begins with none of the words by which a module finds its
/// way.
bool MayBeMisread(TextView statement) {
  constexpr TextView Words[] = {u"end",    u"sub",     u"function", u"property", u"public",
                                u"static", u"private", u"friend",   u"global",   u"attribute"};
  constexpr TextView Initials = u"aefgps";
  if (statement.empty() || Initials.find(statement.front()) == TextView::npos) return false;
  return std::any_of(std::begin(Words), std::end(Words), [=](TextView word) {
    return word.front() == statement.front() && statement.starts_with(word);
  });
}

/// False for nearly every line: it stands on its own, and none of its statements is one to look at.
bool MayBeMisread(const ProcText& code, std::size_t i) {
  TextView folded = code.Folded(i);
  if (folded.empty()) return false;
  if (Continues(code.Line(i))) return true;
  if (folded.front() == u'\'') return false;
  while (!folded.empty() && folded.front() >= u'0' && folded.front() <= u'9') {
    folded.remove_prefix(1);
  }
  folded = TrimWhite(folded);
  if (!code.MayHoldMore(i)) return MayBeMisread(folded);
  // Literals are left out ahead of the look: what stands behind one may begin the statement.
  while (!MayBeMisread(folded) && !folded.starts_with(u'"')) {
    const std::size_t colon = FindUnit(folded, u':');
    if (colon == TextView::npos) return false;
    folded = TrimWhite(folded.substr(colon + 1));
  }
  return true;
}

std::optional<RefusalKind> Misreading(const ProcText& code, std::size_t i, std::size_t end) {
  if (!MayBeMisread(code, i) || code.IsContinued(i)) return std::nullopt;
  if (IsAttribute(code.Folded(i))) return RefusalKind::RowIsAttribute;
  std::vector<TextView> statement;
  for (; i < end; ++i) {
    statement.push_back(code.Line(i));
    if (!Continues(code.Line(i))) break;
  }
  return MisreadStatement(statement);
}

}  // namespace

std::optional<Refusal> FirstMisread(const TemplateSet& templates, const ProcText& code,
                                    const std::vector<Insertion::Stretch>& lines) {
  for (const Insertion::Stretch& stretch : lines) {
    const std::size_t end = std::min(stretch.end, code.Count());
    for (std::size_t i = stretch.first; i < end; ++i) {
      std::optional<RefusalKind> kind = Misreading(code, i, end);
      if (templates.HoldsLineEnd() && code.Line(i).find_first_of(u"\r\n") != TextView::npos) {
        kind = RefusalKind::RowHoldsLineEnd;
      }
      if (kind) return Refusal{*kind, i + 1, Text(code.Line(i))};
    }
  }
  return std::nullopt;
}
