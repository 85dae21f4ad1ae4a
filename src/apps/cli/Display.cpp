#include "Display.h"

#include "Text.h"

namespace {

/// Display names by id, from 1.
std::span<const std::string_view> Values(Property eProperty) {
  static constexpr std::array<std::string_view, 2> State = {"False", "True"};
  static constexpr std::array<std::string_view, 4> Boundary = {"None", "VB", "Firewall", "ActiveX"};
  static constexpr std::array<std::string_view, 3> Severity = {"Cosmetic", "Normal", "Fatal"};
  static constexpr std::array<std::string_view, 3> Retry = {"Line", "Procedure", "None"};
  switch (eProperty) {
    case Property::Boundary:
      return Boundary;
    case Property::Severity:
      return Severity;
    case Property::Retry:
      return Retry;
    case Property::Locked:
    case Property::Trace:
      return State;
    case Property::Template:
      break;
  }
  return {};
}

}  // namespace

bool SameWord(std::string_view sLeft, std::string_view sRight) {
  return EqualNoCase(FromUtf8(sLeft), FromUtf8(sRight));
}

std::string_view PropertyName(Property eProperty) {
  constexpr std::array<std::string_view, 6> Names = {"Template", "Locked", "Boundary",
                                                     "Severity", "Retry",  "Trace"};
  return Names[static_cast<std::size_t>(eProperty)];
}

std::optional<Property> PropertyByName(std::string_view sName) {
  for (Property eProperty : AllProperties)
    if (SameWord(PropertyName(eProperty), sName)) return eProperty;
  return std::nullopt;
}

std::string_view ValueName(Property eProperty, std::int32_t lId) {
  auto oValues = Values(eProperty);
  if (lId < 1 || static_cast<std::size_t>(lId) > oValues.size()) return {};
  return oValues[static_cast<std::size_t>(lId) - 1];
}

std::int32_t ValueByName(Property eProperty, std::string_view sName) {
  auto oValues = Values(eProperty);
  for (std::size_t i = 0; i < oValues.size(); ++i)
    if (SameWord(oValues[i], sName)) return static_cast<std::int32_t>(i) + 1;
  return 0;
}

std::string Alternatives(const std::vector<std::string>& asText) {
  std::string sResult;
  for (std::size_t i = 0; i < asText.size(); ++i)
    sResult += (i == 0 ? "" : i + 1 == asText.size() ? " or " : ", ") + asText[i];
  return sResult;
}

std::string AllowedValues(Property eProperty) {
  auto oValues = Values(eProperty);
  return Alternatives({oValues.begin(), oValues.end()});
}

std::int32_t ValueOf(const CProcSettings& oSettings, Property eProperty) {
  switch (eProperty) {
    case Property::Locked:
      return MQuillon::ToNumber(oSettings.eLocked());
    case Property::Boundary:
      return MQuillon::ToNumber(oSettings.eBoundary());
    case Property::Severity:
      return MQuillon::ToNumber(oSettings.eSeverity());
    case Property::Retry:
      return MQuillon::ToNumber(oSettings.eRetry());
    case Property::Trace:
      return MQuillon::ToNumber(oSettings.eTrace());
    case Property::Template:
      break;
  }
  return 0;
}

std::string Shown(const CProcSettings& oSettings, Property eProperty) {
  if (eProperty == Property::Template) return ToUtf8(oSettings.sTemplateSelectionName());
  return std::string(ValueName(eProperty, ValueOf(oSettings, eProperty)));
}
