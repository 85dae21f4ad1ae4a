// list: one row per procedure. A group can have a hundred thousand of them, so that rows are made
// twice (for the widths of the columns, then for the output) rather than kept.
#include <functional>

#include "Commands.h"
#include "Display.h"
#include "JsonWriter.h"
#include "MQuillon.h"
#include "Reasons.h"
#include "Table.h"
#include "VisibleText.h"

namespace {

using Row = std::array<std::string, 11>;
constexpr std::size_t FirstProperty = 5;

class Lister {
 public:
  explicit Lister(Session& session)
      : mSession(session), mHandler(session.oHandler), mOut(session.oOutput.Buffer()) {}

  void AsTable() {
    TextTable table(Row().size());
    Heading(false);
    table.Measure(mRow);
    EachRow([&] {
      MakeReadable();
      table.Measure(mRow);
    });
    Heading(false);
    table.Append(mRow, mOut);
    EachRow([&] {
      MakeReadable();
      table.Append(mRow, mOut);
    });
  }

  void AsCsv() {
    Heading(true);
    AppendCsv(mRow, mOut);
    const bool isTerminal = Output::IsTerminal();
    EachRow([&] {
      if (isTerminal) MakeVisible();
      AppendCsv(mRow, mOut);
    });
  }

  void AsJson() {
    DataOutput output(mSession.oOutput);
    JsonWriter json(output);
    json.BeginObject();
    json.Key("version").String(QUILLON_VERSION);
    json.Key("template").String(mSession.TemplateFile());
    json.Key("show").String(Version());
    json.Key("projects").BeginArray();
    for (ProjectHandle h : mHandler.Projects()) ProjectJson(h, json);
    json.EndArray();
    json.Key("procedures").BeginArray();
    EachRow([&] { ProcedureJson(json); });
    json.Break();
    json.EndArray();
    json.Key("loadFailures").BeginArray();
    for (ComponentHandle h : mSession.Unreadable()) LoadFailureJson(h, json);
    json.EndArray();
    json.EndObject();
    json.Finish();
  }

 private:
  const char* Version() const {
    if (mSession.oArguments.bSuggested) return "suggested";
    return mSession.oArguments.bPending ? "pending" : "current";
  }

  const CProcSettings& Settings(const ProcedureRecord& record) const {
    if (mSession.oArguments.bSuggested) return record.oSuggest;
    return mSession.oArguments.bPending ? record.oPending : record.oCurrent;
  }

  void Heading(bool lower) {
    mRow = {"Project", "Component", "Procedure", "Type", "Scope"};
    for (Property property : AllProperties)
      mRow[FirstProperty + static_cast<std::size_t>(property)] = PropertyName(property);
    if (!lower) return;
    for (std::string& cell : mRow) cell = ToUtf8(LowerCase(FromUtf8(cell)));
  }

  template <class Write>
  void EachRow(Write&& write) {
    mComponent = {};
    for (ProcedureHandle h : mSession.Procedures()) {
      Fill(h);
      write();
      mSession.oOutput.FlushWhenLarge();
    }
  }

  void Fill(ProcedureHandle procedure) {
    mProcedure = procedure;
    const ProcedureRecord& record = mHandler.Procedure(procedure);
    if (record.hComponent != mComponent) {
      mComponent = record.hComponent;
      mProjectName = ToUtf8(mHandler.ProjectName(mHandler.Component(mComponent).hProject));
      mComponentName = ToUtf8(mHandler.Component(mComponent).sName);
      mFile.clear();
    }
    mRow[0] = mProjectName;
    mRow[1] = mComponentName;
    mRow[2] = ToUtf8(mHandler.ProcName(procedure));
    mRow[3] = ToUtf8(record.sProcType);
    mRow[4] = ToUtf8(MQuillon::ScopeTypeName(ScopeOf(record)));
    for (Property property : AllProperties)
      mRow[FirstProperty + static_cast<std::size_t>(property)] = Shown(Settings(record), property);
    // A declarations section can't be traced.
    if (!record.oMember) mRow.back().clear();
  }

  /// For people: names in visible form, and behind a suggested template what speaks against it.
  void MakeVisible() {
    for (std::string& cell : mRow) cell = VisibleText(cell);
  }

  void MakeReadable() {
    MakeVisible();
    const CProcSettings& suggested = mHandler.Procedure(mProcedure).oSuggest;
    if (!mSession.oArguments.bSuggested || !suggested.bTemplateClearsErr) return;
    const auto reason = Suggestions::SuggestionOf(suggested).templateName.reason;
    mRow[FirstProperty] += " " + ToUtf8(Suggestions::Note(reason));
  }

  void ProjectJson(ProjectHandle project, JsonWriter& json) {
    json.Break();
    json.BeginObject();
    json.Key("name").String(ToUtf8(mHandler.ProjectName(project)));
    json.Key("type").String(
        ToUtf8(MQuillon::VBProjectTypeName(mHandler.Project(project).oProject->Type())));
    json.Key("file").String(ShownFile(PathOfText(mHandler.ProjectFileName(project))));
    json.EndObject();
  }

  void ProcedureJson(JsonWriter& json) {
    constexpr std::array Keys = {"project", "component", "procedure", "type", "scope"};
    const ProcedureRecord& record = mHandler.Procedure(mProcedure);
    const CProcSettings& settings = Settings(record);
    json.Break();
    json.BeginObject();
    for (std::size_t i = 0; i < Keys.size(); ++i) json.Key(Keys[i]).String(mRow[i]);
    json.Key("template").StringOrNull(ToUtf8(settings.sTemplate()));
    json.Key("locked").Bool(settings.eLocked() == MQuillon::TriState::True);
    json.Key("boundary").StringOrNull(mRow[7]);
    json.Key("severity").StringOrNull(mRow[8]);
    json.Key("retry").StringOrNull(mRow[9]);
    json.Key("trace");
    if (mRow[10].empty())
      json.Null();
    else
      json.Bool(settings.eTrace() == MQuillon::TriState::True);
    PlaceJson(json);
    FlagsJson(record, settings, json);
    json.EndObject();
  }

  void PlaceJson(JsonWriter& json) {
    if (mFile.empty()) mFile = mSession.FileOf(mComponent);
    json.Key("file").StringOrNull(mFile);
    // In the order of the file: a place behind the last one is found by going on from there.
    const std::int32_t firstLine = mSession.FirstLine(mProcedure);
    json.Key("line").Number(mSession.HeadLine(mProcedure));
    json.Key("firstLine").Number(firstLine);
  }

  void FlagsJson(const ProcedureRecord& record, const CProcSettings& settings, JsonWriter& json) {
    json.Key("eventHandler").Bool(record.bEventHandler);
    json.Key("foreign").Bool(settings.bForeign());
    const ComponentRecord& component = mHandler.Component(mComponent);
    json.Key("readOnly").Bool(component.bReadOnly);
    json.Key("readOnlyReason").StringOrNull(ToUtf8(component.readOnlyReason));
    json.Key("boundaryInherited").Bool(settings.BoundaryInherited);
    json.Key("severityInherited").Bool(settings.SeverityInherited);
    json.Key("retryInherited").Bool(settings.RetryInherited);
    json.Key("notes").BeginObject();
    NotesJson(record, json);
    json.EndObject();
  }

  static void NotesJson(const ProcedureRecord& record, JsonWriter& json) {
    const auto note = [&](const char* property, const Suggestions::Reason& reason) {
      const TextView words = Suggestions::Note(reason);
      if (!words.empty()) json.Key(property).String(ToUtf8(words));
    };
    const auto suggestion = Suggestions::SuggestionOf(record.oSuggest);
    note("template", suggestion.templateName.reason);
    note("boundary", suggestion.boundary.reason);
    note("severity", suggestion.severity.reason);
    note("retry", suggestion.retry.reason);
    if (record.oMember) note("trace", suggestion.trace.reason);
  }

  void LoadFailureJson(ComponentHandle component, JsonWriter& json) {
    const ComponentRecord& record = mHandler.Component(component);
    json.Break();
    json.BeginObject();
    json.Key("project").String(ToUtf8(mHandler.ProjectName(record.hProject)));
    json.Key("component").String(ToUtf8(record.sName));
    json.Key("file").StringOrNull(mSession.FileOf(component));
    json.Key("context").String(ToUtf8(record.oError.sErrorContext));
    json.Key("number").Number(record.oError.lError);
    json.Key("reason").String(mSession.ReasonOf(component));
    json.Key("source").String(ToUtf8(record.oError.sErrorSource));
    json.EndObject();
  }

  Session& mSession;
  CIDEHandler& mHandler;
  std::string& mOut;
  Row mRow;
  ProcedureHandle mProcedure;
  ComponentHandle mComponent;
  std::string mProjectName, mComponentName, mFile;
};

}  // namespace

int ListCommand(Session& session) {
  session.OpenGroup(Session::Use::Show);
  session.LoadScope();
  Lister lister(session);
  const std::string& format = session.oArguments.sFormat;
  if (format == "json")
    lister.AsJson();
  else if (format == "csv")
    lister.AsCsv();
  else
    lister.AsTable();
  return 0;
}
