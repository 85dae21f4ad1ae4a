// NativeDetails by the portable means of the library.
#include "NativeDetails.h"

#include <wx/defs.h>

#if !defined(__WXGTK__) && !defined(__WXMSW__)

#include <wx/choice.h>
#include <wx/dcscreen.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

namespace Forms::NativeDetails {

double Resolution() {
  return wxScreenDC().GetPPI().GetWidth();
}

void MakeCompact() {}

void SetOwner(wxTopLevelWindow& oAbove, wxTopLevelWindow*) {
  oAbove.Raise();
}

void DropDown(wxChoice&) {}

bool GiveKey(wxMenu&) {
  return false;
}

void FreeFromModal(wxTopLevelWindow& oWindow) {
  oWindow.Enable();
}

ModalInput::ModalInput(wxTopLevelWindow& oWindow) : mpNative(new wxWindowDisabler(&oWindow)) {}

ModalInput::~ModalInput() {
  delete static_cast<wxWindowDisabler*>(mpNative);
}

void ModalInput::EndAheadOf(wxTopLevelWindow&) {}

}  // namespace Forms::NativeDetails

#endif
