#include "ErrRead.h"

#include "ProcPlaces.h"
#include "StatementWords.h"

namespace {

/// Err.Raise, Err.Clear and an assignment at the start of a statement read nothing.
bool ReadsErrAt(std::span<const TextView> words, std::size_t i) {
  if (words[i] != u"err" || IsMember(words, i) || Is(words, i + 1, u":")) return false;
  const bool member = Is(words, i + 1, u".");
  if (member && (Is(words, i + 2, u"raise") || Is(words, i + 2, u"clear"))) return false;
  return !(i == 0 && Is(words, member ? 3 : 1, u"="));
}

bool IsWordUnit(char16_t unit) {
  const char16_t lower = LowerCase(unit);
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (lower >= u'a' && lower <= u'z');
}

/// True when the three units at `at` are a word of their own.
bool IsWholeWord(TextView text, std::size_t at) {
  return !(at > 0 && IsWordUnit(text[at - 1])) &&
         !(at + 3 < text.size() && IsWordUnit(text[at + 3]));
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
  if (!AnyErr(procCode, [&](std::size_t at) { return IsWholeWord(procCode, at); })) return false;
  const ProcText code(procCode);
  return FirstErrRead(code, BehindHead(code, headLine), code.Count()).has_value();
}
