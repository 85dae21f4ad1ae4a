// Text to bytes for a file, all or nothing.
#pragma once

#include <string>

#include "CodePage.h"

/// The bytes of sText. Failure 5 that names the first character which the page lacks.
std::string PageBytes(TextView sText, const CodePage& oPage);
