// What the user answered when asked whether components of a group may be written in folders
// outside of its work tree. Kept in the user's own settings, which no group can bring along: with
// another settings file (--settings FILE) nothing is remembered and nothing counts.
//
//   RememberedRoots answers("/src/orders/Orders.vbg");
//   if (!answers.Knows(folder)) answers.Add(folder, AskUser(folder));
//   options.roots = answers.Allowed();
//
// A value for each group in the key Roots, named by the group's real path: the folders one behind
// the other, each with `+` (may be written) or `-` ahead of it, with `:` between them. A folder
// with a colon in its name can't be kept and is asked for again.
#pragma once

#include <map>
#include <string>
#include <vector>

class RememberedRoots {
 public:
  /// Reads the answers for a group, a project or a folder.
  explicit RememberedRoots(const std::string& group);

  bool Knows(const std::string& folder) const { return mAnswers.contains(folder); }
  std::vector<std::string> Allowed() const;
  /// Kept at once.
  void Add(const std::vector<std::string>& folders, bool mayWrite);

 private:
  std::string mGroup;
  std::map<std::string, bool> mAnswers;  // by folder
};
