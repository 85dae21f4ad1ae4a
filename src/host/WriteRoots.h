// Which files of a group may be written: a project file names any file of the account, by `..\`,
// by an absolute path or by a link, and one that came from somewhere must not choose where its
// reader's programs write. Only folders that the user named and the work tree of the group count.
//
//   WriteRoots roots;
//   roots.Add(WorkTreeOf("/src/orders/group", files));   // /src/orders, if .git stands there
//   roots.Refusal("/src/orders/a.bas")                    // None
//   roots.Refusal("/src/orders/.git/config")              // DotFolder
//   roots.Refusal("/src/shared/b.bas")                    // Outside
//
// All paths are absolute and have no links in them.
#pragma once

#include <string>
#include <vector>

#include "IFileOps.h"
#include "Text.h"

enum class WriteRefusal {
  None,
  Outside,    ///< below no root; another root would do
  DotFolder,  ///< in a folder below the root, or anywhere outside, whose name begins with a dot
  ForeignExtension  ///< none of those that the IDE gives to files with code
};

class WriteRoots {
 public:
  /// What is below the folder may be written. Folders above it may begin with a dot.
  void Add(const std::string& folder) { mFolders.push_back(folder); }

  WriteRefusal Refusal(const std::string& path) const;
  /// The reason for people, with the path and what to do; empty for a file that may be written.
  Text Reason(const std::string& path) const;

 private:
  std::vector<std::string> mFolders;
};

/// The nearest folder upwards that holds `.git`; without one the folder itself.
std::string WorkTreeOf(const std::string& folder, IFileOps& files);

/// The parts of the work tree that lie below one of the folders; all of it without folders. A
/// folder beyond the work tree, or in one whose name begins with a dot, adds nothing.
std::vector<std::string> NarrowedRoots(const std::string& tree,
                                       const std::vector<std::string>& folders);

/// The real path of a file as the disk has it now: no link in it, nothing remembered. The path
/// itself where it leads to nothing.
std::string RealPath(const std::string& path);
