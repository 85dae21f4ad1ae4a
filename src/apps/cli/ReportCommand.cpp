// report summary and report properties: the two printed reports, as a PDF file or as plain text. A
// document per project, or per component where --component was given; all of them stand one after
// the other in one output, each with its own page numbers.
#include <charconv>
#include <cstdlib>

#include "CodePage.h"
#include "Commands.h"
#include "DocumentFiles.h"
#include "Failure.h"
#include "MXDate.h"
#include "Reports.h"
#include "SeveralDocuments.h"
#include "TextDevice.h"
#include "VisibleText.h"

namespace {

struct Document {
  ProjectHandle hProject;
  ComponentHandle hComponent;  ///< none: the whole project
};

/// Builds that must come out the same each time fix the moment in this variable.
void TakeFixedTime() {
  const char* sFixed = std::getenv("SOURCE_DATE_EPOCH");
  if (!sFixed || !*sFixed) return;
  const std::string_view sNumber(sFixed);
  std::int64_t lTime = 0;
  const auto oResult = std::from_chars(sNumber.data(), sNumber.data() + sNumber.size(), lTime);
  constexpr std::int64_t EndOfYear9999 = 253402300799;
  if (oResult.ec != std::errc() || oResult.ptr != sNumber.data() + sNumber.size() || lTime < 0 ||
      lTime > EndOfYear9999)
    throw Stop{"SOURCE_DATE_EPOCH is " + std::string(sNumber) +
               ": it has to be a number of seconds since 1970"};
  MXDate::fnNow = [lTime] { return lTime; };
}

bool IsSummary(const Session& oSession) {
  return oSession.oArguments.sAction == "summary";
}

std::vector<Document> DocumentsOf(Session& oSession) {
  const Scope oScope(oSession.oArguments);
  const CIDEHandler& oHandler = oSession.oHandler;
  std::vector<Document> oDocuments;
  for (const ProjectHandle hProject : oHandler.Projects()) {
    const Text sProject = oSession.oHandler.ProjectName(hProject);
    if (!oScope.TakesProject(sProject)) continue;
    if (oSession.oArguments.asComponent.empty()) {
      oDocuments.push_back({hProject, {}});
      continue;
    }
    const ProjectRecord& oProject = oHandler.Project(hProject);
    for (const auto h : HandleRange(oProject.lFirstComponent, oProject.lLastComponent))
      if (oScope.TakesComponent(sProject, oHandler.Component(h).sName))
        oDocuments.push_back({hProject, h});
  }
  return oDocuments;
}

/// The summary itself only counts the files that are missing.
void TellMissingFiles(Session& session, ProjectHandle project) {
  const auto rows = session.oHandler.EnumComponentsExProc.Connect([&](const ComponentRow& row) {
    if (row.isMissing)
      session.oConsole.Error(ShownFile(PathOfText(row.sFileName)) + ": missing on disk");
  });
  session.oHandler.EnumComponentsEx(project, 0);
}

void PrintAll(Session& oSession, const std::vector<Document>& oDocuments,
              Paper::IPrintDevice& oDevice) {
  Paper::SeveralDocuments oTogether(
      oDevice, IsSummary(oSession) ? Reports::SummaryName : Reports::SettingsName);
  Paper::Printer oPrinter(oTogether);
  for (const Document& o : oDocuments) {
    if (IsSummary(oSession))
      Reports::PrintProjects(oSession.oHandler, oPrinter, Reports::DefaultModWidths(), o.hProject);
    else
      Reports::PrintSettings(oSession.oHandler, oPrinter, Reports::DefaultProcWidths(), o.hProject,
                             o.hComponent);
  }
  oTogether.Close();
  if (!IsSummary(oSession)) return;
  for (const Document& o : oDocuments) TellMissingFiles(oSession, o.hProject);
}

void PrintToFile(Session& oSession, const std::vector<Document>& oDocuments) {
  const std::string& sPath = oSession.oArguments.sPdfFile;
  std::string sBytes;
  Paper::PdfDevice oDevice([&](const std::string& sMade) { sBytes = sMade; });
  PrintAll(oSession, oDocuments, oDevice);
  try {
    Paper::WriteDocument(sPath, sBytes);
  } catch (const Failure& oFailure) {
    throw Stop{ToUtf8(oFailure.Description()), 1};
  }
  oSession.oConsole.Detail("Written: " + ShownPath(sPath));
}

}  // namespace

int ReportCommand(Session& oSession) {
  TakeFixedTime();
  oSession.OpenGroup(Session::Use::Show);
  const std::vector<Document> oDocuments = DocumentsOf(oSession);
  if (oDocuments.empty())
    throw Stop{"Nothing to report: no project or component of the group fits the scope"};
  if (!IsSummary(oSession)) oSession.LoadScope();
  if (oSession.oArguments.sPdfFile.empty()) {
    Paper::TextDevice oDevice([&](std::string_view sPage) {
      const std::size_t feed = sPage.starts_with('\f') ? 1 : 0;
      oSession.oOutput.Put(sPage.substr(0, feed));
      oSession.oOutput.Put(VisibleLines(sPage.substr(feed)));
    });
    PrintAll(oSession, oDocuments, oDevice);
  } else {
    PrintToFile(oSession, oDocuments);
  }
  return oSession.IsScopeRead() ? 0 : 1;
}
