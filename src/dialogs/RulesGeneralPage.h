// The page of the rules about read-only files, and about names that the language reads in another
// way than the Property Expert does by itself.
#pragma once

#include "CheckBox.h"
#include "Frame.h"
#include "Put.h"
#include "RulesPage.h"

class RulesGeneralPage : public IRulesPage {
 public:
  explicit RulesGeneralPage(Forms::ControlContainer& oPage)
      : fraReadOnly(oPage, u"fraReadOnly"), fraNames(oPage, u"fraNames") {}
  void Design() override {
    Put(fraReadOnly, u"ReadOnly Files", {120, 60, 5700, 810});
    Put(chkSkipReadOnly, u"Always &Skip ReadOnly Files", {150, 300, 5400, 360});
    Put(fraNames, u"Property Expert reads Names as the Language does", {120, 960, 5700, 1590});
    Put(chkHandlersIgnoreCase,
        u"E&vent Handlers fit their Control or Variable without regard to Case (recommended)",
        {150, 270, 5400, 570});
    Put(chkInterfaceOwnName,
        u"Members &of Library.Interface are known by the Interface's own Name (recommended)",
        {150, 900, 5400, 570});
  }
  void Fill(const MRules::Values& oRules) override {
    chkSkipReadOnly.SetChecked(oRules.bSkipReadOnly);
    chkHandlersIgnoreCase.SetChecked(oRules.bHandlersIgnoreCase);
    chkInterfaceOwnName.SetChecked(oRules.bInterfaceOwnName);
  }
  void Read(MRules::Values& oRules) const override {
    oRules.bSkipReadOnly = chkSkipReadOnly.Checked();
    oRules.bHandlersIgnoreCase = chkHandlersIgnoreCase.Checked();
    oRules.bInterfaceOwnName = chkInterfaceOwnName.Checked();
  }

  Forms::Frame fraReadOnly, fraNames;
  Forms::CheckBox chkSkipReadOnly{fraReadOnly, u"chkSkipReadOnly"};
  Forms::CheckBox chkHandlersIgnoreCase{fraNames, u"chkHandlersIgnoreCase"};
  Forms::CheckBox chkInterfaceOwnName{fraNames, u"chkInterfaceOwnName"};
};
