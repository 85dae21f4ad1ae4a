#include "Baseline.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include <algorithm>

#include "JsonWriter.h"
#include "PathText.h"

namespace {

constexpr const char* SchemaKey = "quillonBaseline";
constexpr int Schema = 1;
constexpr const char* Advice = "; delete it and write it anew with --write-baseline";

std::size_t LineAt(const std::string& text, std::size_t offset) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, text.size()));
  return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

[[noreturn]] void Reject(std::size_t line, const std::string& why) {
  throw BaselineFault{line, why + Advice};
}

std::string TextOf(const rapidjson::Value& entry, const char* key) {
  const auto member = entry.FindMember(key);
  if (member == entry.MemberEnd() || !member->value.IsString()) return {};
  return {member->value.GetString(), member->value.GetStringLength()};
}

void CheckHead(const rapidjson::Document& json) {
  if (!json.IsObject() || !json.HasMember(SchemaKey) || !json[SchemaKey].IsInt())
    Reject(1, "this is no baseline");
  if (json[SchemaKey].GetInt() != Schema)
    Reject(1, "this is a baseline of schema " + std::to_string(json[SchemaKey].GetInt()) +
                  ", and this program reads schema " + std::to_string(Schema));
  if (!json.HasMember("findings") || !json["findings"].IsArray())
    Reject(1, "the baseline has no findings");
}

}  // namespace

Baseline Baseline::Read(const std::string& text) {
  rapidjson::Document json;
  json.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(text.c_str(),
                                                                                     text.size());
  if (json.HasParseError())
    Reject(LineAt(text, json.GetErrorOffset()),
           std::string("this is no JSON: ") + rapidjson::GetParseError_En(json.GetParseError()));
  CheckHead(json);
  Baseline baseline;
  // A line each, as they are written; of a file that was laid out anew the line is a guess.
  std::size_t line = 1;
  for (const rapidjson::Value& one : json["findings"].GetArray()) {
    ++line;
    Entry entry;
    if (one.IsObject()) entry.fingerprint = TextOf(one, "fingerprint");
    if (entry.fingerprint.empty()) Reject(line, "a finding of the baseline has no fingerprint");
    entry.rule = TextOf(one, "rule");
    entry.file = TextOf(one, "file");
    entry.component = TextOf(one, "component");
    entry.procedure = TextOf(one, "procedure");
    baseline.mPlaces.emplace(entry.fingerprint, baseline.mEntries.size());
    baseline.mEntries.push_back(std::move(entry));
  }
  return baseline;
}

bool Baseline::Knows(const std::string& fingerprint) {
  const auto place = mPlaces.find(fingerprint);
  if (place == mPlaces.end()) return false;
  mEntries[place->second].isSeen = true;
  return true;
}

std::vector<const Baseline::Entry*> Baseline::Gone() const {
  std::vector<const Entry*> gone;
  for (const Entry& entry : mEntries)
    if (!entry.isSeen) gone.push_back(&entry);
  return gone;
}

BaselineWriter::BaselineWriter(TextSink& sink) : mJson(std::make_unique<JsonWriter>(sink)) {}
BaselineWriter::~BaselineWriter() = default;

void BaselineWriter::Begin() {
  mJson->BeginObject();
  mJson->Key(SchemaKey).Number(Schema);
  mJson->Key("findings").BeginArray();
}

void BaselineWriter::Add(const ReviewFinding& finding) {
  mJson->Break();
  mJson->BeginObject();
  mJson->Key("fingerprint").String(finding.fingerprint);
  mJson->Key("rule").String(finding.rule->id);
  mJson->Key("file").String(ShownPath(finding.treeFile));
  mJson->Key("component").String(finding.component);
  mJson->Key("procedure").String(finding.procedure);
  mJson->EndObject();
}

void BaselineWriter::End() {
  mJson->Break();
  mJson->EndArray();
  mJson->EndObject();
  mJson->Finish();
}
