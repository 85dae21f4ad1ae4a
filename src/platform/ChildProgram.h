// Runs another program to its end and takes what it prints. No shell is between: each argument
// arrives as it is.
//
//   if (const auto printed = OutputOfProgram({"git", "--version"})) ...
#pragma once

#include <optional>
#include <string>
#include <vector>

/// Its standard output; nothing when the program isn't there, or ended with another status than 0.
/// It reads nothing, and what it says on standard error is dropped.
std::optional<std::string> OutputOfProgram(const std::vector<std::string>& arguments);
