// The printers of this user's Windows.
#pragma once

#include <optional>

#include "Text.h"

namespace Paper {

/// The printer that makes PDF files: the system's own, or none.
std::optional<Text> PdfPrinter();

}  // namespace Paper
