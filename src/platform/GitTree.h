// Asks git about a work tree. Nothing of the work tree's own is run by it, and what a user wrote is
// never taken for an option.
//
//   GitTree tree("/src/orders");
//   if (const auto files = tree.Staged()) ...
//
// All answers are absolute paths; nothing when git isn't there or can't tell.
#pragma once

#include <optional>
#include <string>
#include <vector>

class GitTree {
 public:
  using Paths = std::vector<std::string>;

  /// top: the folder that holds `.git`, absolute.
  explicit GitTree(std::string top) : mTop(std::move(top)) {}

  /// Files below the folder that git tracks, or would if they were added: ignored ones are left
  /// out. endings: such as ".vbp", in any letter case.
  std::optional<Paths> FilesBelow(const std::string& folder, const Paths& endings) const;
  /// Files whose bytes differ from those of the commit at which the branch left the revision, new
  /// ones included. Nothing for a revision that isn't there, too.
  std::optional<Paths> ChangedSince(const std::string& revision) const;
  /// Files that the next commit changes or adds.
  std::optional<Paths> Staged() const;

 private:
  std::optional<std::string> Run(std::vector<std::string> words) const;
  std::optional<std::string> Line(std::vector<std::string> words) const;
  std::optional<Paths> List(std::vector<std::string> words) const;

  std::string mTop;
};
