// The bytes of a file that a group, a project or the user names as a source.
#pragma once

#include <string>

#include "IFileOps.h"

/// Failure 53, 70, 75 or 76 with the path; 75 also for a device or a pipe, which a hostile project
/// may name and which need not end, and for a file above IFileOps::LargestFile. 321 for one in
/// UTF-16 and for a binary one: lines put into it would be garbage among garbage.
std::string ReadSource(const std::string& path, IFileOps& files);
