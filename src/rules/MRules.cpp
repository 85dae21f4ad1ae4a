#include "MRules.h"

#include <limits>
#include <optional>
#include <type_traits>

#include "CXRecent.h"
#include "MQuillon.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

namespace MRules {

Values oRules;

}  // namespace MRules

namespace {

using MRules::Rule;
using MRules::Values;

constexpr TextView ModTemplateName = u"DefaultModTemplate";
constexpr TextView ProcTemplateName = u"DefaultProcTemplate";
constexpr std::int32_t Unlimited = std::numeric_limits<std::int32_t>::max();

std::int32_t hRules = 0;

template <bool Values::*pMember>
constexpr Rule Boolean(TextView sName) {
  return {sName,
          true,
          -1,
          0,
          [](const Values& o) { return o.*pMember ? -1 : 0; },
          [](Values& o, std::int32_t lValue) { o.*pMember = lValue != 0; }};
}

template <std::int32_t Values::*pMember>
constexpr Rule Number(TextView sName, std::int32_t lLow, std::int32_t lHigh) {
  return {sName,
          false,
          lLow,
          lHigh,
          [](const Values& o) { return o.*pMember; },
          [](Values& o, std::int32_t lValue) { o.*pMember = lValue; }};
}

/// A choice travels as its number.
template <auto pMember>
constexpr Rule Choice(TextView sName, std::int32_t lLow, std::int32_t lHigh) {
  return {sName,
          false,
          lLow,
          lHigh,
          [](const Values& o) { return MQuillon::ToNumber(o.*pMember); },
          [](Values& o, std::int32_t lValue) {
            using Type = std::remove_reference_t<decltype(o.*pMember)>;
            o.*pMember = MQuillon::FromNumber<Type>(lValue);
          }};
}

void GetDefaultTemplate(TextView sParameter, const CXLookup* poLookup, Text& sTemplate) {
  sTemplate = RecentFiles().Property(1, sParameter);
  if (poLookup && poLookup->Count() > 1 && !poLookup->ItemExists(sTemplate)) {
    sTemplate = poLookup->Item(2);
  }
}

}  // namespace

namespace MRules {

void Initialize() {
  hRules = MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER,
                                  Text(MXRegistry::RootKey).append(u"Rules"),
                                  MXRegistry::KEY_ALL_ACCESS);
  GetRules();
}

void GetRules() {
  const Values oDefault;
  for (const Rule& oRule : Table()) {
    oRule.Set(oRules, MXRegistry::GetRegLong(hRules, oRule.sName, oRule.Get(oDefault)));
  }
}

void SetRules() {
  // All or none: a program that ends in between leaves no half-changed set of rules.
  std::optional<RegistryStore::Batch> oBatch;
  if (goRegistry) oBatch.emplace(*goRegistry);
  SetDefaultTemplates();
  for (const Rule& oRule : Table()) {
    MXRegistry::SetRegLong(hRules, oRule.sName, oRule.Get(oRules));
  }
}

void GetDefaultTemplates() {
  GetDefaultTemplate(ModTemplateName, MQuillon::oLookupModTemplate.get(),
                     oRules.sDefaultModTemplate);
  GetDefaultTemplate(ProcTemplateName, MQuillon::oLookupProcTemplate.get(),
                     oRules.sDefaultProcTemplate);
}

void SetDefaultTemplates() {
  // Before the first template file is opened there is no entry to keep the names beside.
  if (RecentFiles().Count() == 0) return;
  RecentFiles().SetProperty(1, ModTemplateName, oRules.sDefaultModTemplate);
  RecentFiles().SetProperty(1, ProcTemplateName, oRules.sDefaultProcTemplate);
}

const std::vector<Rule>& Table() {
  static const std::vector<Rule> oTable = {
      Choice<&Values::eModSeverityDefault>(u"Module Severity Default", 1, 3),
      Choice<&Values::eModRetryDefault>(u"Module Retry Default", 1, 3),
      Choice<&Values::eSeverityDefault>(u"Severity Default", 1, 3),
      Choice<&Values::eRetryDefault>(u"Retry Default", 1, 3),
      Choice<&Values::eTraceDefault>(u"Trace Default", 1, 2),
      Boolean<&Values::bTemplateReplace>(u"Template Precedence"),
      Boolean<&Values::bSeverityReplace>(u"Severity Precedence"),
      Boolean<&Values::bRetryReplace>(u"Retry Precedence"),
      Boolean<&Values::bTraceReplace>(u"Trace Precedence"),
      Boolean<&Values::bExpertEnabled>(u"Boundary Expert"),
      Choice<&Values::eBoundaryDefault>(u"Boundary Default", 1, 4),
      Boolean<&Values::bBoundaryReplace>(u"Boundary Precedence"),
      Boolean<&Values::bFirewallReplace>(u"Boundary Firewall Precedence"),
      Choice<&Values::eLineNumAction>(u"Line Number Action", 0, 2),
      Choice<&Values::eLineNumWhat>(u"Line Number What", 0, 2),
      Number<&Values::lLineNumInterval>(u"Line Number Interval", 1, Unlimited),
      Boolean<&Values::bLineNumSkipData>(u"Line Number Skip Data"),
      Boolean<&Values::bLineNumSkipEnd>(u"Line Number Skip End"),
      Boolean<&Values::bLineNumSkipShort>(u"Line Number Skip Short"),
      Number<&Values::lLineNumSkipShortSize>(u"Line Number Skip Short Size", 0, Unlimited),
      Boolean<&Values::bSkipReadOnly>(u"Skip ReadOnly"),
      Boolean<&Values::bProve>(u"Prove Rewrites")};
  return oTable;
}

}  // namespace MRules
