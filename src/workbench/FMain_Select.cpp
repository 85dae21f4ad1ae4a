// The Select menu: which rows of the list in front are selected.
#include "FMain.h"
#include "FSelectCustom.h"

using namespace Forms;

template <class Choice>
void FMain::SelectRows(TextView sProcedure, Choice&& oChoice) {
  Busy(sProcedure, [&] {
    ListView* poList = ListInFront();
    if (!poList) return;
    ListItems& oRows = poList->ListItems();
    for (std::int32_t i = 1; i <= oRows.Count(); ++i)
      oRows.Item(i).SetSelected(oChoice(oRows.Item(i)));
    if (ShowsProcs()) ProcessProcListSelection();
  });
}

void FMain::mnuSelectAll_Click() {
  SelectRows(u"mnuSelectAll_Click", [](const ListItem&) { return true; });
}

void FMain::mnuSelectNone_Click() {
  SelectRows(u"mnuSelectNone_Click", [](const ListItem&) { return false; });
}

void FMain::mnuSelectInvert_Click() {
  SelectRows(u"mnuSelectInvert_Click", [](const ListItem& oRow) { return !oRow.Selected(); });
}

void FMain::mnuSelectCustom_Click() {
  OnEvent(u"mnuSelectCustom_Click", [&] {
    FSelectCustom(App()).Display(lvwProcs);
    Refresh();
    ProcessProcListSelection();
  });
}
