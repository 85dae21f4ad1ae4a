// Stateless string routines of the whole system. Positions count from 1, comparison is exact,
// a blank is code 32 only. Arrays: results in elements 1 to n, element 0 exists and stays empty.
#pragma once

#include <functional>

#include "Text.h"

namespace MXString {

Text StringAfter(TextView sText, TextView sMark);
Text StringAfterLast(TextView sText, TextView sMark);
Text StringBefore(TextView sText, TextView sMark);
bool StringStarts(TextView sText, TextView sPrefix);
bool StringEnds(TextView sText, TextView sSuffix);
bool StringContains(TextView sText, TextView sPart);
/// Position from 1 of the nOccurrence-th hit (1 or less: the first), overlaps counted; 0 if fewer.
std::int32_t StringFind(TextView sText, TextView sPart, std::int16_t nOccurrence);
std::int32_t StringFindLast(TextView sText, TextView sPart);
std::int32_t StringCount(TextView sText, TextView sPart);
/// sPart must not be empty.
Text StringReplace(TextView sText, TextView sPart, TextView sReplacement);

/// Splits at a separator of any length. `a,b,` and `a,b` give two tokens, `a,,b` three, `,a` an
/// empty one first. bTrim removes blanks at both ends of each token. Failure 6 beyond 32,767.
void StringTokenize(TextView sText, TextArray& asToken, TextView sSeparator, bool bTrim);
/// Splits at each character of sSeparators; empty tokens stay. `x<%a>y` with "<>": x, %a, y.
void StringTokenize2(TextView sText, TextArray& asToken, TextView sSeparators);

/// Every run of blanks made one, both ends trimmed. Tabs are ordinary characters.
Text FullTrim(TextView sText);
/// FullTrim and LowerCase in one pass into a buffer that is reused; the form in which lines of
/// source are compared. sText must not point into sFolded.
void FoldLine(TextView sText, Text& sFolded);

bool IsAlphaNumeric(TextView sText, TextView sExtra);
bool IsDigits(TextView sText, TextView sExtra);
std::int32_t LeadingSpaceCount(TextView sText);

/// Gives the width of a text in the output object's units and current font.
using TextWidth = std::function<double(TextView)>;
Text TrimToFit(TextView sText, const TextWidth& oOutput, double dWidth);
/// Takes folders out of the middle, and at last all of them: `C:\a\b\c.txt` becomes
/// `C:\...\b\c.txt`, `C:\...\c.txt`, `c.txt`. A path without a backslash is parted by slashes; one
/// with neither that doesn't fit becomes empty. bAllowCut: the file's name may be cut at its end.
Text TrimPathToFit(TextView sPath, const TextWidth& oOutput, double dWidth, bool bAllowCut);

}  // namespace MXString
