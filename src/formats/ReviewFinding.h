// A finding as it is told: all of it texts, so that whoever writes it in some form needs neither
// the model nor the options. Texts are well-formed UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CheckRules.h"

struct ReviewFinding {
  struct Change {
    std::string property, from, to;  ///< from and to: empty for a value that isn't set
  };

  const RuleRow* rule = nullptr;
  std::string file;      ///< relative to the current folder, as it is shown; empty for none
  std::string treeFile;  ///< bytes: relative to the work tree, absolute outside; empty for none
  std::int32_t line = 0, endLine = 0;  ///< from 1, both included; 0: the whole file
  std::string project, component;      ///< empty for a project that can't be read
  std::string procedure;               ///< empty for the component as a whole
  std::string message;                 ///< what JSON has: of changes with the name ahead
  std::vector<Change> changes;         ///< of a suggestion
  std::string mend;                    ///< a command line; empty for none
  std::string fingerprint;             ///< empty where nobody asked for it

  /// The message for people: who, then what.
  std::string FullMessage() const;
};
