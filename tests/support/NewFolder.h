// A folder that no other test has.
#pragma once

#include <filesystem>
#include <random>
#include <string>

/// Makes one in a place. Its path is absolute, without links, with slashes, and short: tests
/// measure what of a path fits.
inline std::string NewFolder(const std::filesystem::path& place) {
  std::random_device numbers;
  std::filesystem::path folder;
  do folder = place / ("quillon-" + std::to_string(numbers() % 1000000));
  while (!std::filesystem::create_directory(folder));
  return std::filesystem::canonical(folder).generic_string();
}
