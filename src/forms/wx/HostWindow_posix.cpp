#include "HostWindow.h"

#include <wx/window.h>

namespace Forms::HostWindow {

void Enter(void*, std::function<std::intptr_t()>) {}

void Leave() {}

std::intptr_t Handle() {
  return 0;
}

std::unique_ptr<wxWindow> AsOwner() {
  return nullptr;
}

Look::Look() = default;

Look::~Look() = default;

void PassQuitOn() {}

bool PutOnClipboard(const wxBitmap&) {
  return false;
}

}  // namespace Forms::HostWindow
