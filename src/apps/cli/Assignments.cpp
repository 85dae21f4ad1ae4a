#include "Assignments.h"

#include <algorithm>

#include "MQuillon.h"
#include "Session.h"

using MQuillon::FromNumber;

namespace {

/// The name as the file writes it; null when there is none.
const Text* Find(const std::vector<Text>& asName, TextView sName) {
  auto oFound = std::find_if(asName.begin(), asName.end(),
                             [&](const Text& sOther) { return EqualNoCase(sOther, sName); });
  return oFound == asName.end() ? nullptr : &*oFound;
}

std::string TemplateNames(const Session& oSession) {
  std::vector<std::string> asName = {ToUtf8(MQuillon::NoneName)};
  for (const auto* pNames : {&oSession.ModuleTemplates(), &oSession.ProcedureTemplates()})
    for (const Text& sName : *pNames) asName.push_back(ToUtf8(sName));
  return Alternatives(asName);
}

}  // namespace

Assignments::Assignments(const std::vector<std::string>& asSet) {
  for (const std::string& sSet : asSet) Add(sSet);
}

void Assignments::Add(const std::string& sSet) {
  std::size_t lEquals = sSet.find('=');
  if (lEquals == std::string::npos) throw Stop{"--set takes NAME=VALUE, not " + sSet};
  std::string sName = sSet.substr(0, lEquals), sValue = sSet.substr(lEquals + 1);
  std::optional<Property> oProperty = PropertyByName(sName);
  if (!oProperty)
    throw Stop{"There is no property " + sName +
               ": Template, Locked, Boundary, Severity, Retry or Trace can be set"};
  Value oValue{sValue, ValueByName(*oProperty, sValue)};
  if (*oProperty != Property::Template && oValue.lId == 0)
    throw Stop{std::string(PropertyName(*oProperty)) + " can't be " + sValue + ": it is " +
               AllowedValues(*oProperty)};
  moValues[static_cast<std::size_t>(*oProperty)] = std::move(oValue);
}

void Assignments::CheckTemplate(const Session& oSession) {
  const std::optional<Value>& oValue = Of(Property::Template);
  if (!oValue) return;
  Text sName = FromUtf8(oValue->sText);
  if (EqualNoCase(sName, MQuillon::NoneName)) {
    moForModules = moForProcedures = Text();
    return;
  }
  if (const Text* pName = Find(oSession.ModuleTemplates(), sName)) moForModules = *pName;
  if (const Text* pName = Find(oSession.ProcedureTemplates(), sName)) moForProcedures = *pName;
  if (!moForModules && !moForProcedures)
    throw Stop{"There is no template " + oValue->sText + " in " + oSession.TemplateFile() +
               ": Template is " + TemplateNames(oSession)};
}

void Assignments::Apply(Session& oSession, ProcedureHandle hProcedure, Passed& oPassed) const {
  CIDEHandler& oHandler = oSession.oHandler;
  if (oHandler.Procedure(hProcedure).oCurrent.bForeign()) {
    ++oPassed.lForeign;
    return;
  }
  const std::optional<Value>& oLock = Of(Property::Locked);
  if (oLock && oLock->lId == MQuillon::ToNumber(MQuillon::TriState::False))
    oHandler.SetLocked(hProcedure, MQuillon::TriState::False);
  if (oHandler.Locked(hProcedure) != MQuillon::TriState::False) {
    ++oPassed.lLocked;
    return;
  }
  if (oSession.oArguments.bSuggested) oHandler.ApplySuggestedSettings(hProcedure);
  SetTemplate(oSession, hProcedure);
  SetOthers(oSession, hProcedure, oPassed);
  if (oLock) oHandler.SetLocked(hProcedure, FromNumber<MQuillon::TriState>(oLock->lId));
}

void Assignments::SetTemplate(Session& oSession, ProcedureHandle hProcedure) const {
  const std::optional<Text>& oName =
      oSession.IsDeclarations(hProcedure) ? moForModules : moForProcedures;
  if (oName) oSession.oHandler.SetProcTemplate(hProcedure, *oName);
}

// Without a template the code holds none of these four, so there is nothing to ask for.
void Assignments::SetOthers(Session& oSession, ProcedureHandle hProcedure, Passed& oPassed) const {
  CIDEHandler& oHandler = oSession.oHandler;
  const auto& oBoundary = Of(Property::Boundary);
  const auto& oSeverity = Of(Property::Severity);
  const auto& oRetry = Of(Property::Retry);
  const auto& oTrace = Of(Property::Trace);
  if (!oBoundary && !oSeverity && !oRetry && !oTrace) return;
  if (oHandler.ProcTemplate(hProcedure).empty()) {
    ++oPassed.lNoTemplate;
    return;
  }
  if (oBoundary) oHandler.SetBoundaryId(hProcedure, FromNumber<MQuillon::Boundary>(oBoundary->lId));
  if (oSeverity) oHandler.SetSeverityId(hProcedure, FromNumber<MQuillon::Severity>(oSeverity->lId));
  if (oRetry) oHandler.SetRetryType(hProcedure, FromNumber<MQuillon::Retry>(oRetry->lId));
  if (oTrace && !oSession.IsDeclarations(hProcedure))
    oHandler.SetTrace(hProcedure, FromNumber<MQuillon::TriState>(oTrace->lId));
}
