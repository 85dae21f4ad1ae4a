// What the user reads in the window, what is enabled and checked in each of its states, and the
// commands of the Help menu.
#include "FAbout.h"
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
  std::string Tabs() {
    auto& oTabs = oMain.tabView.Tabs();
    return Each(1, oTabs.Count(),
                [&](auto i) { return oTabs.Item(i).Key() + oTabs.Item(i).Caption(); });
  }
  static std::string Columns(ListView& oList) {
    auto& o = oList.ColumnHeaders();
    return Each(1, o.Count(),
                [&](auto i) { return o.Item(i).Text() + u" " + ToText(o.Item(i).Width()); });
  }
};

TEST_F(MenusTest, WhatTheUserReads) {
  Run([&] {
    const auto Items = [&](std::size_t i) { return Captions(oMain.Menus()[i]->Items()); };
    std::string sFile = Items(0);
    sFile.erase(sFile.find("&1 ") + 3, sFile.rfind("|-|") - sFile.find("&1 ") - 3);
    const auto Check = [](const char* sName, const std::string& sShown, const char* sExpected) {
      EXPECT_EQ(sShown, sExpected) << sName;
    };
    Check("bar", Captions(oMain.Menus()), "&File|&View|&Select|&Rules|&Properties|&Tools|&Help");
    Check("File", sFile, "&Open Template... ^O|-|&Print... ^P|Page Set&up...|-|&1 |-|E&xit ^Q");
    Check("View", Items(1),
          "Project &Folders|&No Project Folders|-|&Properties|&Code|&Results|-|VBIDE &Errors|-|"
          "C&lear Results|Cl&ear VBIDE Errors|-|Pending Co&de");
    Check("Select", Items(2),
          "Select &All ^A|Select &None ^N|&Invert Selection ^I|-|&Custom Select...");
    Check("Rules", Items(3), "&Define Rules...");
    Check("Properties", Items(4), "&Copy Suggested...|-|&Discard Pending...");
    Check("Tools", Items(5),
          "&Apply Pending Properties...|-|&Insert Line Numbers...|Re&move Line Numbers...|-|"
          "&Refresh Error Handlers...|-|&Options...|-|&Prove Rewrites");
    Check("Help", Items(6),
          "&Contents...|&Index...|&Search...|-|&Technical Support...|Morvelle on the &Web|-|"
          "&About Tarvane");
    Check("toolbar", Each(0, 6, [&](auto i) { return oMain.oToolbar.picButton(i).ToolTipText(); }),
          "Open Template File...|Print...|Project Folders|No Project Folders|Copy Suggested "
          "Properties...|Apply Pending Properties...|Help|");
    Check("modules", Columns(oMain.lvwMods),
          "Name 1500|Type 1500|Instancing 1500|ReadOnly 1500|Modified 2000|FileName 4000|");
    Check("procedures", Columns(oMain.lvwProcs),
          "Procedure 2000|Type 1000|Scope 1000|Template 1000|Locked 1000|Boundary 1000|Severity "
          "1000|Retry 800|Trace 800|");
    Check("errors", ToUtf8(oMain.lblErrors(1).Caption() + u"|" + oMain.cmdHideErrors.ToolTipText()),
          "VBIDE Errors|Close Errors");
    Check("sheet", Each(1, 16, [&](auto i) { return oMain.prlProperties.Tip(i); }),
          "The Property changes which are Pending application to the Project Code.|"
          "The Property values which are currently present in the Project Code.|"
          "The Property values which the Quillon Suggests for the Project Code, based on its own "
          "Expert Analysis and your defined Property Rules.||||||||"
          "Returns/sets the name of a Tarvane Template for the Procedure.|"
          "Returns/sets a value that determines whether the Procedure can be changed by Quillon.|"
          "Returns/sets a Boundary Type value that determines how Errors will be propagated by "
          "Tarvane.|"
          "Returns/sets a Severity Type value that determines how Errors will be handled by "
          "Tarvane.|"
          "Returns/sets a Retry Type value that determines how Tarvane will Retry Errors.|"
          "Returns/sets a value that determines whether Quillon will insert Tracing code.|");
  });
}

TEST_F(MenusTest, EachStateEnablesItsCommands) {
  enum Lacks { Nothing, Template, GoodTemplate, Project, Help, Printer };
  const auto Check = [&](Lacks eLacks, const char* sNode, const std::string& sDisabled) {
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
    Run(oOwn, oMain, [&] {
      if (*sNode) Click(FromUtf8(sNode));
      EXPECT_EQ(Disabled(), sDisabled + (bTabs ? " Properties&Properties|Code&Code|" : " ") +
                                "Results&Results|");
      EXPECT_EQ(oMain.Caption(),
                u"Tarvane Quillon" + (bNone ? Text() : u" - " + File("Template.dat")));
    });
  };
  // First, as printers that were found are kept.
  Check(Printer, "P", "FilePrint FilePageSetup EditClearErrors SelectCustom | 1 2");
  for (const Lacks e : {Template, GoodTemplate})
    Check(e, "", "FilePrint View Select Rules Props Tools | 1 2 3 4 5 tree");
  Check(Project, "",
        "FilePrint EditClearErrors SelectAll SelectNone SelectInvert SelectCustom PropsCopySuggest "
        "PropsUndoPending ToolsApplyPending ToolsLineAdd ToolsLineRemove ToolsRefresh | 1 2 4 5 "
        "tree");
  Check(Help, "P",
        "EditClearErrors SelectCustom HelpTopics HelpIndex HelpSearch HelpSupport | 2 6");
  Check(Nothing, "P", "EditClearErrors SelectCustom | 2");
  Check(Nothing, "MOne", "EditClearErrors | 2");
  Check(Nothing, "MBad", "SelectAll SelectNone SelectInvert SelectCustom | 2");
}

TEST_F(MenusTest, ViewChecksWhatIsShownAndClears) {
  oIDE.AddProject(u"P");
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
    Press(ToolbarButton::Tree);
    Pick(u"ViewResults");
    EXPECT_EQ(Checked(), "ProjectTree Results Pending | tabView lblResults srlResults");
  });
}

TEST_F(MenusTest, HelpOpensItsPages) {
  Run([&] {
    for (const TextView s :
         {u"HelpTopics", u"HelpIndex", u"HelpSearch", u"HelpSupport", u"HelpWeb"})
      Pick(s);
    Press(ToolbarButton::Help);
    const Text sFile = MXHTMLHelp::HelpFile();
    EXPECT_EQ(
        moRenderer.Opened(),
        (std::vector<Text>{sFile + u"|0|0", sFile + u"|1|0", sFile + u"|2|0", sFile + u"|0|1800",
                           u"https://tarvane.example/quillon", sFile + u"|0|0"}));
    SetHelp(false);
    oMain.oMenu.mnuHelp.UserDrop();
    EXPECT_FALSE(oMain.oToolbar.ButtonEnabled(6)) << "the file has gone";
    bool bShown = false;
    User().Modal<FAbout>([&](FAbout& o) { bShown = true, o.Hide(); });
    Pick(u"HelpAbout");
    EXPECT_TRUE(bShown);
  });
}

}  // namespace
