// The findings that a team has agreed to live with for now, as a file in its repository: JSON, a
// line per finding, in the order of the findings, so that a review shows what came and went.
//
//   Baseline baseline = Baseline::Read(text);
//   if (baseline.Knows(finding.fingerprint)) ...
//   for (const Baseline::Entry* entry : baseline.Gone()) ...
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ReviewFinding.h"
#include "TextSink.h"

/// A text that is no baseline that this program reads.
struct BaselineFault {
  std::size_t line = 0;  ///< from 1
  std::string message;   ///< with what to do
};

class Baseline {
 public:
  struct Entry {
    std::string fingerprint, rule, file, component, procedure;
    bool isSeen = false;
  };

  /// Throws a BaselineFault.
  static Baseline Read(const std::string& text);

  /// Once for each finding of a check.
  bool Knows(const std::string& fingerprint);
  /// Entries that no finding was known by so far.
  std::vector<const Entry*> Gone() const;

 private:
  std::vector<Entry> mEntries;
  std::unordered_map<std::string, std::size_t> mPlaces;  // by fingerprint
};

/// Writes a baseline: Begin, Add for each finding, End.
class BaselineWriter {
 public:
  explicit BaselineWriter(TextSink& sink);
  ~BaselineWriter();
  BaselineWriter(const BaselineWriter&) = delete;
  BaselineWriter& operator=(const BaselineWriter&) = delete;

  void Begin();
  void Add(const ReviewFinding& finding);
  void End();

 private:
  std::unique_ptr<class JsonWriter> mJson;
};
