#include "PictureReader.h"

#include <wx/image.h>

void Forms::AddPictureReader() {
  wxImage::AddHandler(new wxPNGHandler);
}
