// The Like language of Visual Basic, binary comparison, prepared once and matched often.
// One matcher serves template patterns, custom selection and the command line.
//
//   LikePattern oPattern(u"'<quillon *>");
//   oPattern.Matches(u"'<quillon standard>")   // true
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
  explicit LikePattern(TextView sPattern);

  /// Anchored at both ends, exact codes. Never fails.
  bool Matches(TextView sText) const noexcept {
    // Most patterns begin with a literal that most lines don't begin with: no call for those.
    return (mlLiteral == 0 || (!sText.empty() && sText[0] == mcFirst)) && MatchesWhole(sText);
  }
  /// False when no text that begins with the unit can match; the empty pattern matches none.
  bool MayBeginWith(char16_t cUnit) const { return mlLiteral == 0 ? !IsEmpty() : mcFirst == cUnit; }
  /// False for a pattern that the language rejects; Matches is then always false.
  bool IsValid() const { return mbValid; }
  bool IsEmpty() const { return msPattern.empty(); }
  const Text& Pattern() const { return msPattern; }

 private:
  /// A run of elements between two stars.
  struct Run {
    std::size_t lFirst, lCount;
    bool bLiteral;
    LikeBits oBits;  ///< of a long run only
  };

  bool MatchesWhole(TextView sText) const noexcept;
  bool Parse();
  bool ParseList(std::size_t& lPos);
  void AddStar();
  void AddElement(std::span<const LikeRange> aoRange);
  bool FitsAt(std::size_t lFirst, std::size_t lCount, const char16_t* pText) const;
  std::size_t FindBehind(const Run& oRun, TextView sText, std::size_t lPos) const;

  Text msPattern;
  LikeElements moElements;
  Text msUnits;                  ///< the unit of each literal element, else 0
  std::vector<Run> moInner;      ///< the runs that have a star on both sides
  std::size_t mlLiteral = 0;     ///< literal elements at the very start
  std::size_t mlHead = 0;        ///< elements ahead of the first star
  std::size_t mlBehindStar = 0;  ///< index of the first element behind the last star
  char16_t mcFirst = 0;          ///< the first of the literal elements
  bool mbStar = false;
  bool mbValid = true;
};
