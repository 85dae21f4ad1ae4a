// The part of the group that a command works on: Like patterns for the names of project,
// component and procedure and for the type, letter case ignored. Several patterns for one name
// add up; all four have to fit.
#pragma once

#include <string>
#include <vector>

#include "Arguments.h"
#include "LikePattern.h"
#include "Text.h"

class Scope {
 public:
  /// Stop for a pattern that the language rejects.
  explicit Scope(const Arguments& oArguments);

  /// True without any pattern.
  bool IsWholeGroup() const { return mbWholeGroup; }
  bool TakesProject(TextView sProject) const { return Fits(moProject, sProject); }
  bool TakesComponent(TextView sProject, TextView sComponent) const;
  /// sType: as shown, "declarations" for a declarations section.
  bool TakesProcedure(TextView sName, TextView sType) const;

 private:
  using Patterns = std::vector<LikePattern>;
  static Patterns Prepare(const std::vector<std::string>& asPattern);
  static bool Fits(const Patterns& oPatterns, TextView sText);

  Patterns moProject, moComponent, moProcedure, moType;
  bool mbWholeGroup;
};
