// All menus as the user reads them, and what is enabled in each state of the window.
#include "FMainTest.h"

namespace {

using namespace Forms;

/// The captions of the items that show, each with the letter of its Ctrl shortcut.
std::string Captions(const std::vector<Menu*>& oItems) {
  std::string s;
  for (const Menu* po : oItems) {
    if (!po->Visible()) continue;
    s += (s.empty() ? "" : "|") + ToUtf8(po->Caption());
    if (po->Shortcut().nKeyCode == 0) continue;
    EXPECT_EQ(po->Shortcut().nShift, Shift::Ctrl);
    s += std::string(" ^") + static_cast<char>(po->Shortcut().nKeyCode);
  }
  return s;
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
  const std::vector<const char*> asExpected = {
      "&Open Template... ^O|-|&Print... ^P|Page Set&up...|-|&1 |-|E&xit ^Q",
      "Project &Folders|&No Project Folders|-|&Properties|&Code|&Results|-|VBIDE &Errors|-|"
      "C&lear Results|Cl&ear VBIDE Errors|-|Pending Co&de",
      "Select &All ^A|Select &None ^N|&Invert Selection ^I|-|&Custom Select...",
      "&Define Rules...",
      "&Copy Suggested...|-|&Discard Pending...",
      "&Apply Pending Properties...|-|&Insert Line Numbers...|Re&move Line Numbers...|-|"
      "&Refresh Error Handlers...|-|&Options...|-|&Prove Rewrites",
      "&Contents...|&Index...|&Search...|-|&Technical Support...|Morvelle on the &Web|-|"
      "&About Tarvane"};
  Run([&] {
    EXPECT_EQ(Captions(oMain.Menus()), "&File|&View|&Select|&Rules|&Properties|&Tools|&Help");
    for (std::size_t i = 0; i < asExpected.size(); ++i) {
      std::string s = Captions(oMain.Menus()[i]->Items());
      if (i == 0) s.erase(s.find("&1 ") + 3, s.rfind("|-|") - s.find("&1 ") - 3);
      EXPECT_EQ(s, asExpected[i]);
    }
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
      s += "|";
      for (const Control* po : oMain.picContainer.Controls())
        if (po->Visible()) s += " " + ToUtf8(po->Name());
      return s;
    };
    EXPECT_EQ(Checked(), "ProjectTree Results | tabView lblResults srlResults");
    oMain.oMenu.mnuViewProjectList.UserPick();
    oMain.oMenu.mnuViewCode.UserPick();
    oMain.oMenu.mnuViewErrors.UserPick();
    oMain.oMenu.mnuViewPending.UserPick();
    EXPECT_EQ(Checked(), "ProjectList Code Errors Pending | tabView lblCode txtCode");
    oMain.oMenu.mnuViewErrors.UserPick();
    oMain.oMenu.mnuViewProperties.UserPick();
    EXPECT_EQ(Checked(), "ProjectList Properties Pending | tabView lblProperties prlProperties");
    EXPECT_TRUE(oMain.oToolbar.ButtonEnabled(2) && !oMain.oToolbar.ButtonEnabled(3));
  });
}

}  // namespace
