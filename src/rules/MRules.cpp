#include "MRules.h"

#include <limits>
#include <optional>
#include <type_traits>

#include "CXRecent.h"
#include "Guard.h"
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

std::int32_t rulesKey = 0;

template <bool Values::*member>
constexpr Rule Boolean(TextView name) {
  return {name,
          true,
          -1,
          0,
          [](const Values& o) { return o.*member ? -1 : 0; },
          [](Values& o, std::int32_t value) { o.*member = value != 0; }};
}

template <std::int32_t Values::*member>
constexpr Rule Number(TextView name, std::int32_t low, std::int32_t high) {
  return {name,
          false,
          low,
          high,
          [](const Values& o) { return o.*member; },
          [](Values& o, std::int32_t value) { o.*member = value; }};
}

/// A choice travels as its number.
template <auto member>
constexpr Rule Choice(TextView name, std::int32_t low, std::int32_t high) {
  return {name,
          false,
          low,
          high,
          [](const Values& o) { return MQuillon::ToNumber(o.*member); },
          [](Values& o, std::int32_t value) {
            using Type = std::remove_reference_t<decltype(o.*member)>;
            o.*member = MQuillon::FromNumber<Type>(value);
          }};
}

/// Failures are reported under the routine's own name and go on to the caller.
template <class Work>
void Reported(TextView procedure, Work&& work) {
  Guard({u"MRules", procedure}, [&](GuardScope&) { work(); });
}

Text DefaultTemplate(TextView parameter, const CXLookup* lookup) {
  Text name = RecentFiles().Property(1, parameter);
  const bool gone = lookup && lookup->Count() > 1 && !lookup->ItemExists(name);
  return gone ? lookup->Item(2) : name;
}

}  // namespace

namespace MRules {

void Initialize() {
  Reported(u"Initialize", [] {
    rulesKey = MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER,
                                      Text(MXRegistry::RootKey).append(u"Rules"),
                                      MXRegistry::KEY_ALL_ACCESS);
    GetRules();
  });
}

void GetRules() {
  Reported(u"GetRules", [] {
    const Values defaults;
    for (const Rule& rule : Table()) {
      rule.Set(oRules, MXRegistry::GetRegLong(rulesKey, rule.sName, rule.Get(defaults)));
    }
  });
}

void SetRules() {
  Reported(u"SetRules", [] {
    // All or none: a program that ends in between leaves no half-changed set of rules.
    std::optional<RegistryStore::Batch> batch;
    if (goRegistry) batch.emplace(*goRegistry);
    SetDefaultTemplates();
    for (const Rule& rule : Table()) {
      MXRegistry::SetRegLong(rulesKey, rule.sName, rule.Get(oRules));
    }
  });
}

void GetDefaultTemplates() {
  Reported(u"GetDefaultTemplates", [] {
    oRules.sDefaultModTemplate =
        DefaultTemplate(ModTemplateName, MQuillon::oLookupModTemplate.get());
    oRules.sDefaultProcTemplate =
        DefaultTemplate(ProcTemplateName, MQuillon::oLookupProcTemplate.get());
  });
}

void SetDefaultTemplates() {
  Reported(u"SetDefaultTemplates", [] {
    // Before the first template file is opened there is no entry to keep the names beside.
    if (RecentFiles().Count() == 0) return;
    RecentFiles().SetProperty(1, ModTemplateName, oRules.sDefaultModTemplate);
    RecentFiles().SetProperty(1, ProcTemplateName, oRules.sDefaultProcTemplate);
  });
}

const std::vector<Rule>& Table() {
  static const std::vector<Rule> table = {
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
      Boolean<&Values::bHandlersIgnoreCase>(HandlersIgnoreCaseName),
      Boolean<&Values::bInterfaceOwnName>(InterfaceOwnNameName),
      Boolean<&Values::bProve>(u"Prove Rewrites")};
  return table;
}

}  // namespace MRules
