// check: what apply --suggested would change and what the engine would refuse, found by doing it
// in memory with proof, and never saving.
#include <vector>

#include "Commands.h"
#include "Display.h"
#include "JsonWriter.h"
#include "MQuillon.h"

namespace {

struct Difference {
  Property eProperty;
  std::string sFrom, sTo;
};

struct ProcedureFinding {
  ProcedureHandle hProcedure;
  std::int32_t lLine = 0;
  // The settings ahead of the trial, which changes Current; words are made when they are printed.
  CProcSettings oFrom, oTo;
  bool bTraced = false;
  std::vector<std::string> asRefusal{};
};

std::vector<Difference> Differences(const ProcedureFinding& oFinding) {
  std::vector<Difference> oChanges;
  for (Property eProperty : AllProperties) {
    if (eProperty == Property::Trace && !oFinding.bTraced) continue;
    std::string sFrom = Shown(oFinding.oFrom, eProperty), sTo = Shown(oFinding.oTo, eProperty);
    if (sFrom != sTo) oChanges.push_back({eProperty, std::move(sFrom), std::move(sTo)});
  }
  return oChanges;
}

/// The procedures that would change, with their lines in the files as these are now.
std::vector<ProcedureFinding> Changes(Session& oSession) {
  std::vector<ProcedureFinding> oFindings;
  for (ProcedureHandle h : oSession.Procedures()) {
    oSession.oHandler.ApplySuggestedSettings(h);
    if (!oSession.oHandler.ProcedureIsDirty(h)) continue;
    const ProcedureRecord& oProcedure = oSession.oHandler.Procedure(h);
    // Foreign code is never rewritten, so that nothing would change.
    if (oProcedure.oCurrent.bForeign()) continue;
    // A declarations section can't be traced.
    oFindings.push_back({h, oSession.HeadLine(h), oProcedure.oCurrent, oProcedure.oPending,
                         !oSession.IsDeclarations(h)});
  }
  return oFindings;
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
        session.oHandler.Component(session.oHandler.Procedure(finding.hProcedure).hComponent)
            .sName);
    const Rewrite rewrite = session.oHandler.PendingRewrite(finding.hProcedure, false);
    std::vector<Refusal> refusals = rewrite.refusals;
    if (rewrite.changed && session.IsDeclarations(finding.hProcedure)) {
      refusals = TryInModule(session, finding.hProcedure);
    }
    for (const Refusal& refusal : refusals) {
      finding.asRefusal.push_back(ToUtf8(Trim(MessageOf(refusal))));
    }
    return refusals.empty() && !rewrite.changed;
  });
  session.oConsole.ProgressEnd();
}

std::string ChangeText(const std::vector<Difference>& oChanges) {
  std::string sText;
  for (const Difference& oChange : oChanges) {
    sText += (sText.empty() ? " " : ", ") + std::string(PropertyName(oChange.eProperty)) + ' ' +
             (oChange.sFrom.empty() ? "unset" : oChange.sFrom) + " -> " +
             (oChange.sTo.empty() ? "unset" : oChange.sTo);
  }
  return sText;
}

class Reporter {
 public:
  explicit Reporter(Session& oSession) : moSession(oSession), moJson(oSession.oOutput) {}

  void Report(const std::vector<ProcedureFinding>& oFindings) {
    if (mbJson) {
      moJson.BeginObject();
      moJson.Key("findings").BeginArray();
    }
    for (ComponentHandle h : moSession.Unreadable()) Unreadable(h);
    for (const ProcedureFinding& oFinding : oFindings) Procedure(oFinding);
    if (!mbJson) return;
    moJson.Break();
    moJson.EndArray();
    moJson.EndObject();
    moJson.Finish();
  }

 private:
  /// Findings come component by component: the path is worked out once for each.
  void SetFile(ComponentHandle component) {
    if (component != mComponent) msFile = moSession.FileOf(component);
    mComponent = component;
  }

  void Procedure(const ProcedureFinding& oFinding) {
    SetFile(moSession.oHandler.Procedure(oFinding.hProcedure).hComponent);
    std::string sName = moSession.NameOf(oFinding.hProcedure);
    std::vector<Difference> oChanges = Differences(oFinding);
    if (!mbJson) {
      if (!oChanges.empty()) Line(oFinding.lLine, sName + ":" + ChangeText(oChanges));
      for (const std::string& sReason : oFinding.asRefusal)
        Line(oFinding.lLine, sName + ": refused: " + sReason);
      return;
    }
    if (!oChanges.empty()) {
      BeginJson("change", oFinding.hProcedure, oFinding.lLine);
      ChangesJson(oChanges);
      EndJson(sName + ":" + ChangeText(oChanges));
    }
    for (const std::string& sReason : oFinding.asRefusal) {
      BeginJson("refused", oFinding.hProcedure, oFinding.lLine);
      EndJson(sReason);
    }
  }

  void Unreadable(ComponentHandle hComponent) {
    const ComponentRecord& oComponent = moSession.oHandler.Component(hComponent);
    SetFile(hComponent);
    std::string sReason = moSession.ReasonOf(hComponent);
    if (!mbJson) return Line(0, ToUtf8(oComponent.sName) + ": can't be read: " + sReason);
    BeginObject("unreadable", hComponent);
    EndJson(sReason);
  }

  void Line(std::int32_t lLine, const std::string& sMessage) {
    moSession.oOutput.Put(
        Printable(Finding(msFile.empty() ? "(no file)" : msFile, lLine, sMessage)) + '\n');
  }

  void BeginObject(const char* sKind, ComponentHandle hComponent) {
    const ComponentRecord& oComponent = moSession.oHandler.Component(hComponent);
    moJson.Break();
    moJson.BeginObject();
    moJson.Key("kind").String(sKind);
    moJson.Key("file").StringOrNull(msFile);
    moJson.Key("project").String(ToUtf8(moSession.oHandler.ProjectName(oComponent.hProject)));
    moJson.Key("component").String(ToUtf8(oComponent.sName));
  }

  void BeginJson(const char* sKind, ProcedureHandle hProcedure, std::int32_t lLine) {
    BeginObject(sKind, moSession.oHandler.Procedure(hProcedure).hComponent);
    moJson.Key("procedure").String(ToUtf8(moSession.oHandler.ProcName(hProcedure)));
    moJson.Key("line").Number(lLine);
  }

  void ChangesJson(const std::vector<Difference>& oChanges) {
    moJson.Key("changes").BeginArray();
    for (const Difference& oChange : oChanges) {
      moJson.BeginObject();
      moJson.Key("property").String(PropertyName(oChange.eProperty));
      moJson.Key("from").StringOrNull(oChange.sFrom);
      moJson.Key("to").StringOrNull(oChange.sTo);
      moJson.EndObject();
    }
    moJson.EndArray();
  }

  void EndJson(const std::string& sMessage) {
    moJson.Key("message").String(sMessage);
    moJson.EndObject();
  }

  Session& moSession;
  JsonWriter moJson;
  const bool mbJson = moSession.oArguments.sFormat == "json";
  std::string msFile;
  ComponentHandle mComponent;
};

}  // namespace

int CheckCommand(Session& oSession) {
  oSession.OpenGroup();
  oSession.LoadScope(false);
  std::vector<ProcedureFinding> oFindings = Changes(oSession);
  TryChanges(oSession, oFindings);
  Reporter(oSession).Report(oFindings);
  return oFindings.empty() && oSession.IsScopeRead() ? 0 : 1;
}
