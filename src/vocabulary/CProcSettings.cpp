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
    &CProcSettings::bFirewallLeave,    &CProcSettings::bBoundaryLeave};

// One copy of each name for the life of the process; names are never taken out.
const Text* KeptName(TextView sName) {
  static std::set<Text, std::less<>> oNames;
  if (sName.empty()) return nullptr;
  const auto oKept = oNames.find(sName);
  return oKept != oNames.end() ? &*oKept : &*oNames.emplace(sName).first;
}

TextView NameOf(const Text* pName) {
  return pName ? TextView(*pName) : TextView();
}

std::int32_t HandleOf(TextView sName) {
  for (const auto* const poLookup :
       {&MQuillon::oLookupModTemplate, &MQuillon::oLookupProcTemplate}) {
    const std::int32_t hTemplate = *poLookup ? (*poLookup)->LookupItemData(sName) : 0;
    if (hTemplate != 0) return hTemplate;
  }
  return 0;
}

TextView WithoutNone(TextView sName) {
  return EqualNoCase(sName, MQuillon::NoneName) ? TextView() : sName;
}

template <class Choice>
void KeepCommon(Choice& eValue, Choice eOther) {
  if (eValue != eOther) eValue = Choice::Unset;
}

}  // namespace

void CProcSettings::CopyFrom(const CProcSettings& oProcSettings) {
  SetsTemplate(oProcSettings.sTemplate());
  SeteLocked(oProcSettings.eLocked());
  SeteBoundary(oProcSettings.eBoundary());
  SeteSeverity(oProcSettings.eSeverity());
  SeteRetry(oProcSettings.eRetry());
  SeteTrace(oProcSettings.eTrace());
  for (const auto bFlag : Flags) this->*bFlag = oProcSettings.*bFlag;
}

bool CProcSettings::Equals(const CProcSettings& oProcSettings) const {
  return eLocked() == oProcSettings.eLocked() && eBoundary() == oProcSettings.eBoundary() &&
         eSeverity() == oProcSettings.eSeverity() && eRetry() == oProcSettings.eRetry() &&
         eTrace() == oProcSettings.eTrace() &&
         EqualNoCase(WithoutNone(sTemplate()), WithoutNone(oProcSettings.sTemplate()));
}

void CProcSettings::Aggregate(const CProcSettings& oProcSettings) {
  const bool bFirst = !mbAggregate;
  const Text* const pName = KeptName(oProcSettings.sTemplate());
  if (bFirst) {
    mbAggregate = true;
    mbAggregateForeign = oProcSettings.bForeign();
    if (mbAggregateForeign) mpForeignTemplate = pName;
  }
  if (oProcSettings.bForeign()) {
    // A foreign procedure among ordinary ones has no say; among its like it can part the names.
    if (mpForeignTemplate != pName) mpForeignTemplate = nullptr;
  } else if (bFirst || mbAggregateForeign) {
    mbAggregateForeign = false;
    TakeValues(oProcSettings);
    if (bFirst) {
      for (const auto bFlag : Flags) this->*bFlag = oProcSettings.*bFlag;
    } else {
      for (const auto bFlag : Inherited) this->*bFlag = oProcSettings.*bFlag;
    }
  } else {
    KeepCommonValues(oProcSettings);
  }
}

void CProcSettings::TakeValues(const CProcSettings& oProcSettings) {
  mpTemplate = KeptName(oProcSettings.sTemplate());
  meLocked = oProcSettings.eLocked();
  meBoundary = oProcSettings.eBoundary();
  meSeverity = oProcSettings.eSeverity();
  meRetry = oProcSettings.eRetry();
  meTrace = oProcSettings.eTrace();
}

void CProcSettings::KeepCommonValues(const CProcSettings& oProcSettings) {
  if (sTemplate() != oProcSettings.sTemplate()) mpTemplate = nullptr;
  KeepCommon(meLocked, oProcSettings.eLocked());
  KeepCommon(meBoundary, oProcSettings.eBoundary());
  KeepCommon(meSeverity, oProcSettings.eSeverity());
  KeepCommon(meRetry, oProcSettings.eRetry());
  KeepCommon(meTrace, oProcSettings.eTrace());
  for (const auto bFlag : Flags) this->*bFlag = this->*bFlag && oProcSettings.*bFlag;
}

TextView CProcSettings::sTemplate() const {
  return NameOf(mbAggregate && mbAggregateForeign ? mpForeignTemplate : mpTemplate);
}

Text CProcSettings::sTemplateSelectionName() const {
  const TextView sName = sTemplate();
  return Text(sName.empty() && !mbAggregate ? MQuillon::NoneName : sName);
}

void CProcSettings::SetsTemplate(TextView sName) {
  if (!mbForeign) {
    mpTemplate = KeptName(sName);
    mbForeign = sName.starts_with(u'(') || sName.starts_with(u'[');
  }
  mhTemplate = HandleOf(NameOf(mpTemplate));
}
