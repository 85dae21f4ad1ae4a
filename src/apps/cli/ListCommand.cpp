// list: one row per procedure. A group can have a hundred thousand of them, so that rows are made
// twice (for the widths of the columns, then for the output) rather than kept.
#include <functional>

#include "Commands.h"
#include "Display.h"
#include "JsonWriter.h"
#include "MQuillon.h"
#include "Reasons.h"
#include "Table.h"

namespace {

using Row = std::array<std::string, 11>;
constexpr std::size_t FirstProperty = 5;

class Lister {
 public:
  explicit Lister(Session& oSession)
      : moSession(oSession), moHandler(oSession.oHandler), msOut(oSession.oOutput.Buffer()) {}

  void AsTable() {
    TextTable oTable(Row().size());
    Heading(false);
    oTable.Measure(moRow);
    EachRow([&] {
      for (std::string& sCell : moRow) sCell = Printable(std::move(sCell));
      oTable.Measure(moRow);
    });
    Heading(false);
    oTable.Append(moRow, msOut);
    EachRow([&] {
      for (std::string& sCell : moRow) sCell = Printable(std::move(sCell));
      oTable.Append(moRow, msOut);
    });
  }

  void AsCsv() {
    Heading(true);
    AppendCsv(moRow, msOut);
    EachRow([&] { AppendCsv(moRow, msOut); });
  }

  void AsJson() {
    JsonWriter oJson(moSession.oOutput);
    oJson.BeginObject();
    oJson.Key("version").String(QUILLON_VERSION);
    oJson.Key("template").String(moSession.TemplateFile());
    oJson.Key("show").String(Version());
    oJson.Key("projects").BeginArray();
    for (ProjectHandle h : moHandler.Projects()) ProjectJson(h, oJson);
    oJson.EndArray();
    oJson.Key("procedures").BeginArray();
    EachRow([&] { ProcedureJson(oJson); });
    oJson.Break();
    oJson.EndArray();
    oJson.Key("loadFailures").BeginArray();
    for (ComponentHandle h : moSession.Unreadable()) LoadFailureJson(h, oJson);
    oJson.EndArray();
    oJson.EndObject();
    oJson.Finish();
  }

 private:
  const char* Version() const {
    if (moSession.oArguments.bSuggested) return "suggested";
    return moSession.oArguments.bPending ? "pending" : "current";
  }

  const CProcSettings& Settings(const ProcedureRecord& oProcedure) const {
    if (moSession.oArguments.bSuggested) return oProcedure.oSuggest;
    return moSession.oArguments.bPending ? oProcedure.oPending : oProcedure.oCurrent;
  }

  void Heading(bool bLower) {
    moRow = {"Project", "Component", "Procedure", "Type", "Scope"};
    for (Property eProperty : AllProperties)
      moRow[FirstProperty + static_cast<std::size_t>(eProperty)] = PropertyName(eProperty);
    if (!bLower) return;
    for (std::string& sCell : moRow) sCell = ToUtf8(LowerCase(FromUtf8(sCell)));
  }

  template <class Write>
  void EachRow(Write&& fnWrite) {
    mhComponent = {};
    for (ProcedureHandle h : moSession.Procedures()) {
      Fill(h);
      fnWrite();
      moSession.oOutput.FlushWhenLarge();
    }
  }

  void Fill(ProcedureHandle hProcedure) {
    mhProcedure = hProcedure;
    const ProcedureRecord& oProcedure = moHandler.Procedure(hProcedure);
    if (oProcedure.hComponent != mhComponent) {
      mhComponent = oProcedure.hComponent;
      msProject = ToUtf8(moHandler.ProjectName(moHandler.Component(mhComponent).hProject));
      msComponent = ToUtf8(moHandler.Component(mhComponent).sName);
      msFile.clear();
    }
    moRow[0] = msProject;
    moRow[1] = msComponent;
    moRow[2] = ToUtf8(moHandler.ProcName(hProcedure));
    moRow[3] = ToUtf8(oProcedure.sProcType);
    moRow[4] = oProcedure.oMember ? ToUtf8(MQuillon::ScopeTypeName(oProcedure.oMember->Scope()))
                                  : std::string();
    for (Property eProperty : AllProperties)
      moRow[FirstProperty + static_cast<std::size_t>(eProperty)] =
          Shown(Settings(oProcedure), eProperty);
    // A declarations section can't be traced.
    if (!oProcedure.oMember) moRow.back().clear();
  }

  void ProjectJson(ProjectHandle hProject, JsonWriter& oJson) {
    oJson.Break();
    oJson.BeginObject();
    oJson.Key("name").String(ToUtf8(moHandler.ProjectName(hProject)));
    oJson.Key("type").String(
        ToUtf8(MQuillon::VBProjectTypeName(moHandler.Project(hProject).oProject->Type())));
    oJson.Key("file").String(ShownFile(PathOfText(moHandler.ProjectFileName(hProject))));
    oJson.EndObject();
  }

  void ProcedureJson(JsonWriter& oJson) {
    constexpr std::array Keys = {"project", "component", "procedure", "type", "scope"};
    const ProcedureRecord& oProcedure = moHandler.Procedure(mhProcedure);
    const CProcSettings& oSettings = Settings(oProcedure);
    oJson.Break();
    oJson.BeginObject();
    for (std::size_t i = 0; i < Keys.size(); ++i) oJson.Key(Keys[i]).String(moRow[i]);
    oJson.Key("template").StringOrNull(ToUtf8(oSettings.sTemplate()));
    oJson.Key("locked").Bool(oSettings.eLocked() == MQuillon::TriState::True);
    oJson.Key("boundary").StringOrNull(moRow[7]);
    oJson.Key("severity").StringOrNull(moRow[8]);
    oJson.Key("retry").StringOrNull(moRow[9]);
    oJson.Key("trace");
    if (moRow[10].empty())
      oJson.Null();
    else
      oJson.Bool(oSettings.eTrace() == MQuillon::TriState::True);
    PlaceJson(oJson);
    FlagsJson(oProcedure, oSettings, oJson);
    oJson.EndObject();
  }

  void PlaceJson(JsonWriter& oJson) {
    if (msFile.empty()) msFile = moSession.FileOf(mhComponent);
    oJson.Key("file").StringOrNull(msFile);
    // In the order of the file: a place behind the last one is found by going on from there.
    const std::int32_t firstLine = moSession.FirstLine(mhProcedure);
    oJson.Key("line").Number(moSession.HeadLine(mhProcedure));
    oJson.Key("firstLine").Number(firstLine);
  }

  void FlagsJson(const ProcedureRecord& oProcedure, const CProcSettings& oSettings,
                 JsonWriter& oJson) {
    oJson.Key("eventHandler").Bool(oProcedure.bEventHandler);
    oJson.Key("foreign").Bool(oSettings.bForeign());
    oJson.Key("readOnly").Bool(moHandler.Component(mhComponent).bReadOnly);
    oJson.Key("boundaryInherited").Bool(oSettings.BoundaryInherited);
    oJson.Key("severityInherited").Bool(oSettings.SeverityInherited);
    oJson.Key("retryInherited").Bool(oSettings.RetryInherited);
    oJson.Key("notes").BeginObject();
    NotesJson(oProcedure, oJson);
    oJson.EndObject();
  }

  static void NotesJson(const ProcedureRecord& oProcedure, JsonWriter& oJson) {
    const auto note = [&](const char* property, const Suggestions::Reason& reason) {
      const TextView words = Suggestions::Note(reason);
      if (!words.empty()) oJson.Key(property).String(ToUtf8(words));
    };
    const auto suggestion = Suggestions::SuggestionOf(oProcedure.oSuggest);
    note("template", suggestion.templateName.reason);
    note("boundary", suggestion.boundary.reason);
    note("severity", suggestion.severity.reason);
    note("retry", suggestion.retry.reason);
    if (oProcedure.oMember) note("trace", suggestion.trace.reason);
  }

  void LoadFailureJson(ComponentHandle hComponent, JsonWriter& oJson) {
    const ComponentRecord& oComponent = moHandler.Component(hComponent);
    oJson.Break();
    oJson.BeginObject();
    oJson.Key("project").String(ToUtf8(moHandler.ProjectName(oComponent.hProject)));
    oJson.Key("component").String(ToUtf8(oComponent.sName));
    oJson.Key("file").StringOrNull(moSession.FileOf(hComponent));
    oJson.Key("context").String(ToUtf8(oComponent.oError.sErrorContext));
    oJson.Key("number").Number(oComponent.oError.lError);
    oJson.Key("reason").String(moSession.ReasonOf(hComponent));
    oJson.Key("source").String(ToUtf8(oComponent.oError.sErrorSource));
    oJson.EndObject();
  }

  Session& moSession;
  CIDEHandler& moHandler;
  std::string& msOut;
  Row moRow;
  ProcedureHandle mhProcedure;
  ComponentHandle mhComponent;
  std::string msProject, msComponent, msFile;
};

}  // namespace

int ListCommand(Session& oSession) {
  oSession.OpenGroup();
  oSession.LoadScope(true);
  Lister oLister(oSession);
  const std::string& sFormat = oSession.oArguments.sFormat;
  if (sFormat == "json")
    oLister.AsJson();
  else if (sFormat == "csv")
    oLister.AsCsv();
  else
    oLister.AsTable();
  return 0;
}
