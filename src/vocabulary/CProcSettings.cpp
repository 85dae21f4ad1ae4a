#include "CProcSettings.h"

#include <functional>
#include <set>

#include "MQuillon.h"

namespace {

constexpr bool CProcSettings::*Inherited[] = {&CProcSettings::BoundaryInherited,
                                              &CProcSettings::SeverityInherited,
                                              &CProcSettings::RetryInherited};
constexpr bool CProcSettings::*Flags[] = {
    &CProcSettings::BoundaryInherited, &CProcSettings::SeverityInherited,
    &CProcSettings::RetryInherited,    &CProcSettings::bTemplateLeave,
    &CProcSettings::bSeverityLeave,    &CProcSettings::bRetryLeave,
    &CProcSettings::bTraceLeave,       &CProcSettings::bBoundaryExpert,
    &CProcSettings::bFirewallLeave,    &CProcSettings::bBoundaryLeave,
    &CProcSettings::bTemplateClearsErr};

// One copy of each name for the life of the process; names are never taken out.
const Text* KeptName(TextView name) {
  static std::set<Text, std::less<>> names;
  static const Text* last = nullptr;  // a run asks for one name over and over
  if (name.empty()) return nullptr;
  if (last && Same(*last, name)) return last;
  const auto kept = names.find(name);
  return last = kept != names.end() ? &*kept : &*names.emplace(name).first;
}

TextView NameOf(const Text* name) {
  return name ? TextView(*name) : TextView();
}

std::int32_t HandleOf(TextView name) {
  for (const auto* const lookup : {&MQuillon::oLookupModTemplate, &MQuillon::oLookupProcTemplate}) {
    const std::int32_t handle = *lookup ? (*lookup)->LookupItemData(name) : 0;
    if (handle != 0) return handle;
  }
  return 0;
}

TextView WithoutNone(TextView name) {
  return EqualNoCase(name, MQuillon::NoneName) ? TextView() : name;
}

template <class Choice>
void KeepCommon(Choice& value, Choice other) {
  if (value != other) value = Choice::Unset;
}

}  // namespace

void CProcSettings::CopyFrom(const CProcSettings& oProcSettings) {
  TakeTemplate(oProcSettings.KeptTemplate());
  SeteLocked(oProcSettings.eLocked());
  SeteBoundary(oProcSettings.eBoundary());
  SeteSeverity(oProcSettings.eSeverity());
  SeteRetry(oProcSettings.eRetry());
  SeteTrace(oProcSettings.eTrace());
  for (const auto flag : Flags) this->*flag = oProcSettings.*flag;
}

bool CProcSettings::Equals(const CProcSettings& oProcSettings) const {
  return eLocked() == oProcSettings.eLocked() && eBoundary() == oProcSettings.eBoundary() &&
         eSeverity() == oProcSettings.eSeverity() && eRetry() == oProcSettings.eRetry() &&
         eTrace() == oProcSettings.eTrace() &&
         EqualNoCase(WithoutNone(sTemplate()), WithoutNone(oProcSettings.sTemplate()));
}

void CProcSettings::Aggregate(const CProcSettings& oProcSettings) {
  const bool first = !mbAggregate;
  const Text* const name = oProcSettings.KeptTemplate();
  if (first) {
    mbAggregate = true;
    mbAggregateForeign = oProcSettings.bForeign();
    if (mbAggregateForeign) mForeignTemplate = name;
  }
  if (oProcSettings.bForeign()) {
    // A foreign procedure changes nothing for ordinary ones. When all are foreign, they have a name
    // in common only while every one of them has it.
    if (mForeignTemplate != name) mForeignTemplate = nullptr;
  } else if (first || mbAggregateForeign) {
    mbAggregateForeign = false;
    TakeValues(oProcSettings);
    if (first) {
      for (const auto flag : Flags) this->*flag = oProcSettings.*flag;
    } else {
      for (const auto flag : Inherited) this->*flag = oProcSettings.*flag;
    }
  } else {
    KeepCommonValues(oProcSettings);
  }
}

void CProcSettings::TakeValues(const CProcSettings& oProcSettings) {
  mTemplate = oProcSettings.KeptTemplate();
  meLocked = oProcSettings.eLocked();
  meBoundary = oProcSettings.eBoundary();
  meSeverity = oProcSettings.eSeverity();
  meRetry = oProcSettings.eRetry();
  meTrace = oProcSettings.eTrace();
}

void CProcSettings::KeepCommonValues(const CProcSettings& oProcSettings) {
  if (sTemplate() != oProcSettings.sTemplate()) mTemplate = nullptr;
  KeepCommon(meLocked, oProcSettings.eLocked());
  KeepCommon(meBoundary, oProcSettings.eBoundary());
  KeepCommon(meSeverity, oProcSettings.eSeverity());
  KeepCommon(meRetry, oProcSettings.eRetry());
  KeepCommon(meTrace, oProcSettings.eTrace());
  for (const auto flag : Flags) this->*flag = this->*flag && oProcSettings.*flag;
}

const Text* CProcSettings::KeptTemplate() const {
  return mbAggregate && mbAggregateForeign ? mForeignTemplate : mTemplate;
}

TextView CProcSettings::sTemplate() const {
  return NameOf(KeptTemplate());
}

std::int32_t CProcSettings::hTemplate() const {
  return mbAggregate ? 0 : HandleOf(NameOf(mTemplate));
}

Text CProcSettings::sTemplateSelectionName() const {
  const TextView name = sTemplate();
  return Text(name.empty() && !mbAggregate ? MQuillon::NoneName : name);
}

void CProcSettings::SetsTemplate(TextView name) {
  if (!mbForeign) TakeTemplate(KeptName(name));
}

void CProcSettings::TakeTemplate(const Text* name) {
  if (mbForeign) return;
  mTemplate = name;
  mbForeign = NameOf(name).starts_with(u'(') || NameOf(name).starts_with(u'[');
}
