// explain: what a user is told about a rule of check.
#include "ExplainCommand.h"
#include "CheckRules.h"
#include "Commands.h"
#include "Display.h"
#include "LikePattern.h"

namespace {

std::string Indented(std::string_view lines) {
  std::string text;
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n') + 1;
    text.append("    ").append(lines.substr(0, end));
    lines.remove_prefix(end);
  }
  return text;
}

std::string Explanation(const RuleRow& row) {
  std::string text(row.id);
  text.append(" (").append(SeverityName(row.severity));
  text.append(row.byDefault ? ")\n\n" : ", off unless selected)\n\n");
  text.append(row.summary).append("\n\n").append(row.explanation).append("\nExample:\n\n");
  text.append(Indented(row.example));
  if (row.mend != Mend::None)
    text.append("\nWhat mends it: quillon ").append(MendCommand(row.mend)).append("\n");
  return text;
}

std::string RuleNames() {
  std::vector<std::string> names;
  for (const RuleRow& row : CheckRules()) names.emplace_back(row.id);
  return Alternatives(names);
}

}  // namespace

std::string UnknownRule(const std::string& word) {
  return "There is no rule " + word + ": it is " + RuleNames();
}

int ExplainCommand(Session& session) {
  const LikePattern pattern(LowerCase(FromUtf8(session.oArguments.sRule)));
  std::string text;
  for (const RuleRow& row : CheckRules())
    if (pattern.Matches(FromUtf8(row.id))) text += (text.empty() ? "" : "\n") + Explanation(row);
  if (text.empty()) throw Stop{UnknownRule(session.oArguments.sRule)};
  session.oOutput.Put(text);
  return 0;
}
