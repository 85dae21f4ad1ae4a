// A picture of the whole screen as it is now. What the window library offers for that may give the
// same picture again that it gave first.
#pragma once

#include <string>

/// A PNG file. Nothing when there is no X display.
void SaveScreen(const std::string& sFile);
