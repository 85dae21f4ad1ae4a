// The page of the rules that says whether a value in the code stays or gives way to the default.
#pragma once

#include "ControlArray.h"
#include "Frame.h"
#include "OptionButton.h"
#include "RulesPage.h"

class RulesPrecedencePage : public IRulesPage {
 public:
  explicit RulesPrecedencePage(Forms::ControlContainer& oPage);
  void Design() override;
  void Fill(const MRules::Values& oRules) override;
  void Read(MRules::Values& oRules) const override;

  using Pair = Forms::ControlArray<Forms::OptionButton>;  ///< 0 leaves, 1 replaces

  Forms::Label lblPrecedence;
  Forms::Frame fraPrecedence;
  // A frame without a border around each pair, because one frame has one group of buttons.
  Forms::Label lblTemplatePrecedence{fraPrecedence, u"lblTemplatePrecedence"};
  Forms::Frame fraTemplatePrecedence{fraPrecedence, u"fraTemplatePrecedence"};
  Pair optTemplatePrecedence{fraTemplatePrecedence, u"optTemplatePrecedence", 2};
  Forms::Label lblSeverityPrecedence{fraPrecedence, u"lblSeverityPrecedence"};
  Forms::Frame fraSeverityPrecedence{fraPrecedence, u"fraSeverityPrecedence"};
  Pair optSeverityPrecedence{fraSeverityPrecedence, u"optSeverityPrecedence", 2};
  Forms::Label lblRetryPrecedence{fraPrecedence, u"lblRetryPrecedence"};
  Forms::Frame fraRetryPrecedence{fraPrecedence, u"fraRetryPrecedence"};
  Pair optRetryPrecedence{fraRetryPrecedence, u"optRetryPrecedence", 2};
  Forms::Label lblTracePrecedence{fraPrecedence, u"lblTracePrecedence"};
  Forms::Frame fraTracePrecedence{fraPrecedence, u"fraTracePrecedence"};
  Pair optTracePrecedence{fraTracePrecedence, u"optTracePrecedence", 2};
};
