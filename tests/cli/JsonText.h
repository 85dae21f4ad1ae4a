// JSON that the program printed: parsed, and written again in its order without blanks.
#pragma once

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>

inline rapidjson::Document ParseJson(const std::string& text) {
  rapidjson::Document json;
  json.Parse<rapidjson::kParseValidateEncodingFlag>(text.c_str());
  EXPECT_FALSE(json.HasParseError()) << text;
  return json;
}

inline std::string JsonText(const rapidjson::Value& json) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  json.Accept(writer);
  return buffer.GetString();
}

/// Expects the fields of the JSON text with their values; the object may have others.
inline void ExpectFields(const rapidjson::Value& object, const std::string& fields) {
  const auto wanted = ParseJson(fields);
  for (const auto& field : wanted.GetObject()) {
    const bool has = object.HasMember(field.name);
    EXPECT_EQ(has ? JsonText(object[field.name]) : "none", JsonText(field.value))
        << field.name.GetString();
  }
}
