// The page of the rules about the boundary: whether the Property Expert works it out, and when a
// boundary in the code gives way. Warns of choices that rarely fit, but doesn't forbid them.
#pragma once

#include "CheckBox.h"
#include "Frame.h"
#include "RulesPage.h"

class RulesBoundaryPage : public IRulesPage {
 public:
  /// bShown: false while the program fills the page; warnings are shown only while it is true.
  RulesBoundaryPage(Forms::ControlContainer& oPage, const bool& bShown);
  void Design() override;
  void Fill(const MRules::Values& oRules) override;
  void Read(MRules::Values& oRules) const override;

  Forms::Frame fraDefault;
  Forms::CheckBox chkBoundaryExpert{fraDefault, u"chkBoundaryExpert"};
  Forms::Label lblBoundary{fraDefault, u"lblBoundary"};
  Forms::ComboBox cboBoundary{fraDefault, u"cboBoundary"};
  Forms::Frame fraPrecedence;
  Forms::CheckBox chkFirewall{fraPrecedence, u"chkFirewall"},
      chkBoundary{fraPrecedence, u"chkBoundary"};

 private:
  void chkBoundaryExpert_Click();
  void chkBoundary_Click();
  void Warn(TextView sWhat);

  const bool& mbShown;
};
