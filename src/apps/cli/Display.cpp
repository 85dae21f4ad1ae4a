#include "Display.h"

#include "Text.h"

namespace {

/// Display names by id, from 1.
std::span<const std::string_view> Values(Property property) {
  static constexpr std::array<std::string_view, 2> State = {"False", "True"};
  static constexpr std::array<std::string_view, 4> Boundary = {"None", "VB", "Firewall", "ActiveX"};
  static constexpr std::array<std::string_view, 3> Severity = {"Cosmetic", "Normal", "Fatal"};
  static constexpr std::array<std::string_view, 3> Retry = {"Line", "Procedure", "None"};
  switch (property) {
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

bool SameWord(std::string_view left, std::string_view right) {
  return EqualNoCase(FromUtf8(left), FromUtf8(right));
}

std::string_view PropertyName(Property property) {
  constexpr std::array<std::string_view, 6> Names = {"Template", "Locked", "Boundary",
                                                     "Severity", "Retry",  "Trace"};
  return Names[static_cast<std::size_t>(property)];
}

std::optional<Property> PropertyByName(std::string_view name) {
  for (Property property : AllProperties)
    if (SameWord(PropertyName(property), name)) return property;
  return std::nullopt;
}

std::string_view ValueName(Property property, std::int32_t id) {
  auto values = Values(property);
  if (id < 1 || static_cast<std::size_t>(id) > values.size()) return {};
  return values[static_cast<std::size_t>(id) - 1];
}

std::int32_t ValueByName(Property property, std::string_view name) {
  auto values = Values(property);
  for (std::size_t i = 0; i < values.size(); ++i)
    if (SameWord(values[i], name)) return static_cast<std::int32_t>(i) + 1;
  return 0;
}

std::string Alternatives(const std::vector<std::string>& texts) {
  std::string result;
  for (std::size_t i = 0; i < texts.size(); ++i)
    result += (i == 0 ? "" : i + 1 == texts.size() ? " or " : ", ") + texts[i];
  return result;
}

std::string AllowedValues(Property property) {
  auto values = Values(property);
  return Alternatives({values.begin(), values.end()});
}

std::int32_t ValueOf(const CProcSettings& settings, Property property) {
  switch (property) {
    case Property::Locked:
      return MQuillon::ToNumber(settings.eLocked());
    case Property::Boundary:
      return MQuillon::ToNumber(settings.eBoundary());
    case Property::Severity:
      return MQuillon::ToNumber(settings.eSeverity());
    case Property::Retry:
      return MQuillon::ToNumber(settings.eRetry());
    case Property::Trace:
      return MQuillon::ToNumber(settings.eTrace());
    case Property::Template:
      break;
  }
  return 0;
}

std::string Shown(const CProcSettings& settings, Property property) {
  if (property == Property::Template) return ToUtf8(settings.sTemplateSelectionName());
  return std::string(ValueName(property, ValueOf(settings, property)));
}
