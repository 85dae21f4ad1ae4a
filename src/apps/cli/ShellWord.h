// Words for a command line that a person may copy into a shell.
#pragma once

#include <string>

/// The word as a shell reads it: quoted where it holds more than plain signs.
std::string ShellWord(const std::string& word);
