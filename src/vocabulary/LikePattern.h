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

#include "Text.h"

class LikePattern {
 public:
  /// The empty pattern: matches the empty text only.
  LikePattern() = default;
  explicit LikePattern(TextView sPattern);

  /// Anchored at both ends, exact codes. Never fails.
  bool Matches(TextView sText) const noexcept;
  /// False for a pattern that the language rejects; Matches is then always false.
  bool IsValid() const { return mbValid; }
  bool IsEmpty() const { return msPattern.empty(); }
  const Text& Pattern() const { return msPattern; }

 private:
  struct Element;
  Text msPattern;
  bool mbValid = true;
};
