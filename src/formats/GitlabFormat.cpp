// GitLab's code quality report, an array of findings that a merge request shows.
#include "FindingFormat.h"
#include "JsonWriter.h"
#include "PathText.h"

namespace {

const char* SeverityOf(CheckSeverity severity) {
  switch (severity) {
    case CheckSeverity::Error:
      return "major";
    case CheckSeverity::Warning:
      return "minor";
    case CheckSeverity::Note:
      break;
  }
  return "info";
}

class GitlabFormat : public FindingFormat {
 public:
  explicit GitlabFormat(const Place& place) : FindingFormat(place), mJson(place.sink) {}

  void Begin(const CheckResult&) override { mJson.BeginArray(); }

  void Add(const ReviewFinding& finding) override {
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("description").String(finding.FullMessage());
    mJson.Key("check_name").String(finding.rule->id);
    mJson.Key("fingerprint").String(finding.fingerprint);
    mJson.Key("severity").String(SeverityOf(finding.rule->severity));
    mJson.Key("location").BeginObject();
    mJson.Key("path").String(ShownPath(finding.treeFile));
    mJson.Key("lines").BeginObject();
    // A finding about a whole file has to stand somewhere.
    mJson.Key("begin").Number(finding.line > 0 ? finding.line : 1);
    if (finding.line > 0) mJson.Key("end").Number(finding.endLine);
    mJson.EndObject();
    mJson.EndObject();
    mJson.EndObject();
  }

  void End(const CheckResult&) override {
    mJson.Break();
    mJson.EndArray();
    mJson.Finish();
  }

 private:
  JsonWriter mJson;
};

}  // namespace

std::unique_ptr<FindingFormat> MakeGitlabFormat(const FindingFormat::Place& place) {
  return std::make_unique<GitlabFormat>(place);
}
