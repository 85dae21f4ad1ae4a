// check: what apply --suggested would change and what the engine would refuse, found by doing it
// in memory with proof, and never saving.
#include <vector>

#include "Commands.h"
#include "Display.h"
#include "JsonWriter.h"
#include "MQuillon.h"

namespace {

struct Difference {
  Property property;
  std::string from, to;
};

struct ProcedureFinding {
  ProcedureHandle procedure;
  std::int32_t line = 0;
  // The settings ahead of the trial, which changes Current; words are made when they are printed.
  CProcSettings from, to;
  bool isTraced = false;
  std::vector<std::string> refusals{};
};

std::vector<Difference> Differences(const ProcedureFinding& finding) {
  std::vector<Difference> changes;
  for (Property property : AllProperties) {
    if (property == Property::Trace && !finding.isTraced) continue;
    std::string from = Shown(finding.from, property), to = Shown(finding.to, property);
    if (from != to) changes.push_back({property, std::move(from), std::move(to)});
  }
  return changes;
}

/// The procedures that would change, with their lines in the files as these are now.
std::vector<ProcedureFinding> Changes(Session& session) {
  std::vector<ProcedureFinding> findings;
  for (ProcedureHandle h : session.Procedures()) {
    session.oHandler.ApplySuggestedSettings(h);
    if (!session.oHandler.ProcedureIsDirty(h)) continue;
    const ProcedureRecord& record = session.oHandler.Procedure(h);
    // Foreign code is never rewritten, so that nothing would change.
    if (record.oCurrent.bForeign()) continue;
    // A declarations section can't be traced.
    findings.push_back(
        {h, session.HeadLine(h), record.oCurrent, record.oPending, !session.IsDeclarations(h)});
  }
  return findings;
}

/// What keeps lines out of a module's declarations shows only when they are put there.
std::vector<Refusal> TryInModule(Session& session, ProcedureHandle procedure) {
  std::vector<Refusal> refusals;
  const auto refused = session.oHandler.ProcedureRefused.Connect(
      [&](ProcedureHandle, const std::vector<Refusal>& reasons) { refusals = reasons; });
  session.oHandler.ApplyPendingSettings(procedure, false, MQuillon::LineNumAction::AsRule);
  return refusals;
}

/// Tries each change, and drops those that change no code: a value that the template has no line
/// for, or a trace in a declarations section, would be found again after every apply.
void TryChanges(Session& session, std::vector<ProcedureFinding>& findings) {
  std::size_t tried = 0;
  std::erase_if(findings, [&](ProcedureFinding& finding) {
    session.oConsole.Progress(
        ++tried, findings.size(),
        session.oHandler.Component(session.oHandler.Procedure(finding.procedure).hComponent).sName);
    const Rewrite rewrite = session.oHandler.PendingRewrite(finding.procedure, false);
    std::vector<Refusal> refusals = rewrite.refusals;
    if (rewrite.changed && session.IsDeclarations(finding.procedure)) {
      refusals = TryInModule(session, finding.procedure);
    }
    for (const Refusal& refusal : refusals) {
      finding.refusals.push_back(ToUtf8(Trim(MessageOf(refusal))));
    }
    return refusals.empty() && !rewrite.changed;
  });
  session.oConsole.ProgressEnd();
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

class Reporter {
 public:
  explicit Reporter(Session& session) : mSession(session), mJson(session.oOutput) {}

  void Report(const std::vector<ProcedureFinding>& findings) {
    if (mIsJson) {
      mJson.BeginObject();
      mJson.Key("findings").BeginArray();
    }
    for (ComponentHandle h : mSession.Unreadable()) Unreadable(h);
    for (const ProcedureFinding& finding : findings) Procedure(finding);
    if (!mIsJson) return;
    mJson.Break();
    mJson.EndArray();
    mJson.EndObject();
    mJson.Finish();
  }

 private:
  /// Findings come component by component: the path is worked out once for each.
  void SetFile(ComponentHandle component) {
    if (component != mComponent) mFile = mSession.FileOf(component);
    mComponent = component;
  }

  void Procedure(const ProcedureFinding& finding) {
    SetFile(mSession.oHandler.Procedure(finding.procedure).hComponent);
    std::string name = mSession.NameOf(finding.procedure);
    std::vector<Difference> changes = Differences(finding);
    if (!mIsJson) {
      if (!changes.empty()) Line(finding.line, name + ":" + ChangeText(changes));
      for (const std::string& reason : finding.refusals)
        Line(finding.line, name + ": refused: " + reason);
      return;
    }
    if (!changes.empty()) {
      BeginJson("change", finding.procedure, finding.line);
      ChangesJson(changes);
      EndJson(name + ":" + ChangeText(changes));
    }
    for (const std::string& reason : finding.refusals) {
      BeginJson("refused", finding.procedure, finding.line);
      EndJson(reason);
    }
  }

  void Unreadable(ComponentHandle component) {
    const ComponentRecord& record = mSession.oHandler.Component(component);
    SetFile(component);
    std::string reason = mSession.ReasonOf(component);
    if (!mIsJson) return Line(0, ToUtf8(record.sName) + ": can't be read: " + reason);
    BeginObject("unreadable", component);
    EndJson(reason);
  }

  void Line(std::int32_t line, const std::string& message) {
    mSession.oOutput.Put(Printable(Finding(mFile.empty() ? "(no file)" : mFile, line, message)) +
                         '\n');
  }

  void BeginObject(const char* kind, ComponentHandle component) {
    const ComponentRecord& record = mSession.oHandler.Component(component);
    mJson.Break();
    mJson.BeginObject();
    mJson.Key("kind").String(kind);
    mJson.Key("file").StringOrNull(mFile);
    mJson.Key("project").String(ToUtf8(mSession.oHandler.ProjectName(record.hProject)));
    mJson.Key("component").String(ToUtf8(record.sName));
  }

  void BeginJson(const char* kind, ProcedureHandle procedure, std::int32_t line) {
    BeginObject(kind, mSession.oHandler.Procedure(procedure).hComponent);
    mJson.Key("procedure").String(ToUtf8(mSession.oHandler.ProcName(procedure)));
    mJson.Key("line").Number(line);
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

  void EndJson(const std::string& message) {
    mJson.Key("message").String(message);
    mJson.EndObject();
  }

  Session& mSession;
  JsonWriter mJson;
  const bool mIsJson = mSession.oArguments.sFormat == "json";
  std::string mFile;
  ComponentHandle mComponent;
};

}  // namespace

int CheckCommand(Session& session) {
  session.OpenGroup();
  session.LoadScope(false);
  std::vector<ProcedureFinding> findings = Changes(session);
  TryChanges(session, findings);
  Reporter(session).Report(findings);
  return findings.empty() && session.IsScopeRead() ? 0 : 1;
}
