// explain: what a user is told about a rule of check, or about the suggestions for a procedure.
#include "ExplainCommand.h"

#include <array>

#include "CheckRules.h"
#include "Commands.h"
#include "Display.h"
#include "LikePattern.h"
#include "MRules.h"
#include "Reasons.h"
#include "Table.h"
#include "VisibleText.h"

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

std::string RuleList() {
  TextTable table(3);
  std::string text;
  const auto forEachRule = [](auto&& use) {
    for (const RuleRow& row : CheckRules()) {
      const std::string severity(SeverityName(row.severity));
      use(std::array{std::string(row.id), severity + (row.byDefault ? "" : ", off"),
                     std::string(row.summary)});
    }
  };
  forEachRule([&](const auto& cells) { table.Measure(cells); });
  forEachRule([&](const auto& cells) { table.Append(cells, text); });
  return text;
}

/// Why a value is suggested, to go behind it.
std::string Because(const Suggestions::Reason& reason) {
  using Suggestions::Fact, Suggestions::Rule;
  const auto byRule = [](const char* what, TextView rule) {
    return what + (", by the rule '" + ToUtf8(rule) + "'");
  };
  if (reason.fact == Fact::ClearsErr) {
    return "the default of the rules, but it would clear Err ahead of the code that reads it "
           "(err-read)";
  }
  switch (reason.rule) {
    case Rule::Default:
      return "the default of the rules";
    case Rule::NoTemplate:
      return "no template is suggested";
    case Rule::Leave:
    case Rule::LeaveBoundary:
    case Rule::LeaveFirewall:
      return "stands in the code, and the rules leave it";
    case Rule::Differs:
      return {};
    case Rule::Expert:
      break;
  }
  switch (reason.fact) {
    case Fact::NoEventHandler:
      return "handles no event, though its component has some";
    case Fact::EventHandler:
      return "an event handler";
    case Fact::HandlerNoCase:
      return byRule("an event handler", MRules::HandlersIgnoreCaseName);
    case Fact::ClassTerminate:
      return "the run-time calls it at the end of an object";
    case Fact::Designer:
      return "the declarations of a component with a designer";
    case Fact::PublicClass:
      return "other programs reach it";
    case Fact::ForeignInterface:
      return "implements an interface from outside the group";
    case Fact::OwnInterfaceName:
      return byRule("implements an interface from outside the group", MRules::InterfaceOwnNameName);
    case Fact::None:
    case Fact::Inside:
    case Fact::ClearsErr:
      break;
  }
  return "only code of the project calls it";
}

std::string SuggestionText(Session& session, ProcedureHandle procedure) {
  const CIDEHandler& handler = session.oHandler;
  const ProcedureRecord& record = handler.Procedure(procedure);
  const Suggestions::Suggestion suggestion = handler.SuggestionOf(procedure);
  std::string text = session.NameOf(procedure) + '\n';
  const auto add = [&](Property property, const Suggestions::Reason& reason) {
    const std::string value = Shown(record.oSuggest, property);
    text.append("    ").append(PropertyName(property)).append(" ");
    text.append(value.empty() ? "unset" : value).append(": ").append(Because(reason)).append("\n");
  };
  add(Property::Template, suggestion.templateName.reason);
  if (record.oSuggest.bForeign() || record.oSuggest.sTemplate().empty()) return text;
  add(Property::Boundary, suggestion.boundary.reason);
  add(Property::Severity, suggestion.severity.reason);
  add(Property::Retry, suggestion.retry.reason);
  if (record.oMember) add(Property::Trace, suggestion.trace.reason);
  for (const TextView rule : handler.RulesJudgingOtherwise(procedure))
    text.append("    Boundary would differ by the rule '" + ToUtf8(rule) + "', which is off\n");
  return text;
}

int ExplainProcedures(Session& session) {
  session.OpenGroup(Session::Use::Show);
  session.LoadScope();
  const LikePattern pattern(LowerCase(FromUtf8(session.oArguments.sRule)));
  bool isFirst = true;
  for (const ProcedureHandle h : session.Procedures()) {
    if (!pattern.Matches(LowerCase(session.oHandler.ProcName(h)))) continue;
    session.oOutput.Put(VisibleLines((isFirst ? "" : "\n") + SuggestionText(session, h)));
    isFirst = false;
  }
  if (isFirst) throw Stop{"No procedure in scope is called " + session.oArguments.sRule};
  return 0;
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
  if (session.oArguments.sRule.empty()) {
    session.oOutput.Put(RuleList());
    return 0;
  }
  if (!session.oArguments.asPath.empty()) return ExplainProcedures(session);
  const LikePattern pattern(LowerCase(FromUtf8(session.oArguments.sRule)));
  std::string text;
  for (const RuleRow& row : CheckRules())
    if (pattern.Matches(FromUtf8(row.id))) text += (text.empty() ? "" : "\n") + Explanation(row);
  if (text.empty()) throw Stop{UnknownRule(session.oArguments.sRule)};
  session.oOutput.Put(text);
  return 0;
}
