#include "HostWindow.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/settings.h>
#include <wx/window.h>

#include <wx/msw/private.h>

namespace Forms::HostWindow {

namespace {

std::function<std::intptr_t()> goWindow;
HANDLE ghLook = INVALID_HANDLE_VALUE;

/// The manifest of a library has this number; that of a program, 1, would change the program's
/// look.
constexpr int ManifestOfLibrary = 2;

HANDLE LookOf(HMODULE hModule) {
  ACTCTXW oRequest = {};
  oRequest.cbSize = sizeof oRequest;
  oRequest.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  oRequest.hModule = hModule;
  oRequest.lpResourceName = MAKEINTRESOURCEW(ManifestOfLibrary);
  return CreateActCtxW(&oRequest);
}

/// Stands for a window of the program without touching it.
class Borrowed : public wxWindow {
 public:
  explicit Borrowed(HWND hWindow) { SetHWND(hWindow); }
  ~Borrowed() override { SetHWND(nullptr); }
};

/// The clipboard has to be owned by a window to take anything.
class OpenClipboardFor {
 public:
  OpenClipboardFor()
      : mhOwner(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                wxGetInstance(), nullptr)) {
    // Another program may hold it for a moment.
    for (int i = 0; i < 10 && !mbOpen; ++i) {
      if (i > 0) Sleep(20);
      mbOpen = OpenClipboard(mhOwner) != 0;
    }
  }
  ~OpenClipboardFor() {
    if (mbOpen) CloseClipboard();
    if (mhOwner) DestroyWindow(mhOwner);
  }
  OpenClipboardFor(const OpenClipboardFor&) = delete;
  OpenClipboardFor& operator=(const OpenClipboardFor&) = delete;
  explicit operator bool() const { return mbOpen; }

 private:
  HWND mhOwner;
  bool mbOpen = false;
};

HBITMAP Opaque(const wxBitmap& oBitmap) {
  wxBitmap oFace(oBitmap.GetWidth(), oBitmap.GetHeight());
  wxMemoryDC oDC(oFace);
  oDC.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  oDC.Clear();
  oDC.DrawBitmap(oBitmap, 0, 0, true);
  oDC.SelectObject(wxNullBitmap);
  return static_cast<HBITMAP>(CopyImage(GetHbitmapOf(oFace), IMAGE_BITMAP, 0, 0, 0));
}

}  // namespace

void Enter(void* poModule, std::function<std::intptr_t()> oWindow) {
  const auto hModule = static_cast<HMODULE>(poModule);
  wxSetInstance(hModule);
  ghLook = LookOf(hModule);
  goWindow = std::move(oWindow);
}

void Leave() {
  goWindow = nullptr;
  if (ghLook != INVALID_HANDLE_VALUE) ReleaseActCtx(ghLook);
  ghLook = INVALID_HANDLE_VALUE;
}

std::intptr_t Handle() {
  const std::intptr_t lHandle = goWindow ? goWindow() : 0;
  return IsWindow(reinterpret_cast<HWND>(lHandle)) ? lHandle : 0;
}

std::unique_ptr<wxWindow> AsOwner() {
  const auto hWindow = reinterpret_cast<HWND>(Handle());
  return hWindow ? std::make_unique<Borrowed>(hWindow) : nullptr;
}

Look::Look() {
  ULONG_PTR lCookie = 0;
  if (ghLook != INVALID_HANDLE_VALUE && ActivateActCtx(ghLook, &lCookie)) mlCookie = lCookie;
}

Look::~Look() {
  if (mlCookie != 0) DeactivateActCtx(0, mlCookie);
}

void PassQuitOn() {
  PostQuitMessage(0);
}

bool PutOnClipboard(const wxBitmap& oBitmap) {
  const OpenClipboardFor oClipboard;
  if (!oClipboard || !EmptyClipboard()) return false;
  const HBITMAP hFace = Opaque(oBitmap);
  if (hFace && SetClipboardData(CF_BITMAP, hFace)) return true;
  DeleteObject(hFace);
  return false;
}

}  // namespace Forms::HostWindow
