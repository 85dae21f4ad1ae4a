#include "GitTree.h"

#include <algorithm>

#include "ChildProgram.h"

std::optional<std::string> GitTree::Run(std::vector<std::string> words) const {
  // A configuration may name a program that watches files; it isn't wanted here.
  std::vector<std::string> all = {
      "git", "-C", mTop, "--no-optional-locks", "-c", "core.fsmonitor=false"};
  all.insert(all.end(), words.begin(), words.end());
  return OutputOfProgram(all);
}

std::optional<std::string> GitTree::Line(std::vector<std::string> words) const {
  auto text = Run(std::move(words));
  if (text) text->erase(std::min(text->find('\n'), text->size()));
  return text;
}

std::optional<GitTree::Paths> GitTree::List(std::vector<std::string> words) const {
  const auto text = Run(std::move(words));
  if (!text) return std::nullopt;
  Paths paths;
  const std::string above = mTop.ends_with('/') ? mTop : mTop + '/';
  for (std::size_t start = 0, end; start < text->size(); start = end + 1) {
    end = std::min(text->find('\0', start), text->size());
    paths.push_back(above + text->substr(start, end - start));
  }
  return paths;
}

std::optional<GitTree::Paths> GitTree::FilesBelow(const std::string& folder,
                                                  const Paths& endings) const {
  std::vector<std::string> words = {"ls-files",           "-z",          "--cached", "--others",
                                    "--exclude-standard", "--full-name", "--"};
  for (const std::string& ending : endings) words.push_back(":(icase)*" + ending);
  auto paths = List(words);
  if (!paths) return paths;
  const std::string above = folder.ends_with('/') ? folder : folder + '/';
  std::erase_if(*paths, [&](const std::string& path) { return !path.starts_with(above); });
  return paths;
}

std::optional<GitTree::Paths> GitTree::ChangedSince(const std::string& revision) const {
  const auto commit =
      Line({"rev-parse", "--verify", "--quiet", "--end-of-options", revision + "^{commit}"});
  if (!commit) return std::nullopt;
  // A clone that lacks history has no common commit: then the revision itself counts.
  const std::string start = Line({"merge-base", *commit, "HEAD"}).value_or(*commit);
  auto paths = List({"diff", "--name-only", "-z", "--no-ext-diff", "--no-renames",
                     "--diff-filter=d", start, "--"});
  const auto added = List({"ls-files", "-z", "--others", "--exclude-standard", "--full-name"});
  if (!paths || !added) return std::nullopt;
  paths->insert(paths->end(), added->begin(), added->end());
  return paths;
}

std::optional<GitTree::Paths> GitTree::Staged() const {
  return List({"diff", "--cached", "--name-only", "-z", "--no-ext-diff", "--no-renames",
               "--diff-filter=d", "--"});
}
