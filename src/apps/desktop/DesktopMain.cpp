// The windowed program: its arguments and settings, and the window system.
#include <cstdio>

#include "Desktop.h"
#include "DesktopProgram.h"

namespace {

Text CommandLine(int argc, char** argv) {
  Text sLine;
  for (int i = 0; i < argc; ++i) sLine += (i > 0 ? u" " : u"") + FromUtf8(argv[i]);
  return sLine;
}

int Main(int argc, char** argv) {
  DesktopArguments oArguments;
  if (std::optional<int> oExit = ReadDesktopArguments(argc, argv, oArguments)) return *oExit;
  RegistryStore oStore(oArguments.oSettingsFile.value_or(DefaultSettingsPath()));
  goRegistry = &oStore;
  return Forms::RunDesktop([&](Forms::Toolkit& oToolkit) {
    return RunDesktopProgram(oToolkit, oArguments, oStore, CommandLine(argc, argv));
  });
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Main(argc, argv);
  } catch (const std::exception& oError) {
    std::fprintf(stderr, "quillon-desktop: %s\n", oError.what());
    return 2;
  }
}
