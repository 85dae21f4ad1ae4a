#include "Session.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <unordered_set>

#include "CXRecent.h"
#include "Failure.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "PathText.h"
#include "UnifiedDiff.h"

namespace {

namespace fs = std::filesystem;

constexpr TextView DefaultTemplate = u"template.dat";

/// The folder of the first path: where a template that belongs to the project stands.
fs::path GroupFolder(const std::string& sPath) {
  std::error_code oError;
  fs::path oPath(sPath);
  if (fs::is_directory(oPath, oError)) return oPath;
  return oPath.has_parent_path() ? oPath.parent_path() : fs::path(".");
}

/// Template.dat of that folder in any letter case; the first by name when there are several.
std::string TemplateBeside(const std::string& sPath) {
  std::vector<std::string> asFound;
  std::error_code oError;
  for (fs::directory_iterator oEntry(GroupFolder(sPath), oError), oEnd; !oError && oEntry != oEnd;
       oEntry.increment(oError)) {
    std::string sName = oEntry->path().filename().string();
    if (EqualNoCase(FromUtf8(sName), DefaultTemplate)) asFound.push_back(oEntry->path().string());
  }
  return asFound.empty() ? std::string() : *std::min_element(asFound.begin(), asFound.end());
}

std::vector<Text> Names(const TextArray& asSparse) {
  std::vector<Text> asName;
  for (const Text& sName : asSparse)
    if (!sName.empty()) asName.push_back(sName);
  return asName;
}

Text FirstFile(const ComponentRecord& oComponent) {
  const VBComponent& o = *oComponent.oComponent;
  return o.FileCount() > 0 ? o.FileNames(1) : Text();
}

}  // namespace

std::string ShownFile(const std::string& path) {
  return ShownPath(RelativePath(path));
}

std::string Finding(const std::string& sFile, std::int64_t lLine, const std::string& sMessage) {
  return sFile + (lLine > 0 ? ':' + std::to_string(lLine) : "") + ": " + sMessage;
}

Session::Session(const Arguments& oArgs, Console& oMessages, Output& oResults)
    : oArguments(oArgs),
      oConsole(oMessages),
      oOutput(oResults),
      oTemplate(MRules::oRules),
      moScope(oArgs) {}

bool Session::IsColored() const {
  if (oArguments.sColor != "auto") return oArguments.sColor == "always";
  const char* sNoColor = std::getenv("NO_COLOR");
  return Output::IsTerminal() && !(sNoColor && *sNoColor);
}

std::string Session::FindTemplate() const {
  if (!oArguments.sTemplateFile.empty()) return oArguments.sTemplateFile;
  Text sRecent = RecentFiles().Item(1);
  if (!sRecent.empty() && MXFile::FileExists(sRecent)) return PathOfText(sRecent);
  std::string sBeside =
      oArguments.asPath.empty() ? std::string() : TemplateBeside(oArguments.asPath.front());
  if (!sBeside.empty()) return sBeside;
  throw Stop{
      "There is no template file: give one with --template FILE" +
      std::string(oArguments.asPath.empty() ? "" : ", or put Template.dat beside the group")};
}

void Session::OpenTemplate() {
  msTemplateFile = FindTemplate();
  std::vector<std::string> asReport;
  {
    auto oLink = oTemplate.ReportError.Connect(
        [&](TextView sMessage) { asReport.push_back(ToUtf8(sMessage)); });
    oTemplate.LoadTemplateFile(TextOfPath(msTemplateFile));
  }
  bool bErrors = oTemplate.LoadErrors() != 0;
  for (const std::string& sLine : asReport)
    bErrors ? oConsole.Error(sLine) : oConsole.Detail(sLine);
  if (bErrors) throw Stop{"The template file has errors, nothing was changed: " + TemplateFile()};
  TextArray asModule, asProcedure;
  oTemplate.GetModuleTemplates(asModule);
  oTemplate.GetProcTemplates(asProcedure);
  moModuleTemplates = Names(asModule);
  moProcedureTemplates = Names(asProcedure);
  MQuillon::LoadLookups(asModule, asProcedure);
  MRules::GetDefaultTemplates();
}

void Session::OpenGroup() {
  if (msTemplateFile.empty()) OpenTemplate();
  DiskIDE::Options oOptions;
  oOptions.sCodePage = oArguments.sCodePage;
  pIDE = DiskIDE::Open(oArguments.asPath, oOptions);
  TellNotes();
  if (pIDE->Root().VBProjects().Count() == 0)
    throw Stop{"There is no project to read in " + ShownPath(oArguments.asPath.front()) +
               ": give a .vbg or .vbp file, or a folder that holds one"};
  oHandler.LoadProjects(pIDE->Root());
  oHandler.oTemplate = &oTemplate;
  oHandler.bProve = !oArguments.bNoVerify;
}

void Session::TellNotes() {
  // The name of a project that can't be read isn't known. It counts as missing only if the scope
  // takes projects of any name; otherwise it may be one that the scope leaves out.
  const bool bAnyProject = moScope.TakesProject(u"");
  for (const DiskIDE::Note& oNote : pIDE->Notes()) {
    oConsole.Error(Finding(ShownFile(PathOfText(oNote.sFile)),
                           static_cast<std::int64_t>(oNote.lLine), ToUtf8(oNote.sMessage)));
    mbProjectMissing |= oNote.bUnreadable && bAnyProject;
  }
}

void Session::LoadScope(bool bToShow) {
  const ComponentHandle hLast = oHandler.LastComponent();
  ProjectHandle hProject;
  Text sProject;
  std::unordered_set<Text> oTaken;
  for (const ComponentHandle h : oHandler.Components()) {
    const ComponentRecord& oComponent = oHandler.Component(h);
    if (oComponent.hProject != hProject) {
      hProject = oComponent.hProject;
      sProject = oHandler.ProjectName(hProject);
    }
    if (!moScope.TakesComponent(sProject, oComponent.sName)) continue;
    oConsole.Progress(static_cast<std::size_t>(h.Number()),
                      static_cast<std::size_t>(hLast.Number()), oComponent.sName);
    if (oComponent.bReadOnly && MRules::oRules.bSkipReadOnly && !bToShow) {
      oConsole.Detail("Passed over, its file is read-only: " + ToUtf8(oComponent.sName));
      continue;
    }
    // Projects of different types may suggest different values for one file: the first one decides,
    // or each run would change it back and forth.
    const Text sFile = FirstFile(oComponent);
    if (!bToShow && oTaken.contains(sFile)) {
      oConsole.Detail("Passed over, an earlier project has its file: " + ToUtf8(sProject) + '.' +
                      ToUtf8(oComponent.sName));
      continue;
    }
    if (!oComponent.bLoadError) oHandler.LoadComponent(h);
    if (oHandler.Component(h).bLoadError) {
      TellUnreadable(h);
    } else {
      TakeProcedures(h);
      if (!sFile.empty()) oTaken.insert(sFile);
    }
  }
  oConsole.ProgressEnd();
  if (moProcedures.empty() && moUnreadable.empty())
    oConsole.Say("No procedure is in the scope that was given.");
}

void Session::TellUnreadable(ComponentHandle hComponent) {
  moUnreadable.push_back(hComponent);
  const ComponentRecord& oComponent = oHandler.Component(hComponent);
  std::string sFile = FileOf(hComponent);
  oConsole.Error((sFile.empty() ? std::string() : sFile + ": ") + ToUtf8(oComponent.sName) +
                 " can't be read: " + ReasonOf(hComponent));
}

// The code of a form can be had while its controls can't, and then nothing describes the failure.
std::string Session::ReasonOf(ComponentHandle hComponent) const {
  const LoadError& oError = oHandler.Component(hComponent).oError;
  if (!oError.sErrorDesc.empty()) return ToUtf8(oError.sErrorDesc);
  return "its controls can't be listed, so the file may lack its designer header (" +
         ToUtf8(oError.sErrorContext) + ")";
}

void Session::TakeProcedures(ComponentHandle hComponent) {
  const ComponentRecord& oComponent = oHandler.Component(hComponent);
  for (const auto h : HandleRange(oComponent.lFirstProcedure, oComponent.lLastProcedure))
    if (moScope.IsWholeGroup() ||
        moScope.TakesProcedure(oHandler.ProcName(h), IsDeclarations(h)
                                                         ? TextView(u"declarations")
                                                         : oHandler.Procedure(h).sProcType))
      moProcedures.push_back(h);
}

bool Session::IsDeclarations(ProcedureHandle hProcedure) const {
  return oHandler.Procedure(hProcedure).nKind == MQuillon::ProcKind::Declarations;
}

std::string Session::FileOf(ComponentHandle hComponent) {
  const Text sFile = FirstFile(oHandler.Component(hComponent));
  return sFile.empty() ? std::string() : ShownFile(PathOfText(sFile));
}

std::string Session::NameOf(ProcedureHandle hProcedure) {
  ComponentHandle hComponent = oHandler.Procedure(hProcedure).hComponent;
  return ToUtf8(oHandler.Component(hComponent).sName) + '.' + ToUtf8(oHandler.ProcName(hProcedure));
}

std::int32_t Session::FileLine(ProcedureHandle hProcedure, bool bHead) {
  const ProcedureRecord& oProcedure = oHandler.Procedure(hProcedure);
  CodeModule& oModule = *oHandler.Component(oProcedure.hComponent).oComponent->CodeModule();
  std::int32_t lLine = 1;
  if (!IsDeclarations(hProcedure)) {
    Text sName = oProcedure.oMember->Name();
    lLine = bHead ? oModule.ProcBodyLine(sName, oProcedure.nKind)
                  : oModule.ProcStartLine(sName, oProcedure.nKind);
  }
  return pIDE->FileLine(oModule, lLine);
}
