// Rules as texts: NAME and VALUE, under the names of the settings file.
#pragma once

#include <string>

#include "MRules.h"

/// Stop for a name that no rule has, and for a value that it can't take. Booleans are -1 or 0, true
/// or false.
void SetRule(const std::string& name, const std::string& value, MRules::Values& rules);
/// As rules show prints it.
std::string RuleValue(const MRules::Rule& rule, const MRules::Values& rules);
