// The menus of the main window, in their order: captions, access keys and shortcuts. What they do
// and when they are enabled is the window's.
#pragma once

#include "ControlArray.h"
#include "Menu.h"

struct MainMenu {
  explicit MainMenu(Forms::Form& oForm) : moForm(oForm) {}

  /// Sets the values of design time.
  void Design();

 private:
  Forms::Form& moForm;

 public:
  using Menu = Forms::Menu;

  Menu mnuFile{moForm, u"mnuFile"};
  Menu mnuFileOpenTemplate{mnuFile, u"mnuFileOpenTemplate"}, mnlFileLine1{mnuFile, u"mnlFileLine1"},
      mnuFilePrint{mnuFile, u"mnuFilePrint"}, mnuFilePageSetup{mnuFile, u"mnuFilePageSetup"},
      mnlFileRecent{mnuFile, u"mnlFileRecent"};
  Forms::ControlArray<Menu> mnuFileRecent{mnuFile, u"mnuFileRecent"};
  Menu mnuFileExit{mnuFile, u"mnuFileExit"};

  Menu mnuView{moForm, u"mnuView"};
  Menu mnuViewProjectTree{mnuView, u"mnuViewProjectTree"},
      mnuViewProjectList{mnuView, u"mnuViewProjectList"}, mnlViewLine1{mnuView, u"mnlViewLine1"},
      mnuViewProperties{mnuView, u"mnuViewProperties"}, mnuViewCode{mnuView, u"mnuViewCode"},
      mnuViewResults{mnuView, u"mnuViewResults"}, mnlViewLine2{mnuView, u"mnlViewLine2"},
      mnuViewErrors{mnuView, u"mnuViewErrors"}, mnlViewLine3{mnuView, u"mnlViewLine3"},
      mnuEditClearResults{mnuView, u"mnuEditClearResults"},
      mnuEditClearErrors{mnuView, u"mnuEditClearErrors"}, mnlViewLine4{mnuView, u"mnlViewLine4"},
      mnuViewPending{mnuView, u"mnuViewPending"};

  Menu mnuSelect{moForm, u"mnuSelect"};
  Menu mnuSelectAll{mnuSelect, u"mnuSelectAll"}, mnuSelectNone{mnuSelect, u"mnuSelectNone"},
      mnuSelectInvert{mnuSelect, u"mnuSelectInvert"}, mnlSelectLine1{mnuSelect, u"mnlSelectLine1"},
      mnuSelectCustom{mnuSelect, u"mnuSelectCustom"};

  Menu mnuRules{moForm, u"mnuRules"};
  Menu mnuRulesDefine{mnuRules, u"mnuRulesDefine"};

  Menu mnuProps{moForm, u"mnuProps"};
  Menu mnuPropsCopySuggest{mnuProps, u"mnuPropsCopySuggest"},
      mnlPropsLine1{mnuProps, u"mnlPropsLine1"},
      mnuPropsUndoPending{mnuProps, u"mnuPropsUndoPending"};

  Menu mnuTools{moForm, u"mnuTools"};
  Menu mnuToolsApplyPending{mnuTools, u"mnuToolsApplyPending"},
      mnlToolsLine1{mnuTools, u"mnlToolsLine1"}, mnuToolsLineAdd{mnuTools, u"mnuToolsLineAdd"},
      mnuToolsLineRemove{mnuTools, u"mnuToolsLineRemove"},
      mnlToolsLine2{mnuTools, u"mnlToolsLine2"}, mnuToolsRefresh{mnuTools, u"mnuToolsRefresh"},
      mnlToolsLine3{mnuTools, u"mnlToolsLine3"}, mnuToolsOptions{mnuTools, u"mnuToolsOptions"},
      mnlToolsLine4{mnuTools, u"mnlToolsLine4"}, mnuToolsProve{mnuTools, u"mnuToolsProve"};

  Menu mnuHelp{moForm, u"mnuHelp"};
  Menu mnuHelpTopics{mnuHelp, u"mnuHelpTopics"}, mnuHelpIndex{mnuHelp, u"mnuHelpIndex"},
      mnuHelpSearch{mnuHelp, u"mnuHelpSearch"}, mnlHelpLine1{mnuHelp, u"mnlHelpLine1"},
      mnuHelpSupport{mnuHelp, u"mnuHelpSupport"}, mnuHelpWeb{mnuHelp, u"mnuHelpWeb"},
      mnlHelpLine2{mnuHelp, u"mnlHelpLine2"}, mnuHelpAbout{mnuHelp, u"mnuHelpAbout"};
};
