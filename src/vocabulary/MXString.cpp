#include "MXString.h"

#include "Failure.h"
#include "LikePattern.h"

namespace {

constexpr std::size_t npos = TextView::npos;
constexpr std::size_t MaxTokens = 32767;

// The language's own search: nothing is found behind the end of a text, not even the empty part.
std::size_t FindFrom(TextView text, TextView part, std::size_t start) {
  return start >= text.size() ? npos : text.find(part, start);
}

std::int32_t Position(std::size_t index) {
  return index == npos ? 0 : static_cast<std::int32_t>(index) + 1;
}

Text After(TextView text, TextView mark, std::int32_t position) {
  if (position == 0) return {};
  return Text(text.substr(static_cast<std::size_t>(position) - 1 + mark.size()));
}

void AddToken(TextArray& tokens, TextView token) {
  if (tokens.size() > MaxTokens) throw Failure(6);
  tokens.emplace_back(token);
}

// Four units in one word, the first one lowest; all arithmetic below stays within its 16 bits
// because each unit is ASCII.
constexpr std::uint64_t Each = 0x0001'0001'0001'0001;
constexpr std::uint64_t TopBits = 0x80 * Each;

std::uint64_t Load4(const char16_t* p) {
  return p[0] | std::uint64_t{p[1]} << 16 | std::uint64_t{p[2]} << 32 | std::uint64_t{p[3]} << 48;
}

void Store4(std::uint64_t units, char16_t* p) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<char16_t>(units >> (16 * i));
}

std::uint64_t LowerCase4(std::uint64_t units) {
  const std::uint64_t fromA = units + (0x80 - u'A') * Each, behindZ = units + (0x7F - u'Z') * Each;
  return units | ((fromA & ~behindZ & TopBits) >> 2);
}

// The top bit of each unit that is a blank.
std::uint64_t Blanks4(std::uint64_t units) {
  return (((units ^ (u' ' * Each)) + 0x7F * Each) & TopBits) ^ TopBits;
}

// Copies with each run of blanks made one. Nearly all source is ASCII without doubled blanks
// behind its indentation, so four such units at once are the common case. The buffer is only ever
// grown: folding a file line by line allocates for its longest line alone.
template <bool ToLower>
void Collapse(TextView text, Text& result) {
  text = Trim(text);
  result.assign(text);
  const char16_t* from = text.data();
  const char16_t* const fromEnd = from + text.size();
  char16_t* to = result.data();
  std::uint64_t afterBlank = 0;
  while (from != fromEnd) {
    if (fromEnd - from >= 4) {
      const std::uint64_t units = Load4(from), blanks = Blanks4(units);
      if (!(units & ~(0x7F * Each)) && !(blanks & (blanks << 16 | afterBlank))) {
        Store4(ToLower ? LowerCase4(units) : units, to);
        afterBlank = blanks >> 48;
        from += 4;
        to += 4;
        continue;
      }
    }
    const bool blank = *from == u' ';
    *to = ToLower ? LowerCase(*from) : *from;
    to += !(blank && afterBlank);
    afterBlank = blank ? 0x80 : 0;
    ++from;
  }
  result.resize(static_cast<std::size_t>(to - result.data()));
}

// `set` is the inside of a character list.
bool AllIn(TextView text, TextView set, TextView extra) {
  const LikePattern other(Text(u"*[!").append(set).append(extra).append(u"]*"));
  return other.IsValid() && !other.Matches(text);
}

// Paths of this system and of the one whose projects they name: where a backslash stands, a slash
// is a character of a name.
TextView SeparatorOf(TextView path) {
  return path.find(u'\\') != npos ? u"\\" : u"/";
}

Text CutMiddle(TextView path, const MXString::TextWidth& widthOf, double width) {
  const TextView separator = SeparatorOf(path);
  const Text root = MXString::StringBefore(path, separator);
  const Text file = MXString::StringAfterLast(path, separator);
  const Text start = Text(root).append(separator).append(u"...");
  Text result(path);
  for (std::size_t slash = root.size(); widthOf(result) > width;) {
    slash = path.find(separator, slash + 1);
    if (slash == npos) {
      result = Text(start).append(separator).append(file);
      break;
    }
    result = Text(start).append(path.substr(slash));
  }
  return widthOf(result) > width ? file : result;
}

Text CutRoot(TextView path, const MXString::TextWidth& widthOf) {
  const TextView separator = SeparatorOf(path);
  const Text file = MXString::StringAfterLast(path, separator);
  const Text result = Text(u"...").append(separator).append(file);
  return widthOf(result) > widthOf(path) ? file : result;
}

}  // namespace

namespace MXString {

Text StringAfter(TextView text, TextView mark) {
  return After(text, mark, StringFind(text, mark, 1));
}

Text StringAfterLast(TextView text, TextView mark) {
  return After(text, mark, StringFindLast(text, mark));
}

Text StringBefore(TextView text, TextView mark) {
  const std::size_t index = FindFrom(text, mark, 0);
  return index == npos ? Text() : Text(text.substr(0, index));
}

bool StringStarts(TextView text, TextView prefix) {
  return text.starts_with(prefix);
}

bool StringEnds(TextView text, TextView suffix) {
  return text.ends_with(suffix);
}

bool StringContains(TextView text, TextView part) {
  return FindFrom(text, part, 0) != npos;
}

std::int32_t StringFind(TextView text, TextView part, std::int16_t occurrence) {
  std::size_t index = FindFrom(text, part, 0);
  for (; index != npos && occurrence > 1; --occurrence) {
    index = FindFrom(text, part, index + 1);
  }
  return Position(index);
}

std::int32_t StringFindLast(TextView text, TextView part) {
  if (part.empty()) return static_cast<std::int32_t>(text.size());
  return Position(text.rfind(part));
}

std::int32_t StringCount(TextView text, TextView part) {
  std::int32_t count = 0;
  for (std::size_t i = FindFrom(text, part, 0); i != npos; i = FindFrom(text, part, i + 1)) {
    ++count;
  }
  return count;
}

Text StringReplace(TextView text, TextView part, TextView replacement) {
  if (part.empty()) return Text(text);
  Text result;
  std::size_t start = 0;
  for (std::size_t i; (i = FindText(text, part, start)) != npos; start = i + part.size()) {
    result.append(text.substr(start, i - start)).append(replacement);
  }
  return result.append(text.substr(start));
}

void StringTokenize(TextView text, TextArray& tokens, TextView separator, bool trim) {
  TextArray result(1);
  while (!text.empty()) {
    const std::size_t end = separator.empty() ? npos : text.find(separator);
    const TextView token = text.substr(0, end);
    AddToken(result, trim ? Trim(token) : token);
    text.remove_prefix(end == npos ? text.size() : end + separator.size());
  }
  tokens = std::move(result);
}

void StringTokenize2(TextView text, TextArray& tokens, TextView separators) {
  TextArray result(1);
  for (bool more = !text.empty(); more;) {
    const std::size_t end = text.find_first_of(separators);
    AddToken(result, text.substr(0, end));
    more = end != npos;
    text.remove_prefix(more ? end + 1 : 0);
  }
  tokens = std::move(result);
}

Text FullTrim(TextView text) {
  Text result;
  Collapse<false>(text, result);
  return result;
}

void FoldLine(TextView text, Text& folded) {
  Collapse<true>(text, folded);
}

bool IsAlphaNumeric(TextView text, TextView extra) {
  return AllIn(text, u"0-9a-zA-Z", extra);
}

bool IsDigits(TextView text, TextView extra) {
  // Asked for the first word of nearly every line of source, without extra characters.
  if (extra.empty()) return text.find_first_not_of(u"0123456789") == npos;
  return AllIn(text, u"0-9", extra);
}

std::int32_t LeadingSpaceCount(TextView text) {
  return static_cast<std::int32_t>(text.size() - LeftTrim(text).size());
}

Text TrimToFit(TextView text, const TextWidth& widthOf, double width) {
  static constexpr TextView mark = u"...";
  if (widthOf(text) <= width) return Text(text);
  if (widthOf(mark) > width) return {};
  Text result;
  do {
    if (text.empty()) return Text(mark);
    text.remove_suffix(1);
    result.assign(text).append(mark);
  } while (widthOf(result) > width);
  return result;
}

Text TrimPathToFit(TextView path, const TextWidth& widthOf, double width, bool allowCut) {
  if (widthOf(path) <= width) return Text(path);
  const std::int32_t folders = StringCount(path, SeparatorOf(path));
  if (folders == 0) return {};
  const Text result = folders == 1 ? CutRoot(path, widthOf) : CutMiddle(path, widthOf, width);
  return allowCut ? TrimToFit(result, widthOf, width) : result;
}

}  // namespace MXString
