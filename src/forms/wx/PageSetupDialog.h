// The page set-up: paper, orientation, margins in the caller's own unit, and the printer. The
// window system's own dialog knows no margins, and only the printers that are the system's.
#pragma once

#include <wx/dialog.h>

#include "CommonDialogs.h"

class wxChoice;
class wxRadioButton;
class wxSizer;
class wxSpinCtrlDouble;

namespace Forms {

class PageSetupDialog : public wxDialog {
 public:
  PageSetupDialog(wxWindow* poOwner, const PageDialog& o);
  /// Values that the user didn't change stay exactly as they were (the fields show rounded ones).
  void Take(PageDialog& o) const;

 private:
  struct Margin {
    std::int32_t PageDialog::*plLength;
    wxSpinCtrlDouble* poField;
  };
  wxSizer* PaperBox(const PageDialog& o);
  wxSizer* OrientationBox(const PageDialog& o);
  wxSizer* MarginBox(const PageDialog& o);
  wxSizer* PrinterBox(const PageDialog& o);

  wxChoice *mpoPaper = nullptr, *mpoPrinter = nullptr;
  wxRadioButton* mpoAcross = nullptr;
  std::vector<Margin> moMargins;
};

}  // namespace Forms
