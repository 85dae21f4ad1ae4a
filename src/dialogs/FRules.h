// The dialog of the user's rules: five pages of controls, each for some of MRules::Values. They are
// filled from the process-wide rules and written back when the user leaves with OK.
#pragma once

#include <array>

#include "FOptionSheet.h"
#include "RulesBoundaryPage.h"
#include "RulesDefaultsPage.h"
#include "RulesGeneralPage.h"
#include "RulesNumberingPage.h"
#include "RulesPrecedencePage.h"

class FRules : public FOptionSheet {
 public:
  explicit FRules(Forms::Toolkit& oToolkit);
  /// True when the user left it with OK: then the rules have changed and are stored. The lookups of
  /// MQuillon are those of the open template file.
  bool Display();

 private:
  bool mbShown = false;  ///< the controls are filled

 public:
  Forms::ControlArray<Forms::Frame> fraOption{*this, u"fraOption", 6};  ///< 1 to 5, as the tabs
  RulesDefaultsPage oDefaults{fraOption(1)};
  RulesPrecedencePage oPrecedence{fraOption(2)};
  RulesBoundaryPage oBoundary{fraOption(3), mbShown};
  RulesNumberingPage oNumbering{fraOption(4)};
  RulesGeneralPage oGeneral{fraOption(5)};

 private:
  void Design() override;
  void SelectLastTab();
  void tabOption_Click();
  void Accept();

  const std::array<IRulesPage*, 5> moPages{&oDefaults, &oPrecedence, &oBoundary, &oNumbering,
                                           &oGeneral};
};
