// What is said about a word that names no rule of check.
#pragma once

#include <string>

/// "There is no rule x: it is a, b or c".
std::string UnknownRule(const std::string& word);
