// The words for the values of the six properties, as lists show them and apply --set takes them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CProcSettings.h"

/// In the order of the columns of a list.
enum class Property { Template, Locked, Boundary, Severity, Retry, Trace };
inline constexpr std::array AllProperties = {Property::Template, Property::Locked,
                                             Property::Boundary, Property::Severity,
                                             Property::Retry,    Property::Trace};

std::string_view PropertyName(Property property);
/// Letter case ignored; nothing for an unknown name.
std::optional<Property> PropertyByName(std::string_view name);

/// The display name of an id; empty for 0. Not for Template.
std::string_view ValueName(Property property, std::int32_t id);
/// Letter case ignored; 0 for an unknown name.
std::int32_t ValueByName(Property property, std::string_view name);
/// All display names of a property, for messages: "None, VB, Firewall or ActiveX".
std::string AllowedValues(Property property);
/// Joins texts for a message: "a, b or c".
std::string Alternatives(const std::vector<std::string>& texts);

std::int32_t ValueOf(const CProcSettings& settings, Property property);
/// "(none)" for no template; empty for a value that isn't set.
std::string Shown(const CProcSettings& settings, Property property);

bool SameWord(std::string_view left, std::string_view right);
