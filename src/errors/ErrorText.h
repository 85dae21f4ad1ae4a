// Fields of the lines of the error log.
#pragma once

#include <string>
#include <string_view>

/// Appends the text in UTF-8 as one field of a line: control characters become \xNN, so that
/// neither a tab nor a line end of a message can break the line; the empty text becomes "-".
void AppendErrorField(std::u16string_view text, std::string& line);
