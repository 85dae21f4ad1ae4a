// A folder of its own for each test, with files written and read as bytes.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "Failure.h"
#include "NewFolder.h"

/// The number that a call fails with, or 0. sInText has to stand in the failure's text.
template <class Call>
std::int32_t FailureNumber(Call&& oCall, const char* sInText = "") {
  try {
    oCall();
    return 0;
  } catch (const Failure& oFailure) {
    EXPECT_NE(std::string(oFailure.what()).find(sInText), std::string::npos) << oFailure.what();
    return oFailure.Number();
  }
}

class ProjectTree {
 public:
  explicit ProjectTree(
      const std::filesystem::path& oParent = std::filesystem::temp_directory_path())
      : msRoot(NewFolder(oParent)) {}
  ~ProjectTree() { std::filesystem::remove_all(msRoot); }

  const std::string& Root() const { return msRoot; }
  std::string Path(const std::string& sName) const { return msRoot + '/' + sName; }
  std::string Write(const std::string& sName, std::string_view sBytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(sName)).parent_path());
    std::ofstream(std::filesystem::path(Path(sName)), std::ios::binary) << sBytes;
    return Path(sName);
  }
  std::string Read(const std::string& sName) const {
    std::ostringstream oBytes;
    oBytes << std::ifstream(std::filesystem::path(Path(sName)), std::ios::binary).rdbuf();
    return oBytes.str();
  }

 private:
  std::string msRoot;
};
