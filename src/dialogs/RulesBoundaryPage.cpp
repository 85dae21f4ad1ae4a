#include "RulesBoundaryPage.h"

#include "MQuillon.h"
#include "Put.h"
#include "Toolkit.h"

using namespace Forms;
using namespace RulesPage;

RulesBoundaryPage::RulesBoundaryPage(ControlContainer& oPage, const bool& bShown)
    : fraDefault(oPage, u"fraDefault"), fraPrecedence(oPage, u"fraPrecedence"), mbShown(bShown) {
  chkBoundaryExpert.On(chkBoundaryExpert.Click, [this] { chkBoundaryExpert_Click(); });
  chkBoundary.On(chkBoundary.Click, [this] { chkBoundary_Click(); });
}

void RulesBoundaryPage::Design() {
  Put(fraDefault, u"Boundary Default", {120, 60, 5700, 1500});
  Put(chkBoundaryExpert,
      u"Do you want Quillons' Property &Expert to suggest Boundary Property Values based on "
      u"Project Analysis (recommended)?",
      {150, 270, 5400, 630});
  Put(lblBoundary, u"Or do you want Quillon to suggest &this Default Boundary?",
      {450, 960, 3240, 420});
  cboBoundary.Move(3780, 990, 1770, 330);
  Put(fraPrecedence, u"Boundary Precedence", {120, 1620, 5700, 1200});
  Put(chkFirewall,
      u"Do you want Quillon to suggest Leaving Current &Firewall Boundary Values that you have "
      u"set?",
      {150, 240, 5400, 420});
  Put(chkBoundary,
      u"Do you want Quillon to suggest Replacing &Other Current Boundary Values (recommended with "
      u"Property Expert)?",
      {150, 720, 5400, 420});
}

void RulesBoundaryPage::Fill(const MRules::Values& oRules) {
  chkBoundaryExpert.SetChecked(oRules.bExpertEnabled);
  FillIds(cboBoundary, MQuillon::oLookupBoundary.get(), oRules.eBoundaryDefault);
  chkFirewall.SetChecked(!oRules.bFirewallReplace);
  chkBoundary.SetChecked(oRules.bBoundaryReplace);
}

void RulesBoundaryPage::Read(MRules::Values& oRules) const {
  oRules.bExpertEnabled = chkBoundaryExpert.Checked();
  ReadId(cboBoundary, oRules.eBoundaryDefault);
  oRules.bFirewallReplace = !chkFirewall.Checked();
  oRules.bBoundaryReplace = chkBoundary.Checked();
}

void RulesBoundaryPage::chkBoundaryExpert_Click() {
  const bool bExpert = chkBoundaryExpert.Checked();
  Enable(lblBoundary, cboBoundary, !bExpert);
  if (!mbShown) return;
  if (bExpert) return chkBoundary.SetChecked(true);
  Warn(u"Switching off the Property Expert may cause Tarvane");
}

void RulesBoundaryPage::chkBoundary_Click() {
  if (!mbShown || chkBoundary.Checked() || !chkBoundaryExpert.Checked()) return;
  Warn(u"Switching off this option may cause Tarvane");
}

void RulesBoundaryPage::Warn(TextView sWhat) {
  chkBoundary.Kit().MsgBox(
      Text(sWhat) + u"\r\nError Handling to function inappropriately for your Project!",
      MsgBoxButtons::OkOnly, MsgBoxIcon::Exclamation);
}
