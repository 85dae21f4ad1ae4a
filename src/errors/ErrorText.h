// Text to bytes for logs and terminals. Needed here because this layer is the lowest one and can't
// use the text tools of vocabulary/.
#pragma once

#include <string>
#include <string_view>

/// UTF-8 of 16-bit text; a lone surrogate becomes U+FFFD.
std::string ErrorUtf8(std::u16string_view sText);

/// Appends sText in UTF-8 as one field of a line: control characters become \xNN, so that neither
/// a tab nor a line end of a message can break the line; the empty text becomes "-".
void AppendErrorField(std::u16string_view sText, std::string& sLine);

/// UTF-8 to 16-bit text; bytes that aren't valid UTF-8 become U+FFFD.
std::u16string ErrorUtf16(std::string_view sBytes);
