// What windows of a library need that lives inside another program: on Windows only; elsewhere
// these do nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

class wxBitmap;
class wxWindow;

namespace Forms::HostWindow {

/// Ahead of the window system's start. poModule: the library, which owns the classes of windows and
/// the manifest from which controls take their look. oWindow: gives the program's main window,
/// above which windows without an owner of ours stand; 0 for none.
void Enter(void* poModule, std::function<std::intptr_t()> oWindow);
/// Behind the window system's end.
void Leave();

/// The program's main window: 0 for none.
std::intptr_t Handle();
/// It as the owner of a box; null for none.
std::unique_ptr<wxWindow> AsOwner();

/// While one lives, windows are made with the look that the library's manifest asks for. The
/// program's own windows keep theirs, so that it doesn't live in the loop of a form, which handles
/// the program's messages too; the system's boxes have loops of their own and need it.
class Look {
 public:
  Look();
  ~Look();
  Look(const Look&) = delete;
  Look& operator=(const Look&) = delete;

 private:
  std::uintptr_t mlCookie = 0;
};

/// The program is asked to end, and the loop of a modal form was what took note of it: the
/// program's own loop is told again.
void PassQuitOn();

/// Puts a picture on the clipboard in the form in which the program pastes it, opaque on the color
/// of buttons. False where the portable way serves.
bool PutOnClipboard(const wxBitmap& oBitmap);

}  // namespace Forms::HostWindow
