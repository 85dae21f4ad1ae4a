// What a rule found, where, and what was looked at. How it is printed is the business of whoever
// prints it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "CProcSettings.h"
#include "CheckRules.h"
#include "Handle.h"
#include "Text.h"

struct Finding {
  CheckRule rule{};
  const std::string* file = nullptr;   ///< as it is shown, empty for none; kept by CheckResult
  std::int32_t line = 0, endLine = 0;  ///< in the file, from 1, both included; 0: the whole file
  ComponentHandle component{};         ///< none: a project
  ProcedureHandle procedure{};         ///< none: the component as a whole
  /// The same in the procedure's text, from 1; 0: its head, or no procedure.
  std::size_t textLine = 0, textEndLine = 0;
  /// Without the procedure's name. Empty where settings say it.
  std::string message{};
  /// The settings that the code has and those that are suggested.
  struct Settings {
    CProcSettings from, to;
    bool isTraced = false;  ///< false: a declarations section, which can't be traced
  };
  std::optional<Settings> settings{};
  std::string fingerprint{};  ///< by which it is known again (Fingerprints.h)
};

/// What a check left aside, by cause.
struct PassedOver {
  std::size_t locked = 0;       ///< procedures
  std::size_t ownHandling = 0;  ///< procedures
  std::size_t inactive = 0;     ///< procedures in branches that conditional compilation leaves out
  std::size_t readOnlyFiles = 0;
  std::size_t sharedFiles = 0;  ///< files of components that an earlier project has
};

struct CheckResult {
  std::vector<Finding> findings;
  std::size_t procedures = 0;  ///< that were looked at or passed over
  PassedOver passedOver;
  /// By rule: what was found and not asked for.
  std::array<std::size_t, 64> ignored{};
  /// By stored name: procedures that a rule about suggestions, which is off, would judge otherwise.
  std::map<std::string, std::size_t> judgedOtherwise{};
  /// Findings that a baseline holds, and that were taken out; the fingerprints of its entries that
  /// no longer occur.
  std::size_t known = 0;
  std::vector<std::string> gone{};
  /// Whether code names a template that the template file holds, and one that it doesn't.
  bool namesKnown = false, namesUnknown = false;

  std::deque<std::string> files;  ///< where the findings' file names are

  CheckResult() = default;
  CheckResult(CheckResult&&) = default;
  CheckResult& operator=(CheckResult&&) = default;
};

/// Puts the findings in the order of file and line; those of one line stay in their order.
void SortFindings(std::vector<Finding>& findings);
/// What is to be told at the end: "3 findings (2 drifted, 1 stale-name) in 210 procedures; passed
/// over: 2 procedures, 1 file (-v tells why)". Verbose: the causes, a line each, ahead of it.
std::vector<std::string> TotalLines(const CheckResult& result, bool verbose);
