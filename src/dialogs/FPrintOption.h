// Asks which of the two reports are to be printed, and offers the page set-up.
#pragma once

#include "CheckBox.h"
#include "CommandButton.h"
#include "FDialog.h"
#include "Label.h"
#include "OptionButton.h"
#include "Printers.h"

/// At most one of the last two is true. All are false after Cancel.
struct PrintChoice {
  bool bSummary = false, bModuleSettings = false, bProjectSettings = false;
  bool operator==(const PrintChoice&) const = default;
};

class FPrintOption : public FDialog {
 public:
  FPrintOption(Forms::Toolkit& oToolkit, Paper::Printers& oPrinters);
  PrintChoice Display();

  Forms::Label lblPrinter{*this, u"lblPrinter"};
  Forms::Frame fraWhat{*this, u"fraWhat"};
  Forms::CheckBox chkProjectSummary{fraWhat, u"chkProjectSummary"},
      chkProcSettings{fraWhat, u"chkProcSettings"};
  Forms::OptionButton optProcSettingsModule{fraWhat, u"optProcSettingsModule"},
      optProcSettingsProject{fraWhat, u"optProcSettingsProject"};
  Forms::CommandButton cmdPrintSetup{*this, u"cmdPrintSetup"}, cmdOK{*this, u"cmdOK"},
      cmdCancel{*this, u"cmdCancel"}, cmdHelp{*this, u"cmdHelp"};

 private:
  void Design() override;
  void DesignButtons();
  void ShowPrinter();
  void EnableOK();
  void chkProcSettings_Click();
  void cmdPrintSetup_Click();
  void cmdOK_Click();

  Paper::Printers& moPrinters;
  bool mbCancelled = true;
};
