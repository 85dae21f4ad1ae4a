// The tabs with their panes, and the pane of modules that the IDE can't read.
#include "FMain.h"
#include "MXForm.h"

using namespace Forms;

void FMain::tabView_Click() {
  OnEvent(u"tabView_Click", [&] {
    const Tab* poTab = tabView.SelectedItem();
    const TextView sKey = poTab ? TextView(poTab->Key()) : TextView();
    struct Pane {
      TextView sKey;
      Control &oPane, &oTitle;
    };
    const Pane aoPane[] = {{u"Properties", prlProperties, lblProperties},
                           {u"Code", txtCode, lblCode},
                           {u"Results", srlResults, lblResults}};
    // The others are hidden first, so that two panes are never visible at once.
    for (const bool bShown : {false, true}) {
      for (const Pane& o : aoPane) {
        if ((o.sKey == sKey) != bShown) continue;
        o.oPane.SetVisible(bShown);
        o.oTitle.SetVisible(bShown);
      }
    }
  });
}

void FMain::SelectTab(TextView sKey) {
  if (tabView.Tabs().Exists(sKey)) tabView.Tabs().Item(sKey).SetSelected(true);
}

void FMain::mnuViewProperties_Click() {
  Busy(u"mnuViewProperties_Click", [&] { SelectTab(u"Properties"); });
}

void FMain::mnuViewCode_Click() {
  OnEvent(u"mnuViewCode_Click", [&] { SelectTab(u"Code"); });
}

void FMain::mnuViewResults_Click() {
  Busy(u"mnuViewResults_Click", [&] { SelectTab(u"Results"); });
}

void FMain::mnuEditClearResults_Click() {
  OnEvent(u"mnuEditClearResults_Click", [&] { srlResults.Clear(); });
}

void FMain::mnuEditClearErrors_Click() {
  OnEvent(u"mnuEditClearErrors_Click", [&] { srlErrors.Clear(); });
}

void FMain::mnuViewErrors_Click() {
  OnEvent(u"mnuViewErrors_Click", [&] { mbErrors ? HideErrors() : ShowErrors(); });
}

void FMain::HideErrors() {
  mbErrors = false;
  picSplit3.SetVisible(false);
  fraErrors.SetVisible(false);
  for (Control* po : std::initializer_list<Control*>{&lvwMods, &lvwProcs, &lblListViewSurrogate})
    po->SetHeight(tvwProjects.Height());
}

void FMain::ShowErrors() {
  constexpr std::int32_t LeastPane = 645, LeastList = 600;
  mbErrors = true;
  const std::int32_t lTarget = StatusBar1.Top() - LeastPane;
  if (picSplit3.Top() > lTarget && tvwProjects.Top() + LeastList < lTarget)
    picSplit3.SetTop(lTarget);
  oSplit3->DoSplit();
  fraErrors.SetHeight(
      MXForm::MaskNegative(ScaleHeight() - fraErrors.Top() - StatusBar1.Height(), 0));
  oSplit3->DoSplit();
  picSplit3.SetVisible(true);
  fraErrors.SetVisible(true);
  if (srlErrors.Usable()) srlErrors.SetFocus();
}
