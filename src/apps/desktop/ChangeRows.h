// The difference of a file from what is on disk, as rows of a text pane: a heading for each place,
// three lines around it, the lines that go and the lines that come.
#pragma once

#include <string>
#include <vector>

#include "CodePane.h"

/// No rows when the bytes agree. The bytes are those of whole files, in any code page. A row's
/// number is the line's number in its file: the old one's for a line that goes, else the new one's;
/// a heading has none.
std::vector<Forms::CodeLine> ChangeRows(const std::string& oldBytes, const std::string& newBytes);
