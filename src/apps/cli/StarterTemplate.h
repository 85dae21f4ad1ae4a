// The template file that a team begins with: that of the samples, which the build puts into the
// program.
#pragma once

#include <string_view>

std::string_view StarterTemplate();
