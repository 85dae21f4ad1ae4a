#include "ProcText.h"

#include <algorithm>
#include <bit>
#include <span>

#include "MXString.h"
#include "UnitBlock.h"

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

void LowerBeyondAscii(char16_t* block) {
  for (char16_t& unit : std::span(block, UnitBlock::Size)) {
    if (unit >= 0x80) unit = LowerCaseBeyondAscii(unit);
  }
}

/// Makes one blank of each run of blanks in a trimmed text; gives the length that is left.
std::size_t CollapseBlanks(char16_t* text, std::size_t length) {
  std::size_t kept = 0;
  char16_t last = u'\0';
  for (std::size_t i = 0; i < length; ++i) {
    if (text[i] == u' ' && last == u' ') continue;
    text[kept++] = last = text[i];
  }
  return kept;
}

/// Finds the blanks with another blank ahead of them, apart from the indentation of lines.
class DoubleBlanks {
 public:
  /// For block after block of a text. ends: the line feeds in it.
  UnitBits Next(const UnitBlock& block, UnitBits ends) {
    const UnitBits blanks = block.Equal(' ');
    const UnitBits first = (ends << 1U | mIndented) & blanks;
    // Added to its first blank, a run of blanks gives a bit behind its end and none in it.
    const UnitBits behind = blanks + first;
    const UnitBits doubles = blanks & (blanks << 1U | mBlank) & behind;
    mIndented = (behind | ends << 1U) >> UnitBlock::Size & 1U;
    mBlank = blanks >> (UnitBlock::Size - 1);
    return doubles;
  }

 private:
  UnitBits mIndented = 1;  ///< the next block begins in the indentation of a line
  UnitBits mBlank = 0;     ///< it has a blank ahead of it
};

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

// Every rewrite begins with this, so it makes up much of a run: one pass that folds a block of
// units and stops only at those that end a line or say something about it.
ProcText::ProcText(TextView text) {
  if (text.empty()) return;
  char16_t* const lower = Room(text.size() + UnitBlock::Size);
  mLines.reserve(text.size() / 24 + 2);
  DoubleBlanks doubleBlanks;
  std::size_t start = 0;
  bool mayHoldMore = false, isTidy = true;
  for (std::size_t at = 0; at < text.size(); at += UnitBlock::Size) {
    const UnitBlock block(text, at);
    block.LowerInto(lower + at);
    if (!block.IsAscii()) LowerBeyondAscii(lower + at);
    mMayHoldDirective |= block.Equal('#') != 0;
    const UnitBits ends = block.Equal('\n'), more = block.Equal(':') | block.Equal('\'');
    for (UnitBits bits = ends | more | doubleBlanks.Next(block, ends); bits != 0;
         bits &= bits - 1) {
      const std::size_t place = at + static_cast<std::size_t>(std::countr_zero(bits));
      const char16_t unit = text[place];
      if (unit == u'\n' && place > start && text[place - 1] == u'\r') {
        AddGiven(text.substr(start, place - 1 - start), lower + start, mayHoldMore, isTidy);
        start = place + 1;
        mayHoldMore = false;
        isTidy = true;
      } else if (unit == u':' || unit == u'\'') {
        mayHoldMore = true;
      } else {
        isTidy = false;  // behind a line feed alone, too, where blanks are no indentation
      }
    }
  }
  AddGiven(text.substr(start), lower + start, mayHoldMore, isTidy);
}

void ProcText::AddGiven(TextView line, char16_t* lower, bool mayHoldMore, bool isTidy) {
  constexpr TextView Step = u"    ";  // as editors indent: one look for four blanks
  std::size_t left = 0, right = line.size();
  while (left + Step.size() <= right && Same(line.substr(left, Step.size()), Step)) {
    left += Step.size();
  }
  while (left < right && line[left] == u' ') ++left;
  while (right > left && line[right - 1] == u' ') --right;
  const std::size_t length = isTidy ? right - left : CollapseBlanks(lower + left, right - left);
  mLines.push_back({line, {lower + left, length}, true, mayHoldMore});
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

std::size_t ProcText::LineIn(const ProcText& source, std::size_t i) const {
  std::size_t next = 0, found = source.Count();
  for (std::size_t own = 0; own <= i; ++own) {
    const TextView line = TrimWhite(Line(own));
    const auto isIt = [&](std::size_t k) {
      const TextView other = TrimWhite(source.Line(k));
      return line.empty() ? other.empty() : other.ends_with(line);
    };
    found = next;
    while (found < source.Count() && !isIt(found)) ++found;
    if (found < source.Count()) next = found + 1;
  }
  return found;
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
