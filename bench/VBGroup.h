// A made-up project group on disk: programs, components and controls of at most 100 files each.
// Shaped like old code, one method in three has a handler of its own, there is a project for each
// three files, projects name files of others as well, and of ten names one leads to no file.
#pragma once

#include <cstddef>
#include <filesystem>

struct VBGroup {
  std::filesystem::path oFile;  ///< the .vbg
  std::size_t lLines = 0;       ///< of all source files
  std::size_t lBytes = 0;
};

enum class VBAge { New, Old };

/// Writes a group of lComponents source files with about lLines lines in all into a folder, which
/// is made when it is missing. Throws std::system_error when a file can't be written.
VBGroup MakeGroup(const std::filesystem::path& oFolder, std::size_t lComponents, std::size_t lLines,
                  VBAge age = VBAge::New);
