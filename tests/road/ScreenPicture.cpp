#include "ScreenPicture.h"

#include <wx/image.h>

// Behind wx: its macros would change what stands in there.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

void SaveScreen(const std::string& sFile) {
  Display* const poDisplay = XOpenDisplay(nullptr);
  if (!poDisplay) return;
  const int nScreen = DefaultScreen(poDisplay);
  const int nWidth = DisplayWidth(poDisplay, nScreen), nHeight = DisplayHeight(poDisplay, nScreen);
  XImage* const poScreen =
      XGetImage(poDisplay, RootWindow(poDisplay, nScreen), 0, 0, static_cast<unsigned>(nWidth),
                static_cast<unsigned>(nHeight), AllPlanes, ZPixmap);
  wxImage oPicture(nWidth, nHeight);
  for (int y = 0; y < nHeight; ++y)
    for (int x = 0; x < nWidth; ++x) {
      const unsigned long lPixel = XGetPixel(poScreen, x, y);
      const auto Part = [lPixel](int nShift) {
        return static_cast<unsigned char>(lPixel >> nShift);
      };
      oPicture.SetRGB(x, y, Part(16), Part(8), Part(0));
    }
  XDestroyImage(poScreen);
  XCloseDisplay(poDisplay);
  oPicture.SaveFile(sFile, wxBITMAP_TYPE_PNG);
}
