#include "Suggestions.h"

#include <algorithm>

#include "MQuillon.h"

namespace {

using MQuillon::Boundary;
using MRules::Values;
using Suggestions::Facts;
using Suggestions::Kind;

// What the three kinds take from the rules, where they differ.
struct Defaults {
  const Text& sTemplate;
  MQuillon::Severity eSeverity;
  MQuillon::Retry eRetry;
};

Defaults DefaultsOf(Kind eKind, const Values& oRules) {
  if (eKind == Kind::Declarations) {
    return {oRules.sDefaultModTemplate, oRules.eModSeverityDefault, oRules.eModRetryDefault};
  }
  return {oRules.sDefaultProcTemplate, oRules.eSeverityDefault, oRules.eRetryDefault};
}

// A member that implements an interface carries the interface's name and an underscore in front.
bool ImplementsForeign(const Facts& oFacts) {
  const Text sName = oFacts.asForeignInterface.empty() ? Text() : LowerCase(oFacts.sName);
  const auto bPrefix = [&](const Text& sInterface) {
    return sName.size() > sInterface.size() && sName[sInterface.size()] == u'_' &&
           sName.starts_with(sInterface);
  };
  return std::any_of(oFacts.asForeignInterface.begin(), oFacts.asForeignInterface.end(), bPrefix);
}

// The run-time calls event handlers, so that no caller of the project could handle their errors
// (VB). A component with event sources is never taken for a public class here, even when it is one.
Boundary MethodCandidate(const Facts& oFacts) {
  if (ImplementsForeign(oFacts)) return Boundary::ActiveX;
  if (oFacts.sName == u"Class_Terminate") return Boundary::VB;
  if (oFacts.bHasEventSource) {
    return oFacts.bEventHandler ? Boundary::VB : Boundary::None;
  }
  const bool bExposed = oFacts.nScope == MQuillon::MemberScope::Public && oFacts.bPublicClass;
  return bExposed ? Boundary::ActiveX : Boundary::None;
}

Boundary PropertyCandidate(const Facts& oFacts) {
  const bool bExposed = oFacts.nScope == MQuillon::MemberScope::Public && oFacts.bPublicClass;
  return bExposed || ImplementsForeign(oFacts) ? Boundary::ActiveX : Boundary::None;
}

Boundary DeclarationsCandidate(const Facts& oFacts) {
  if (oFacts.bHasDesigner && oFacts.bHasEventSource) return Boundary::VB;
  return oFacts.bPublicClass ? Boundary::ActiveX : Boundary::None;
}

void ClearFlags(CProcSettings& oSuggest) {
  oSuggest.bTemplateLeave = oSuggest.bSeverityLeave = oSuggest.bRetryLeave = oSuggest.bTraceLeave =
      oSuggest.bBoundaryExpert = oSuggest.bFirewallLeave = oSuggest.bBoundaryLeave = false;
}

void SuggestTemplate(const Defaults& oDefaults, const CProcSettings& oCurrent, bool bReplace,
                     CProcSettings& oSuggest) {
  const bool bDefault = oCurrent.sTemplate().empty() || bReplace;
  oSuggest.SetsTemplate(bDefault ? TextView(oDefaults.sTemplate) : oCurrent.sTemplate());
  oSuggest.bTemplateLeave = !bDefault;
}

// The value to suggest for Severity, Retry or Trace.
template <class Choice>
Choice Chosen(Choice eCurrent, bool bReplace, Choice eDefault, bool& bLeave) {
  bLeave = eCurrent != Choice::Unset && !bReplace;
  return bLeave ? eCurrent : eDefault;
}

void SuggestBoundary(const Facts& oFacts, Boundary eCurrent, const Values& oRules,
                     CProcSettings& oSuggest) {
  oSuggest.bBoundaryExpert = oRules.bExpertEnabled;
  const bool bFirewall = eCurrent == Boundary::Firewall;
  oSuggest.bFirewallLeave = bFirewall && !oRules.bFirewallReplace;
  oSuggest.bBoundaryLeave = !bFirewall && eCurrent != Boundary::Unset && !oRules.bBoundaryReplace;
  if (oSuggest.bFirewallLeave || oSuggest.bBoundaryLeave) {
    oSuggest.SeteBoundary(eCurrent);
  } else {
    oSuggest.SeteBoundary(oRules.bExpertEnabled ? Suggestions::BoundaryCandidate(oFacts)
                                                : oRules.eBoundaryDefault);
  }
}

}  // namespace

namespace Suggestions {

Boundary BoundaryCandidate(const Facts& oFacts) {
  switch (oFacts.eKind) {
    case Kind::Property:
      return PropertyCandidate(oFacts);
    case Kind::Declarations:
      return DeclarationsCandidate(oFacts);
    default:
      return MethodCandidate(oFacts);
  }
}

void Suggest(const Facts& oFacts, const CProcSettings& oCurrent, const Values& oRules,
             CProcSettings& oSuggest) {
  const Defaults oDefaults = DefaultsOf(oFacts.eKind, oRules);
  ClearFlags(oSuggest);
  SuggestTemplate(oDefaults, oCurrent, oRules.bTemplateReplace, oSuggest);
  if (oSuggest.sTemplate().empty()) {
    oSuggest.SeteSeverity(MQuillon::Severity::Unset);
    oSuggest.SeteRetry(MQuillon::Retry::Unset);
    oSuggest.SeteTrace(MQuillon::TriState::Unset);
    oSuggest.SeteBoundary(Boundary::Unset);
    return;
  }
  oSuggest.SeteSeverity(Chosen(oCurrent.eSeverity(), oRules.bSeverityReplace, oDefaults.eSeverity,
                               oSuggest.bSeverityLeave));
  oSuggest.SeteRetry(
      Chosen(oCurrent.eRetry(), oRules.bRetryReplace, oDefaults.eRetry, oSuggest.bRetryLeave));
  oSuggest.SeteTrace(
      Chosen(oCurrent.eTrace(), oRules.bTraceReplace, oRules.eTraceDefault, oSuggest.bTraceLeave));
  SuggestBoundary(oFacts, oCurrent.eBoundary(), oRules, oSuggest);
}

}  // namespace Suggestions
