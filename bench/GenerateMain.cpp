// quillon-bench-generate FOLDER COMPONENTS LINES [old]: writes a made-up project group, new or
// shaped like old code.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>

#include "VBGroup.h"

namespace {

bool ReadCount(const char* sText, std::size_t& lCount) {
  const char* const pEnd = sText + std::strlen(sText);
  const auto [pStop, eError] = std::from_chars(sText, pEnd, lCount);
  return eError == std::errc() && pStop == pEnd && lCount > 0;
}

}  // namespace

int main(int argc, char** argv) try {
  std::size_t lComponents = 0, lLines = 0;
  const bool isOld = argc == 5 && std::strcmp(argv[4], "old") == 0;
  if ((argc != 4 && !isOld) || !ReadCount(argv[2], lComponents) || !ReadCount(argv[3], lLines)) {
    std::fputs("Usage: quillon-bench-generate FOLDER COMPONENTS LINES [old]\n", stderr);
    return 2;
  }
  const VBGroup oGroup = MakeGroup(argv[1], lComponents, lLines, isOld ? VBAge::Old : VBAge::New);
  std::printf("%s: %zu components, %zu lines, %zu bytes\n", oGroup.oFile.c_str(), lComponents,
              oGroup.lLines, oGroup.lBytes);
  return 0;
} catch (const std::exception& oError) {
  std::fprintf(stderr, "quillon-bench-generate: %s\n", oError.what());
  return 1;
}
