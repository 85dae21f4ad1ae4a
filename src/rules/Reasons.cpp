#include "Reasons.h"

namespace Suggestions {

namespace {

// Of a selection a flag is set only if all have it: two set flags don't say which of them decided
// about the one procedure and which about the other.
Rule BoundaryRule(const CProcSettings& settings, bool isSelection, Rule otherwise) {
  const int flags = settings.bFirewallLeave + settings.bBoundaryLeave + settings.bBoundaryExpert;
  if (flags == 0 || (isSelection && flags > 1)) return otherwise;
  if (settings.bFirewallLeave) return Rule::LeaveFirewall;
  return settings.bBoundaryLeave ? Rule::LeaveBoundary : Rule::Expert;
}

}  // namespace

void Write(const Suggestion& suggestion, CProcSettings& settings) {
  const Rule boundary = suggestion.boundary.reason.rule;
  settings.bTemplateClearsErr = suggestion.templateName.reason.fact == Fact::ClearsErr;
  settings.bTemplateLeave = suggestion.templateName.reason.IsLeft();
  settings.bSeverityLeave = suggestion.severity.reason.IsLeft();
  settings.bRetryLeave = suggestion.retry.reason.IsLeft();
  settings.bTraceLeave = suggestion.trace.reason.IsLeft();
  settings.bBoundaryExpert = suggestion.boundary.reason.fact != Fact::None;
  settings.bFirewallLeave = boundary == Rule::LeaveFirewall;
  settings.bBoundaryLeave = boundary == Rule::LeaveBoundary;
  // First the template, which may shut the settings against the rest.
  settings.SetsTemplate(suggestion.templateName.value);
  settings.SeteSeverity(suggestion.severity.value);
  settings.SeteRetry(suggestion.retry.value);
  settings.SeteTrace(suggestion.trace.value);
  settings.SeteBoundary(suggestion.boundary.value);
}

Suggestion SuggestionOf(const CProcSettings& settings, bool isSelection) {
  const Rule unset = isSelection ? Rule::Differs : Rule::Default;
  const Rule otherwise = settings.sTemplate().empty() && !isSelection ? Rule::NoTemplate : unset;
  const auto leave = [](bool flag, Rule other) { return Reason{flag ? Rule::Leave : other}; };
  Reason byTemplate = leave(settings.bTemplateLeave, unset);
  if (settings.bTemplateClearsErr) byTemplate.fact = Fact::ClearsErr;
  return {.templateName = {settings.sTemplate(), byTemplate},
          .boundary = {settings.eBoundary(), {BoundaryRule(settings, isSelection, otherwise)}},
          .severity = {settings.eSeverity(), leave(settings.bSeverityLeave, otherwise)},
          .retry = {settings.eRetry(), leave(settings.bRetryLeave, otherwise)},
          .trace = {settings.eTrace(), leave(settings.bTraceLeave, otherwise)}};
}

TextView Note(const Reason& reason) {
  if (reason.fact == Fact::ClearsErr) return u"[Clears Err]";
  switch (reason.rule) {
    case Rule::Leave:
      return u"[Leave]";
    case Rule::LeaveBoundary:
      return u"[Leave Boundary]";
    case Rule::LeaveFirewall:
      return u"[Leave Firewall]";
    case Rule::Expert:
      return u"[Property Expert]";
    case Rule::Default:
    case Rule::NoTemplate:
    case Rule::Differs:
      break;
  }
  return {};
}

}  // namespace Suggestions
