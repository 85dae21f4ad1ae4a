// Line numbers of a procedure's body. Numbers live in the left margin: a number overwrites the
// blanks of the indentation; only if the margin has no room does the whole body move right by 4.
#pragma once

#include <cstdint>
#include <span>

#include "MRules.h"
#include "Text.h"

namespace LineNumbers {

/// The lines of the body, each followed by CR LF. Failure 6 when a number needs more than four
/// digits; nothing is changed then.
Text DoLineNumbers(std::span<const TextView> asLine, MQuillon::LineNumAction eLineNumAction,
                   const MRules::Values& rules);

}  // namespace LineNumbers
