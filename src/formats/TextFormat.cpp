// A line per finding, as editors and people read it: "file:line: message [rule]".
#include "FindingFormat.h"
#include "VisibleText.h"

namespace {

/// Behind the severity's colour the default comes back.
constexpr std::string_view Plain = "\x1b[0m";

std::string_view ColorOf(CheckSeverity severity) {
  switch (severity) {
    case CheckSeverity::Error:
      return "\x1b[31m";
    case CheckSeverity::Warning:
      return "\x1b[33m";
    case CheckSeverity::Note:
      break;
  }
  return "\x1b[36m";
}

class TextFormat : public FindingFormat {
 public:
  using FindingFormat::FindingFormat;

  void Add(const ReviewFinding& finding) override {
    std::string line = finding.file.empty() ? "(no file)" : finding.file;
    if (finding.line > 0) line.append(":").append(std::to_string(finding.line));
    line = VisibleText(line.append(": ").append(finding.FullMessage())) + " [";
    if (mPlace.isColored) line += ColorOf(finding.rule->severity);
    line += finding.rule->id;
    if (mPlace.isColored) line += Plain;
    Put(line.append("]\n"));
  }
};

}  // namespace

std::unique_ptr<FindingFormat> MakeTextFormat(const FindingFormat::Place& place) {
  return std::make_unique<TextFormat>(place);
}
