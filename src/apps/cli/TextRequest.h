// One request of the command text, as a line of JSON: a procedure's text and what to do with it.
// Texts have CR LF between their lines. Every field but "before" may be missing.
#pragma once

#include <rapidjson/document.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "Choices.h"
#include "Text.h"

struct TextRequest {
  /// The object as it came: it goes out again with its other fields and in its order.
  rapidjson::Document oObject;
  Text sModule, sName, sType, sTemplate, sProject, sFile;
  std::int32_t lBodyLine = 1;
  bool bLocked = false, bTrace = false;
  Text sBoundary, sSeverity, sRetry;  ///< constant names; empty: not stated
  MQuillon::LineNumAction eLineAction = MQuillon::LineNumAction::AsRule;
  Text sBefore;
};

/// Throws a Stop that says what is wrong with the line.
TextRequest ReadTextRequest(std::string_view line);

/// Sets a field of the object, in its place where there is one, else behind the others.
void SetField(rapidjson::Document& object, std::string_view name, rapidjson::Value value);
/// A text as a value of that object.
rapidjson::Value JsonText(std::string_view text, rapidjson::Document& object);
