// Foreign text as it may be printed: names and lines of files that came from somewhere must not
// move a terminal's cursor, colour it, or show letters in another order than they are in.
//
// C0 (but for the tab), DEL, C1 and the marks of direction (U+061C, U+200E, U+200F, U+202A to
// U+202E, U+2066 to U+2069) are shown as <U+202E>. Everything else stays, bytes that are no UTF-8
// included.
//
//   VisibleText("a\x1B[2Jb")    // a<U+001B>[2Jb
#pragma once

#include <string>
#include <string_view>

/// Text of one line: line ends are shown like other control characters.
std::string VisibleText(std::string_view utf8);

/// Text of several lines: LF, and CR ahead of one, stay.
std::string VisibleLines(std::string_view utf8);
