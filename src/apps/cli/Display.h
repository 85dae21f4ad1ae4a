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

std::string_view PropertyName(Property eProperty);
/// Letter case ignored; nothing for an unknown name.
std::optional<Property> PropertyByName(std::string_view sName);

/// The display name of an id; empty for 0. Not for Template.
std::string_view ValueName(Property eProperty, std::int32_t lId);
/// Letter case ignored; 0 for an unknown name.
std::int32_t ValueByName(Property eProperty, std::string_view sName);
/// All display names of a property, for messages: "None, VB, Firewall or ActiveX".
std::string AllowedValues(Property eProperty);
/// Joins texts for a message: "a, b or c".
std::string Alternatives(const std::vector<std::string>& asText);

std::int32_t ValueOf(const CProcSettings& oSettings, Property eProperty);
/// "(none)" for no template; empty for a value that isn't set.
std::string Shown(const CProcSettings& oSettings, Property eProperty);

bool SameWord(std::string_view sLeft, std::string_view sRight);
