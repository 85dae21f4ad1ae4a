// One file, read whole or replaced so that at every moment it is either the old one or the new one:
// a new file beside it, given owner, access list and mode of the old one, flushed, renamed over it,
// the folder flushed (StagedFile.h). On a failure the old one is whole, and the Failure names the
// path and what to do (FileFailure.h).
#pragma once

#include <string>
#include <string_view>

#include "IFileOps.h"

namespace AtomicFile {

void Replace(const std::string& path, std::string_view bytes, IFileOps& files = SystemFileOps());

/// Failure 75 for a path that leads to a device or a pipe, which must not become a file.
void RefuseSpecial(const std::string& target, IFileOps& files = SystemFileOps());

/// Reads a whole file of at most IFileOps::LargestFile bytes. Failure 53, 70, 75 or 76 with the
/// path in its text; 75 for folders, devices and pipes, too.
std::string Read(const std::string& path, IFileOps& files = SystemFileOps());

}  // namespace AtomicFile
