#include "RulesDefaultsPage.h"

#include "MQuillon.h"
#include "Put.h"

using namespace Forms;
using namespace RulesPage;

namespace {

/// "(none)" has the number 0, templates have theirs from 1.
bool HasTemplate(const ComboBox& oCombo) {
  return oCombo.ItemData(oCombo.ListIndex()) >= 1;
}

}  // namespace

RulesDefaultsPage::RulesDefaultsPage(ControlContainer& oPage)
    : lblDefaults(oPage, u"lblDefaults"),
      fraModule(oPage, u"fraModule"),
      fraProc(oPage, u"fraProc") {
  cboModTemplate.On(cboModTemplate.Click, [this] { cboModTemplate_Click(); });
  cboProcTemplate.On(cboProcTemplate.Click, [this] { cboProcTemplate_Click(); });
}

void RulesDefaultsPage::Design() {
  constexpr std::int32_t lFirstRow = 300, lRow = 500;
  Put(lblDefaults, u"What Default Values do you want Quillon to suggest for Properties?",
      {120, 30, 5760, 420});
  Put(fraModule, u"Module Defaults", {120, 480, 2790, 2340});
  Place(lblModTemplate, u"&Template", cboModTemplate, lFirstRow);
  Place(lblModSeverity, u"&Severity", cboModSeverity, lFirstRow + lRow);
  Place(lblModRetry, u"&Retry", cboModRetry, lFirstRow + 2 * lRow);
  Put(fraProc, u"Procedure Defaults", {3030, 480, 2790, 2340});
  Place(lblProcTemplate, u"T&emplate", cboProcTemplate, lFirstRow);
  Place(lblSeverity, u"Se&verity", cboSeverity, lFirstRow + lRow);
  Place(lblRetry, u"Retr&y", cboRetry, lFirstRow + 2 * lRow);
  Place(lblTrace, u"Tra&cing", cboTrace, lFirstRow + 3 * lRow);
}

void RulesDefaultsPage::Fill(const MRules::Values& oRules) {
  using namespace MQuillon;
  FillNames(cboModTemplate, oLookupModTemplate.get(), oRules.sDefaultModTemplate);
  FillIds(cboModSeverity, oLookupSeverity.get(), oRules.eModSeverityDefault);
  FillIds(cboModRetry, oLookupRetry.get(), oRules.eModRetryDefault);
  FillNames(cboProcTemplate, oLookupProcTemplate.get(), oRules.sDefaultProcTemplate);
  FillIds(cboSeverity, oLookupSeverity.get(), oRules.eSeverityDefault);
  FillIds(cboRetry, oLookupRetry.get(), oRules.eRetryDefault);
  FillIds(cboTrace, oLookupTrace.get(), oRules.eTraceDefault);
  // If a value isn't in its list, no line was picked and no Click was raised: enable the other
  // boxes here.
  cboModTemplate_Click();
  cboProcTemplate_Click();
}

void RulesDefaultsPage::Read(MRules::Values& oRules) const {
  ReadName(cboModTemplate, oRules.sDefaultModTemplate);
  ReadId(cboModSeverity, oRules.eModSeverityDefault);
  ReadId(cboModRetry, oRules.eModRetryDefault);
  ReadName(cboProcTemplate, oRules.sDefaultProcTemplate);
  ReadId(cboSeverity, oRules.eSeverityDefault);
  ReadId(cboRetry, oRules.eRetryDefault);
  ReadId(cboTrace, oRules.eTraceDefault);
}

void RulesDefaultsPage::cboModTemplate_Click() {
  const bool bEnabled = HasTemplate(cboModTemplate);
  Enable(lblModSeverity, cboModSeverity, bEnabled);
  Enable(lblModRetry, cboModRetry, bEnabled);
}

void RulesDefaultsPage::cboProcTemplate_Click() {
  const bool bEnabled = HasTemplate(cboProcTemplate);
  Enable(lblSeverity, cboSeverity, bEnabled);
  Enable(lblRetry, cboRetry, bEnabled);
  Enable(lblTrace, cboTrace, bEnabled);
}
