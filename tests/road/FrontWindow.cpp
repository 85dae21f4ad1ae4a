#include "FrontWindow.h"

#include <wx/utils.h>

// Behind wx: its macros would change what stands in there.
#include <X11/Xlib.h>

namespace {

/// Windows of programs stand on the root; menus and tips tell that no manager may touch them.
bool IsProgramWindow(Display* poDisplay, Window hWindow) {
  XWindowAttributes o;
  return XGetWindowAttributes(poDisplay, hWindow, &o) && o.map_state == IsViewable &&
         !o.override_redirect && o.c_class == InputOutput;
}

Window FrontWindow(Display* poDisplay) {
  Window hRoot, hParent, *phChild = nullptr, hFront = None;
  unsigned nChildren = 0;
  if (!XQueryTree(poDisplay, DefaultRootWindow(poDisplay), &hRoot, &hParent, &phChild, &nChildren))
    return None;
  // From the bottom up.
  for (unsigned i = 0; i < nChildren; ++i)
    if (IsProgramWindow(poDisplay, phChild[i])) hFront = phChild[i];
  if (phChild) XFree(phChild);
  return hFront;
}

}  // namespace

bool FocusFrontWindow() {
  // The program's own connection, so that the keys come behind the focus.
  auto* const poDisplay = static_cast<Display*>(wxGetDisplayInfo().dpy);
  const Window hFront = FrontWindow(poDisplay);
  Window hNow;
  int nRevert;
  XGetInputFocus(poDisplay, &hNow, &nRevert);
  if (hFront != None && hNow != hFront)
    XSetInputFocus(poDisplay, hFront, RevertToPointerRoot, CurrentTime);
  XSync(poDisplay, False);
  return hFront != None;
}
