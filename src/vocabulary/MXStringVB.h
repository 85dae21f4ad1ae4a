// Looks at one line (or one joined logical line) of Visual Basic source as plain text.
// Comparison is exact: a routine that classifies a statement expects lower-cased text, with
// comments and literals cut and trimmed. A blank is code 32 only. Positions count from 1.
// The array of SplitStatements has its results in elements 1 to n; element 0 stays empty.
#pragma once

#include "Text.h"

namespace MXStringVB {

/// Splits a line at its statement separators, a colon with a blank behind it.
/// Pieces are untrimmed; a trailing comment is a piece of its own; a colon in a literal doesn't
/// separate; the empty line gives one empty piece. `a = 1: b = 2` gives `a = 1` and `b = 2`.
TextArray SplitStatements(TextView line);

/// The line up to its comment, untrimmed; the view points into the line. Rem isn't recognised.
TextView TrimVBComments(TextView line);
/// The line without its literals, quotes included.
Text TrimVBLiterals(TextView line);
/// Each character inside a literal replaced by the mask; quotes stay.
Text MaskVBLiterals(TextView line, TextView mask);
/// True when the text ends in " _".
bool HasVBContinuation(TextView line);
bool IsVBProcDataDeclaration(TextView statement);
/// `alone` is true when nothing but blanks follows the label; unchanged when the result is false.
bool IsVBLineLabel(TextView statement, bool& alone);
bool IsGoodVBLabel(TextView label);
/// Overwrites a line number in column 1 with blanks, in place; columns behind it stay.
void RemoveVBLineNumber(Text& line);
bool StartsVBSelectContext(TextView statement);
bool ClearsVBSelectContext(TextView statement);
bool IsVBEndStatement(TextView statement);
bool IsVBSimpleEnd(TextView statement);
bool IsVBLogicStatement(TextView statement);
bool IsVBCompilerDirective(TextView statement);

}  // namespace MXStringVB
