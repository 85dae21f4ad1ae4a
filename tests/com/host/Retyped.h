// Code as the IDE's editor shows it behind an insertion: keywords in their own letters, one blank
// between words, blanks around the sign of equality. What is quoted or commented stays, and so do
// blanks at the start of a line and ahead of a comment.
//
// Example: `  on  error goto  Fail` gives `  On Error GoTo Fail`.
#pragma once

#include "Text.h"

/// text: lines joined by CR LF.
Text Retyped(TextView text);
