#include "Suggestions.h"

#include <algorithm>

namespace {

using MQuillon::Boundary;
using MRules::Values;
using namespace Suggestions;

// What the three kinds take from the rules, where they differ.
struct Defaults {
  TextView templateName;
  MQuillon::Severity severity;
  MQuillon::Retry retry;
};

Defaults DefaultsOf(Kind kind, const Values& rules) {
  if (kind == Kind::Declarations) {
    return {rules.sDefaultModTemplate, rules.eModSeverityDefault, rules.eModRetryDefault};
  }
  return {rules.sDefaultProcTemplate, rules.eSeverityDefault, rules.eRetryDefault};
}

/// Behind the library's name, if the text states it.
TextView OwnName(TextView foreign) {
  return foreign.substr(foreign.rfind(u'.') + 1);
}

// A member that implements an interface carries the interface's name and an underscore in front.
// The language takes the interface's own name for that, also where the library stands before it.
Fact ForeignFact(const Facts& facts, const Values& rules) {
  const Text name = facts.asForeignInterface.empty() ? Text() : LowerCase(facts.sName);
  const auto isMemberOf = [&](TextView foreign) {
    return name.size() > foreign.size() && name[foreign.size()] == u'_' &&
           name.starts_with(foreign);
  };
  if (std::ranges::any_of(facts.asForeignInterface, isMemberOf)) return Fact::ForeignInterface;
  const bool byOwnName = rules.bInterfaceOwnName &&
                         std::ranges::any_of(facts.asForeignInterface, [&](TextView foreign) {
                           return isMemberOf(OwnName(foreign));
                         });
  return byOwnName ? Fact::OwnInterfaceName : Fact::None;
}

bool IsTerminate(TextView name, const Values& rules) {
  constexpr TextView Terminate = u"Class_Terminate";
  return rules.bHandlersIgnoreCase ? EqualNoCase(name, Terminate) : name == Terminate;
}

bool IsPublicMember(const Facts& facts) {
  return facts.nScope == MQuillon::MemberScope::Public && facts.bPublicClass;
}

// The run-time calls event handlers, so that no caller of the project could handle their errors. A
// component with event sources is never taken for a public class here, even when it is one.
Fact MethodFact(const Facts& facts, const Values& rules) {
  if (const Fact foreign = ForeignFact(facts, rules); foreign != Fact::None) return foreign;
  if (IsTerminate(facts.sName, rules)) return Fact::ClassTerminate;
  if (facts.bHasEventSource) {
    if (rules.bHandlersIgnoreCase && facts.bHandlerNoCase) return Fact::HandlerNoCase;
    return facts.bEventHandler ? Fact::EventHandler : Fact::NoEventHandler;
  }
  return IsPublicMember(facts) ? Fact::PublicClass : Fact::Inside;
}

Fact PropertyFact(const Facts& facts, const Values& rules) {
  if (const Fact foreign = ForeignFact(facts, rules); foreign != Fact::None) return foreign;
  return IsPublicMember(facts) ? Fact::PublicClass : Fact::Inside;
}

Fact DeclarationsFact(const Facts& facts) {
  if (facts.bHasDesigner && facts.bHasEventSource) return Fact::Designer;
  return facts.bPublicClass ? Fact::PublicClass : Fact::Inside;
}

/// The value in the code where there is one and its rule leaves it, else the default.
template <class Value>
Suggested<Value> LeftOrDefault(Value current, bool replaces, Value defaultValue) {
  if (current != Value() && !replaces) return {current, {Rule::Leave}};
  return {defaultValue, {Rule::Default}};
}

Suggested<Boundary> SuggestedBoundary(const Facts& facts, Boundary current, const Values& rules) {
  const Fact fact = rules.bExpertEnabled ? DecidingFact(facts, rules) : Fact::None;
  if (current == Boundary::Firewall) {
    if (!rules.bFirewallReplace) return {current, {Rule::LeaveFirewall, fact}};
  } else if (current != Boundary::Unset && !rules.bBoundaryReplace) {
    return {current, {Rule::LeaveBoundary, fact}};
  }
  if (rules.bExpertEnabled) return {BoundaryBy(fact), {Rule::Expert, fact}};
  return {rules.eBoundaryDefault, {Rule::Default}};
}

}  // namespace

namespace Suggestions {

Fact DecidingFact(const Facts& facts, const Values& rules) {
  switch (facts.eKind) {
    case Kind::Property:
      return PropertyFact(facts, rules);
    case Kind::Declarations:
      return DeclarationsFact(facts);
    case Kind::Method:
      break;
  }
  return MethodFact(facts, rules);
}

Boundary BoundaryBy(Fact fact) {
  switch (fact) {
    case Fact::EventHandler:
    case Fact::HandlerNoCase:
    case Fact::ClassTerminate:
    case Fact::Designer:
      return Boundary::VB;
    case Fact::PublicClass:
    case Fact::ForeignInterface:
    case Fact::OwnInterfaceName:
      return Boundary::ActiveX;
    case Fact::None:
    case Fact::Inside:
    case Fact::NoEventHandler:
    case Fact::ClearsErr:
      break;
  }
  return Boundary::None;
}

Suggestion SuggestionFor(const Facts& facts, const CProcSettings& current, const Values& rules,
                         bool keepsForeign) {
  const Defaults defaults = DefaultsOf(facts.eKind, rules);
  Suggestion suggestion;
  suggestion.templateName =
      LeftOrDefault(current.sTemplate(), rules.bTemplateReplace, defaults.templateName);
  if (facts.bClearsErr && current.sTemplate().empty() && !suggestion.templateName.value.empty())
    suggestion.templateName.reason.fact = Fact::ClearsErr;
  if (suggestion.templateName.value.empty() && !keepsForeign) {
    constexpr Reason None = {Rule::NoTemplate};
    suggestion.boundary.reason = suggestion.severity.reason = suggestion.retry.reason =
        suggestion.trace.reason = None;
    return suggestion;
  }
  suggestion.severity =
      LeftOrDefault(current.eSeverity(), rules.bSeverityReplace, defaults.severity);
  suggestion.retry = LeftOrDefault(current.eRetry(), rules.bRetryReplace, defaults.retry);
  suggestion.trace = LeftOrDefault(current.eTrace(), rules.bTraceReplace, rules.eTraceDefault);
  suggestion.boundary = SuggestedBoundary(facts, current.eBoundary(), rules);
  return suggestion;
}

std::vector<TextView> RulesJudgingOtherwise(const Facts& facts, const CProcSettings& current,
                                            const Values& rules) {
  std::vector<TextView> names;
  const Boundary present = SuggestionFor(facts, current, rules).boundary.value;
  const auto tryRule = [&](bool Values::*member, TextView name) {
    if (rules.*member) return;
    Values with = rules;
    with.*member = true;
    if (SuggestionFor(facts, current, with).boundary.value != present) names.push_back(name);
  };
  tryRule(&Values::bHandlersIgnoreCase, MRules::HandlersIgnoreCaseName);
  tryRule(&Values::bInterfaceOwnName, MRules::InterfaceOwnNameName);
  return names;
}

void Suggest(const Facts& facts, const CProcSettings& current, const Values& rules,
             CProcSettings& settings) {
  Write(SuggestionFor(facts, current, rules, settings.bForeign()), settings);
}

}  // namespace Suggestions
