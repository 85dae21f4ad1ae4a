// Places of the file system that the standard library can't tell on every system alike. Paths have
// slashes in them, on Windows too.
#pragma once

#include <string>
#include <vector>

bool IsWritableFolder(const std::string& path);

/// Where the root of a drive of Windows may be, such as for the letter d in "d:\\vb\\Orders.vbp":
/// the drive itself there, elsewhere the places at which people mount it.
std::vector<std::string> RootsOfDrive(char letter);

/// The path with slashes for backslashes where those separate parts: on Windows.
std::string WithSlashes(std::string path);
