// NativeDetails for Windows.
#include <wx/choice.h>
#include <wx/toplevel.h>

#include <wx/msw/private.h>

#include <vector>

#include "HostWindow.h"
#include "NativeDetails.h"

namespace Forms::NativeDetails {

namespace {

/// The windows of this thread that took input when a modal form was shown, those of a program
/// around ours included.
struct Blocked {
  HWND hModal;
  std::vector<HWND> ahWindow;

  void Free() {
    for (const HWND h : ahWindow) EnableWindow(h, TRUE);
    ahWindow.clear();
  }
};

std::vector<Blocked*> gaoBlocked;  // innermost last

BOOL CALLBACK BlockWindow(HWND hWindow, LPARAM lBlocked) {
  auto& oBlocked = *reinterpret_cast<Blocked*>(lBlocked);
  if (hWindow == oBlocked.hModal || !IsWindowVisible(hWindow) || !IsWindowEnabled(hWindow))
    return TRUE;
  oBlocked.ahWindow.push_back(hWindow);
  EnableWindow(hWindow, FALSE);
  return TRUE;
}

}  // namespace

double Resolution() {
  const ScreenHDC hScreen;
  return GetDeviceCaps(hScreen, LOGPIXELSX);
}

void MakeCompact() {}

void SetOwner(wxTopLevelWindow& oAbove, wxTopLevelWindow* poOwner) {
  const HWND hOwner = poOwner ? GetHwndOf(poOwner) : reinterpret_cast<HWND>(HostWindow::Handle());
  SetWindowLongPtrW(GetHwndOf(&oAbove), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(hOwner));
}

void DropDown(wxChoice& oChoice) {
  SendMessageW(GetHwndOf(&oChoice), CB_SHOWDROPDOWN, TRUE, 0);
}

void FreeFromModal(wxTopLevelWindow& oWindow) {
  EnableWindow(GetHwndOf(&oWindow), TRUE);
}

ModalInput::ModalInput(wxTopLevelWindow& oWindow) : mpNative(new Blocked{GetHwndOf(&oWindow), {}}) {
  auto* const poBlocked = static_cast<Blocked*>(mpNative);
  EnumThreadWindows(GetCurrentThreadId(), BlockWindow, reinterpret_cast<LPARAM>(poBlocked));
  gaoBlocked.push_back(poBlocked);
}

ModalInput::~ModalInput() {
  auto* const poBlocked = static_cast<Blocked*>(mpNative);
  poBlocked->Free();
  std::erase(gaoBlocked, poBlocked);
  delete poBlocked;
}

void ModalInput::EndAheadOf(wxTopLevelWindow& oWindow) {
  for (Blocked* const po : gaoBlocked)
    if (po->hModal == GetHwndOf(&oWindow)) po->Free();
}

}  // namespace Forms::NativeDetails
