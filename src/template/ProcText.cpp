#include "ProcText.h"

#include <algorithm>
#include <span>

#include "MXString.h"

namespace {

bool IsWhite(char16_t unit) {
  return unit == u' ' || unit == u'\t';
}

bool IsRem(TextView rest) {
  return rest.size() >= 3 && LowerCase(rest[0]) == u'r' && LowerCase(rest[1]) == u'e' &&
         LowerCase(rest[2]) == u'm' && (rest.size() == 3 || IsWhite(rest[3]));
}

/// A line without a colon and an apostrophe: only its first word can make it a comment.
std::size_t RemStart(TextView line) {
  const std::size_t word = line.find_first_not_of(u"\t 0123456789");
  return word != TextView::npos && IsRem(line.substr(word)) ? word : line.size();
}

/// Blocks without a branch and of one width of units: the compiler makes vectors of them; the few
/// blocks that hold more than ASCII are gone through again.
constexpr std::size_t Block = 64;

/// Lower case of a text of any length. Room for the result is the caller's.
void LowerInto(TextView text, char16_t* result) {
  for (std::size_t start = 0; start < text.size(); start += Block) {
    const TextView block = text.substr(start, Block);
    std::uint16_t seen = 0;
    for (std::size_t i = 0; i < block.size(); ++i) {
      const char16_t unit = block[i];
      seen = static_cast<std::uint16_t>(seen | unit);
      const auto letter = static_cast<std::uint16_t>(unit - u'A');
      result[start + i] = static_cast<char16_t>(unit + (letter < 26 ? 32 : 0));
    }
    if (seen < 0x80) continue;
    for (char16_t& unit : std::span(result + start, block.size())) {
      if (unit >= 0x80) unit = LowerCaseBeyondAscii(unit);
    }
  }
}

/// Number of blanks with another blank ahead of them.
std::size_t CountDoubleBlanks(TextView text) {
  constexpr std::size_t Counted = 0x4000;  // of which the count fits 16 bits
  std::size_t result = 0;
  for (std::size_t start = 1; start < text.size(); start += Counted) {
    const std::size_t end = std::min(text.size(), start + Counted);
    std::uint16_t count = 0;
    for (std::size_t i = start; i < end; ++i) {
      const auto other = static_cast<std::uint16_t>((text[i - 1] ^ u' ') | (text[i] ^ u' '));
      count = static_cast<std::uint16_t>(count + (other == 0 ? 1 : 0));
    }
    result += count;
  }
  return result;
}

/// Makes one blank of each run of blanks in a trimmed text; gives the length that is left.
std::size_t CollapseBlanks(char16_t* text, std::size_t length) {
  if (CountDoubleBlanks({text, length}) == 0) return length;
  std::size_t kept = 0;
  char16_t last = u'\0';
  for (std::size_t i = 0; i < length; ++i) {
    if (text[i] == u' ' && last == u' ') continue;
    text[kept++] = last = text[i];
  }
  return kept;
}

}  // namespace

bool ContinuesInFull(TextView line) {
  while (!line.empty() && IsWhite(line.back())) line.remove_suffix(1);
  // An underscore alone counts too: any indentation makes it a continuation.
  if (line.empty() || line.back() != u'_') return false;
  if (line.size() > 1 && !IsWhite(line[line.size() - 2])) return false;
  if (CommentStart(line) < line.size()) return true;
  return std::count(line.begin(), line.end(), u'"') % 2 == 0;
}

std::size_t CommentStart(TextView line) {
  // Most lines have no apostrophe and one statement.
  if (FindUnit(line, u'\'') == TextView::npos && FindUnit(line, u':') == TextView::npos) {
    return RemStart(line);
  }
  bool literal = false;
  bool statementStart = true;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char16_t unit = line[i];
    if (unit == u'"') literal = !literal;
    if (literal) continue;
    if (unit == u'\'') return i;
    if (statementStart && IsRem(line.substr(i))) return i;
    // A line number stands ahead of the first statement and doesn't end its start.
    statementStart =
        unit == u':' || (statementStart && (IsWhite(unit) || (unit >= u'0' && unit <= u'9')));
  }
  return line.size();
}

TextView TrimWhite(TextView text) {
  while (!text.empty() && IsWhite(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhite(text.back())) text.remove_suffix(1);
  return text;
}

bool IsBlank(TextView line) {
  return line.find_first_not_of(u' ') == TextView::npos;
}

char16_t* ProcText::Room(std::size_t units) {
  constexpr std::size_t SmallBlock = 2048;
  if (units > mFree) {
    mFree = std::max(units, SmallBlock);
    mBlocks.push_back(std::make_unique_for_overwrite<char16_t[]>(mFree));
    mRoom = mBlocks.back().get();
  }
  char16_t* const room = mRoom;
  mRoom += units;
  mFree -= units;
  return room;
}

// Every rewrite begins with this, so it makes up much of a run: all units are folded at once, and
// lines are only cut out of them. Where the blanks at the ends of lines are not all that stand side
// by side, the lines are gone through once more.
ProcText::ProcText(TextView text) {
  if (text.empty()) return;
  char16_t* const lower = Room(text.size());
  LowerInto(text, lower);
  mMayHoldDirective = FindUnit({lower, text.size()}, u'#') != TextView::npos;
  mLines.reserve(text.size() / 24 + 2);
  std::size_t doubles = CountDoubleBlanks(text);
  for (std::size_t start = 0;;) {
    const std::size_t end = FindLineEnd(text, start);
    const TextView line = text.substr(start, end - start);
    std::size_t left = start, right = end;
    while (left < end && text[left] == u' ') ++left;
    while (right > left && text[right - 1] == u' ') --right;
    mLines.push_back({line, {lower + left, right - left}, true, false});
    doubles -= std::max<std::size_t>(left - start, 1) - 1;
    doubles -= std::max<std::size_t>(end - right, 1) - 1;
    if (end == text.size()) break;
    start = end + CrLf.size();
  }
  MarkLinesWith(u':', {lower, text.size()});
  MarkLinesWith(u'\'', {lower, text.size()});
  if (doubles == 0) return;
  for (Entry& entry : mLines) {
    char16_t* const folded = lower + (entry.folded.data() - lower);
    entry.folded = {folded, CollapseBlanks(folded, entry.folded.size())};
  }
}

// From one sign to the next: few lines hold any.
void ProcText::MarkLinesWith(char16_t sign, TextView lower) {
  auto line = mLines.begin();
  for (std::size_t at = 0; (at = FindUnit(lower, sign, at)) != TextView::npos; ++at) {
    const char16_t* const place = lower.data() + at;
    line = std::partition_point(line, mLines.end(), [&](const Entry& entry) {
      return entry.folded.data() + entry.folded.size() <= place;
    });
    if (line == mLines.end()) return;
    line->mayHoldMore = true;
    at = static_cast<std::size_t>(line->folded.data() + line->folded.size() - lower.data());
  }
}

bool ProcText::MayHold(std::size_t first, std::size_t end, TextView lower) const {
  while (first < end) {
    const std::size_t behind = RunEnd(first, end);
    const char16_t* const from = mLines[first].folded.data();
    const TextView last = mLines[behind - 1].folded;
    // The folded lines of a run stand in the order of its text, with what is between them.
    const TextView stretch(from, static_cast<std::size_t>(last.data() + last.size() - from));
    if (FindText(stretch, lower) != TextView::npos) return true;
    first = behind;
  }
  return false;
}

std::size_t ProcText::CommentOf(std::size_t i) const {
  return mLines[i].mayHoldMore ? CommentStart(mLines[i].text) : RemStart(mLines[i].text);
}

std::size_t ProcText::RunEnd(std::size_t first, std::size_t end) const {
  std::size_t i = first + 1;
  if (!mLines[first].given) return i;
  while (i < end && mLines[i].given &&
         mLines[i].text.data() ==
             mLines[i - 1].text.data() + mLines[i - 1].text.size() + CrLf.size()) {
    ++i;
  }
  return i;
}

void ProcText::Keep(const ProcText& other, std::size_t first, std::size_t end) {
  const auto begin = other.mLines.begin();
  mLines.insert(mLines.end(), begin + static_cast<std::ptrdiff_t>(first),
                begin + static_cast<std::ptrdiff_t>(end));
  mMayHoldDirective |= other.mMayHoldDirective;
}

void ProcText::Add(TextView line) {
  Text folded;
  MXString::FoldLine(line, folded);
  char16_t* const text = Room(line.size() + folded.size());
  std::copy(line.begin(), line.end(), text);
  char16_t* const lower = std::copy(folded.begin(), folded.end(), text + line.size()) -
                          static_cast<std::ptrdiff_t>(folded.size());
  const bool more = folded.find_first_of(u":'") != Text::npos;
  mLines.push_back({{text, line.size()}, {lower, folded.size()}, false, more});
  mMayHoldDirective |= FindUnit(line, u'#') != TextView::npos;
}

std::size_t ProcText::CutEmptyTail() {
  std::size_t count = 0;
  while (!mLines.empty() && mLines.back().text.empty()) {
    mLines.pop_back();
    ++count;
  }
  return count;
}

std::size_t ProcText::Units() const {
  std::size_t units = 0;
  for (const Entry& entry : mLines) units += entry.text.size() + CrLf.size();
  return units;
}

Text ProcText::Joined() const {
  Text text;
  text.reserve(Units());
  for (std::size_t i = 0; i < Count(); ++i) {
    if (i > 0) text.append(CrLf);
    text.append(Line(i));
  }
  return text;
}
