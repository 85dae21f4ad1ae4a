#include "ErrRead.h"

#include "ProcPlaces.h"
#include "StatementWords.h"

namespace {

/// Error$ without a number gives the text of Err.
bool ReadsTextAt(std::span<const TextView> words, std::size_t i) {
  return words[i] == u"error" && Is(words, i + 1, u"$") && !Is(words, i + 2, u"(");
}

/// True at the first word, behind a line number, and behind Then or Else.
bool BeginsStatement(std::span<const TextView> words, std::size_t i) {
  if (i == 0 || words[i - 1] == u"then" || words[i - 1] == u"else") return true;
  return i == 1 && !IsNameWord(words[0]);
}

/// Err.Raise, Err.Clear and an assignment at the start of a statement read nothing.
bool ReadsErrAt(std::span<const TextView> words, std::size_t i) {
  if (ReadsTextAt(words, i)) return true;
  const bool qualified = i > 1 && words[i - 2] == u"vba";
  if (words[i] != u"err" || (IsMember(words, i) && !qualified) || Is(words, i + 1, u":")) {
    return false;
  }
  const bool member = Is(words, i + 1, u".");
  if (member && (Is(words, i + 2, u"raise") || Is(words, i + 2, u"clear"))) return false;
  return !(BeginsStatement(words, qualified ? i - 2 : i) && Is(words, i + (member ? 3 : 1), u"="));
}

bool IsWordUnit(char16_t unit) {
  const char16_t lower = LowerCase(unit);
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (lower >= u'a' && lower <= u'z');
}

/// True when the units at `at` are Err or Error$, and not a part of another word.
bool MayBeRead(TextView text, std::size_t at) {
  constexpr TextView ErrorText = u"error$";
  if (at > 0 && IsWordUnit(text[at - 1])) return false;
  return at + 3 >= text.size() || !IsWordUnit(text[at + 3]) ||
         EqualNoCase(text.substr(at, ErrorText.size()), ErrorText);
}

}  // namespace

std::optional<std::size_t> FirstErrRead(const ProcText& code, std::size_t first, std::size_t end) {
  if (first >= end || !code.MayHold(first, end, u"err")) return std::nullopt;
  std::optional<std::size_t> found;
  AnyStatement(code, first, end, [&](std::span<const TextView> words, std::size_t line) {
    if (Is(words, 0, u"on") && Is(words, 1, u"error")) return true;
    for (std::size_t i = 0; i < words.size() && !found; ++i) {
      if (ReadsErrAt(words, i)) found = line;
    }
    return found.has_value();
  });
  return found;
}

bool ReadsErr(TextView procCode, std::int32_t headLine) {
  if (!AnyErr(procCode, [&](std::size_t at) { return MayBeRead(procCode, at); })) return false;
  const ProcText code(procCode);
  return FirstErrRead(code, BehindHead(code, headLine), code.Count()).has_value();
}
