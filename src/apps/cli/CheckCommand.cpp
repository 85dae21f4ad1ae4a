// check: what is wrong with templates and their settings, found in memory, and never saving. Here
// the findings are printed; what finds them is in checks/.
#include <vector>

#include "Commands.h"
#include "Display.h"
#include "ExplainCommand.h"
#include "GroupCheck.h"
#include "JsonWriter.h"
#include "MRules.h"
#include "VisibleText.h"

namespace {

struct Difference {
  Property property;
  std::string from, to;
};

std::vector<Difference> Differences(const Finding::Settings& settings) {
  std::vector<Difference> changes;
  for (Property property : AllProperties) {
    if (property == Property::Trace && !settings.isTraced) continue;
    std::string from = Shown(settings.from, property), to = Shown(settings.to, property);
    if (from != to) changes.push_back({property, std::move(from), std::move(to)});
  }
  return changes;
}

std::string ChangeText(const std::vector<Difference>& changes) {
  std::string text;
  for (const Difference& change : changes) {
    text += (text.empty() ? " " : ", ") + std::string(PropertyName(change.property)) + ' ' +
            (change.from.empty() ? "unset" : change.from) + " -> " +
            (change.to.empty() ? "unset" : change.to);
  }
  return text;
}

/// A word as a shell reads it.
std::string ShellWord(const std::string& word) {
  constexpr const char* Plain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./+,:@%";
  if (!word.empty() && word.find_first_not_of(Plain) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + '\'';
}

/// Prints findings; those of one component come one behind the other.
class Reporter {
 public:
  explicit Reporter(Session& session) : mSession(session), mHandler(session.oHandler) {}
  virtual ~Reporter() = default;
  virtual void Report(const CheckResult& result) = 0;

 protected:
  /// Component and procedure; empty for a project.
  std::string NameOf(const Finding& finding) const {
    if (finding.procedure) return mSession.NameOf(finding.procedure);
    return finding.component ? ToUtf8(mHandler.Component(finding.component).sName) : "";
  }

  Session& mSession;
  CIDEHandler& mHandler;
};

class TextReporter : public Reporter {
 public:
  using Reporter::Reporter;

  void Report(const CheckResult& result) override {
    for (const Finding& finding : result.findings) {
      const std::string file = finding.file->empty() ? "(no file)" : *finding.file;
      mSession.oOutput.Put(VisibleText(Placed(file, finding.line, Message(finding))) + " [" +
                           std::string(RowOf(finding.rule).id) + "]\n");
    }
  }

 private:
  std::string Message(const Finding& finding) {
    std::string name = NameOf(finding);
    if (finding.settings) return name + ':' + ChangesOf(*finding.settings);
    if (name.empty()) return finding.message;
    name += ": ";
    if (finding.rule == CheckRule::WouldRefuse) name += "refused: ";
    if (finding.rule == CheckRule::Unreadable) name += "can't be read: ";
    return name + finding.message;
  }

  /// Most findings say the same as the one before.
  const std::string& ChangesOf(const Finding::Settings& settings) {
    if (!mLast || mLast->isTraced != settings.isTraced || !mLast->from.Equals(settings.from) ||
        !mLast->to.Equals(settings.to)) {
      mLast = settings;
      mChanges = ChangeText(Differences(settings));
    }
    return mChanges;
  }

  std::optional<Finding::Settings> mLast;
  std::string mChanges;
};

class JsonReporter : public Reporter {
 public:
  explicit JsonReporter(Session& session) : Reporter(session), mJson(session.oOutput) {}

  void Report(const CheckResult& result) override {
    mJson.BeginObject();
    mJson.Key("findings").BeginArray();
    for (const Finding& finding : result.findings) One(finding);
    mJson.Break();
    mJson.EndArray();
    mJson.Key("procedures").Number(static_cast<std::int64_t>(result.procedures));
    PassedOverJson(result.passedOver);
    mJson.Key("ignored").BeginObject();
    for (const RuleRow& row : CheckRules())
      if (const auto count = result.ignored[static_cast<std::size_t>(row.rule)])
        mJson.Key(row.id).Number(static_cast<std::int64_t>(count));
    mJson.EndObject();
    mJson.Key("judgedOtherwise").BeginObject();
    for (const auto& [name, count] : result.judgedOtherwise)
      mJson.Key(name).Number(static_cast<std::int64_t>(count));
    mJson.EndObject();
    mJson.EndObject();
    mJson.Finish();
  }

 private:
  static const char* KindOf(CheckRule rule) {
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

  void PassedOverJson(const PassedOver& passed) {
    const auto number = [&](const char* key, std::size_t count) {
      mJson.Key(key).Number(static_cast<std::int64_t>(count));
    };
    mJson.Key("passedOver").BeginObject();
    number("locked", passed.locked);
    number("ownHandling", passed.ownHandling);
    number("inactive", passed.inactive);
    number("readOnlyFiles", passed.readOnlyFiles);
    number("sharedFiles", passed.sharedFiles);
    mJson.EndObject();
  }

  void One(const Finding& finding) {
    const RuleRow& row = RowOf(finding.rule);
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("kind").String(KindOf(finding.rule));
    mJson.Key("rule").String(row.id);
    mJson.Key("severity").String(SeverityName(row.severity));
    mJson.Key("file").StringOrNull(*finding.file);
    ComponentJson(finding);
    if (finding.procedure)
      mJson.Key("procedure").String(ToUtf8(mHandler.ProcName(finding.procedure)));
    if (finding.line > 0) {
      mJson.Key("line").Number(finding.line);
      mJson.Key("endLine").Number(finding.endLine);
    }
    std::string message = finding.message;
    if (finding.settings) {
      const std::vector<Difference> changes = Differences(*finding.settings);
      ChangesJson(changes);
      message = NameOf(finding) + ':' + ChangeText(changes);
    }
    mJson.Key("message").String(message);
    mJson.Key("mend").StringOrNull(MendFor(finding, row.mend));
    mJson.EndObject();
  }

  void ComponentJson(const Finding& finding) {
    std::string project, component;
    if (finding.component) {
      const ComponentRecord& record = mHandler.Component(finding.component);
      project = ToUtf8(mHandler.ProjectName(record.hProject));
      component = ToUtf8(record.sName);
    }
    mJson.Key("project").String(project);
    mJson.Key("component").String(component);
  }

  void ChangesJson(const std::vector<Difference>& changes) {
    mJson.Key("changes").BeginArray();
    for (const Difference& change : changes) {
      mJson.BeginObject();
      mJson.Key("property").String(PropertyName(change.property));
      mJson.Key("from").StringOrNull(change.from);
      mJson.Key("to").StringOrNull(change.to);
      mJson.EndObject();
    }
    mJson.EndArray();
  }

  /// The command line, to be run where this one was; empty for none.
  std::string MendFor(const Finding& finding, Mend mend) const {
    if (mend == Mend::None || !finding.procedure) return {};
    const Arguments& arguments = mSession.oArguments;
    std::string command = "quillon " + std::string(MendCommand(mend));
    const auto add = [&](const char* option, const std::string& value) {
      command.append(" ").append(option).append(" ").append(ShellWord(value));
    };
    if (!arguments.sTemplateFile.empty()) add("-t", arguments.sTemplateFile);
    if (arguments.oSettingsFile) add("--settings", *arguments.oSettingsFile);
    add("--component", ToUtf8(mHandler.Component(finding.component).sName));
    add("--procedure", ToUtf8(mHandler.ProcName(finding.procedure)));
    for (const std::string& path : arguments.asPath) command.append(" ").append(ShellWord(path));
    return command;
  }

  JsonWriter mJson;
};

/// Files that two projects of the scope read differently.
void FindConflicts(Session& session, GroupCheck& check) {
  for (const ConstantConflict& conflict : session.pIDE->ConstantConflicts()) {
    const ComponentHandle component = session.ComponentWith(conflict.file);
    if (!component) continue;
    const Text message = conflict.constant + u" is " + ToText(conflict.value) + u" in " +
                         conflict.project + u", by which the file is read, and " +
                         ToText(conflict.otherValue) + u" in " + conflict.otherProject;
    check.ConflictingConstants(component, conflict.line, ToUtf8(message));
  }
}

CheckResult Find(Session& session, const RuleSelection& rules) {
  GroupCheck check(session.oHandler, session.oTemplate, rules, session);
  for (const DiskIDE::Note& note : session.MissingProjects())
    check.Unreadable(ShownFile(PathOfText(note.sFile)), static_cast<std::int32_t>(note.lLine),
                     ToUtf8(note.sMessage));
  for (const ComponentHandle h : session.Unreadable()) check.Unreadable(h, session.ReasonOf(h));
  for (const ComponentHandle h : session.ReadOnly())
    check.ReadOnly(h, MRules::oRules.bSkipReadOnly);
  for (std::size_t i = 0; i < session.Shared(); ++i) check.Shared();
  FindConflicts(session, check);
  check.Inactive(session.Inactive());
  std::size_t done = 0;
  for (const ProcedureHandle h : session.Procedures()) {
    const ComponentHandle component = session.oHandler.Procedure(h).hComponent;
    session.oConsole.Progress(++done, session.Procedures().size(),
                              session.oHandler.Component(component).sName);
    check.Procedure(h);
  }
  session.oConsole.ProgressEnd();
  return check.Finish();
}

}  // namespace

int CheckCommand(Session& session) {
  const RuleSelection rules(session.oArguments.asSelect, session.oArguments.asIgnore);
  if (!rules.Unknown().empty()) throw Stop{UnknownRule(rules.Unknown())};
  session.OpenGroup(Session::Use::Check);
  session.LoadScope();
  const CheckResult result = Find(session, rules);
  if (session.oArguments.sFormat == "json")
    JsonReporter(session).Report(result);
  else
    TextReporter(session).Report(result);
  for (const std::string& line : TotalLines(result, session.oConsole.IsVerbose()))
    session.oConsole.Say(line);
  // Code that names templates, and a file that knows none of them: it is the wrong file.
  if (result.namesUnknown && !result.namesKnown && rules.Has(CheckRule::UnknownTemplate))
    throw Stop{"The template file knows none of the templates that the code names: " +
               session.TemplateFile() + " (give another one, or --ignore unknown-template)"};
  return result.findings.empty() ? 0 : 1;
}
