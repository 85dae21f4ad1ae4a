#include <unistd.h>

#include "SystemPaths.h"

bool IsWritableFolder(const std::string& path) {
  return access(path.c_str(), W_OK) == 0;
}

std::vector<std::string> RootsOfDrive(char letter) {
  return {std::string("/mnt/") + letter, "/"};
}

std::string WithSlashes(std::string path) {
  return path;
}
