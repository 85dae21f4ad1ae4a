// Turns findings of the model into those that are told: names, places and commands as texts.
#pragma once

#include "Finding.h"
#include "ReviewFinding.h"
#include "Session.h"

class ToldFindings {
 public:
  /// The session outlives this object.
  explicit ToldFindings(Session& session);

  /// Holds until the next one is told.
  const ReviewFinding& Tell(const Finding& finding);

 private:
  void Names(const Finding& finding);
  void Place(const Finding& finding);
  void Changes(const Finding::Settings& settings);
  std::string MendFor(const Finding& finding) const;

  Session& mSession;
  CIDEHandler& mHandler;
  std::string mTree;  // the work tree, a slash behind it
  ReviewFinding mTold;
  const std::string* mFile = nullptr;          // whose places mTold has
  std::optional<Finding::Settings> mSettings;  // whose texts mChanges and mChangeText are
  std::vector<ReviewFinding::Change> mChanges;
  std::string mChangeText;
};
