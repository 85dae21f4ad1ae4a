// What has to be set up before the IDE gets its first object: the exception filter, the error
// run-time with its client, the shared tables, rules, options and the help file.
//
//   MStartUp::Setup oSetup{oToolkit, sCommandLine};
//   if (!MStartUp::Main(oSetup)) ...   // the user has been told
//   ...
//   MStartUp::End();                   // before the toolkit ends
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "CErrorClient.h"
#include "IErrorDialog.h"

namespace MStartUp {

/// Null before Main and after End.
extern std::unique_ptr<CErrorClient> goErrorClient;

struct Setup {
  /// Its HelpFile is the plain name of the book; StartUp makes it a full path.
  Forms::Toolkit& oToolkit;
  /// "/TRACE" anywhere in it, in capitals, turns tracing on.
  Text sCommandLine;
  /// The log's path; empty for the usual one.
  std::string sLogFile;
  std::vector<Text> asHostForm;  ///< see CErrorClient
  /// Makes the error run-time; empty for the system's own.
  std::function<std::unique_ptr<IErrorRuntime>(IErrorDialog&)> oMakeRuntime;
};

/// False when it failed; a box has told the user, and StartUp did not run. The settings store has
/// to be open.
bool Main(const Setup& oSetup);
/// The second half of Main. Failures of it are reported and end it.
void StartUp(Forms::Toolkit& oToolkit);
/// goError is silent again.
void End();

}  // namespace MStartUp
