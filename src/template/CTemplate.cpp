// Loading, looking up and the account of a batch. The rewriting operations stand in
// CTemplate_Rewrite.cpp.
#include "CTemplate.h"

#include "Guard.h"
#include "MXFile.h"
#include "TemplateLoader.h"

namespace {

// Sparse, in file order: the caller's list shows where in the file a template stands.
void GetTemplatesOfType(const std::vector<TemplateRow>& templates, TemplateType type,
                        TextArray& names) {
  names.assign(templates.size(), Text());
  for (std::size_t i = 1; i < templates.size(); ++i) {
    if (templates[i].eType == type) names[i] = templates[i].sName;
  }
}

}  // namespace

CTemplate::CTemplate(const MRules::Values& rules) : mRules(rules) {}

void CTemplate::LoadTemplateFile(TextView sTemplateFile) {
  Guard({u"CTemplate", u"LoadTemplateFile"}, [&](GuardScope&) {
    TemplateLoader loader(*this, sTemplateFile);
    std::string bytes;
    if (MXFile::FileBinaryRead(sTemplateFile, bytes)) {
      loader.LoadBytes(bytes);
    } else {
      loader.ReportUnread();
    }
  });
}

void CTemplate::LoadTemplateText(TextView file, TextView text) {
  Guard({u"CTemplate", u"LoadTemplateText"},
        [&](GuardScope&) { TemplateLoader(*this, file).LoadText(text); });
}

void CTemplate::GetModuleTemplates(TextArray& names) const {
  GetTemplatesOfType(mSet.templates, TemplateType::Module, names);
}

void CTemplate::GetProcTemplates(TextArray& names) const {
  GetTemplatesOfType(mSet.templates, TemplateType::Procedure, names);
}

std::int32_t CTemplate::LookupTemplate(TextView sTemplate) const {
  const TemplateRow* const row = mSet.Find(sTemplate);
  return row ? static_cast<std::int32_t>(row - mSet.templates.data()) : 0;
}

bool CTemplate::Inherit(TextView sTemplate) const {
  bool inherit = false;
  for (std::size_t i = 1; i < mSet.templates.size(); ++i) {
    if (mSet.templates[i].sName == sTemplate) inherit = mSet.templates[i].bInherit;
  }
  return inherit;
}

void CTemplate::BatchStart() {
  mBatchItems = 0;
  mBatchErrors = 0;
}

void CTemplate::TellBatch(BatchLine line, TextView message) {
  ReportBatch(line, message);
  ReportError(message);
}

void CTemplate::BatchItem(TextView sModuleName, TextView sProcName) {
  Text message = u"Processing ";
  message.reserve(message.size() + sModuleName.size() + 1 + sProcName.size());
  TellBatch(BatchLine::Item, message.append(sModuleName).append(1, u'.').append(sProcName));
  ++mBatchItems;
}

void CTemplate::BatchError() {
  ++mBatchErrors;
}

void CTemplate::BatchNote(TextView message) {
  TellBatch(BatchLine::Problem, u"    " + Text(message));
}

void CTemplate::BatchRefused(std::span<const Refusal> refusals) {
  for (const Refusal& refusal : refusals) BatchNote(MessageOf(refusal));
  BatchError();
}

void CTemplate::BatchSummary() {
  const Text failures = mBatchErrors == 0 ? Text(u"No") : ToText(mBatchErrors);
  TellBatch(BatchLine::Total,
            ToText(mBatchItems) + u" Procedures Processed - " + failures + u" Failures\r\n");
}
