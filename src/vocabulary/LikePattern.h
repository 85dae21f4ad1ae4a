// The Like language of Visual Basic, binary comparison, prepared once and matched often.
// One matcher serves template patterns, custom selection and the command line.
//
//   LikePattern pattern(u"'<quillon *>");
//   pattern.Matches(u"'<quillon standard>")   // true
//
// Elements: ? any one unit, * any run, # one digit, [list] one unit of the list with ranges a-z,
// [!list] one unit not in it, [] nothing, [!] the character !. Inside a list ? * # [ are ordinary,
// - is literal in first place (also behind !), in last place and straight behind a range.
// A pattern that Visual Basic would reject with error 93 (unclosed list, descending range) is
// invalid: it matches nothing. The pattern is checked whole when it is prepared, not lazily, so
// that the same template line never fits one line and fails on the next.
// Time: near-linear in the text for every pattern; no backtracking over more than one star.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "LikeBits.h"
#include "Text.h"

class LikePattern {
 public:
  /// The empty pattern: matches the empty text only.
  LikePattern() = default;
  explicit LikePattern(TextView pattern);

  /// Anchored at both ends, exact codes. Never fails.
  bool Matches(TextView text) const noexcept {
    // Most patterns begin with a literal that most lines don't begin with: no call for those.
    return (mLiteral == 0 || (!text.empty() && text[0] == mFirstUnit)) && MatchesWhole(text);
  }
  /// False when no text that begins with the unit can match; the empty pattern matches none.
  bool MayBeginWith(char16_t unit) const { return mLiteral == 0 ? !IsEmpty() : mFirstUnit == unit; }
  /// False for a pattern that the language rejects; Matches is then always false.
  bool IsValid() const { return mValid; }
  bool IsEmpty() const { return mPattern.empty(); }
  const Text& Pattern() const { return mPattern; }

 private:
  /// A run of elements between two stars.
  struct Run {
    std::size_t first, count;
    bool literal;
    LikeBits bits;  ///< of a long run only
  };

  bool MatchesWhole(TextView text) const noexcept;
  bool Parse();
  bool ParseList(std::size_t& pos);
  void AddStar();
  void AddElement(std::span<const LikeRange> ranges);
  bool FitsAt(std::size_t first, std::size_t count, const char16_t* text) const;
  std::size_t FindBehind(const Run& run, TextView text, std::size_t pos) const;

  Text mPattern;
  LikeElements mElements;
  Text mUnits;                  ///< the unit of each literal element, else 0
  std::vector<Run> mInner;      ///< the runs that have a star on both sides
  std::size_t mLiteral = 0;     ///< literal elements at the very start
  std::size_t mHead = 0;        ///< elements ahead of the first star
  std::size_t mBehindStar = 0;  ///< index of the first element behind the last star
  char16_t mFirstUnit = 0;      ///< the first of the literal elements
  bool mHasStar = false;
  bool mValid = true;
};
