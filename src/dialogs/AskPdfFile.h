// The question for the file of a document that is printed to "PDF file".
#pragma once

#include <optional>

#include "Text.h"

namespace Forms {
class Toolkit;
}

/// title: of the document, proposed as the file's name. Nothing after Cancel, which isn't a
/// failure.
std::optional<Text> AskPdfFile(Forms::Toolkit& toolkit, TextView title);
