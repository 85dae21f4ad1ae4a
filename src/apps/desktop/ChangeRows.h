// The difference of a file from what is on disk, as rows of a text pane: a heading for each place,
// three lines around it, the lines that go and the lines that come.
#pragma once

#include <string>
#include <vector>

#include "CodePane.h"

struct ChangeRow {
  Forms::LineMark eMark = Forms::LineMark::None;
  /// The line's number in its file: the old one's for a line that goes, else the new one's. Empty
  /// for a heading.
  Text sNumber;
  Text sText;
  bool operator==(const ChangeRow&) const = default;
};

/// No rows when the bytes agree. The bytes are those of whole files, in any code page.
std::vector<ChangeRow> ChangeRows(const std::string& sOldBytes, const std::string& sNewBytes);

/// Fills the pane with the rows.
void ShowRows(const std::vector<ChangeRow>& aoRow, Forms::CodePane& oPane);
