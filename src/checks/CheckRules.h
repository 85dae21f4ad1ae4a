// What `check` judges code by: a row per rule. The row is also what a user is told about it, by
// `quillon explain` and in docs/checks.md, which a test compares.
//
//   if (const RuleRow* row = FindRule("drifted")) row->summary
//
// To add a rule, write its row and let something find it (ProcedureChecks.h).
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

enum class CheckRule : std::uint8_t {
  MissingTemplate,
  SettingsDiffer,
  Drifted,
  StaleName,
  BrokenTemplate,
  UnknownTemplate,
  OwnHandling,
  Numbered,
  WouldRefuse,
  ReadOnly,
  Unreadable,
  UnprovedMeaning,
  ConflictingConstants
};

/// Error: the code doesn't do what its handler says, or can't be worked on. Warning: a command
/// would put it right. Note: for those who ask.
enum class CheckSeverity : std::uint8_t { Error, Warning, Note };

/// The command that puts right what a rule finds.
enum class Mend : std::uint8_t { None, ApplySuggested, Refresh, Unnumber };

struct RuleRow {
  CheckRule rule;
  std::string_view id;
  CheckSeverity severity;
  Mend mend;
  bool byDefault;  ///< found without being selected
  std::string_view summary;
  std::string_view explanation;  ///< paragraphs with a line end each, lines as they are to stand
  std::string_view example;      ///< findings as check prints them, or code
};

/// In the order of CheckRule.
std::span<const RuleRow> CheckRules();
const RuleRow& RowOf(CheckRule rule);
/// Null for an id that there is not.
const RuleRow* FindRule(std::string_view id);

std::string_view SeverityName(CheckSeverity severity);
/// The words behind "quillon"; empty for None.
std::string_view MendCommand(Mend mend);
