// In order: what all rules need, Err, names, clean-up code, numbers, limits.
#include "Meaning.h"

#include <algorithm>
#include <functional>

#include "ErrRead.h"
#include "MQuillon.h"
#include "NamesInTemplate.h"
#include "ProcPlaces.h"
#include "StatementWords.h"

namespace {

using Meaning::Put;
using Found = std::optional<Refusal>;

constexpr std::size_t LineUnits = 1023;
constexpr std::size_t ContinuedLines = 24;
constexpr std::size_t ProcedureUnits = 64 * 1024;

/// A refusal that shows a line of the text.
Refusal At(RefusalKind kind, const ProcText& code, std::size_t i, TextView name = {}) {
  Refusal refusal{kind, i + 1, Text(TrimWhite(code.Line(i)))};
  if (!name.empty()) refusal = {kind, i + 1, Text(name), refusal.name};
  return refusal;
}

// Err.

Found ErrReadFault(const Put& put) {
  if (put.old || !put.row.names.handles) return std::nullopt;
  const auto line = FirstErrRead(put.bare, put.insertion.body.first, put.insertion.body.end);
  return line ? Found(At(RefusalKind::ErrRead, put.bare, *line)) : std::nullopt;
}

// Names.

bool Holds(const std::vector<Text>& names, TextView name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// Calls take(name) for each parameter of a head.
template <class Take>
void EachParameter(std::span<const TextView> words, Take&& take) {
  int depth = 0;
  bool first = false;
  for (const TextView word : words) {
    if (word == u"(" && ++depth == 1) {
      first = true;
    } else if (word == u")") {
      --depth;
    } else if (depth == 1 && word == u",") {
      first = true;
    } else if (first && word != u"byval" && word != u"byref" && word != u"optional" &&
               word != u"paramarray") {
      take(word);
      first = false;
    }
  }
}

bool BeginsDeclaration(TextView folded) {
  return folded.starts_with(u"dim") || folded.starts_with(u"static") ||
         folded.starts_with(u"const");
}

class NameSearch {
 public:
  explicit NameSearch(const Put& put)
      : mCode(put.bare),
        mVarying(put.row.namesVary
                     ? put.procedure.Templates().NamesFor(put.row, put.procedure.NameValues())
                     : NamesInTemplate()),
        mNames(put.row.namesVary ? mVarying : put.row.names),
        mBody(put.insertion.body),
        mPut(put) {}

  Found First() {
    if (!mPut.procedure.IsDeclarations()) {
      SearchHead();
      for (std::size_t i = mBody.first; i < mBody.end && !mFound; ++i) SearchLine(i);
    }
    for (const Text& name : mNames.declared) {
      // Code may well use what the template declares once that is there.
      const bool isKnown = mPut.old && Holds(mPut.old->names.declared, name);
      if (!mFound && !isKnown) SearchUse(name);
    }
    if (!mFound && mPut.module) SearchModule();
    return std::move(mFound);
  }

 private:
  bool IsOfTemplate(TextView name) const {
    return Holds(mNames.declared, name) ||
           std::binary_search(mNames.used.begin(), mNames.used.end(), name);
  }
  void TakeLocal(TextView name, std::size_t line) {
    if (!mFound && IsOfTemplate(name)) mFound = At(RefusalKind::NameClash, mCode, line, name);
  }

  void SearchHead() {
    const auto head = static_cast<std::size_t>(mPut.headLine) - 1;
    // Few heads hold such a name anywhere: most need not be taken apart.
    const auto inHead = [&](const Text& name) { return mCode.MayHold(head, mBody.first, name); };
    if (std::ranges::none_of(mNames.used, inHead) && std::ranges::none_of(mNames.declared, inHead))
      return;
    AnyStatement(mCode, head, mBody.first, [&](std::span<const TextView> words, std::size_t line) {
      EachParameter(words, [&](TextView name) { TakeLocal(name, line); });
      return mFound.has_value();
    });
  }

  /// False when a declaration on a line of its own surely holds no name of the template's: most
  /// hold none, and need not be taken apart.
  bool MayDeclare(std::size_t i, TextView folded) const {
    if (Continues(mCode.Line(i))) return true;
    return std::ranges::any_of(Words(folded), [&](TextView word) { return IsOfTemplate(word); });
  }

  /// A label, or what a declaration names.
  void SearchLine(std::size_t i) {
    const TextView folded = TrimWhite(mCode.Folded(i));
    if (mCode.MayHoldMore(i) && !mCode.IsContinued(i)) {
      const TextView label = folded.substr(0, std::min(folded.find(u':'), folded.size()));
      if (label.size() < folded.size() && Holds(mNames.labels, label)) {
        mFound = At(RefusalKind::NameClash, mCode, i, label);
      }
    }
    if (!BeginsDeclaration(folded) || !MayDeclare(i, folded)) return;
    std::size_t end = i;
    while (end < mBody.end && Continues(mCode.Line(end))) ++end;
    AnyStatement(mCode, i, std::min(end + 1, mBody.end),
                 [&](std::span<const TextView> words, std::size_t line) {
                   EachDeclared(words, [&](TextView name) { TakeLocal(name, line); });
                   return mFound.has_value();
                 });
  }

  /// A name that the template declares hides whatever else the code calls so.
  void SearchUse(TextView name) {
    if (mCode.Count() == 0 || !mCode.MayHold(0, mCode.Count(), name)) return;
    AnyStatement(mCode, 0, mCode.Count(), [&](std::span<const TextView> words, std::size_t line) {
      for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] != name || IsMember(words, i) || Is(words, i + 1, u":")) continue;
        mFound = At(RefusalKind::NameClash, mCode, line, name);
        return true;
      }
      return false;
    });
  }

  void SearchModule() {
    for (const Text& name : mNames.used) {
      if (!mPut.module->contains(name)) continue;
      if (mPut.procedure.Templates().IsModuleName(name)) continue;
      mFound = Refusal{RefusalKind::NameClashInModule, 0, name};
      return;
    }
  }

  const ProcText& mCode;
  const NamesInTemplate mVarying;
  const NamesInTemplate& mNames;
  const Insertion::Stretch mBody;
  const Put& mPut;
  Found mFound;
};

// Clean-up code.

bool IsCode(const ProcText& code, std::size_t i) {
  return !TrimWhite(code.Line(i).substr(0, code.CommentOf(i))).empty();
}

Found CleanUp(const Put& put) {
  const Insertion::Stretch block = put.insertion.cleanUp;
  if (block.first == block.end) return std::nullopt;
  for (std::size_t i = block.end; i < put.insertion.body.end; ++i) {
    if (put.bare.Folded(i).starts_with(FireMark)) {
      return At(RefusalKind::CleanUpSplit, put.bare, i);
    }
    if (IsCode(put.bare, i) || put.bare.IsContinued(i)) {
      return At(RefusalKind::CleanUpNotLast, put.bare, i);
    }
  }
  return std::nullopt;
}

// Numbers.

bool IsLess(TextView number, TextView other) {
  return number.size() != other.size() ? number.size() < other.size() : number < other;
}

/// The number of a line without leading zeros; empty for none.
TextView NumberOf(const ProcText& code, std::size_t i) {
  const TextView folded = code.Folded(i);
  if (folded.empty() || folded.front() < u'0' || folded.front() > u'9') return {};
  if (code.IsContinued(i)) return {};
  TextView number =
      folded.substr(0, std::min(folded.find_first_not_of(u"0123456789"), folded.size()));
  while (number.size() > 1 && number.front() == u'0') number.remove_prefix(1);
  return number;
}

/// In their order.
std::vector<TextView> NumbersIn(const ProcText& code) {
  std::vector<TextView> numbers;
  for (std::size_t i = 0; i < code.Count(); ++i) {
    const TextView number = NumberOf(code, i);
    if (!number.empty()) numbers.push_back(number);
  }
  return numbers;
}

Found NumberTwice(const Put& put) {
  std::vector<TextView> numbers = NumbersIn(put.after);
  // Mostly each one is greater than the one ahead, and then none is there twice.
  const auto ascends = [](TextView number, TextView next) { return IsLess(number, next); };
  if (std::ranges::adjacent_find(numbers, std::not_fn(ascends)) == numbers.end())
    return std::nullopt;
  std::ranges::sort(numbers, IsLess);
  const auto twice = std::ranges::adjacent_find(numbers);
  if (twice == numbers.end()) return std::nullopt;
  Refusal refusal{RefusalKind::NumberTwice, 0, Text(*twice)};
  const ProcText& code = put.procedure.Code();
  for (std::size_t i = 0; i < code.Count(); ++i) {
    if (NumberOf(code, i) == *twice) refusal.sourceLine = i + 1;
  }
  return refusal;
}

// Limits. What was beyond them before may stay as it is.

bool HoldsLine(const ProcText& code, TextView line) {
  for (std::size_t i = 0; i < code.Count(); ++i) {
    if (Same(code.Line(i), line)) return true;
  }
  return false;
}

Found LineTooLong(const Put& put) {
  for (std::size_t i = 0; i < put.after.Count(); ++i) {
    const TextView line = put.after.Line(i);
    if (line.size() <= LineUnits || HoldsLine(put.procedure.Code(), line)) continue;
    constexpr std::size_t Shown = 40;
    Refusal refusal{RefusalKind::LineTooLong, 0, Text(TrimWhite(line).substr(0, Shown)) + u"..."};
    // A number at its beginning is what makes it longer, or a trace exit in it.
    const ProcText& code = put.procedure.Code();
    const auto tail = line.substr(line.size() - LineUnits / 2);
    for (std::size_t k = 0; k < code.Count() && refusal.sourceLine == 0; ++k) {
      if (code.Line(k).ends_with(tail)) refusal.sourceLine = k + 1;
    }
    return refusal;
  }
  return std::nullopt;
}

Found TooManyContinuations(const Put& put) {
  for (const Insertion::Stretch& stretch : put.insertion.templateLines) {
    std::size_t continued = 0;
    for (std::size_t i = stretch.first; i < std::min(stretch.end, put.after.Count()); ++i) {
      continued = Continues(put.after.Line(i)) ? continued + 1 : 0;
      if (continued <= ContinuedLines) continue;
      return Refusal{RefusalKind::TooManyContinuations, 0, Text(TrimWhite(put.after.Line(i)))};
    }
  }
  return std::nullopt;
}

Found ProcedureTooLong(const Put& put) {
  const std::size_t units = put.after.Units();
  if (units <= ProcedureUnits || units <= put.procedure.Code().Units()) return std::nullopt;
  return Refusal{RefusalKind::ProcedureTooLong, 0, ToText(static_cast<long long>(units))};
}

}  // namespace

std::optional<Refusal> Meaning::FirstFault(const Put& put, const AllowedRules& allowed) {
  Found found;
  const auto finds = [&](auto&& search) {
    found = search();
    return found && !allowed.Has(found->kind);
  };
  if (!allowed.Has(RefusalKind::NameClash) && finds([&] { return NameSearch(put).First(); })) {
    return found;
  }
  if (put.procedure.IsDeclarations()) return std::nullopt;
  using Rule = Found (*)(const Put&);
  constexpr Rule Rules[] = {ErrReadFault,         CleanUp,         NumberTwice, LineTooLong,
                            TooManyContinuations, ProcedureTooLong};
  for (const Rule rule : Rules) {
    if (finds([&] { return rule(put); })) return found;
  }
  return std::nullopt;
}

std::vector<Refusal> Meaning::Notes(const Put& put) {
  std::vector<Refusal> notes;
  const Insertion::Stretch body = put.insertion.body;
  if (body.first >= body.end) return notes;
  const bool passesBy = put.insertion.cleanUp.first < put.insertion.cleanUp.end;
  const bool mayExit = passesBy && put.bare.MayHold(body.first, body.end, u"exit ");
  const bool mayEnd = put.row.names.handles && put.bare.MayHold(body.first, body.end, u"goto 0");
  if (!mayExit && !mayEnd) return notes;
  std::optional<std::size_t> off;
  bool exits = false;
  const Text type = LowerCase(put.procedure.BaseTypeName());
  AnyStatement(put.bare, body.first, body.end,
               [&](std::span<const TextView> words, std::size_t line) {
                 if (off) notes.push_back(At(RefusalKind::HandlerOff, put.bare, *off));
                 off.reset();
                 for (std::size_t i = 0; i < words.size(); ++i) {
                   if (mayExit && !exits && words[i] == u"exit" && Is(words, i + 1, type)) {
                     notes.push_back(At(RefusalKind::CleanUpPassedBy, put.bare, line));
                     exits = true;
                   }
                 }
                 if (mayEnd && Is(words, 0, u"on") && Is(words, 1, u"error") &&
                     Is(words, 2, u"goto") && Is(words, 3, u"0")) {
                   off = line;
                 }
                 return false;
               });
  return notes;
}
