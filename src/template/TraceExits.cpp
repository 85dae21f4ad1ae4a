#include "TraceExits.h"

#include <algorithm>
#include <vector>

#include "MXString.h"
#include "MXStringVB.h"
#include "ProcText.h"

namespace {

constexpr TextView Separator = u": ";

bool IsNameUnit(char16_t unit) {
  return unit == u'_' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
         (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

/// True when a piece of a line ends in code: neither in a literal nor in a comment.
bool EndsInCode(TextView piece) {
  if (CommentStart(piece) < piece.size()) return false;
  return std::count(piece.begin(), piece.end(), u'"') % 2 == 0;
}

/// Position from 0 of the first `Exit <type>` in code; npos when there is none.
std::size_t FindExit(TextView line, TextView baseType) {
  constexpr TextView ExitWord = u"Exit ";
  for (std::size_t first = FindText(line, ExitWord); first != TextView::npos;
       first = FindText(line, ExitWord, first + 1)) {
    if (first > 0 && line[first - 1] != u' ') continue;
    const std::size_t type = first + ExitWord.size();
    if (!Same(line.substr(type, baseType.size()), baseType)) continue;
    const std::size_t behind = type + baseType.size();
    if (behind < line.size() && IsNameUnit(line[behind])) continue;
    if (EndsInCode(line.substr(0, first))) return first;
  }
  return TextView::npos;
}

Text Fold(TextView text) {
  Text folded;
  MXString::FoldLine(text, folded);
  return folded;
}

/// Lengths of the parts of a statement behind which another statement may begin on the same line:
/// behind Then, Else or a line number. Longest first; 0 isn't among them.
struct StatementStarts {
  std::vector<std::size_t> branches;
  std::size_t behindNumber = 0;  ///< 0: no line number

  explicit StatementStarts(TextView piece) {
    const Text masked = MXStringVB::MaskVBLiterals(LowerCase(piece), u"x");
    for (TextView word : {u" then ", u" else "}) {
      if (masked.starts_with(word.substr(1))) branches.push_back(word.size() - 1);
      for (std::size_t l = masked.find(word); l != Text::npos; l = masked.find(word, l + 1)) {
        branches.push_back(l + word.size());
      }
    }
    std::sort(branches.rbegin(), branches.rend());
    const std::size_t first = masked.find_first_not_of(u' ');
    if (first == Text::npos) return;
    const std::size_t numberEnd = masked.find_first_not_of(u"0123456789", first);
    if (numberEnd == first || numberEnd == Text::npos || masked[numberEnd] != u' ') return;
    const std::size_t code = masked.find_first_not_of(u' ', numberEnd);
    if (code != Text::npos) behindNumber = code;
  }
};

/// Takes statements that fit the pattern of a trace exit out of the pieces of a line.
class TraceDropper {
 public:
  TraceDropper(const TextArray& pieces, TextView traceExit, const LikePattern& pattern)
      : mPieces(pieces),
        mTraceExit(traceExit),
        mCount(pieces.size() - 1),
        mTraceCount(std::max<std::size_t>(1, MXStringVB::SplitStatements(traceExit).size() - 1)),
        mPattern(pattern) {}

  /// The pieces joined again without them.
  Text Run() const {
    Text result;
    for (std::size_t i = 1; i <= mCount;) {
      const TextView piece = mPieces[i];
      const bool room = i + mTraceCount - 1 <= mCount;
      const bool followed = i + mTraceCount <= mCount;
      const bool whole = room && Fits(i, 0);
      // A pattern may fit the Then ahead of the trace exit as well, which is the user's.
      const std::size_t keep = whole || followed ? FindStart(i) : 0;
      if (keep > 0 && followed) {  // a statement must follow behind Then or Else
        result.append(piece.substr(0, keep));
        i += mTraceCount;
      } else if (keep == 0 && whole) {
        if (i == 1)
          result.append(
              piece.substr(0, static_cast<std::size_t>(MXString::LeadingSpaceCount(piece))));
        i += mTraceCount;
      } else {
        result.append(piece).append(Separator);
        ++i;
      }
    }
    return result;
  }

 private:
  bool Fits(std::size_t first, std::size_t skip) const {
    Text joined(TextView(mPieces[first]).substr(skip));
    for (std::size_t k = 1; k < mTraceCount; ++k)
      joined.append(Separator).append(mPieces[first + k]);
    return mPattern.Matches(Fold(joined));
  }

  /// Where the trace exit begins within piece i; 0 when nowhere behind its start. Only the last
  /// Then or Else can be its place, apart from those that the trace exit has itself.
  std::size_t FindStart(std::size_t i) const {
    const StatementStarts starts(mPieces[i]);
    std::size_t tries = starts.branches.size();
    if (tries > 1) tries = std::min(tries, StatementStarts(mTraceExit).branches.size() + 1);
    for (std::size_t k = 0; k < tries; ++k)
      if (Fits(i, starts.branches[k])) return starts.branches[k];
    return starts.behindNumber > 0 && Fits(i, starts.behindNumber) ? starts.behindNumber : 0;
  }

  const TextArray& mPieces;
  TextView mTraceExit;
  std::size_t mCount;
  std::size_t mTraceCount;  ///< how many statements the trace exit itself has
  const LikePattern& mPattern;
};

}  // namespace

Text TraceExits::GetTraceExit(const LineRow& row, const SectionValues& values) {
  Text text;
  RenderRow(row, values, text, Tokens::Names);
  return Text(Trim(TextView(text).substr(0, CommentStart(text))));
}

Text TraceExits::Insert(TextView line, TextView baseType, TextView traceExit) {
  const std::size_t place = FindExit(line, baseType);
  if (place == TextView::npos) return Text(line);
  Text result;
  result.reserve(line.size() + traceExit.size() + Separator.size());
  return result.append(line, 0, place)
      .append(traceExit)
      .append(Separator)
      .append(line.substr(place));
}

Text TraceExits::Remove(TextView line, TextView baseType, TextView traceExit,
                        const LikePattern& pattern) {
  Text result(line);
  const std::size_t place = FindExit(line, baseType);
  if (place != TextView::npos && !traceExit.empty()) {
    const Text inserted = Text(traceExit) + Text(Separator);
    if (line.substr(0, place).ends_with(inserted)) {
      result.erase(place - inserted.size(), inserted.size());
    }
  }
  // Nearly always one statement is left, and it is the user's.
  const bool more = FindUnit(result, u':') != Text::npos || FindUnit(result, u'\'') != Text::npos;
  if (!more && !pattern.Matches(Fold(result))) return result;
  const Text comment = result.substr(CommentStart(result));
  result.resize(result.size() - comment.size());
  const TextArray pieces = MXStringVB::SplitStatements(result);
  Text kept = TraceDropper(pieces, traceExit, pattern).Run();
  if (kept.ends_with(Separator)) kept.resize(kept.size() - Separator.size());
  kept.append(comment);
  return kept;
}
