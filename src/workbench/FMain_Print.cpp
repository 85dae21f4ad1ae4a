// Printing the reports on the project of the tree's node.
#include "FMain.h"
#include "FPrintOption.h"
#include "PageSetup.h"
#include "Reports.h"

using namespace Forms;

namespace {

/// The column widths on the screen, which the report takes over.
Reports::Widths WidthsOf(ListView& oList) {
  Reports::Widths alWidth;
  for (std::int32_t i = 1; i <= oList.ColumnHeaders().Count(); ++i)
    alWidth.push_back(oList.ColumnHeaders().Item(i).Width());
  return alWidth;
}

}  // namespace

void FMain::mnuFilePrint_Click() {
  Busy(u"mnuFilePrint_Click", [&] {
    if (!HasPrinter()) return mnuFile_Click();
    const PrintChoice oChoice = FPrintOption(App(), moPrinters).Display();
    Refresh();
    Paper::Printer& oPrinter = moPrinters.Current();
    if (oChoice.bSummary)
      Reports::PrintProjects(*oIDEHandler, oPrinter, WidthsOf(lvwMods), mhProject);
    if (oChoice.bModuleSettings || oChoice.bProjectSettings)
      Reports::PrintSettings(*oIDEHandler, oPrinter, WidthsOf(lvwProcs), mhProject,
                             oChoice.bModuleSettings ? mhComponent : ComponentHandle());
  });
}

void FMain::mnuFilePageSetup_Click() {
  Busy(u"mnuFilePageSetup_Click", [&] { ShowPageSetup(*this, moPrinters); });
}
