// What the trial of one procedure shows, as text against text.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "CheckRules.h"
#include "TemplateSet.h"
#include "Trial.h"

struct TrialFinding {
  CheckRule rule{};
  /// Lines of the procedure's text, from 1, both included; 0: its head.
  std::size_t line = 0, endLine = 0;
  std::string message{};
};

/// row: the template that the code holds; null for none. In the order of the rules' discovery:
/// what a refresh would change or refuse, then numbers, then what the pending rewrite is refused
/// for beyond that.
std::vector<TrialFinding> FindingsOf(const TemplateSet& templates, const TemplateRow* row,
                                     const Trial& trial);
