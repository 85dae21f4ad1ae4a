#include "TextRequest.h"

#include <algorithm>
#include <array>

#include "Console.h"
#include "Display.h"
#include "MQuillon.h"

namespace {

using Json = nlohmann::ordered_json;

/// Requests are flat; deeper nesting would be copied out by recursion.
constexpr int MaxDepth = 32;

Json Parse(std::string_view sLine) {
  bool bTooDeep = false;
  Json oObject;
  try {
    oObject = Json::parse(sLine, [&](int nDepth, Json::parse_event_t, Json&) {
      bTooDeep = bTooDeep || nDepth > MaxDepth;
      return nDepth <= MaxDepth;
    });
  } catch (const Json::exception& oError) {
    // The library's own code for the error stands in brackets ahead of its words.
    std::string_view sWords = oError.what();
    throw Stop{std::string(sWords.substr(std::min(sWords.find("] ") + 2, sWords.size())))};
  }
  if (bTooDeep) throw Stop{"The line is nested too deeply"};
  if (!oObject.is_object()) throw Stop{"The line is no JSON object"};
  return oObject;
}

/// The field, or null when it is missing.
const Json* Field(const Json& oObject, const char* sName) {
  auto oField = oObject.find(sName);
  return oField == oObject.end() || oField->is_null() ? nullptr : &*oField;
}

Text TextField(const Json& oObject, const char* sName) {
  const Json* pField = Field(oObject, sName);
  if (!pField) return {};
  if (!pField->is_string()) throw Stop{std::string(sName) + " has to be a text"};
  return FromUtf8(pField->get_ref<const std::string&>());
}

std::int32_t NumberField(const Json& oObject, const char* sName, std::int32_t lDefault,
                         std::int32_t lLow, std::int32_t lHigh) {
  const Json* pField = Field(oObject, sName);
  if (!pField) return lDefault;
  bool bInRange = pField->is_number_integer() && *pField >= lLow && *pField <= lHigh;
  if (!bInRange)
    throw Stop{std::string(sName) + " has to be a number from " + std::to_string(lLow) + " to " +
               std::to_string(lHigh)};
  return pField->get<std::int32_t>();
}

/// true or false, or one of the ids and display names of the property.
bool StateField(const Json& oObject, const char* sName) {
  const Json* pField = Field(oObject, sName);
  if (!pField) return false;
  if (pField->is_boolean()) return pField->get<bool>();
  if (pField->is_string()) {
    std::int32_t lId = ValueByName(Property::Locked, pField->get_ref<const std::string&>());
    if (lId != 0) return lId == MQuillon::ToNumber(MQuillon::TriState::True);
  } else if (pField->is_number_integer() && *pField >= 0 && *pField <= 2) {
    return *pField == 2;
  }
  throw Stop{std::string(sName) + " has to be true or false"};
}

using NameOfId = Text (*)(std::int32_t);

template <class Choice, Text (*nameOf)(Choice)>
Text NameOf(std::int32_t lId) {
  return nameOf(MQuillon::FromNumber<Choice>(lId));
}

/// A constant name, a display name or an id of the property.
Text IdField(const Json& oObject, const char* sName, Property eProperty, NameOfId fnName) {
  const Json* pField = Field(oObject, sName);
  if (!pField) return {};
  if (pField->is_number_integer() && *pField >= 0 && *pField <= 4 &&
      (*pField == 0 || !fnName(pField->get<std::int32_t>()).empty()))
    return fnName(pField->get<std::int32_t>());
  if (pField->is_string()) {
    Text sText = FromUtf8(pField->get_ref<const std::string&>());
    for (std::int32_t lId = 1; !fnName(lId).empty(); ++lId)
      if (EqualNoCase(sText, fnName(lId))) return fnName(lId);
    if (sText.empty()) return {};
    std::int32_t lId = ValueByName(eProperty, ToUtf8(sText));
    if (lId != 0) return fnName(lId);
  }
  std::vector<std::string> asAllowed;
  for (std::int32_t lId = 1; !fnName(lId).empty(); ++lId) asAllowed.push_back(ToUtf8(fnName(lId)));
  throw Stop{std::string(sName) + " has to be empty or " + Alternatives(asAllowed)};
}

}  // namespace

TextRequest ReadTextRequest(std::string_view sLine) {
  TextRequest oRequest;
  oRequest.oObject = Parse(sLine);
  const Json& oObject = oRequest.oObject;
  if (!Field(oObject, "before")) throw Stop{"before is missing: the text to work on"};
  oRequest.sModule = TextField(oObject, "module");
  oRequest.sName = TextField(oObject, "name");
  oRequest.sType = TextField(oObject, "type");
  oRequest.sTemplate = TextField(oObject, "template");
  oRequest.sBefore = TextField(oObject, "before");
  oRequest.lBodyLine = NumberField(oObject, "body_line", 1, 1, 1 << 30);
  oRequest.eLineAction = MQuillon::FromNumber<MQuillon::LineNumAction>(NumberField(
      oObject, "line_action", MQuillon::ToNumber(MQuillon::LineNumAction::AsRule), -1, 2));
  oRequest.bLocked = StateField(oObject, "locked");
  oRequest.bTrace = StateField(oObject, "trace");
  oRequest.sBoundary = IdField(oObject, "boundary", Property::Boundary,
                               NameOf<MQuillon::Boundary, MQuillon::BoundaryName>);
  oRequest.sSeverity = IdField(oObject, "severity", Property::Severity,
                               NameOf<MQuillon::Severity, MQuillon::SeverityName>);
  oRequest.sRetry =
      IdField(oObject, "retry", Property::Retry, NameOf<MQuillon::Retry, MQuillon::RetryName>);
  return oRequest;
}
