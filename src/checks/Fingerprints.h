// Names for findings that stay when lines move: from the rule, where the finding stands by name,
// and the code that it is about, without its line number and blanks that make no difference.
// Findings that are equal in all of it are told apart by their order.
//
//   Fingerprints prints;
//   prints.Of({"drifted", "COrder", "Load", u"    Trail.Caught 2"})   // 16 hex digits
//
// The same findings in the same order get the same names in every run and on every machine.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Text.h"

class Fingerprints {
 public:
  struct Subject {
    std::string_view rule;
    std::string_view component;  ///< or the file, of a project
    std::string_view procedure;  ///< empty for the component as a whole
    TextView code{};             ///< the lines that the finding is about; empty: all of it
  };
  std::string Of(const Subject& subject);

 private:
  std::unordered_map<std::string, std::size_t> mSeen;  // by name
};
