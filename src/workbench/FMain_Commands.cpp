// When menus, buttons and the tree are enabled and what is checked: at ManageControls, and for
// menus each time one drops.
#include "FMain.h"
#include "MRules.h"
#include "MXHTMLHelp.h"
#include "NodeKey.h"
#include "Printers.h"

using namespace Forms;

void FMain::ManageControls() {
  const bool bTemplate = HasTemplate(), bProjects = bTemplate && HasProjects();
  const bool bTree = tvwProjects.Tag() == NodeKey::Tree;
  oToolbar.SetButtonEnabled(ToolbarButton::Print, bProjects && HasPrinter());
  oToolbar.SetButtonEnabled(ToolbarButton::Tree, bTemplate && !bTree);
  oToolbar.SetButtonEnabled(ToolbarButton::List, bTemplate && bTree);
  oToolbar.SetButtonEnabled(ToolbarButton::Copy, bProjects);
  oToolbar.SetButtonEnabled(ToolbarButton::Apply, bProjects);
  oToolbar.SetButtonEnabled(ToolbarButton::Help, MXHTMLHelp::HelpExists());
  tvwProjects.SetEnabled(bProjects);
  for (Menu* po :
       {&oMenu.mnuView, &oMenu.mnuSelect, &oMenu.mnuRules, &oMenu.mnuProps, &oMenu.mnuTools}) {
    po->SetEnabled(bTemplate);
  }
}

bool FMain::HasProjects() {
  std::int32_t lCount = 0;
  // If the IDE fails to answer, it counts as having no projects.
  OnEvent(u"HasProjects", [&] { lCount = moVBInst ? moVBInst->VBProjects().Count() : 0; });
  return lCount > 0;
}

bool FMain::HasPrinter() {
  std::int32_t lCount = 0;
  OnEvent(u"HasPrinter", [&] { lCount = moPrinters.Count(); });
  return lCount > 0;
}

ListView* FMain::ListInFront() {
  return ShowsProcs() ? &lvwProcs : ShowsMods() ? &lvwMods : nullptr;
}

void FMain::mnuFile_Click() {
  OnEvent(u"mnuFile_Click", [&] {
    const bool bPrinter = HasPrinter(), bPrint = HasTemplate() && HasProjects() && bPrinter;
    oMenu.mnuFilePrint.SetEnabled(bPrint);
    oMenu.mnuFilePageSetup.SetEnabled(bPrinter);
    oToolbar.SetButtonEnabled(ToolbarButton::Print, bPrint);
  });
}

void FMain::mnuView_Click() {
  OnEvent(u"mnuView_Click", [&] {
    const bool bTemplate = HasTemplate();
    for (Menu* po : {&oMenu.mnuViewProjectTree, &oMenu.mnuViewProjectList, &oMenu.mnuViewProperties,
                     &oMenu.mnuViewCode, &oMenu.mnuViewPending}) {
      po->SetEnabled(bTemplate);
    }
    oMenu.mnuViewResults.SetEnabled(true);
    oMenu.mnuEditClearResults.SetEnabled(true);
    oMenu.mnuEditClearErrors.SetEnabled(mbErrors);
    oMenu.mnuViewProjectTree.SetChecked(tvwProjects.Tag() == NodeKey::Tree);
    oMenu.mnuViewProjectList.SetChecked(tvwProjects.Tag() == NodeKey::List);
    const Tab* poTab = tabView.SelectedItem();
    const TextView sTab = poTab ? TextView(poTab->Key()) : TextView();
    oMenu.mnuViewProperties.SetChecked(sTab == u"Properties");
    oMenu.mnuViewCode.SetChecked(sTab == u"Code");
    oMenu.mnuViewResults.SetChecked(sTab == u"Results");
    oMenu.mnuViewErrors.SetChecked(mbErrors);
    oMenu.mnuViewPending.SetChecked(mbPendingCode);
  });
}

void FMain::mnuSelect_Click() {
  OnEvent(u"mnuSelect_Click", [&] {
    ListView* poList = ListInFront();
    const bool bRows = poList && poList->Visible() && poList->ListItems().Count() > 0;
    for (Menu* po : {&oMenu.mnuSelectAll, &oMenu.mnuSelectNone, &oMenu.mnuSelectInvert})
      po->SetEnabled(bRows);
    oMenu.mnuSelectCustom.SetEnabled(bRows && ShowsProcs());
  });
}

void FMain::mnuProps_Click() {
  OnEvent(u"mnuProps_Click", [&] {
    const bool bScope = ListInFront() && HasProjects();
    oMenu.mnuPropsCopySuggest.SetEnabled(bScope);
    oMenu.mnuPropsUndoPending.SetEnabled(bScope);
  });
}

void FMain::mnuTools_Click() {
  OnEvent(u"mnuTools_Click", [&] {
    const bool bProjects = HasProjects(), bScope = ListInFront() && bProjects;
    for (Menu* po :
         {&oMenu.mnuToolsApplyPending, &oMenu.mnuToolsLineAdd, &oMenu.mnuToolsLineRemove})
      po->SetEnabled(bScope);
    oMenu.mnuToolsRefresh.SetEnabled(bProjects);
    oMenu.mnuToolsOptions.SetEnabled(true);
    oMenu.mnuToolsProve.SetChecked(MRules::oRules.bProve);
  });
}

void FMain::mnuHelp_Click() {
  OnEvent(u"mnuHelp_Click", [&] {
    const bool bHelp = MXHTMLHelp::HelpExists();
    for (Menu* po :
         {&oMenu.mnuHelpTopics, &oMenu.mnuHelpIndex, &oMenu.mnuHelpSearch, &oMenu.mnuHelpSupport}) {
      po->SetEnabled(bHelp);
    }
    oToolbar.SetButtonEnabled(ToolbarButton::Help, bHelp);
  });
}

void FMain::ButtonClick(ToolbarButton eButton) {
  Busy(u"ButtonClick", [&] {
    switch (eButton) {
      case ToolbarButton::Open:
        return mnuFileOpenTemplate_Click();
      case ToolbarButton::Print:
        return mnuFilePrint_Click();
      case ToolbarButton::Tree:
        return mnuViewProjectTree_Click();
      case ToolbarButton::List:
        return mnuViewProjectList_Click();
      case ToolbarButton::Copy:
        return mnuPropsCopySuggest_Click();
      case ToolbarButton::Apply:
        return mnuToolsApplyPending_Click();
      case ToolbarButton::Help:
        return mnuHelpTopics_Click();
    }
  });
}
