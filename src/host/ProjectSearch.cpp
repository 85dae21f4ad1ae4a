#include "ProjectSearch.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "CodePage.h"
#include "GitTree.h"
#include "GroupReader.h"
#include "PathText.h"
#include "WriteRoots.h"

namespace {

namespace fs = std::filesystem;
using Paths = std::vector<std::string>;

bool EndsIn(const std::string& path, std::initializer_list<TextView> endings) {
  const Text name = LowerCase(TextOfPath(path));
  return std::ranges::any_of(endings, [&](TextView ending) { return name.ends_with(ending); });
}

bool IsGroupName(const std::string& path) {
  return EndsIn(path, {u".vbg"});
}

/// The projects that a group or project file stands for, with the paths of their sources.
class Contents {
 public:
  explicit Contents(const std::string& path) {
    const ReadSettings settings{&CodePage::Get("1252"), false, &SystemFileOps()};
    PathFinder finder(SystemFileOps());
    GroupReader reader(finder, settings);
    try {
      reader.Read(path);
    } catch (const Failure&) {
      return;
    }
    for (const GroupReader::Project& project : reader.Projects()) {
      mProjects.insert(finder.Identity(project.sPath));
      const std::string folder = PathFinder::FolderOf(project.sPath);
      for (const ProjectFile::Entry& entry : project.oFile.oComponents)
        mSources.insert(finder.Identity(finder.Find(folder, entry.sPath).sPath));
    }
  }

  const std::set<std::string>& Projects() const { return mProjects; }
  bool Holds(const std::string& source) const { return mSources.contains(source); }

 private:
  std::set<std::string> mProjects, mSources;
};

/// Without git.
Paths FilesBelow(const std::string& folder) {
  Paths files;
  std::error_code error;
  const auto options = fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator entry(folder, options, error), end; !error && entry != end;
       entry.increment(error)) {
    const bool isHidden = entry->path().filename().string().starts_with('.');
    std::error_code ignored;
    if (isHidden && entry->is_directory(ignored)) entry.disable_recursion_pending();
    if (!isHidden && IsProjectName(entry->path().string()) && entry->is_regular_file(ignored))
      files.push_back(entry->path().string());
  }
  return files;
}

Paths FilesIn(const std::string& folder) {
  Paths files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    if (IsProjectName(entry->path().string())) files.push_back(entry->path().string());
  return files;
}

bool HasGit(const std::string& tree) {
  std::error_code error;
  return fs::exists(fs::path(tree) / ".git", error);
}

/// Groups, and the projects that none of them names.
Paths WithoutNamed(Paths files, const PathFilter& isLeftOut) {
  std::erase_if(files, [&](const std::string& file) {
    std::error_code error;
    return !fs::is_regular_file(file, error) || isLeftOut(file);  // git lists deleted ones, too
  });
  std::ranges::sort(files);
  std::set<std::string> named;
  for (const std::string& file : files)
    if (IsGroupName(file)) named.merge(std::set<std::string>(Contents(file).Projects()));
  std::erase_if(files, [&](const std::string& file) {
    return !IsGroupName(file) && named.contains(RealPath(file));
  });
  return files;
}

Paths ThoseHolding(const Paths& files, const std::string& source) {
  Paths holding;
  for (const std::string& file : files)
    if (Contents(file).Holds(source)) holding.push_back(file);
  return holding;
}

}  // namespace

bool IsSourceName(const std::string& path) {
  return EndsIn(path, {u".bas", u".cls", u".frm", u".ctl", u".pag", u".dob", u".dsr"});
}

bool IsProjectName(const std::string& path) {
  return EndsIn(path, {u".vbg", u".vbp"});
}

std::vector<std::string> ProjectsBelow(const std::string& folder, const PathFilter& isLeftOut) {
  const std::string place = RealPath(folder);
  const std::string tree = WorkTreeOf(place, SystemFileOps());
  auto files = HasGit(tree) ? GitTree(tree).FilesBelow(place, {".vbg", ".vbp"}) : std::nullopt;
  return WithoutNamed(files ? *files : FilesBelow(place), isLeftOut);
}

std::vector<std::string> ProjectsHolding(const std::string& source, const PathFilter& isLeftOut) {
  std::string folder = PathFinder::FolderOf(source);
  const std::string tree = WorkTreeOf(folder, SystemFileOps());
  if (HasGit(tree)) return ThoseHolding(ProjectsBelow(tree, isLeftOut), source);
  for (;; folder = PathFinder::FolderOf(folder)) {
    Paths holding = ThoseHolding(WithoutNamed(FilesIn(folder), isLeftOut), source);
    if (!holding.empty() || folder == "/" || folder.empty()) return holding;
  }
}
