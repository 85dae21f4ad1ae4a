// config: what holds for a group, and where each value comes from: an option, quillon.toml, the
// settings file, or the program.
#include "Commands.h"
#include "MXRegistry.h"
#include "RegistryStore.h"
#include "RuleText.h"
#include "Table.h"
#include "VisibleText.h"

namespace {

using Row = std::array<std::string, 3>;

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
  return joined;
}

class Config {
 public:
  explicit Config(Session& session) : mSession(session), mArguments(session.oArguments) {}

  std::vector<Row> Rows() {
    Add("groups", Joined(mSession.Groups()), "PATH");
    Template();
    Settings();
    Add("define", Joined(mArguments.asDefine));
    Add("roots", Joined(mArguments.within));
    Add("--root", Joined(mArguments.roots));
    Add("exclude", Joined(mArguments.excluded));
    Add("check.select", Joined(mArguments.asSelect));
    Add("check.ignore", Joined(mArguments.asIgnore));
    Add("check.baseline", mArguments.baseline.value_or(""));
    for (const MRules::Rule& rule : MRules::Table()) Rule(rule);
    return std::move(mRows);
  }

 private:
  std::string Origin(const std::string& key, const char* otherwise) const {
    const auto origin = mArguments.origins.find(key);
    return origin == mArguments.origins.end() ? otherwise : origin->second;
  }

  void Add(const std::string& key, const std::string& value, const char* otherwise = "option") {
    mRows.push_back({key, value, value.empty() ? "default" : Origin(key, otherwise)});
  }

  void Template() {
    const char* const otherwise = mArguments.sTemplateFile.empty() ? "found" : "option";
    try {
      Add("template", ShownFile(mSession.FindTemplate()), otherwise);
    } catch (const Stop&) {
      mRows.push_back({"template", "", "not found"});
    }
  }

  void Settings() {
    const bool isOption = mArguments.oSettingsFile.has_value();
    mRows.push_back({"settings", ShownPath(goRegistry->Path()), isOption ? "option" : "default"});
  }

  void Rule(const MRules::Rule& rule) {
    const std::string name = ToUtf8(rule.sName);
    const Text key = u"HKEY_CURRENT_USER\\" + Text(MXRegistry::RootKey) + u"Rules";
    const bool isSet = goRegistry->GetLong(key, rule.sName).has_value();
    mRows.push_back({"rules." + name, RuleValue(rule, MRules::oRules),
                     Origin("rules." + name, isSet ? "settings" : "default")});
  }

  Session& mSession;
  const Arguments& mArguments;
  std::vector<Row> mRows;
};

}  // namespace

int ConfigCommand(Session& session) {
  std::vector<Row> rows = Config(session).Rows();
  TextTable table(Row().size());
  for (Row& row : rows) {
    for (std::string& cell : row) cell = VisibleText(cell);
    table.Measure(row);
  }
  for (const Row& row : rows) table.Append(row, session.oOutput.Buffer());
  session.oOutput.FlushWhenLarge();
  return 0;
}
