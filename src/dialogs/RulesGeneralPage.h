// The page of the rules about read-only files.
#pragma once

#include "CheckBox.h"
#include "Frame.h"
#include "Put.h"
#include "RulesPage.h"

class RulesGeneralPage : public IRulesPage {
 public:
  explicit RulesGeneralPage(Forms::ControlContainer& oPage) : fraReadOnly(oPage, u"fraReadOnly") {}
  void Design() override {
    Put(fraReadOnly, u"ReadOnly Files", {120, 60, 5700, 810});
    Put(chkSkipReadOnly, u"Always &Skip ReadOnly Files", {150, 300, 5400, 360});
  }
  void Fill(const MRules::Values& oRules) override {
    chkSkipReadOnly.SetChecked(oRules.bSkipReadOnly);
  }
  void Read(MRules::Values& oRules) const override {
    oRules.bSkipReadOnly = chkSkipReadOnly.Checked();
  }

  Forms::Frame fraReadOnly;
  Forms::CheckBox chkSkipReadOnly{fraReadOnly, u"chkSkipReadOnly"};
};
