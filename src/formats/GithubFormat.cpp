// Workflow commands: a line per finding, which GitHub shows beside the changed lines.
#include "FindingFormat.h"
#include "FormatText.h"
#include "PathText.h"

namespace {

const char* CommandOf(CheckSeverity severity) {
  switch (severity) {
    case CheckSeverity::Error:
      return "::error ";
    case CheckSeverity::Warning:
      return "::warning ";
    case CheckSeverity::Note:
      break;
  }
  return "::notice ";
}

class GithubFormat : public FindingFormat {
 public:
  using FindingFormat::FindingFormat;

  void Add(const ReviewFinding& finding) override {
    std::string line = CommandOf(finding.rule->severity);
    if (!finding.treeFile.empty())
      line.append("file=").append(WorkflowProperty(ShownPath(finding.treeFile))).append(",");
    if (finding.line > 0)
      line.append("line=")
          .append(std::to_string(finding.line))
          .append(",endLine=")
          .append(std::to_string(finding.endLine))
          .append(",");
    line.append("title=").append(finding.rule->id);
    Put(line.append("::").append(WorkflowData(finding.FullMessage())).append("\n"));
  }
};

}  // namespace

std::unique_ptr<FindingFormat> MakeGithubFormat(const FindingFormat::Place& place) {
  return std::make_unique<GithubFormat>(place);
}
