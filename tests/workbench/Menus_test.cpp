// What is enabled and checked in each state of the window, and the commands of the Help menu.
#include <fstream>
#include <regex>
#include <set>

#include "FAbout.h"
#include "FMainTest.h"

namespace {

using namespace Forms;

class MenusTest : public FMainTest {
 protected:
  /// Names of what is disabled once every menu has dropped: the buttons by number, the tree, a menu
  /// of the bar by itself, else its items. Then the tabs.
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
    return s + (oMain.tvwProjects.Enabled() ? " " : " tree ") + Tabs();
  }
  static std::string KeyName(const Shortcut& o) {
    const bool bFunction = o.nKeyCode >= Key::F1;
    return std::string(o.nShift & Shift::Ctrl ? "Ctrl+" : "") +
           std::string(o.nShift & Shift::Shift ? "Shift+" : "") +
           (bFunction ? "F" + std::to_string(o.nKeyCode - Key::F1 + 1)
                      : std::string(1, static_cast<char>(o.nKeyCode)));
  }
  std::string Tabs() {
    auto& oTabs = oMain.tabView.Tabs();
    return Each(1, oTabs.Count(), [&](auto i) { return oTabs.Item(i).Key(); });
  }
};

TEST_F(MenusTest, EverythingThatShowsCanBeRead) {
  Run([&] {
    for (const Menu* poTop : oMain.Menus())
      for (const Menu* po : poTop->Items())
        EXPECT_FALSE(po->Visible() && po->Caption().empty()) << ToUtf8(po->Name());
    for (std::int32_t i = 0; i < MainToolbar::lButtons; ++i)
      EXPECT_FALSE(oMain.oToolbar.picButton(i).ToolTipText().empty()) << i;
    for (const std::int32_t i : {1, 2, 3, 11, 12, 13, 14, 15, 16})
      EXPECT_FALSE(oMain.prlProperties.Tip(i).empty()) << i;
    EXPECT_FALSE(oMain.lblErrors(1).Caption().empty() || oMain.cmdHideErrors.ToolTipText().empty());
  });
}

TEST_F(MenusTest, EachStateEnablesItsCommands) {
  enum Lacks { Nothing, Template, GoodTemplate, Project, Help, Printer };
  const struct {
    Lacks eLacks;
    const char *sNode, *sDisabled;
  } aoRow[] = {
      // First, as printers that were found are kept.
      {Printer, "P", "FilePrint FilePageSetup EditClearErrors SelectCustom | 1 2"},
      {Template, "", "FilePrint View Select Rules Props Tools | 1 2 3 4 5 tree"},
      {GoodTemplate, "", "FilePrint View Select Rules Props Tools | 1 2 3 4 5 tree"},
      {Project, "",
       "FilePrint EditClearErrors SelectAll SelectNone SelectInvert SelectCustom PropsCopySuggest "
       "PropsUndoPending ToolsApplyPending ToolsLineAdd ToolsLineRemove ToolsRefresh | 1 2 4 5 "
       "tree"},
      {Help, "P", "EditClearErrors SelectCustom HelpTopics HelpIndex HelpSearch HelpSupport | 2 6"},
      {Nothing, "P", "EditClearErrors SelectCustom | 2"},
      {Nothing, "MOne", "EditClearErrors | 2"},
      {Nothing, "MBad", "SelectAll SelectNone SelectInvert SelectCustom | 2"}};
  for (const auto& [eLacks, sNode, sDisabled] : aoRow) {
    SCOPED_TRACE(std::to_string(eLacks) + sNode);
    PaneIDE oOwn;
    if (eLacks != Project) {
      oOwn.AddProject(u"P");
      oOwn.Add(u"MOne", ComponentType::StdModule, u"Sub a()\nEnd Sub");
      oOwn.Add(u"MBad", ComponentType::StdModule, u"");
      oOwn.oLog.Fail("CodeModule of MBad", 0);
    }
    const bool bNone = eLacks == Template, bTabs = !bNone && eLacks != GoodTemplate;
    TempFolder::Write(oFolder / "Template.dat",
                      eLacks == GoodTemplate ? "<#Nonsense>\r\n" : ToUtf8(TestTemplates));
    if (bNone) std::filesystem::remove(oFolder / "Template.dat");
    if (bNone) User().ChooseFile([](FileDialog&) { return DialogAnswer{}; });
    SetHelp(eLacks != Help);
    oQueues.bFails = eLacks == Printer;
    Run(oOwn, oMain, [&, sClicked = sNode, sOff = sDisabled] {
      if (*sClicked) Click(FromUtf8(sClicked));
      EXPECT_EQ(Disabled(), sOff + std::string(bTabs ? " Properties|Code|" : " ") + "Results|");
      EXPECT_EQ(oMain.Caption(),
                u"Tarvane Quillon" + (bNone ? Text() : u" - " + File("Template.dat")));
    });
  }
}

TEST_F(MenusTest, ViewChecksWhatIsShownAndClears) {
  oIDE.AddProject(u"P");
  Run([&] {
    const auto Checked = [&] {
      oMain.oMenu[u"mnuView"].UserDrop();
      std::string s;
      for (const Menu* po : oMain.oMenu[u"mnuView"].Items())
        if (po->Checked()) s += ToUtf8(po->Name().substr(7)) + " ";
      s += "|";
      for (const Control* po : oMain.picContainer.Controls())
        if (po->Visible()) s += " " + ToUtf8(po->Name());
      return s;
    };
    EXPECT_EQ(Checked(), "ProjectTree Results | tabView lblResults srlResults");
    for (const TextView s : {u"ViewProjectList", u"ViewCode", u"ViewErrors", u"ViewPending"})
      Pick(s);
    EXPECT_EQ(Checked(), "ProjectList Code Errors Pending | tabView lblCode txtCode");
    oMain.srlErrors.Add(u"an error");
    Pick(u"EditClearErrors");
    EXPECT_NE(Lines(oMain.srlResults), "");
    Pick(u"EditClearResults");
    EXPECT_EQ(Lines(oMain.srlErrors) + Lines(oMain.srlResults), "");
    Pick(u"ViewErrors");
    Pick(u"ViewProperties");
    EXPECT_EQ(Checked(), "ProjectList Properties Pending | tabView lblProperties prlProperties");
    EXPECT_TRUE(oMain.oToolbar.ButtonEnabled(2) && !oMain.oToolbar.ButtonEnabled(3));
    EXPECT_FALSE(oMain.UserKey('R', Shift::Alt)) << "opens the menu Rules";
    EXPECT_EQ(Tab(), "Properties");
    for (const auto& [nShift, sTab] : {std::pair(Shift::Ctrl, "Code"),
                                       {Shift::Ctrl | Shift::Shift, "Properties"},
                                       {Shift::Ctrl | Shift::Shift, "Results"}}) {
      EXPECT_TRUE(oMain.UserKey(Key::Tab, nShift));
      EXPECT_EQ(Tab(), sTab);
    }
    Press(u"Tree");
    EXPECT_EQ(Checked(), "ProjectTree Results Pending | tabView lblResults srlResults");
  });
}

TEST_F(MenusTest, TheHelpNamesTheKeysOfAllCommands) {
  std::ifstream oPage(QUILLON_SOURCE_DIR "/docs/help/keys.html");
  const std::regex oRow("<tr><td>(.*)</td><td>main window</td><td>(.*)</td></tr>");
  std::set<std::string> oTold, oKeys;
  std::smatch oMatch;
  for (std::string s; std::getline(oPage, s);)
    if (std::regex_match(s, oMatch, oRow)) oTold.insert(oMatch.str(1) + " " + oMatch.str(2));
  Run([&] {
    for (const Menu* poTop : oMain.Menus())
      for (const Menu* po : poTop->Items())
        if (const Shortcut o = po->Shortcut(); o.nKeyCode)
          oKeys.insert(KeyName(o) + " " + ToUtf8(PlainCaption(po->Caption())));
  });
  EXPECT_EQ(oTold, oKeys);
}

TEST_F(MenusTest, HelpOpensItsPages) {
  Run([&] {
    for (const TextView s :
         {u"HelpTopics", u"HelpIndex", u"HelpSearch", u"HelpSupport", u"HelpWeb"})
      Pick(s);
    Press(u"Help");
    const Text s = MXHTMLHelp::HelpFile();
    EXPECT_EQ(moRenderer.Opened(),
              (std::vector<Text>{s + u"|0|0", s + u"|1|0", s + u"|2|0", s + u"|0|1800",
                                 u"https://tarvane.example/quillon", s + u"|0|0"}));
    SetHelp(false);
    oMain.oMenu[u"mnuHelp"].UserDrop();
    EXPECT_FALSE(oMain.oToolbar.ButtonEnabled(6)) << "the file has gone";
    User().Modal<FAbout>([](FAbout& o) { o.Hide(); });
    Pick(u"HelpAbout");
  });
}

}  // namespace
