// quillon.toml: what a team has agreed on, in its repository. Options beat it, and it beats the
// user's settings. It comes with the code, so that nothing in it may widen where the program
// writes.
//
//   groups = ["App/Orders.vbg"]          # paths are relative to the file's folder
//   template = "tools/Template.dat"
//   define = ["TRIAL=-1"]
//   roots = ["App", "Core"]              # of what may be written, only this
//   exclude = ["Old/"]
//   [check]
//   select = ["*"]
//   ignore = ["read-only"]
//   baseline = "quillon.baseline"
//   [rules]
//   "Severity Default" = 3
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Arguments.h"

class TeamFile {
 public:
  static constexpr const char* Name = "quillon.toml";

  /// The nearest one upwards from a path, not beyond the work tree of git; nothing when there is
  /// none. Stop with file and line for one that can't be understood.
  static std::optional<TeamFile> Find(const std::string& path);

  /// Fills in what no option gave, and tells in Arguments::origins where it comes from.
  void ApplyTo(Arguments& arguments) const;
  /// The rules, unless the options name a settings file.
  void ApplyRules(Arguments& arguments) const;

 private:
  friend class TeamFileReader;
  std::string Place(const std::string& key) const;
  std::string Here(const std::string& path) const;

  std::string mPath, mFolder;                              // absolute, links resolved
  std::map<std::string, std::vector<std::string>> mTexts;  // by key
  std::map<std::string, std::string> mRules;               // by name
  std::map<std::string, std::size_t> mLines;               // by key or name of a rule
};
