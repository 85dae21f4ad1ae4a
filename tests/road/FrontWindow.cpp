#include "FrontWindow.h"

#include <wx/utils.h>

// Behind wx: its macros would change what stands in there.
#include <X11/Xlib.h>

namespace {

Window FrontWindow(Display* poDisplay) {
  Window hRoot, hParent, *phChild = nullptr, hFront = None;
  unsigned nChildren = 0;
  XQueryTree(poDisplay, DefaultRootWindow(poDisplay), &hRoot, &hParent, &phChild, &nChildren);
  // Windows of programs stand on the root, from the bottom up; menus and tips tell that no manager
  // may touch them.
  for (unsigned i = 0; i < nChildren; ++i)
    if (XWindowAttributes o; XGetWindowAttributes(poDisplay, phChild[i], &o) &&
                             o.map_state == IsViewable && !o.override_redirect &&
                             o.c_class == InputOutput)
      hFront = phChild[i];
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
