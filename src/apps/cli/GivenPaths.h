// What the PATHs of a command stand for: groups and projects are taken as they are, a folder that
// holds none of its own stands for those below it, and a source file for itself in the projects
// that name it.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Arguments.h"

struct GivenPaths {
  std::vector<std::string> groups;  ///< groups, projects, and folders that hold some
  /// The only files that are meant, links resolved; nothing: all.
  std::optional<std::set<std::string>> sources;
};

/// Stop for a source that no project names, and for sources beside groups.
GivenPaths Resolved(const Arguments& arguments);
