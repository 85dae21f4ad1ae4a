// Loading, looking up and the account of a batch. The rewriting operations stand in
// CTemplate_Rewrite.cpp and CTemplate_Extract.cpp.
#include "CTemplate.h"

#include "Guard.h"
#include "MXFile.h"
#include "TemplateLoader.h"

namespace {

// Sparse, in file order: the caller's list shows where in the file a template stands.
void GetTemplatesOfType(const std::vector<TemplateRow>& atTemplate, TemplateType eType,
                        TextArray& asTemplate) {
  asTemplate.assign(atTemplate.size(), Text());
  for (std::size_t i = 1; i < atTemplate.size(); ++i) {
    if (atTemplate[i].eType == eType) asTemplate[i] = atTemplate[i].sName;
  }
}

}  // namespace

CTemplate::CTemplate(const MRules::Values& oRules) : moRules(oRules), matTemplate(1), matLine(1) {}

void CTemplate::LoadTemplateFile(TextView sTemplateFile) {
  Guard({u"CTemplate", u"LoadTemplateFile"}, [&](GuardScope& oScope) {
    TemplateLoader oLoader(*this, sTemplateFile);
    std::string sBytes;
    if (oScope.Step([&] { MXFile::FileBinaryRead(sTemplateFile, sBytes); })) {
      oLoader.LoadBytes(sBytes);
    } else {
      oLoader.ReportUnread();
    }
  });
}

void CTemplate::LoadTemplateText(TextView sFile, TextView sText) {
  Guard({u"CTemplate", u"LoadTemplateText"},
        [&](GuardScope&) { TemplateLoader(*this, sFile).LoadText(sText); });
}

void CTemplate::GetModuleTemplates(TextArray& asTemplate) const {
  GetTemplatesOfType(matTemplate, TemplateType::Module, asTemplate);
}

void CTemplate::GetProcTemplates(TextArray& asTemplate) const {
  GetTemplatesOfType(matTemplate, TemplateType::Procedure, asTemplate);
}

std::int32_t CTemplate::LookupTemplate(TextView sTemplate) const {
  for (std::size_t i = 1; i < matTemplate.size(); ++i) {
    if (EqualNoCase(matTemplate[i].sName, sTemplate)) return static_cast<std::int32_t>(i);
  }
  return 0;
}

bool CTemplate::Inherit(TextView sTemplate) const {
  bool bInherit = false;
  for (std::size_t i = 1; i < matTemplate.size(); ++i) {
    if (matTemplate[i].sName == sTemplate) bInherit = matTemplate[i].bInherit;
  }
  return bInherit;
}

void CTemplate::BatchStart() {
  mlBatchItems = 0;
  mlBatchErrors = 0;
}

void CTemplate::BatchItem(TextView sModuleName, TextView sProcName) {
  Text sMessage = u"Processing ";
  sMessage.reserve(sMessage.size() + sModuleName.size() + 1 + sProcName.size());
  ReportError(sMessage.append(sModuleName).append(1, u'.').append(sProcName));
  ++mlBatchItems;
}

void CTemplate::BatchError() {
  ++mlBatchErrors;
}

void CTemplate::BatchSummary() {
  const Text sFailures = mlBatchErrors == 0 ? Text(u"No") : ToText(mlBatchErrors);
  ReportError(ToText(mlBatchItems) + u" Procedures Processed - " + sFailures + u" Failures\r\n");
}
