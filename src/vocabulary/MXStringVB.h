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
TextArray SplitStatements(TextView sLine);

/// The line up to its comment, untrimmed; the view points into sLine. Rem isn't recognised.
TextView TrimVBComments(TextView sLine);
/// The line without its literals, quotes included.
Text TrimVBLiterals(TextView sLine);
/// Each character inside a literal replaced by the mask; quotes stay.
Text MaskVBLiterals(TextView sLine, TextView sMask);
/// True when the text ends in " _".
bool HasVBContinuation(TextView sLine);
bool IsVBProcDataDeclaration(TextView sStatement);
/// bAlone: true when nothing but blanks follows the label; unchanged when the result is false.
bool IsVBLineLabel(TextView sStatement, bool& bAlone);
bool IsGoodVBLabel(TextView sLabel);
/// Overwrites a line number in column 1 with blanks, in place; columns behind it stay.
void RemoveVBLineNumber(Text& sLine);
bool StartsVBSelectContext(TextView sStatement);
bool ClearsVBSelectContext(TextView sStatement);
bool IsVBEndStatement(TextView sStatement);
bool IsVBSimpleEnd(TextView sStatement);
bool IsVBLogicStatement(TextView sStatement);
bool IsVBCompilerDirective(TextView sStatement);

}  // namespace MXStringVB
