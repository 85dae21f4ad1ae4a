// Finds groups and projects from a folder or from a source file, where nobody names them. In a work
// tree of git, what it ignores isn't looked at; elsewhere folders whose names begin with a dot
// aren't.
//
//   ProjectsBelow("/src/orders", nothingIsLeftOut)       // /src/orders/App/Orders.vbg, ...
//   ProjectsHolding("/src/orders/Core/CPrices.cls")
//
// Paths are absolute and in alphabetical order. Files that can't be read count as holding nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

using PathFilter = std::function<bool(const std::string& path)>;

/// The groups below the folder, and the projects that none of them names. isLeftOut: for files.
std::vector<std::string> ProjectsBelow(const std::string& folder, const PathFilter& isLeftOut);

/// Those of the work tree that name the source; without git those in the nearest folder upwards in
/// which any does. source: links resolved.
std::vector<std::string> ProjectsHolding(const std::string& source, const PathFilter& isLeftOut);

/// By its extension, such as .bas or .frm.
bool IsSourceName(const std::string& path);
/// By its extension, .vbg or .vbp.
bool IsProjectName(const std::string& path);
