// The messages of loading a template file, its faults with file and line in front, so that editors
// can jump there.
#pragma once

#include <string>
#include <vector>

#include "CTemplate.h"

/// Loads the file into the engine and gives a message each; Failure when it can't be read.
std::vector<std::string> LoadTemplateReported(CTemplate& engine, const std::string& path);
