// Lists in message boxes.
#pragma once

#include <vector>

#include "Text.h"

/// The items, each behind sBreak: as many as leave the box lower than a small screen, since its
/// button would be out of reach below; then how many more there are.
Text BoxList(const std::vector<Text>& asItem, TextView sBreak);
