// Lists in message boxes.
#pragma once

#include <vector>

#include "Text.h"

/// The items, each behind sBreak: as many as fit a box on a small screen, whose
/// button would be out of reach below otherwise; then how many more there are.
Text BoxList(const std::vector<Text>& asItem, TextView sBreak);
