// One object with everything that is known. docs/checks.md tells its keys, which stay: a new one is
// added, and a change of an old one gets a new number of the schema.
#include "FindingFormat.h"
#include "JsonWriter.h"

namespace {

constexpr std::int64_t Schema = 1;

const char* KindOf(CheckRule rule) {
  switch (rule) {
    case CheckRule::MissingTemplate:
    case CheckRule::SettingsDiffer:
      return "change";
    case CheckRule::WouldRefuse:
      return "refused";
    case CheckRule::Unreadable:
      return "unreadable";
    default:
      return "code";
  }
}

class JsonFormat : public FindingFormat {
 public:
  explicit JsonFormat(const Place& place) : FindingFormat(place), mJson(place.sink) {}

  void Begin(const CheckResult&) override {
    mJson.BeginObject();
    mJson.Key("schema").Number(Schema);
    mJson.Key("findings").BeginArray();
  }

  void Add(const ReviewFinding& finding) override {
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("kind").String(KindOf(finding.rule->rule));
    mJson.Key("rule").String(finding.rule->id);
    mJson.Key("severity").String(SeverityName(finding.rule->severity));
    mJson.Key("file").StringOrNull(finding.file);
    mJson.Key("project").String(finding.project);
    mJson.Key("component").String(finding.component);
    if (!finding.procedure.empty()) mJson.Key("procedure").String(finding.procedure);
    if (finding.line > 0) {
      mJson.Key("line").Number(finding.line);
      mJson.Key("endLine").Number(finding.endLine);
    }
    if (!finding.changes.empty()) Changes(finding);
    mJson.Key("message").String(finding.message);
    mJson.Key("mend").StringOrNull(finding.mend);
    mJson.Key("fingerprint").String(finding.fingerprint);
    mJson.EndObject();
  }

  void End(const CheckResult& result) override {
    mJson.Break();
    mJson.EndArray();
    Count("procedures", result.procedures);
    mJson.Key("baseline").BeginObject();
    Count("known", result.known);
    mJson.Key("gone").BeginArray();
    for (const std::string& fingerprint : result.gone) mJson.String(fingerprint);
    mJson.EndArray();
    mJson.EndObject();
    Passed(result.passedOver);
    mJson.Key("ignored").BeginObject();
    for (const RuleRow& row : CheckRules())
      if (const auto count = result.ignored[static_cast<std::size_t>(row.rule)])
        Count(row.id, count);
    mJson.EndObject();
    mJson.Key("judgedOtherwise").BeginObject();
    for (const auto& [name, count] : result.judgedOtherwise) Count(name, count);
    mJson.EndObject();
    mJson.EndObject();
    mJson.Finish();
  }

 private:
  void Count(std::string_view key, std::size_t count) {
    mJson.Key(key).Number(static_cast<std::int64_t>(count));
  }

  void Passed(const PassedOver& passed) {
    mJson.Key("passedOver").BeginObject();
    Count("locked", passed.locked);
    Count("ownHandling", passed.ownHandling);
    Count("inactive", passed.inactive);
    Count("readOnlyFiles", passed.readOnlyFiles);
    Count("sharedFiles", passed.sharedFiles);
    mJson.EndObject();
  }

  void Changes(const ReviewFinding& finding) {
    mJson.Key("changes").BeginArray();
    for (const ReviewFinding::Change& change : finding.changes) {
      mJson.BeginObject();
      mJson.Key("property").String(change.property);
      mJson.Key("from").StringOrNull(change.from);
      mJson.Key("to").StringOrNull(change.to);
      mJson.EndObject();
    }
    mJson.EndArray();
  }

  JsonWriter mJson;
};

}  // namespace

std::unique_ptr<FindingFormat> MakeJsonFormat(const FindingFormat::Place& place) {
  return std::make_unique<JsonFormat>(place);
}
