// Replaces a file so that at every moment it is either the old one or the new one: a new file
// beside it, written, flushed, given mode and owner of the old one, renamed over it, the folder
// flushed. A symbolic link stays a link: the file that it leads to is replaced. On a failure the
// new file is removed, the old one is whole, and the Failure names the path and what to do
// (61 disk full, 70 no permission, 75 read-only file or folder, 76 folder gone, 57 others).
// A file without write permission for its owner is refused with 75, as it would be in an editor.
#pragma once

#include <string>
#include <string_view>

#include "IFileOps.h"

namespace AtomicFile {

/// The new file beside sPath has a name of its own, ".<name>.<process id>.quillon-new"; one left by
/// a killed program is overwritten or ignored, never taken for a source.
void Replace(const std::string& sPath, std::string_view sBytes, IFileOps& oFiles = SystemFileOps());

/// Failure 75 for a path that leads to a device or a pipe, which must not become a file.
void RefuseSpecial(const std::string& sTarget, IFileOps& oFiles = SystemFileOps());

/// Reads a whole file. Failure 53, 70, 75 or 76 with the path in its text.
std::string Read(const std::string& sPath, IFileOps& oFiles = SystemFileOps());

}  // namespace AtomicFile
