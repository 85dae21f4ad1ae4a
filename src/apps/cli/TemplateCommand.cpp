// template check, dump and list: a template file without any project. What learn does is in
// SurveyCommand.cpp.
#include "Commands.h"
#include "PathText.h"
#include "SurveyCommand.h"
#include "TemplateCheck.h"
#include "TemplateReport.h"
#include "VisibleText.h"

namespace {

int Check(Session& oSession, const std::vector<std::string>& asReport) {
  for (const std::string& sLine : asReport) oSession.oOutput.Put(VisibleLines(sLine) + '\n');
  if (oSession.oTemplate.LoadErrors() != 0) return 2;
  std::vector<TemplateFinding> oFindings = CheckTemplate(oSession.oTemplate);
  for (const TemplateFinding& oFinding : oFindings)
    oSession.oOutput.Put(VisibleText(Placed(ShownPath(oSession.oArguments.asPath.front()),
                                            oFinding.line, ToUtf8(oFinding.message))) +
                         '\n');
  return oFindings.empty() ? 0 : 1;
}

void Dump(Session& oSession) {
  auto oLink = oSession.oTemplate.ReportDump.Connect(
      [&](TextView sLine) { oSession.oOutput.Put(VisibleLines(ToUtf8(sLine)) + '\n'); });
  oSession.oTemplate.PrintTemplateFile();
}

const char* TypeName(TemplateType eType) {
  switch (eType) {
    case TemplateType::Signature:
      return "signature";
    case TemplateType::Module:
      return "module";
    case TemplateType::Procedure:
      return "procedure";
    default:
      return "unknown";
  }
}

void List(Session& oSession) {
  const std::vector<TemplateRow>& oRows = oSession.oTemplate.Templates();
  for (std::size_t i = 1; i < oRows.size(); ++i)
    oSession.oOutput.Put(VisibleText(ToUtf8(oRows[i].sName)) + '\t' + TypeName(oRows[i].eType) +
                         '\n');
}

}  // namespace

int TemplateCommand(Session& oSession) {
  if (oSession.oArguments.sAction == "learn") return LearnTemplateCommand(oSession);
  std::vector<std::string> asReport =
      LoadTemplateReported(oSession.oTemplate, oSession.oArguments.asPath.front());
  const std::string& sAction = oSession.oArguments.sAction;
  if (sAction == "check") return Check(oSession, asReport);
  bool bErrors = oSession.oTemplate.LoadErrors() != 0;
  for (const std::string& sLine : asReport)
    bErrors ? oSession.oConsole.Error(sLine) : oSession.oConsole.Detail(sLine);
  // What was read of a damaged file helps to find the damage; it is no list to work with.
  if (sAction == "dump")
    Dump(oSession);
  else if (!bErrors)
    List(oSession);
  return bErrors ? 2 : 0;
}
