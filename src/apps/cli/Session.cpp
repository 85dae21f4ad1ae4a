#include "Session.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "CXRecent.h"
#include "Failure.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "MXString.h"
#include "PathText.h"
#include "ProjectFile.h"
#include "ReadOnlyRule.h"
#include "RememberedRoots.h"
#include "TemplateReport.h"
#include "UnifiedDiff.h"
#include "WriteRoots.h"

namespace {

namespace fs = std::filesystem;

constexpr TextView DefaultTemplate = u"template.dat";

/// The folder of the first path: where a template that belongs to the project stands.
fs::path GroupFolder(const std::string& path) {
  std::error_code error;
  const fs::path place(path);
  if (fs::is_directory(place, error)) return place;
  return place.has_parent_path() ? place.parent_path() : fs::path(".");
}

std::vector<Text> Names(const TextArray& sparse) {
  std::vector<Text> names;
  for (const Text& name : sparse)
    if (!name.empty()) names.push_back(name);
  return names;
}

/// What the options name and what the user allowed for these groups in the window.
std::vector<std::string> WriteRootsOf(const Arguments& arguments,
                                      const std::vector<std::string>& groups) {
  std::vector<std::string> roots = arguments.roots;
  for (const std::string& root : roots) {
    if (!MXFile::PathExists(TextOfPath(root)))
      throw Stop{"There is no folder " + ShownPath(root) + ": --root names one that is there"};
  }
  for (const std::string& group : groups)
    for (std::string& folder : RememberedRoots(group).Allowed()) roots.push_back(std::move(folder));
  return roots;
}

std::vector<CondConstant> ConstantsOf(const std::vector<std::string>& defined) {
  std::vector<CondConstant> constants;
  for (const std::string& one : defined) {
    auto constant = ConstantOf(FromUtf8(one));
    const bool isName = constant && MXString::IsAlphaNumeric(constant->sName, u"_") &&
                        !(constant->sName.front() >= u'0' && constant->sName.front() <= u'9');
    if (!isName)
      throw Stop{"--define takes NAME=VALUE, the value a whole number, True or False: " + one};
    constants.push_back(std::move(*constant));
  }
  return constants;
}

AllowedRules RulesAllowedBy(const std::vector<std::string>& ids) {
  AllowedRules allowed;
  for (const std::string& id : ids) {
    if (allowed.Allow(FromUtf8(id))) continue;
    Text known;
    for (const MeaningRule& rule : MeaningRules()) {
      if (rule.isNote || known.find(rule.id) != Text::npos) continue;
      known.append(known.empty() ? u"" : u", ").append(rule.id);
    }
    throw Stop{"--allow knows no rule " + id + ": " + ToUtf8(known)};
  }
  return allowed;
}

Text FirstFile(const ComponentRecord& record) {
  const VBComponent& o = *record.oComponent;
  return o.FileCount() > 0 ? o.FileNames(1) : Text();
}

}  // namespace

std::string TemplateBeside(const std::string& path) {
  std::vector<std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(GroupFolder(path), error), end; !error && entry != end;
       entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (EqualNoCase(FromUtf8(name), DefaultTemplate))
      found.push_back(entry->path().generic_string());
  }
  return found.empty() ? std::string() : *std::min_element(found.begin(), found.end());
}

std::string FolderOfPath(const std::string& path) {
  const std::string real = RealPath(path);
  std::error_code error;
  return fs::is_directory(real, error) ? real : fs::path(real).parent_path().string();
}

std::string ShownFile(const std::string& path) {
  return ShownPath(RelativePath(path));
}

std::string Placed(const std::string& file, std::int64_t line, const std::string& message) {
  return file + (line > 0 ? ':' + std::to_string(line) : "") + ": " + message;
}

Session::Session(const Arguments& arguments, Console& console, Output& output)
    : oArguments(arguments),
      oConsole(console),
      oOutput(output),
      oTemplate(MRules::oRules),
      mScope(arguments) {}

bool Session::IsColored() const {
  if (oArguments.sColor != "auto") return oArguments.sColor == "always";
  const char* noColor = std::getenv("NO_COLOR");
  return Output::IsTerminal() && !(noColor && *noColor);
}

const std::vector<std::string>& Session::Groups() {
  if (!mPaths) mPaths = Resolved(oArguments);
  return mPaths->groups;
}

std::string Session::TemplateOrNone() {
  if (!oArguments.sTemplateFile.empty()) return oArguments.sTemplateFile;
  // The group's own file comes first: what a person opened last must not decide about its code.
  for (const auto* paths : {&oArguments.asPath, &Groups()}) {
    if (paths->empty()) break;
    if (std::string beside = TemplateBeside(paths->front()); !beside.empty()) return beside;
  }
  Text recent = RecentFiles().Item(1);
  if (!recent.empty() && MXFile::FileExists(recent)) return PathOfText(recent);
  return {};
}

std::string Session::FindTemplate() {
  std::string found = TemplateOrNone();
  if (!found.empty()) return found;
  throw Stop{
      "There is no template file: give one with --template FILE" +
      std::string(oArguments.asPath.empty() ? "" : ", or put Template.dat beside the group")};
}

void Session::OpenAnyTemplate() {
  if (!TemplateOrNone().empty()) return OpenTemplate();
  mTemplateFile = "(none)";
  TakeTemplateNames();
}

void Session::OpenTemplate() {
  mTemplateFile = FindTemplate();
  if (oArguments.sTemplateFile.empty()) oConsole.Say("Template file: " + ShownFile(mTemplateFile));
  const std::vector<std::string> report = LoadTemplateReported(oTemplate, mTemplateFile);
  bool hasErrors = oTemplate.LoadErrors() != 0;
  for (const std::string& line : report) hasErrors ? oConsole.Error(line) : oConsole.Detail(line);
  if (hasErrors) throw Stop{"The template file has errors, nothing was changed: " + TemplateFile()};
  TakeTemplateNames();
}

void Session::TakeTemplateNames() {
  TextArray moduleTemplates, procedureTemplates;
  oTemplate.GetModuleTemplates(moduleTemplates);
  oTemplate.GetProcTemplates(procedureTemplates);
  mModuleTemplates = Names(moduleTemplates);
  mProcedureTemplates = Names(procedureTemplates);
  MQuillon::LoadLookups(moduleTemplates, procedureTemplates);
  MRules::GetDefaultTemplates();
}

void Session::BeginRun() {
  const bool writes = mUse == Use::Rewrite && !oArguments.bDryRun;
  if (writes) mRun.emplace(Groups(), oArguments.sCommandLine, oArguments.WaitSeconds());
  const auto messages = writes ? mRun->Messages() : TellKilledRuns(Groups());
  for (const std::string& message : messages) oConsole.Error("quillon: " + message);
}

void Session::OpenGroup(Use use) {
  mUse = use;
  if (mTemplateFile.empty()) OpenTemplate();
  BeginRun();
  DiskIDE::Options options;
  options.sCodePage = oArguments.sCodePage;
  options.within = oArguments.within;
  options.roots = WriteRootsOf(oArguments, Groups());
  options.constants = ConstantsOf(oArguments.asDefine);
  options.isInScope = [this](TextView project) { return mScope.TakesProject(project); };
  pIDE = DiskIDE::Open(Groups(), options);
  mFiles = FileScope(oArguments, mPaths->sources, FolderOfPath(oArguments.asPath.front()));
  TellNotes();
  if (pIDE->Root().VBProjects().Count() == 0)
    throw Stop{"There is no project to read in " + ShownPath(oArguments.asPath.front()) +
               ": give a .vbg or .vbp file, or a folder that holds one"};
  oHandler.LoadProjects(pIDE->Root());
  oHandler.oTemplate = &oTemplate;
  oHandler.bProve = !oArguments.bNoVerify;
  oHandler.allowed = RulesAllowedBy(oArguments.allowed);
}

void Session::TellNotes() {
  // The name of a project that can't be read isn't known. It counts as missing only if the scope
  // takes projects of any name; otherwise it may be one that the scope leaves out.
  const bool anyProject = mScope.TakesProject(u"");
  for (const DiskIDE::Note& note : pIDE->Notes()) {
    const bool isMissing = note.bUnreadable && anyProject;
    if (isMissing) mMissingProjects.push_back(note);
    if (isMissing && mUse == Use::Check) continue;
    oConsole.Error(Placed(ShownFile(PathOfText(note.sFile)), static_cast<std::int64_t>(note.lLine),
                          ToUtf8(note.sMessage)));
  }
}

void Session::LoadScope() {
  const ComponentHandle last = oHandler.LastComponent();
  ProjectHandle project;
  Text projectName;
  for (const ComponentHandle h : oHandler.Components()) {
    const ComponentRecord& record = oHandler.Component(h);
    if (record.hProject != project) {
      project = record.hProject;
      projectName = oHandler.ProjectName(project);
    }
    if (!mScope.TakesComponent(projectName, record.sName)) continue;
    if (!mFiles.IsWhole() && !mFiles.Takes(PathOfText(FirstFile(record)))) continue;
    oConsole.Progress(static_cast<std::size_t>(h.Number()), static_cast<std::size_t>(last.Number()),
                      record.sName);
    if (record.bReadOnly && record.readOnlyReason.empty()) mReadOnly.push_back(h);
    if (mUse == Use::Show && !record.bLoadError && !record.readOnlyReason.empty())
      oConsole.Say(ToUtf8(record.sName + u" is read-only: " + record.readOnlyReason));
    const Text file = FirstFile(record);
    if (mUse != Use::Show && IsPassed(record, file)) continue;
    if (!record.bLoadError) oHandler.LoadComponent(h);
    if (oHandler.Component(h).bLoadError) {
      TellUnreadable(h);
    } else {
      TakeProcedures(h);
      if (!file.empty()) mTaken.emplace(file, h);
    }
  }
  oConsole.ProgressEnd();
  if (!mProcedures.empty() || !mUnreadable.empty()) return;
  if (mUse != Use::Show && (!mReadOnly.empty() || mShared > 0)) return;
  if (mFiles.ComesFromChanges())
    return oConsole.Say("None of the files that changed or are listed belongs to the scope.");
  constexpr const char* Nothing = "No procedure is in the scope that was given";
  if (mUse != Use::Show)
    throw Stop{std::string(Nothing) + ": list shows the names and types that there are"};
  oConsole.Say(std::string(Nothing) + '.');
}

bool Session::IsPassed(const ComponentRecord& record, const Text& file) {
  if (IsPassedOver(record)) {
    oConsole.Detail("Passed over, its file is read-only: " + ToUtf8(record.sName));
    return true;
  }
  // Projects of different types may suggest different values for one file: the first one decides,
  // or each run would change it back and forth.
  if (!mTaken.contains(file)) return false;
  ++mShared;
  oConsole.Detail("Passed over, an earlier project has its file: " +
                  ToUtf8(oHandler.ProjectName(record.hProject)) + '.' + ToUtf8(record.sName));
  return true;
}

ComponentHandle Session::ComponentWith(const Text& file) const {
  const auto found = mTaken.find(file);
  return found == mTaken.end() ? ComponentHandle() : found->second;
}

void Session::TellUnreadable(ComponentHandle component) {
  mUnreadable.push_back(component);
  const ComponentRecord& record = oHandler.Component(component);
  const Text path = FirstFile(record);
  const bool isTold = !path.empty() && !mToldUnreadable.insert(path).second;
  if (isTold || mUse == Use::Check) return;
  std::string file = FileOf(component);
  oConsole.Error((file.empty() ? std::string() : file + ": ") + ToUtf8(record.sName) +
                 " can't be read: " + ReasonOf(component));
}

// The code of a form can be had while its controls can't, and then nothing describes the failure.
std::string Session::ReasonOf(ComponentHandle component) const {
  const LoadError& error = oHandler.Component(component).oError;
  if (!error.sErrorDesc.empty()) return ToUtf8(error.sErrorDesc);
  return "its controls can't be listed, so the file may lack its designer header (" +
         ToUtf8(error.sErrorContext) + ")";
}

void Session::TakeProcedures(ComponentHandle component) {
  const ComponentRecord& record = oHandler.Component(component);
  if (mUse == Use::Check)
    mInactive += static_cast<std::size_t>(pIDE->HiddenProcedures(*record.oComponent->CodeModule()));
  for (const auto h : HandleRange(record.lFirstProcedure, record.lLastProcedure))
    if (mScope.IsWholeGroup() ||
        mScope.TakesProcedure(oHandler.ProcName(h), IsDeclarations(h)
                                                        ? TextView(u"declarations")
                                                        : oHandler.Procedure(h).sProcType))
      mProcedures.push_back(h);
}

bool Session::IsDeclarations(ProcedureHandle procedure) const {
  return oHandler.Procedure(procedure).nKind == MQuillon::ProcKind::Declarations;
}

std::string Session::FileOf(ComponentHandle component) {
  const Text file = FirstFile(oHandler.Component(component));
  return file.empty() ? std::string() : ShownFile(PathOfText(file));
}

std::string Session::NameOf(ProcedureHandle procedure) {
  ComponentHandle component = oHandler.Procedure(procedure).hComponent;
  return ToUtf8(oHandler.Component(component).sName) + '.' + ToUtf8(oHandler.ProcName(procedure));
}

std::int32_t Session::LineOf(ProcedureHandle procedure, std::size_t textLine) {
  if (textLine == 0) return HeadLine(procedure);
  return FirstLine(procedure) + static_cast<std::int32_t>(textLine) - 1;
}

std::int32_t Session::FileLine(ProcedureHandle procedure, bool isHead) {
  const ProcedureRecord& record = oHandler.Procedure(procedure);
  CodeModule& code = *oHandler.Component(record.hComponent).oComponent->CodeModule();
  std::int32_t line = 1;
  if (!IsDeclarations(procedure)) {
    Text name = record.oMember->Name();
    line = isHead ? code.ProcBodyLine(name, record.nKind) : code.ProcStartLine(name, record.nKind);
  }
  return pIDE->FileLine(code, line);
}
