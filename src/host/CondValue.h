// Values and expressions of #If, #ElseIf and #Const.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "CodePage.h"
#include "LexicalScan.h"
#include "Text.h"

/// A number or a text. An unknown name is Empty: 0 beside numbers, "" beside texts.
struct CondValue {
  enum class Kind { Empty, Number, String };
  Kind eKind = Kind::Empty;
  double dNumber = 0;
  Text sText;

  static CondValue Of(double dValue) { return {Kind::Number, dValue, {}}; }
  static CondValue Of(bool bValue) { return Of(bValue ? -1.0 : 0.0); }
  static CondValue Of(std::int32_t lValue) { return Of(static_cast<double>(lValue)); }
  static CondValue Of(Text sValue) { return {Kind::String, 0, std::move(sValue)}; }
  /// As a number; a text by the digits that it begins with.
  double Number() const;
  bool IsTrue() const;
  bool operator==(const CondValue&) const = default;
};

/// Names in lower case.
using CondNames = std::unordered_map<Text, CondValue>;

/// The value of what is left of the statement, up to Then. What can't be read is Empty: the
/// module stays usable, and the compiler will tell.
CondValue EvaluateCondition(LexicalScan& oScan, const CondNames& oNames, const CodePage& oPage);
