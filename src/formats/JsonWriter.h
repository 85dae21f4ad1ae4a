// JSON results, written as they come, so that a list of any length needs no memory. RapidJSON
// writes the values; its writers differ in the blanks and line ends between them, and so does this
// one: `"key": value`, and a line end where Break asks for it.
#pragma once

// Looks for what has to be escaped sixteen bytes at a time, where the processor can.
#ifdef __SSE2__
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdint>
#include <string_view>

#include "TextSink.h"

class JsonWriter : private rapidjson::Writer<rapidjson::StringBuffer> {
 public:
  explicit JsonWriter(TextSink& sink) : mSink(sink) { Reset(mBuffer); }

  void BeginObject() { Lead(), StartObject(); }
  void BeginArray() { Lead(), StartArray(); }
  void EndObject();
  void EndArray();
  JsonWriter& Key(std::string_view key);
  /// Texts are well-formed UTF-8.
  void String(std::string_view text);
  void StringOrNull(std::string_view text) { text.empty() ? Null() : String(text); }
  void Number(std::int64_t number);
  void Bool(bool value);
  void Null();
  /// A line end ahead of the next element of an array, or of the array's end.
  void Break();
  /// Behind the outermost object: ends the line and hands over what is left.
  void Finish();

 private:
  using Base = rapidjson::Writer<rapidjson::StringBuffer>;
  void Lead();
  void StartObject();
  void StartArray();
  void LineEnd();

  TextSink& mSink;
  rapidjson::StringBuffer mBuffer;
  bool mBreak = false;
};
