// Patterns for paths, as in .gitignore: `*` and `?` stay within a name, `**` is any number of
// folders, ASCII letter case doesn't count. A pattern that has a slash ahead of its end begins at
// the base, any other fits a name at any depth; what fits a folder fits all that is below it.
//
//   GlobFits("Shared/", "Shared/MText.bas")      // true
//   GlobFits("*.cls", "Core/CPrices.cls")        // true
//   GlobFits("Core/*.cls", "Core/Old/C.cls")     // false; Core/**/*.cls fits
#pragma once

#include <string_view>

/// path: relative to the base, with slashes.
bool GlobFits(std::string_view pattern, std::string_view path);
