// The page of the rules about line numbers: what happens to them, where they go, what has none.
#pragma once

#include "CheckBox.h"
#include "ControlArray.h"
#include "Frame.h"
#include "OptionButton.h"
#include "RulesPage.h"
#include "TextBox.h"

class RulesNumberingPage : public IRulesPage {
 public:
  explicit RulesNumberingPage(Forms::ControlContainer& oPage);
  void Design() override;
  void Fill(const MRules::Values& oRules) override;
  void Read(MRules::Values& oRules) const override;
  /// Puts the text boxes into the gaps of the captions, as this screen's font has them.
  void PlaceInGaps();

  Forms::Frame fraAction;
  Forms::ControlArray<Forms::OptionButton> optAction{fraAction, u"optAction", 3};
  Forms::Frame fraWhat;
  Forms::ControlArray<Forms::OptionButton> optWhat{fraWhat, u"optWhat", 3};
  Forms::TextBox txtWhatLines{fraWhat, u"txtWhatLines"};
  Forms::Frame fraSkip;
  Forms::CheckBox chkSkipData{fraSkip, u"chkSkipData"}, chkSkipEnd{fraSkip, u"chkSkipEnd"},
      chkSkipShort{fraSkip, u"chkSkipShort"};
  Forms::TextBox txtSkipShort{fraSkip, u"txtSkipShort"};

 private:
  void Connect();
  void DesignOptions();
  void DesignSkip();
  void optWhat_Click(std::int32_t Index);
  void txtWhatLines_KeyDown(std::int32_t& KeyCode, std::int32_t nShift);
  void txtWhatLines_KeyPress(std::int32_t& KeyAscii);

  std::int32_t lAction = 0, lWhat = 0;
};
