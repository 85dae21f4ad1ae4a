// Errors of the system about a file as Failures that name its path and say what to do: 53 no such
// file, 57 other errors, 61 disk full, 70 no permission, 75 read-only or no plain file, 76 no such
// folder. The text ends without a stop.
#pragma once

#include <cstdint>
#include <string>

#include "Failure.h"
#include "IFileOps.h"
#include "Text.h"

namespace FileFailure {

/// The folder of a path; "." for a name alone.
std::string FolderOf(const std::string& path);

/// The run-time's text of the number, the path, and what to do about it.
[[noreturn]] void Throw(std::int32_t number, const std::string& path, TextView advice);
/// 75: a device or a pipe.
[[noreturn]] void ThrowSpecial(const std::string& path);
/// error: the system's number for a read or a replacement that failed.
[[noreturn]] void ThrowRead(int error, const std::string& path, IFileOps& files);
[[noreturn]] void ThrowWrite(int error, const std::string& path, IFileOps& files);
/// 57: a file was renamed, but its folder couldn't be flushed.
Failure MayNotLast(const std::string& target);

}  // namespace FileFailure
