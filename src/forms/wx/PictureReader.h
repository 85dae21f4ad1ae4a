// Reads the PNG pictures of the program into images of the window library.
#pragma once

namespace Forms {

/// Once behind the window system's start.
void AddPictureReader();

}  // namespace Forms
