#include "ChangeRows.h"

#include "CodePage.h"
#include "LineDifferences.h"

namespace {

/// Unchanged lines around a place; a choice, the same as in the command line's differences.
constexpr std::size_t Around = 3;

std::string_view WithoutLineEnd(std::string_view line) {
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
  return line;
}

Text NumberOf(std::size_t line) {
  return ToText(static_cast<long long>(line) + 1);
}

}  // namespace

std::vector<Forms::CodeLine> ChangeRows(const std::string& oldBytes, const std::string& newBytes) {
  const CodePage& page = CodePage::Detect(newBytes, CodePage::Get("1252"));
  const auto oldLines = SplitByteLines(oldBytes), newLines = SplitByteLines(newBytes);
  const std::vector<LineChange> changes = LineDifferences(oldLines, newLines);
  std::vector<Forms::CodeLine> rows;
  for (const LineHunk& hunk : LineHunks(changes, oldLines.size(), Around)) {
    const std::size_t place = hunk.changes.front().newFirst;
    rows.push_back({Forms::LineMark::Heading, {}, u"Line " + NumberOf(place)});
    VisitLines(hunk, [&](LineFate fate, std::size_t line) {
      const auto bytes = WithoutLineEnd((fate == LineFate::Goes ? oldLines : newLines)[line]);
      rows.push_back({Forms::MarkOf(fate), NumberOf(line), page.Decode(bytes)});
    });
  }
  return rows;
}
