// Stateless string routines of the whole system. Positions count from 1, comparison is exact,
// a blank is code 32 only. Arrays: results in elements 1 to n, element 0 exists and stays empty.
#pragma once

#include <functional>

#include "Text.h"

namespace MXString {

Text StringAfter(TextView text, TextView mark);
Text StringAfterLast(TextView text, TextView mark);
Text StringBefore(TextView text, TextView mark);
bool StringStarts(TextView text, TextView prefix);
bool StringEnds(TextView text, TextView suffix);
bool StringContains(TextView text, TextView part);
/// Position from 1 of that occurrence (1 or less: the first), overlaps counted; 0 if fewer.
std::int32_t StringFind(TextView text, TextView part, std::int16_t occurrence);
std::int32_t StringFindLast(TextView text, TextView part);
std::int32_t StringCount(TextView text, TextView part);
/// `part` must not be empty.
Text StringReplace(TextView text, TextView part, TextView replacement);

/// Splits at a separator of any length. `a,b,` and `a,b` give two tokens, `a,,b` three, `,a` an
/// empty one first. `trim` removes blanks at both ends of each token. Failure 6 beyond 32,767.
void StringTokenize(TextView text, TextArray& tokens, TextView separator, bool trim);
/// Splits at each character of `separators`; empty tokens stay. `x<%a>y` with "<>": x, %a, y.
void StringTokenize2(TextView text, TextArray& tokens, TextView separators);

/// Every run of blanks made one, both ends trimmed. Tabs are ordinary characters.
Text FullTrim(TextView text);
/// FullTrim and LowerCase in one pass into a buffer that is reused; the form in which lines of
/// source are compared. `text` must not point into `folded`.
void FoldLine(TextView text, Text& folded);

bool IsAlphaNumeric(TextView text, TextView extra);
bool IsDigits(TextView text, TextView extra);
std::int32_t LeadingSpaceCount(TextView text);

/// Gives the width of a text in the output object's units and current font.
using TextWidth = std::function<double(TextView)>;
Text TrimToFit(TextView text, const TextWidth& widthOf, double width);
/// Takes folders out of the middle, and at last all of them: `C:\a\b\c.txt` becomes
/// `C:\...\b\c.txt`, `C:\...\c.txt`, `c.txt`. A path without a backslash is parted by slashes; one
/// with neither that doesn't fit becomes empty. allowCut: the file's name may be cut at its end.
Text TrimPathToFit(TextView path, const TextWidth& widthOf, double width, bool allowCut);

}  // namespace MXString
