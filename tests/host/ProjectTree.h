// A folder of its own for each test, with files written and read as bytes.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

class ProjectTree {
 public:
  explicit ProjectTree(
      const std::filesystem::path& oParent = std::filesystem::temp_directory_path()) {
    std::string sName = (oParent / "projects-XXXXXX").string();
    msRoot = std::filesystem::canonical(mkdtemp(sName.data())).string();
  }
  ~ProjectTree() { std::filesystem::remove_all(msRoot); }

  const std::string& Root() const { return msRoot; }
  std::string Path(const std::string& sName) const { return msRoot + '/' + sName; }
  std::string Write(const std::string& sName, std::string_view sBytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(sName)).parent_path());
    std::ofstream(Path(sName), std::ios::binary) << sBytes;
    return Path(sName);
  }
  std::string Read(const std::string& sName) const {
    std::ostringstream oBytes;
    oBytes << std::ifstream(Path(sName), std::ios::binary).rdbuf();
    return oBytes.str();
  }

 private:
  std::string msRoot;
};
