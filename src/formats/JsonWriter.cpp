#include "JsonWriter.h"

namespace {

rapidjson::SizeType SizeOf(std::string_view text) {
  return static_cast<rapidjson::SizeType>(text.size());
}

}  // namespace

/// What stands ahead of a value or a key, by the place within the array or object around it.
void JsonWriter::Lead() {
  if (!level_stack_.Empty()) {
    Level& level = *level_stack_.Top<Level>();
    const bool isValueOfKey = !level.inArray && level.valueCount % 2 == 1;
    if (isValueOfKey)
      mBuffer.Put(':'), mBuffer.Put(' ');
    else if (level.valueCount > 0)
      mBuffer.Put(',');
    ++level.valueCount;
  }
  LineEnd();
}

void JsonWriter::LineEnd() {
  if (mBreak) mBuffer.Put('\n');
  mBreak = false;
}

void JsonWriter::StartObject() {
  new (level_stack_.Push<Level>()) Level(false);
  WriteStartObject();
}

void JsonWriter::StartArray() {
  new (level_stack_.Push<Level>()) Level(true);
  WriteStartArray();
}

void JsonWriter::EndObject() {
  LineEnd();
  level_stack_.Pop<Level>(1);
  WriteEndObject();
}

void JsonWriter::EndArray() {
  LineEnd();
  level_stack_.Pop<Level>(1);
  WriteEndArray();
}

JsonWriter& JsonWriter::Key(std::string_view key) {
  String(key);
  return *this;
}

void JsonWriter::String(std::string_view text) {
  Lead();
  WriteString(text.data(), SizeOf(text));
}

void JsonWriter::Number(std::int64_t number) {
  Lead();
  WriteInt64(number);
}

void JsonWriter::Bool(bool value) {
  Lead();
  WriteBool(value);
}

void JsonWriter::Null() {
  Lead();
  WriteNull();
}

void JsonWriter::Break() {
  constexpr std::size_t Large = 1 << 16;
  if (mBuffer.GetSize() >= Large) {
    mSink.Put({mBuffer.GetString(), mBuffer.GetSize()});
    mBuffer.Clear();
  }
  mBreak = true;
}

void JsonWriter::Finish() {
  mBuffer.Put('\n');
  mSink.Put({mBuffer.GetString(), mBuffer.GetSize()});
  mBuffer.Clear();
}
