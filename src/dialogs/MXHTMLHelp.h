// The book behind the Help buttons and the Help menu: one file for the whole program. If the
// viewer can't be started, that is ignored.
#pragma once

#include <cstdint>

#include "Text.h"

namespace Forms {
class Form;
class Toolkit;
}  // namespace Forms

namespace MXHTMLHelp {

/// Full path, set at start-up.
const Text& HelpFile();
void SetHelpFile(TextView sFile);
/// Help buttons are hidden or disabled when this is false.
bool HelpExists();

/// Shows the table of contents, with the page of that number; 0 for no page.
void ShowHelpTOC(Forms::Toolkit& oToolkit, std::int32_t lContext);
void ShowHelpIndex(Forms::Toolkit& oToolkit);
void ShowHelpSearch(Forms::Toolkit& oToolkit);

/// The window that the viewer belongs to: set and cleared by the main window; null for none.
extern Forms::Form* poOwner;

}  // namespace MXHTMLHelp
