#include "TextRequest.h"

#include <rapidjson/error/en.h>

#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "Console.h"
#include "Display.h"
#include "MQuillon.h"

namespace {

using rapidjson::Document;
using rapidjson::Value;

/// Requests are flat; deeper nesting would be checked and written by recursion.
constexpr int MaxDepth = 32;

std::string_view View(const Value& text) {
  return {text.GetString(), text.GetStringLength()};
}

/// Throws unless all texts are well-formed: a lone surrogate gets past the parser as an escape.
void CheckValue(const Value& value, int depth) {
  if (depth > MaxDepth) throw Stop{"The line is nested too deeply"};
  if (value.IsString() && !Utf8::IsWellFormed(View(value)))
    throw Stop{"The line has bytes that aren't UTF-8, or half of a surrogate pair"};
  if (value.IsArray())
    for (const Value& element : value.GetArray()) CheckValue(element, depth + 1);
  if (value.IsObject())
    for (const auto& member : value.GetObject()) {
      CheckValue(member.name, depth);
      CheckValue(member.value, depth + 1);
    }
}

/// Of fields with one name the last one holds, in the place of the first.
void DropRepeatedFields(Document& object) {
  std::unordered_map<std::string_view, Value*> values;
  values.reserve(object.MemberCount());
  std::unordered_set<const Value*> repeated;
  for (auto& field : object.GetObject()) {
    const auto [first, isNew] = values.try_emplace(View(field.name), &field.value);
    if (isNew) continue;
    *first->second = std::move(field.value);
    repeated.insert(&field.value);
  }
  if (repeated.empty()) return;
  Value kept(rapidjson::kObjectType);
  for (auto& field : object.GetObject())
    if (!repeated.contains(&field.value))
      kept.AddMember(field.name, field.value, object.GetAllocator());
  static_cast<Value&>(object).Swap(kept);
}

Document Parse(std::string_view line) {
  if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
  Document object;
  // Iterative: depth costs memory and no stack.
  object.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag>(line.data(),
                                                                                    line.size());
  if (object.HasParseError())
    throw Stop{"The line is no JSON at byte " + std::to_string(object.GetErrorOffset() + 1) + ": " +
               rapidjson::GetParseError_En(object.GetParseError())};
  // The parser takes a NUL for the end.
  if (line.find('\0') != std::string_view::npos) throw Stop{"The line has a NUL in it"};
  CheckValue(object, 0);
  if (!object.IsObject()) throw Stop{"The line is no JSON object"};
  DropRepeatedFields(object);
  return object;
}

/// The field, or null when it is missing.
const Value* Field(const Document& object, const char* name) {
  const auto field = object.FindMember(name);
  return field == object.MemberEnd() || field->value.IsNull() ? nullptr : &field->value;
}

Text TextField(const Document& object, const char* name) {
  const Value* field = Field(object, name);
  if (!field) return {};
  if (!field->IsString()) throw Stop{std::string(name) + " has to be a text"};
  return FromUtf8(View(*field));
}

bool IsNumber(const Value& value, std::int32_t low, std::int32_t high) {
  return value.IsInt() && value.GetInt() >= low && value.GetInt() <= high;
}

std::int32_t NumberField(const Document& object, const char* name, std::int32_t otherwise,
                         std::int32_t low, std::int32_t high) {
  const Value* field = Field(object, name);
  if (!field) return otherwise;
  if (!IsNumber(*field, low, high))
    throw Stop{std::string(name) + " has to be a number from " + std::to_string(low) + " to " +
               std::to_string(high)};
  return field->GetInt();
}

/// true or false, or one of the ids and display names of the property.
bool StateField(const Document& object, const char* name) {
  const Value* field = Field(object, name);
  if (!field) return false;
  if (field->IsBool()) return field->GetBool();
  if (field->IsString()) {
    std::int32_t lId = ValueByName(Property::Locked, View(*field));
    if (lId != 0) return lId == MQuillon::ToNumber(MQuillon::TriState::True);
  } else if (IsNumber(*field, 0, 2)) {
    return field->GetInt() == 2;
  }
  throw Stop{std::string(name) + " has to be true or false"};
}

using NameOfId = TextView (*)(std::int32_t);

template <class Choice, TextView (*nameOf)(Choice)>
TextView NameOf(std::int32_t id) {
  return nameOf(MQuillon::FromNumber<Choice>(id));
}

/// A constant name, a display name or an id of the property.
Text IdField(const Document& object, const char* name, Property property, NameOfId nameOf) {
  const Value* field = Field(object, name);
  if (!field) return {};
  if (IsNumber(*field, 0, 4) && (field->GetInt() == 0 || !nameOf(field->GetInt()).empty()))
    return Text(nameOf(field->GetInt()));
  if (field->IsString()) {
    Text text = FromUtf8(View(*field));
    for (std::int32_t id = 1; !nameOf(id).empty(); ++id)
      if (EqualNoCase(text, nameOf(id))) return Text(nameOf(id));
    if (text.empty()) return {};
    std::int32_t id = ValueByName(property, View(*field));
    if (id != 0) return Text(nameOf(id));
  }
  std::vector<std::string> allowed;
  for (std::int32_t id = 1; !nameOf(id).empty(); ++id) allowed.push_back(ToUtf8(nameOf(id)));
  throw Stop{std::string(name) + " has to be empty or " + Alternatives(allowed)};
}

}  // namespace

TextRequest ReadTextRequest(std::string_view line) {
  TextRequest oRequest;
  oRequest.oObject = Parse(line);
  const Document& oObject = oRequest.oObject;
  if (!Field(oObject, "before")) throw Stop{"before is missing: the text to work on"};
  oRequest.sModule = TextField(oObject, "module");
  oRequest.sName = TextField(oObject, "name");
  oRequest.sType = TextField(oObject, "type");
  oRequest.sTemplate = TextField(oObject, "template");
  oRequest.sProject = TextField(oObject, "project");
  oRequest.sFile = TextField(oObject, "file");
  oRequest.sBefore = TextField(oObject, "before");
  oRequest.lBodyLine = NumberField(oObject, "body_line", 1, 1, 1 << 30);
  oRequest.eLineAction = MQuillon::FromNumber<MQuillon::LineNumAction>(NumberField(
      oObject, "line_action", MQuillon::ToNumber(MQuillon::LineNumAction::AsRule), -1, 2));
  oRequest.bLocked = StateField(oObject, "locked");
  oRequest.bTrace = StateField(oObject, "trace");
  oRequest.sBoundary = IdField(oObject, "boundary", Property::Boundary,
                               NameOf<MQuillon::Boundary, MQuillon::BoundaryName>);
  oRequest.sSeverity = IdField(oObject, "severity", Property::Severity,
                               NameOf<MQuillon::Severity, MQuillon::SeverityName>);
  oRequest.sRetry =
      IdField(oObject, "retry", Property::Retry, NameOf<MQuillon::Retry, MQuillon::RetryName>);
  return oRequest;
}

void SetField(Document& object, std::string_view name, Value value) {
  const Value key = JsonText(name, object);
  const auto field = object.FindMember(key);
  if (field == object.MemberEnd())
    object.AddMember(JsonText(name, object), std::move(value), object.GetAllocator());
  else
    field->value = std::move(value);
}

Value JsonText(std::string_view text, Document& object) {
  return Value(text.data(), static_cast<rapidjson::SizeType>(text.size()), object.GetAllocator());
}
