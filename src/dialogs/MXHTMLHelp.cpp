#include "MXHTMLHelp.h"

#include "MXFile.h"
#include "Toolkit.h"

using Forms::HelpCommand;

namespace {

Text& File() {
  static Text sFile;
  return sFile;
}

void Show(const Forms::Toolkit& oToolkit, HelpCommand eCommand, std::int32_t lContext) {
  try {
    oToolkit.Renderer().ShowHelp(File(), eCommand, lContext, MXHTMLHelp::poOwner);
  } catch (const std::exception&) {
    // A failure of the help must not end what the user was doing.
  }
}

}  // namespace

namespace MXHTMLHelp {

Forms::Form* poOwner = nullptr;

const Text& HelpFile() {
  return File();
}
void SetHelpFile(TextView sFile) {
  File() = sFile;
}
bool HelpExists() {
  return MXFile::FileExists(File());
}

void ShowHelpTOC(Forms::Toolkit& oToolkit, std::int32_t lContext) {
  Show(oToolkit, HelpCommand::Contents, lContext);
}
void ShowHelpIndex(Forms::Toolkit& oToolkit) {
  Show(oToolkit, HelpCommand::Index, 0);
}
void ShowHelpSearch(Forms::Toolkit& oToolkit) {
  Show(oToolkit, HelpCommand::Search, 0);
}

}  // namespace MXHTMLHelp
