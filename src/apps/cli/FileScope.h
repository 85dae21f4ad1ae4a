// Which files of the group a command works on: those that are named, that changed, that fit. Every
// option that is given has to fit; the patterns of one option add up.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "Arguments.h"

/// True for what --exclude, or a team's file, leaves out.
bool IsExcluded(const Arguments& arguments, const std::string& path);

class FileScope {
 public:
  using Files = std::optional<std::set<std::string>>;

  /// Takes all.
  FileScope() = default;
  /// sources: as in GivenPaths; folder: one of the work tree that is asked. Stop when git can't
  /// tell, or a list can't be read.
  FileScope(const Arguments& arguments, Files sources, const std::string& folder);

  bool IsWhole() const { return mIsWhole; }
  bool IsWholeButExcluded() const {
    return mIsWhole || (mArguments->files.empty() && !mSources && !ComesFromChanges());
  }
  /// True when other things than the user's words decide, so that it may be none at all.
  bool ComesFromChanges() const { return mChanges || mStaged || mNamed; }
  /// path: of a file of the group; empty for a component without one, which only the whole takes.
  bool Takes(const std::string& path) const;

 private:
  static bool Has(const Files& files, const std::string& path) {
    return !files || files->contains(path);
  }

  bool mIsWhole = true;
  const Arguments* mArguments = nullptr;  // null: takes all
  Files mSources, mChanges, mNamed, mStaged;
};
