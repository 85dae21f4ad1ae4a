#include "Suggestions.h"

#include <algorithm>

#include "MQuillon.h"

namespace {

using MRules::Values;
using Suggestions::Facts;
using Suggestions::Kind;

constexpr std::int32_t ScopePublic = 2;

// What the three kinds take from the rules, where they differ.
struct Defaults {
  const Text& sTemplate;
  std::int32_t eSeverity, eRetry;
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

// Code that the run-time calls from an event has nobody above it; a component with events never
// counts as a public class here, even when it is one.
std::int32_t MethodCandidate(const Facts& oFacts) {
  if (ImplementsForeign(oFacts)) return MQuillon::BoundaryActiveX;
  if (oFacts.sName == u"Class_Terminate") return MQuillon::BoundaryVB;
  if (oFacts.bHasEventSource) {
    return oFacts.bEventHandler ? MQuillon::BoundaryVB : MQuillon::BoundaryNone;
  }
  const bool bExposed = oFacts.nScope == ScopePublic && oFacts.bPublicClass;
  return bExposed ? MQuillon::BoundaryActiveX : MQuillon::BoundaryNone;
}

std::int32_t PropertyCandidate(const Facts& oFacts) {
  const bool bExposed = oFacts.nScope == ScopePublic && oFacts.bPublicClass;
  return bExposed || ImplementsForeign(oFacts) ? MQuillon::BoundaryActiveX : MQuillon::BoundaryNone;
}

std::int32_t DeclarationsCandidate(const Facts& oFacts) {
  if (oFacts.bHasDesigner && oFacts.bHasEventSource) return MQuillon::BoundaryVB;
  return oFacts.bPublicClass ? MQuillon::BoundaryActiveX : MQuillon::BoundaryNone;
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
std::int32_t Chosen(std::int32_t eCurrent, bool bReplace, std::int32_t eDefault, bool& bLeave) {
  bLeave = eCurrent != 0 && !bReplace;
  return bLeave ? eCurrent : eDefault;
}

void SuggestBoundary(const Facts& oFacts, std::int32_t eCurrent, const Values& oRules,
                     CProcSettings& oSuggest) {
  oSuggest.bBoundaryExpert = oRules.bExpertEnabled;
  const bool bFirewall = eCurrent == MQuillon::BoundaryFirewall;
  oSuggest.bFirewallLeave = bFirewall && !oRules.bFirewallReplace;
  oSuggest.bBoundaryLeave = !bFirewall && eCurrent != 0 && !oRules.bBoundaryReplace;
  if (oSuggest.bFirewallLeave || oSuggest.bBoundaryLeave) {
    oSuggest.SeteBoundary(eCurrent);
  } else {
    oSuggest.SeteBoundary(oRules.bExpertEnabled ? Suggestions::BoundaryCandidate(oFacts)
                                                : oRules.eBoundaryDefault);
  }
}

}  // namespace

namespace Suggestions {

std::int32_t BoundaryCandidate(const Facts& oFacts) {
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
    oSuggest.SeteSeverity(0);
    oSuggest.SeteRetry(0);
    oSuggest.SeteTrace(0);
    oSuggest.SeteBoundary(0);
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
