// Loading, looking up and the account of a batch. The rewriting operations stand in
// CTemplate_Rewrite.cpp.
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

CTemplate::CTemplate(const MRules::Values& oRules) : moRules(oRules) {}

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
  GetTemplatesOfType(moSet.templates, TemplateType::Module, asTemplate);
}

void CTemplate::GetProcTemplates(TextArray& asTemplate) const {
  GetTemplatesOfType(moSet.templates, TemplateType::Procedure, asTemplate);
}

std::int32_t CTemplate::LookupTemplate(TextView sTemplate) const {
  const TemplateRow* const row = moSet.Find(sTemplate);
  return row ? static_cast<std::int32_t>(row - moSet.templates.data()) : 0;
}

bool CTemplate::Inherit(TextView sTemplate) const {
  bool bInherit = false;
  for (std::size_t i = 1; i < moSet.templates.size(); ++i) {
    if (moSet.templates[i].sName == sTemplate) bInherit = moSet.templates[i].bInherit;
  }
  return bInherit;
}

void CTemplate::BatchStart() {
  mlBatchItems = 0;
  mlBatchErrors = 0;
}

void CTemplate::TellBatch(BatchLine line, TextView message) {
  ReportBatch(line, message);
  ReportError(message);
}

void CTemplate::BatchItem(TextView sModuleName, TextView sProcName) {
  Text message = u"Processing ";
  message.reserve(message.size() + sModuleName.size() + 1 + sProcName.size());
  TellBatch(BatchLine::Item, message.append(sModuleName).append(1, u'.').append(sProcName));
  ++mlBatchItems;
}

void CTemplate::BatchError() {
  ++mlBatchErrors;
}

void CTemplate::BatchNote(TextView message) {
  TellBatch(BatchLine::Problem, u"    " + Text(message));
}

void CTemplate::BatchRefused(std::span<const Refusal> refusals) {
  for (const Refusal& refusal : refusals) BatchNote(MessageOf(refusal));
  BatchError();
}

void CTemplate::BatchSummary() {
  const Text failures = mlBatchErrors == 0 ? Text(u"No") : ToText(mlBatchErrors);
  TellBatch(BatchLine::Total,
            ToText(mlBatchItems) + u" Procedures Processed - " + failures + u" Failures\r\n");
}
