// What the program asks of the system before it does anything.
#pragma once

#include <string>
#include <vector>

/// Makes the three standard streams take bytes as they are, UTF-8 where people read them. A reader
/// that goes away is an error of the write, not the end of the program.
void PrepareStreams();

/// Hands a crash to the error log, then to whoever handled it before.
void InstallExceptionFilter();

/// The program's name and arguments in UTF-8, or, where the system has them so, as its bytes.
std::vector<std::string> ProgramArguments(int argc, char** argv);
