#include "MainMenu.h"

#include "Form.h"

void MainMenu::Design() {
  struct Row {
    Menu& oMenu;
    TextView sCaption;
    char16_t cCtrl = 0;  ///< the shortcut's letter
  };
  for (const Row& oRow : {
           Row{mnuFile, u"&File"},
           Row{mnuFileOpenTemplate, u"&Open Template...", u'O'},
           Row{mnlFileLine1, u"-"},
           Row{mnuFilePrint, u"&Print...", u'P'},
           Row{mnuFilePageSetup, u"Page Set&up..."},
           Row{mnlFileRecent, u"-"},
           Row{mnuFileRecent(0), u"<recent>"},
           Row{mnuFileExit, u"E&xit", u'Q'},

           Row{mnuView, u"&View"},
           Row{mnuViewProjectTree, u"Project &Folders"},
           Row{mnuViewProjectList, u"&No Project Folders"},
           Row{mnlViewLine1, u"-"},
           Row{mnuViewProperties, u"&Properties"},
           Row{mnuViewCode, u"&Code"},
           Row{mnuViewResults, u"&Results"},
           Row{mnlViewLine2, u"-"},
           Row{mnuViewErrors, u"VBIDE &Errors"},
           Row{mnlViewLine3, u"-"},
           Row{mnuEditClearResults, u"C&lear Results"},
           Row{mnuEditClearErrors, u"Cl&ear VBIDE Errors"},
           Row{mnlViewLine4, u"-"},
           Row{mnuViewPending, u"Pending Co&de"},

           Row{mnuSelect, u"&Select"},
           Row{mnuSelectAll, u"Select &All", u'A'},
           Row{mnuSelectNone, u"Select &None", u'N'},
           Row{mnuSelectInvert, u"&Invert Selection", u'I'},
           Row{mnlSelectLine1, u"-"},
           Row{mnuSelectCustom, u"&Custom Select..."},

           Row{mnuRules, u"&Rules"},
           Row{mnuRulesDefine, u"&Define Rules..."},

           Row{mnuProps, u"&Properties"},
           Row{mnuPropsCopySuggest, u"&Copy Suggested..."},
           Row{mnlPropsLine1, u"-"},
           Row{mnuPropsUndoPending, u"&Discard Pending..."},

           Row{mnuTools, u"&Tools"},
           Row{mnuToolsApplyPending, u"&Apply Pending Properties..."},
           Row{mnlToolsLine1, u"-"},
           Row{mnuToolsLineAdd, u"&Insert Line Numbers..."},
           Row{mnuToolsLineRemove, u"Re&move Line Numbers..."},
           Row{mnlToolsLine2, u"-"},
           Row{mnuToolsRefresh, u"&Refresh Error Handlers..."},
           Row{mnlToolsLine3, u"-"},
           Row{mnuToolsOptions, u"&Options..."},
           Row{mnlToolsLine4, u"-"},
           Row{mnuToolsProve, u"&Prove Rewrites"},

           Row{mnuHelp, u"&Help"},
           Row{mnuHelpTopics, u"&Contents..."},
           Row{mnuHelpIndex, u"&Index..."},
           Row{mnuHelpSearch, u"&Search..."},
           Row{mnlHelpLine1, u"-"},
           Row{mnuHelpSupport, u"&Technical Support..."},
           Row{mnuHelpWeb, u"Morvelle on the &Web"},
           Row{mnlHelpLine2, u"-"},
           Row{mnuHelpAbout, u"&About Tarvane"},
       }) {
    oRow.oMenu.SetCaption(oRow.sCaption);
    if (oRow.cCtrl) oRow.oMenu.SetShortcut(oRow.cCtrl, Forms::Shift::Ctrl);
  }
  // Only the pattern for the items that the recent list makes from it.
  mnuFileRecent(0).SetVisible(false);
}
