#include "FPrintOption.h"

#include "Guard.h"
#include "MXHTMLHelp.h"
#include "PageSetup.h"
#include "Put.h"

using namespace Forms;

namespace {
constexpr std::int32_t HelpContext = 2400;
}

FPrintOption::FPrintOption(Toolkit& oToolkit, Paper::Printers& oPrinters)
    : FDialog(oToolkit, u"FPrintOption", u"FPrintOption"), moPrinters(oPrinters) {
  On(chkProjectSummary.Click, [this] { EnableOK(); });
  On(chkProcSettings.Click, [this] { chkProcSettings_Click(); });
  On(cmdPrintSetup.Click, [this] { cmdPrintSetup_Click(); });
  On(cmdOK.Click, [this] { cmdOK_Click(); });
  On(cmdCancel.Click, [this] { Hide(); });
  On(cmdHelp.Click, [this] { MXHTMLHelp::ShowHelpTOC(App(), HelpContext); });
}

void FPrintOption::Design() {
  DesignWindow(u"Print", 5880, 3780);
  SetHelpContextID(HelpContext);
  lblPrinter.SetUseMnemonic(false);  // queues may have an ampersand in their names
  lblPrinter.Move(150, 150, 5460, 420);
  Put(fraWhat, u"Print What", {120, 630, 5520, 1950});
  Put(chkProjectSummary, u"Project &Summary", {150, 300, 5220, 330});
  Put(chkProcSettings, u"Procedure Property &Settings for", {150, 690, 5220, 330});
  Put(optProcSettingsModule, u"Current &Module", {480, 1080, 4890, 330});
  optProcSettingsModule.SetValue(true);
  Put(optProcSettingsProject, u"Current &Project", {480, 1470, 4890, 330});
  DesignButtons();
}

void FPrintOption::DesignButtons() {
  Put(cmdPrintSetup, u"Page Set&up...", {120, 2730, 1560, 420});
  Put(cmdOK, u"OK", {2250, 2730, 1080, 420});
  cmdOK.SetDefault(true);
  Put(cmdCancel, u"Cancel", {3435, 2730, 1080, 420});
  cmdCancel.SetCancel(true);
  Put(cmdHelp, u"&Help", {4620, 2730, 1020, 420});
}

PrintChoice FPrintOption::Display() {
  mbCancelled = true;
  Load();
  ShowPrinter();
  cmdOK.SetEnabled(false);
  chkProcSettings_Click();
  cmdHelp.SetEnabled(MXHTMLHelp::HelpExists());
  RunModal();
  PrintChoice oChoice;
  if (!mbCancelled) {
    oChoice.bSummary = chkProjectSummary.Checked();
    oChoice.bModuleSettings = chkProcSettings.Checked() && optProcSettingsModule.Value();
    oChoice.bProjectSettings = chkProcSettings.Checked() && optProcSettingsProject.Value();
  }
  Unload();
  return oChoice;
}

void FPrintOption::ShowPrinter() {
  lblPrinter.SetCaption(u"Printer: " + moPrinters.Current().DeviceName());
}

void FPrintOption::EnableOK() {
  cmdOK.SetEnabled(chkProjectSummary.Checked() || chkProcSettings.Checked());
}

void FPrintOption::chkProcSettings_Click() {
  optProcSettingsModule.SetEnabled(chkProcSettings.Checked());
  optProcSettingsProject.SetEnabled(chkProcSettings.Checked());
  EnableOK();
}

void FPrintOption::cmdPrintSetup_Click() {
  // A failure of the dialog is reported, and this one stays open. The printer may have changed
  // nevertheless.
  Guard({u"FPrintOption", u"cmdPrintSetup_Click", ErrorIds::BoundaryVB},
        [this](GuardScope&) { ShowPageSetup(*this, moPrinters); });
  ShowPrinter();
}

void FPrintOption::cmdOK_Click() {
  mbCancelled = false;
  Hide();
}
