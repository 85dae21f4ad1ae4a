// The extended attributes of a file, its access list among them, for a new file that takes its
// place: who may read and write must be the same before and after.
#pragma once

#include <string>

namespace FileAttributes {

/// Gives the open file the attributes of the file at that path. An access list that it has from
/// its folder and the other hasn't is taken off. To be called ahead of setting the mode, which an
/// access list changes. 0 or the system's error number: then some attribute isn't as it has to be.
int Copy(const std::string& from, int file);

}  // namespace FileAttributes
