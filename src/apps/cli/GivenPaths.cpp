#include "GivenPaths.h"

#include <algorithm>
#include <filesystem>

#include "Console.h"
#include "FileScope.h"
#include "PathText.h"
#include "ProjectSearch.h"
#include "UnifiedDiff.h"
#include "WriteRoots.h"

namespace {

namespace fs = std::filesystem;

bool HoldsProjects(const std::string& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    if (IsProjectName(entry->path().string())) return true;
  return false;
}

class Resolver {
 public:
  explicit Resolver(const Arguments& arguments) : mArguments(arguments) {}

  GivenPaths Resolve() {
    std::size_t sources = 0;
    for (const std::string& path : mArguments.asPath) {
      std::error_code error;
      if (fs::is_directory(path, error) && !HoldsProjects(path)) {
        Folder(path);
      } else if (IsSourceName(path) && fs::is_regular_file(path, error)) {
        Source(path);
        ++sources;
      } else {
        Add(path);
      }
    }
    if (sources > 0 && sources < mArguments.asPath.size())
      throw Stop{
          "The PATHs are sources, or groups, projects and folders, but not both: "
          "--file narrows a group"};
    return std::move(mPaths);
  }

 private:
  void Folder(const std::string& path) {
    const auto found =
        ProjectsBelow(path, [&](const std::string& file) { return IsExcluded(mArguments, file); });
    if (found.empty()) return Add(path);
    for (const std::string& file : found) Add(RelativePath(file));
  }

  void Source(const std::string& path) {
    const std::string source = RealPath(path);
    const auto holding = ProjectsHolding(
        source, [&](const std::string& file) { return IsExcluded(mArguments, file); });
    if (holding.empty())
      throw Stop{ShownPath(path) + ": no project names this file; name the group or project"};
    for (const std::string& file : holding) Add(RelativePath(file));
    if (!mPaths.sources) mPaths.sources.emplace();
    mPaths.sources->insert(source);
  }

  void Add(const std::string& path) {
    if (std::ranges::find(mPaths.groups, path) == mPaths.groups.end())
      mPaths.groups.push_back(path);
  }

  const Arguments& mArguments;
  GivenPaths mPaths;
};

}  // namespace

GivenPaths Resolved(const Arguments& arguments) {
  return Resolver(arguments).Resolve();
}
