// File names as text. A name on disk is any bytes; what is shown, stored and handed between
// programs is text, and the one rule here makes it, so that a path reads the same everywhere and
// leads back to the same bytes. A path that is UTF-8 is shown as it is. Each byte of a path that
// belongs to no UTF-8 character or is a control character, such as a line end that would forge a
// line of a message, is shown as \xHH with two capital hex digits, and a backslash that would read
// as the beginning of such a form is shown as \x5C.
//
//   bytes  caf<E9>.bas      shown  caf\xE9.bas
//   bytes  caf\xE9.bas      shown  caf\x5CxE9.bas
//
// On Windows names are text, a backslash separates their parts as a slash does, and paths have
// slashes here, so that there are no such forms. Forms of other ASCII characters than these are
// none, and stay as they are: \x41.
#pragma once

#include <string>
#include <string_view>

#include "Text.h"

/// The shown form, always well-formed UTF-8; PathOfShown gives the same bytes again.
std::string ShownPath(std::string_view path);
std::string PathOfShown(std::string_view shown);

/// The shown form as text of the program and back. A lone surrogate U+DC80 to U+DCFF counts as its
/// byte too, as code pages carry it; any other finds no file.
Text TextOfPath(std::string_view path);
std::string PathOfText(TextView text);

/// The path that an argument of the program names: its bytes as they are where there is such a file
/// or folder, else what it is as a shown form.
std::string PathOfArgument(const std::string& argument);
