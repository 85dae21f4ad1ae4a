#include "RuleText.h"

#include <charconv>
#include <optional>

#include "Console.h"
#include "Display.h"
#include "NearWord.h"

namespace {

const MRules::Rule& RuleByName(const std::string& sName) {
  std::vector<std::string> asName;
  for (const MRules::Rule& oRule : MRules::Table()) {
    asName.push_back(ToUtf8(oRule.sName));
    if (SameWord(asName.back(), sName)) return oRule;
  }
  throw Stop{"There is no rule " + sName + DidYouMean(sName, asName) + ": the rules are " +
             Alternatives(asName)};
}

std::string Allowed(const MRules::Rule& oRule) {
  if (oRule.bBoolean) return "-1 (true) or 0 (false)";
  return std::to_string(oRule.lLow) + " to " + std::to_string(oRule.lHigh);
}

std::optional<std::int32_t> Number(const std::string& sText) {
  std::int32_t lNumber = 0;
  auto oResult = std::from_chars(sText.data(), sText.data() + sText.size(), lNumber);
  if (oResult.ec != std::errc() || oResult.ptr != sText.data() + sText.size()) return std::nullopt;
  return lNumber;
}

/// A boolean is also taken as true or false, and 1 counts as true.
std::optional<std::int32_t> Value(const MRules::Rule& oRule, const std::string& sText) {
  if (oRule.bBoolean && SameWord(sText, "true")) return -1;
  if (oRule.bBoolean && SameWord(sText, "false")) return 0;
  std::optional<std::int32_t> oNumber = Number(sText);
  if (oRule.bBoolean && oNumber == 1) return -1;
  bool bInRange = oNumber && (oRule.bBoolean ? *oNumber == 0 || *oNumber == -1
                                             : *oNumber >= oRule.lLow && *oNumber <= oRule.lHigh);
  return bInRange ? oNumber : std::nullopt;
}

}  // namespace

void SetRule(const std::string& name, const std::string& value, MRules::Values& rules) {
  const MRules::Rule& rule = RuleByName(name);
  const std::optional<std::int32_t> number = Value(rule, value);
  if (!number) throw Stop{ToUtf8(rule.sName) + " can't be " + value + ": it is " + Allowed(rule)};
  rule.Set(rules, *number);
}

std::string RuleValue(const MRules::Rule& rule, const MRules::Values& rules) {
  const std::int32_t value = rule.Get(rules);
  return std::to_string(!rule.bBoolean || value == 0 ? value : -1);
}
