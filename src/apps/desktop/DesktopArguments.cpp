#include "DesktopArguments.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <map>

#include "PathText.h"

namespace {

std::string FullPath(const std::string& sPath) {
  std::error_code oError;
  const auto oPath = std::filesystem::absolute(sPath, oError);
  return sPath.empty() || oError ? sPath : oPath.lexically_normal().string();
}

/// The arguments in the order that the parser wants them, the last one first.
std::vector<std::string> WithoutTrace(int argc, char** argv) {
  std::vector<std::string> asArgument;
  for (int i = argc - 1; i > 0; --i)
    if (std::string_view(argv[i]) != "/TRACE") asArgument.emplace_back(argv[i]);
  return asArgument;
}

class HelpForm : public CLI::Formatter {
 public:
  HelpForm() { label("OPTIONS", "options"); }
};

}  // namespace

std::optional<int> ReadDesktopArguments(int argc, char** argv, DesktopArguments& oArguments) {
  CLI::App oApp("Manages the error handling of Visual Basic 6 projects in a window.",
                "quillon-desktop");
  oApp.formatter(std::make_shared<HelpForm>());
  oApp.set_version_flag("--version", "Tarvane Quillon " QUILLON_VERSION);
  oApp.failure_message([](const CLI::App*, const CLI::Error& oError) {
    return std::string("quillon-desktop: ") + oError.what() +
           "\nquillon-desktop --help tells more.\n";
  });
  oApp.add_option(
          "GROUP", oArguments.sGroup,
          "Project group (.vbg), project (.vbp) or folder (else the one that was open last)")
      ->type_name(" ")
      ->transform(PathOfArgument);
  std::string sConnect = "startup";
  oApp.add_option("--connect", sConnect,
                  "How the add-in is connected: with menu entry and toolbar, or at once with its "
                  "window")
      ->type_name("MODE")
      ->check(CLI::IsMember({"startup", "external"}));
  oApp.add_option_function<std::string>(
          "--settings", [&](const std::string& sFile) { oArguments.oSettingsFile = sFile; },
          "Settings file instead of the user's own")
      ->type_name("FILE")
      ->transform(PathOfArgument);
  oApp.add_option("-t,--template", oArguments.sTemplateFile,
                  "Template file (else the one that was used last)")
      ->type_name("FILE")
      ->check(CLI::Validator(CLI::ExistingFile).description(""))
      ->transform(PathOfArgument);
  oApp.add_option("--root", oArguments.roots,
                  "Components below this folder may be written too, besides the work tree")
      ->type_name("DIR")
      ->expected(1, CLI::detail::expected_max_vector_size)
      ->allow_extra_args(false)
      ->check(CLI::Validator(CLI::ExistingDirectory).description(""))
      ->transform(PathOfArgument);
  oApp.add_option("--log", oArguments.sLogFile, "Log failures to this file")
      ->type_name("FILE")
      ->transform(PathOfArgument);
  try {
    oApp.parse(WithoutTrace(argc, argv));
  } catch (const CLI::ParseError& oError) {
    return oApp.exit(oError) == 0 ? 0 : 2;
  }
  oArguments.nConnectMode = sConnect == "external" ? ConnectMode::External : ConnectMode::Startup;
  oArguments.sGroup = FullPath(oArguments.sGroup);
  oArguments.sTemplateFile = FullPath(oArguments.sTemplateFile);
  return std::nullopt;
}
