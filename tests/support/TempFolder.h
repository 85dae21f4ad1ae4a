// A folder of a test's own, gone with the object.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "NewFolder.h"

class TempFolder {
 public:
  TempFolder() : msPath(NewFolder(testing::TempDir())) {}
  ~TempFolder() { std::filesystem::remove_all(msPath); }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string operator/(const std::string& sName) const { return msPath + '/' + sName; }
  const std::string& Path() const { return msPath; }
  std::size_t Entries() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(msPath), {}));
  }

  static void Write(const std::string& sPath, std::string_view sBytes) {
    std::ofstream(std::filesystem::path(sPath), std::ios::binary)
        .write(sBytes.data(), std::ssize(sBytes));
  }
  static std::string Read(const std::string& sPath) {
    std::ifstream oFile(std::filesystem::path(sPath), std::ios::binary);
    return {std::istreambuf_iterator<char>(oFile), {}};
  }

 private:
  std::string msPath;
};
