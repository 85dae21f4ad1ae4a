// What the user asked for on the command line of the windowed program.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "VBE.h"

struct DesktopArguments {
  std::string sGroup;  ///< full path; empty: the last one, or a question
  ConnectMode nConnectMode = ConnectMode::Startup;
  std::optional<std::string> oSettingsFile;  ///< empty text: settings in memory only
  std::string sTemplateFile;                 ///< full path; empty: the most recent one
  std::vector<std::string> roots;            ///< folders below which components may be written
  std::string sLogFile;                      ///< empty: the state folder of the user
};

/// Reads the command line. A value: the program ends here with it (help, version: 0; wrong usage:
/// 2), and the text for the user has been printed. "/TRACE" is passed over here.
std::optional<int> ReadDesktopArguments(int argc, char** argv, DesktopArguments& oArguments);
