// All menus as the user reads them, and what is enabled in each state of the window.
#include "FMainTest.h"

namespace {

using namespace Forms;

std::string Shown(const Menu& o) {
  std::string s = ToUtf8(o.Name()) + " " + ToUtf8(o.Caption());
  if (o.Shortcut().nKeyCode != 0) {
    EXPECT_EQ(o.Shortcut().nShift, Shift::Ctrl);
    s += std::string(" Ctrl+") + static_cast<char>(o.Shortcut().nKeyCode);
  }
  return s + "\n";
}

class MenusTest : public FMainTest {
 protected:
  /// Names of what is disabled once every menu has dropped: the buttons by number, the tree, a menu
  /// of the bar by itself, else its items.
  std::string Disabled() {
    std::string s;
    for (Menu* poTop : oMain.Menus()) {
      if (!poTop->UserDrop()) s += ToUtf8(poTop->Name().substr(3)) + " ";
      for (const Menu* po : poTop->Items())
        if (poTop->Enabled() && !po->Enabled()) s += ToUtf8(po->Name().substr(3)) + " ";
    }
    s += "|";
    for (std::int32_t i = 0; i < MainToolbar::lButtons; ++i) {
      if (!oMain.oToolbar.ButtonEnabled(i)) s += " " + std::to_string(i);
      const std::string sPicture = ToUtf8(oMain.oToolbar.picButton(i).Picture());
      EXPECT_EQ(sPicture.ends_with("X"), !oMain.oToolbar.ButtonEnabled(i)) << sPicture;
    }
    return s + (oMain.tvwProjects.Enabled() ? "" : " tree");
  }
};

TEST_F(MenusTest, CaptionsAndShortcuts) {
  Run([&] {
    std::string s;
    for (const Menu* poTop : oMain.Menus()) {
      s += Shown(*poTop);
      for (const Menu* po : poTop->Items())
        if (po->Visible() && !po->Separator()) s += "  " + Shown(*po);
      EXPECT_FALSE(poTop->Items().back()->Separator());
    }
    EXPECT_EQ(s.substr(0, s.find("  mnuFileRecent")), R"(mnuFile &File
  mnuFileOpenTemplate &Open Template... Ctrl+O
  mnuFilePrint &Print... Ctrl+P
  mnuFilePageSetup Page Set&up...
)");
    EXPECT_EQ(s.substr(s.find("  mnuFileExit")), R"(  mnuFileExit E&xit Ctrl+Q
mnuView &View
  mnuViewProjectTree Project &Folders
  mnuViewProjectList &No Project Folders
  mnuViewProperties &Properties
  mnuViewCode &Code
  mnuViewResults &Results
  mnuViewErrors VBIDE &Errors
  mnuEditClearResults C&lear Results
  mnuEditClearErrors Cl&ear VBIDE Errors
  mnuViewPending Pending Co&de
mnuSelect &Select
  mnuSelectAll Select &All Ctrl+A
  mnuSelectNone Select &None Ctrl+N
  mnuSelectInvert &Invert Selection Ctrl+I
  mnuSelectCustom &Custom Select...
mnuRules &Rules
  mnuRulesDefine &Define Rules...
mnuProps &Properties
  mnuPropsCopySuggest &Copy Suggested...
  mnuPropsUndoPending &Discard Pending...
mnuTools &Tools
  mnuToolsApplyPending &Apply Pending Properties...
  mnuToolsLineAdd &Insert Line Numbers...
  mnuToolsLineRemove Re&move Line Numbers...
  mnuToolsRefresh &Refresh Error Handlers...
  mnuToolsOptions &Options...
  mnuToolsProve &Prove Rewrites
mnuHelp &Help
  mnuHelpTopics &Contents...
  mnuHelpIndex &Index...
  mnuHelpSearch &Search...
  mnuHelpSupport &Technical Support...
  mnuHelpWeb Morvelle on the &Web
  mnuHelpAbout &About Tarvane
)");
  });
}

TEST_F(MenusTest, EachStateEnablesItsCommands) {
  struct Row {
    const char* sName;
    bool bProject, bTemplateErrors;
    const char* sNode;
    const char* sDisabled;
  };
  for (const Row& oRow : {
           Row{"template with errors", true, true, "",
               "FilePrint View Select Rules Props Tools | 1 2 3 4 5 tree"},
           Row{"no project", false, false, "",
               "FilePrint EditClearErrors SelectAll SelectNone SelectInvert SelectCustom "
               "PropsCopySuggest PropsUndoPending ToolsApplyPending ToolsLineAdd ToolsLineRemove "
               "ToolsRefresh | 1 2 4 5 tree"},
           Row{"modules in front", true, false, "P", "EditClearErrors SelectCustom | 2"},
           Row{"procedures in front", true, false, "MOne", "EditClearErrors | 2"},
           Row{"a module that can't be read", true, false, "MBad",
               "SelectAll SelectNone SelectInvert SelectCustom | 2"},
       }) {
    SCOPED_TRACE(oRow.sName);
    PaneIDE oOwn;
    if (oRow.bProject) {
      oOwn.AddProject(u"P", 0);
      oOwn.Add(u"MOne", ComponentStdModule, u"Sub a()\nEnd Sub");
      oOwn.Add(u"MBad", ComponentStdModule, u"");
      oOwn.oLog.Fail("CodeModule of MBad", 0);
    }
    TempFolder::Write(oFolder / "Template.dat",
                      oRow.bTemplateErrors ? "<#Nonsense>\r\n" : ToUtf8(TestTemplates));
    User().Modal<FMain>([&](FMain& o) {
      moRenderer.Advance(100);
      if (*oRow.sNode) Click(FromUtf8(oRow.sNode));
      EXPECT_EQ(Disabled(), oRow.sDisabled);
      o.Hide();
      o.Unload();
    });
    oMain.Display(oOwn, oConnect);
  }
}

TEST_F(MenusTest, WithoutATemplateOrHelpLittleIsLeft) {
  std::filesystem::remove(oFolder / "Template.dat");
  SetHelp(false);
  User().ChooseFile([](FileDialog& o) {
    EXPECT_EQ(o.sTitle, u"Open Template");
    return DialogAnswer{};
  });
  oIDE.AddProject(u"P", 0);
  Run([&] {
    EXPECT_EQ(Disabled(),
              "FilePrint View Select Rules Props Tools HelpTopics HelpIndex HelpSearch "
              "HelpSupport | 1 2 3 4 5 6 tree");
    EXPECT_EQ(oMain.Caption(), u"Tarvane Quillon");
    EXPECT_EQ(oMain.tabView.Tabs().Count(), 1);
  });
}

TEST_F(MenusTest, ViewChecksWhatIsShown) {
  oIDE.AddProject(u"P", 0);
  Run([&] {
    const auto Checked = [&] {
      oMain.oMenu.mnuView.UserDrop();
      std::string s;
      for (const Menu* po : oMain.oMenu.mnuView.Items())
        if (po->Checked()) s += ToUtf8(po->Name().substr(7)) + " ";
      return s;
    };
    EXPECT_EQ(Checked(), "ProjectTree Results ");
    oMain.oMenu.mnuViewProjectList.UserPick();
    oMain.oMenu.mnuViewCode.UserPick();
    oMain.oMenu.mnuViewErrors.UserPick();
    oMain.oMenu.mnuViewPending.UserPick();
    EXPECT_EQ(Checked(), "ProjectList Code Errors Pending ");
    oMain.oMenu.mnuViewErrors.UserPick();
    oMain.oMenu.mnuViewProperties.UserPick();
    EXPECT_EQ(Checked(), "ProjectList Properties Pending ");
    EXPECT_TRUE(oMain.oToolbar.ButtonEnabled(2) && !oMain.oToolbar.ButtonEnabled(3));
  });
}

}  // namespace
