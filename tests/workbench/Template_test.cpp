// Which template the window begins with, opening another one, and closing.
#include "FMainTest.h"

namespace {

using namespace Forms;

DialogAnswer Choose(FileDialog& o, const Text& sFile) {
  o.asPath = {sFile};
  return {.bConfirmed = true};
}

TEST_F(FMainTest, StartTakesTheNewestFileThatExists) {
  struct Row {
    const char* sName;
    std::vector<const char*> asRecent;  // the oldest first
    bool bBeside;
    const char* sOpened;  // empty: the user is asked, and cancels
  };
  for (const Row& oRow : {
           Row{"recent", {"Old.dat", "New.dat"}, true, "New.dat"},
           Row{"the newest is gone", {"Old.dat", "Gone.dat"}, true, "Old.dat"},
           Row{"all are gone", {"Gone.dat"}, true, "Template.dat"},
           Row{"none beside the program", {}, false, ""},
       }) {
    SCOPED_TRACE(oRow.sName);
    RegistryStore oOwn;
    goRegistry = &oOwn;
    ResetRecentFiles();
    for (const char* s : {"Old.dat", "New.dat"})
      TempFolder::Write(oFolder / s, ToUtf8(TestTemplates));
    if (!oRow.bBeside) std::filesystem::remove(oFolder / "Template.dat");
    RecentFiles().Initialize(MXRegistry::OpenRegKey(
        MXRegistry::HKEY_CURRENT_USER, Text(MXRegistry::RootKey) + u"FMain\\Recent Files",
        MXRegistry::KEY_ALL_ACCESS));
    for (const char* s : oRow.asRecent) RecentFiles().Add(File(s));
    if (!*oRow.sOpened) User().ChooseFile([](FileDialog&) { return DialogAnswer{}; });
    FMain oOwnMain(moToolkit, oPrinters);
    User().Modal<FMain>([&](FMain& o) {
      EXPECT_EQ(o.Caption(), u"Tarvane Quillon") << "not before the window is there";
      moRenderer.Advance(100);
      EXPECT_EQ(o.Caption(), *oRow.sOpened ? u"Tarvane Quillon - " + File(oRow.sOpened)
                                           : Text(u"Tarvane Quillon"));
      EXPECT_EQ(RecentFiles().Item(1), *oRow.sOpened ? File(oRow.sOpened) : Text());
      o.Hide();
      o.Unload();
    });
    oOwnMain.Display(oIDE, oConnect);
    goRegistry = &oStore;
  }
}

TEST_F(FMainTest, OpeningShowsTheReportAndTheNodeOfTheCodeInFront) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"");
  oIDE.poShown = &Add(u"MTwo", u"Sub b()\nEnd Sub");
  oIDE.AddProject(u"Q", 0);
  Add(u"MTwo", u"");
  Run([&] {
    EXPECT_EQ(Tab(), "Results");
    EXPECT_EQ(oMain.tabView.Tabs().Item(1).Key(), u"Properties");
    EXPECT_EQ(oMain.tabView.Tabs().Item(2).Key(), u"Code");
    EXPECT_NE(Lines(oMain.srlResults).find("Processing Template \"Std\""), std::string::npos)
        << Lines(oMain.srlResults);
    EXPECT_EQ(Tree(),
              "P[Standard EXE](Modules[Closed Folder](MOne[Standard Module] *MTwo[Standard "
              "Module])) Q[Standard EXE](Modules[Closed Folder](MTwo[Standard Module]))");
    EXPECT_EQ(oMain.lblTree.GetCaption(), u"Projects");
    EXPECT_EQ(oMain.lblList.GetCaption(), u"Procedures of Module 'MTwo'");
    EXPECT_EQ(oMain.lblProperties.GetCaption(), u"MTwo.(declarations)");
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  });
}

TEST_F(FMainTest, BeginsWithTheFirstNodeWhenNoCodeCanBeTold) {
  oIDE.AddProject(u"P", 0);
  oIDE.oLog.Fail("ActiveCodePane");
  Run([&] { EXPECT_EQ(Tree(), "*P[Standard EXE]"); });
}

TEST_F(FMainTest, ABadTemplateLeavesTheWindowToOpenAnother) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub a()\nEnd Sub");
  TempFolder::Write(oFolder / "Bad.dat", "<#Nonsense>\r\n");
  Run([&] {
    Click(u"MOne");
    struct Row {
      const char *sFile, *sReport;
    };
    for (const Row& oRow : {Row{"Bad.dat", "Unknown Directive <#nonsense"},
                            Row{"Gone.dat", "Gone.dat"}, Row{"", "folder"}}) {
      SCOPED_TRACE(oRow.sFile);
      User().ChooseFile([&](FileDialog& o) { return Choose(o, File(oRow.sFile)); });
      EXPECT_TRUE(oMain.oMenu.mnuFileOpenTemplate.UserPick());
      EXPECT_NE(Lines(oMain.srlResults).find(oRow.sReport), std::string::npos)
          << Lines(oMain.srlResults);
      EXPECT_EQ(oMain.Model(), nullptr);
      EXPECT_EQ(Tree() + Tab() + Panel(1) + Panel(2) + Rows(oMain.lvwProcs), "Resultshidden");
      EXPECT_EQ(oMain.lblProperties.GetCaption() + oMain.txtCode.Text(), u"");
      EXPECT_FALSE(oMain.tvwProjects.Enabled() || oMain.oMenu.mnuTools.Enabled());
    }
    User().ChooseFile([&](FileDialog& o) {
      EXPECT_EQ(o.sDirectory, File("")) << "where the last one was";
      return Choose(o, File("Template.dat"));
    });
    EXPECT_TRUE(oMain.oToolbar.picButton(0).UserMouseDown(Button::Left, 0, 0, 0) &&
                oMain.oToolbar.picButton(0).UserMouseUp(Button::Left, 0, 0, 0));
    EXPECT_EQ(Tree(), "*P[Standard EXE](Modules[Closed Folder](MOne[Standard Module]))");
    EXPECT_EQ(oMain.tabView.Tabs().Count(), 3);
  });
}

TEST_F(FMainTest, AGroupThatCantBeReadIsToldAndTheWindowStaysUsable) {
  oIDE.AddProject(u"P", 0);
  Run([&] {
    oIDE.oLog.Fail("VBProjects", 0);
    User().ChooseFile([&](FileDialog& o) { return Choose(o, File("Template.dat")); });
    oMain.oMenu.mnuFileOpenTemplate.UserPick();
    EXPECT_NE(Lines(oMain.srlResults).find("The projects could not be read"), std::string::npos);
    EXPECT_TRUE(oMain.oMenu.mnuFile.Enabled() && !oMain.oMenu.mnuTools.Enabled());
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    oIDE.oLog.Fail("VBProjects", 1000000);
    EXPECT_TRUE(oMain.oMenu.mnuFileRecent(1).UserPick());
    EXPECT_EQ(Tree(), "*P[Standard EXE]");
  });
}

TEST_F(FMainTest, ARecentFileGoesToTheTopAndKeepsWhatBelongsToIt) {
  TempFolder::Write(oFolder / "Other.dat", ToUtf8(TestTemplates));
  Run([&] {
    User().ChooseFile([&](FileDialog& o) { return Choose(o, File("Other.dat")); });
    oMain.oMenu.mnuFileOpenTemplate.UserPick();
    EXPECT_EQ(oMain.oMenu.mnuFileRecent(2).Tag(), File("Template.dat"));
    EXPECT_TRUE(oMain.oMenu.mnuFileRecent(2).UserPick());
    EXPECT_EQ(oMain.Caption(), u"Tarvane Quillon - " + File("Template.dat"));
    EXPECT_EQ(oMain.oMenu.mnuFileRecent(1).Tag(), File("Template.dat"));
  });
}

// Opening or leaving while the lists let events through must not pull the model from under a walk.
TEST_F(FMainTest, ATemplateMayBeClosedWhileAListFills) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub a()\nEnd Sub");
  Run([&] {
    User().DoEvents([&] {
      User().ChooseFile([&](FileDialog& o) { return Choose(o, File("Template.dat")); });
      EXPECT_TRUE(oMain.oMenu.mnuFileOpenTemplate.UserPick());
    });
    Click(u"MOne");
    EXPECT_EQ(Tree(), "*P[Standard EXE](Modules[Closed Folder](MOne[Standard Module]))");
    User().DoEvents([&] { EXPECT_TRUE(oMain.oMenu.mnuFileExit.UserPick()); });
    Click(u"MOne");
    EXPECT_FALSE(oMain.Loaded());
  });
}

}  // namespace
