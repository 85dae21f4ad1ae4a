// The page set-up that the File menu and the print dialog offer: the margins of reports, their
// paper, and the printer they go to.
#pragma once

namespace Forms {
class Form;
}
namespace Paper {
class Printers;
}

/// Shows the dialog above oOwner, starting on the margins of MOptions. What is confirmed becomes
/// theirs, and is stored. Failures as those of CXChoosePage::Show.
void ShowPageSetup(Forms::Form& oOwner, Paper::Printers& oPrinters);
