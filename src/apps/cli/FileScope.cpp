#include "FileScope.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "Console.h"
#include "GitTree.h"
#include "PathGlob.h"
#include "PathText.h"
#include "UnifiedDiff.h"
#include "WriteRoots.h"

namespace {

using Set = std::set<std::string>;

Set Real(const std::vector<std::string>& paths) {
  Set real;
  for (const std::string& path : paths) real.insert(RealPath(path));
  return real;
}

/// A path a line, or each closed by a NUL.
std::vector<std::string> Listed(const std::string& text) {
  const char end = text.find('\0') == std::string::npos ? '\n' : '\0';
  std::vector<std::string> paths;
  for (std::size_t start = 0, stop; start < text.size(); start = stop + 1) {
    stop = std::min(text.find(end, start), text.size());
    std::string path = text.substr(start, stop - start);
    if (end == '\n' && path.ends_with('\r')) path.pop_back();
    if (!path.empty()) paths.push_back(PathOfArgument(path));
  }
  return paths;
}

std::string TextOfList(const std::string& file) {
  if (file == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
  // A pipe, as a shell makes of <(...), will do.
  std::ifstream stream(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(stream), {}};
  if (!stream.is_open() || stream.bad())
    throw Stop{"--files-from: " + ShownPath(file) + " can't be read"};
  return text;
}

bool AnyFits(const std::vector<std::string>& patterns, const std::string& path) {
  return std::ranges::any_of(patterns,
                             [&](const std::string& pattern) { return GlobFits(pattern, path); });
}

Set Answer(const std::optional<GitTree::Paths>& paths, const std::string& refusal) {
  if (!paths) throw Stop{refusal};
  return Real(*paths);
}

}  // namespace

bool IsExcluded(const Arguments& arguments, const std::string& path) {
  if (arguments.excludedFrom.empty()) return AnyFits(arguments.excluded, RelativePath(path));
  const std::filesystem::path real = RealPath(path);
  return AnyFits(arguments.excluded, real.lexically_relative(arguments.excludedFrom).string());
}

FileScope::FileScope(const Arguments& arguments, Files sources, const std::string& folder)
    : mArguments(&arguments), mSources(std::move(sources)) {
  const std::string top = WorkTreeOf(folder, SystemFileOps());
  const GitTree tree(top);
  if (!arguments.since.empty())
    mChanges = Answer(tree.ChangedSince(arguments.since),
                      "--since " + arguments.since + ": git knows no such revision in " +
                          ShownPath(top) + " (is it a work tree, and was it fetched?)");
  if (arguments.staged)
    mStaged = Answer(tree.Staged(), "--staged: git can't tell what is staged in " + ShownPath(top) +
                                        " (is it a work tree?)");
  if (!arguments.filesFrom.empty()) mNamed = Real(Listed(TextOfList(arguments.filesFrom)));
  mIsWhole = arguments.files.empty() && arguments.excluded.empty() && !mSources && !mChanges &&
             !mStaged && !mNamed;
}

bool FileScope::Takes(const std::string& path) const {
  if (mIsWhole) return true;
  if (path.empty()) return false;
  const auto& fitting = mArguments->files;
  if (!fitting.empty() && !AnyFits(fitting, RelativePath(path))) return false;
  if (IsExcluded(*mArguments, path)) return false;
  const std::string real = RealPath(path);
  return Has(mSources, real) && Has(mChanges, real) && Has(mStaged, real) && Has(mNamed, real);
}
