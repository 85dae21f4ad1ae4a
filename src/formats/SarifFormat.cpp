// SARIF 2.1.0, which code scanning services and editors read.
#include "FindingFormat.h"
#include "FormatText.h"
#include "JsonWriter.h"

namespace {

/// Braces would be places for arguments.
std::string MessageText(const std::string& text) {
  std::string doubled;
  for (const char c : text) doubled.append(c == '{' || c == '}' ? 2 : 1, c);
  return doubled;
}

class SarifFormat : public FindingFormat {
 public:
  explicit SarifFormat(const Place& place) : FindingFormat(place), mJson(place.sink) {}

  void Begin(const CheckResult&) override {
    mJson.BeginObject();
    mJson.Key("$schema").String("https://json.schemastore.org/sarif-2.1.0.json");
    mJson.Key("version").String("2.1.0");
    mJson.Key("runs").BeginArray();
    mJson.BeginObject();
    Tool();
    mJson.Key("results").BeginArray();
  }

  void Add(const ReviewFinding& finding) override {
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("ruleId").String(finding.rule->id);
    mJson.Key("ruleIndex").Number(static_cast<std::int64_t>(finding.rule->rule));
    mJson.Key("level").String(SeverityName(finding.rule->severity));
    Text("message", MessageText(finding.FullMessage()));
    mJson.Key("locations").BeginArray();
    if (!finding.treeFile.empty() || !finding.component.empty()) Location(finding);
    mJson.EndArray();
    mJson.Key("partialFingerprints").BeginObject();
    mJson.Key("quillonFinding/v1").String(finding.fingerprint);
    mJson.EndObject();
    mJson.EndObject();
  }

  void End(const CheckResult&) override {
    mJson.Break();
    mJson.EndArray();
    mJson.EndObject();
    mJson.EndArray();
    mJson.EndObject();
    mJson.Finish();
  }

 private:
  void Text(const char* key, std::string_view text) {
    mJson.Key(key).BeginObject();
    mJson.Key("text").String(text);
    mJson.EndObject();
  }

  void Tool() {
    mJson.Key("tool").BeginObject();
    mJson.Key("driver").BeginObject();
    mJson.Key("name").String("quillon");
    mJson.Key("version").String(mPlace.version);
    mJson.Key("rules").BeginArray();
    for (const RuleRow& row : CheckRules()) Rule(row);
    mJson.Break();
    mJson.EndArray();
    mJson.EndObject();
    mJson.EndObject();
  }

  void Rule(const RuleRow& row) {
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("id").String(row.id);
    Text("shortDescription", row.summary);
    Text("fullDescription", row.explanation);
    mJson.Key("defaultConfiguration").BeginObject();
    mJson.Key("enabled").Bool(row.byDefault);
    mJson.Key("level").String(SeverityName(row.severity));
    mJson.EndObject();
    mJson.EndObject();
  }

  void Location(const ReviewFinding& finding) {
    mJson.BeginObject();
    if (!finding.treeFile.empty()) {
      mJson.Key("physicalLocation").BeginObject();
      mJson.Key("artifactLocation").BeginObject();
      mJson.Key("uri").String(UriOfPath(finding.treeFile));
      if (finding.treeFile.front() != '/') mJson.Key("uriBaseId").String("%SRCROOT%");
      mJson.EndObject();
      if (finding.line > 0) Region(finding);
      mJson.EndObject();
    }
    if (!finding.component.empty()) Logical(finding);
    mJson.EndObject();
  }

  void Region(const ReviewFinding& finding) {
    mJson.Key("region").BeginObject();
    mJson.Key("startLine").Number(finding.line);
    mJson.Key("endLine").Number(finding.endLine);
    mJson.EndObject();
  }

  void Logical(const ReviewFinding& finding) {
    const bool isModule = finding.procedure.empty();
    std::string name = finding.project + '.' + finding.component;
    if (!isModule) name.append(".").append(finding.procedure);
    mJson.Key("logicalLocations").BeginArray();
    mJson.BeginObject();
    mJson.Key("name").String(isModule ? finding.component : finding.procedure);
    mJson.Key("fullyQualifiedName").String(name);
    mJson.Key("kind").String(isModule ? "module" : "function");
    mJson.EndObject();
    mJson.EndArray();
  }

  JsonWriter mJson;
};

}  // namespace

std::unique_ptr<FindingFormat> MakeSarifFormat(const FindingFormat::Place& place) {
  return std::make_unique<SarifFormat>(place);
}
