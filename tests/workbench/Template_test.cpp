// Which template the window begins with, opening another one, and closing.
#include "ErrorRuntimeFake.h"
#include "FMainTest.h"

namespace {

using namespace Forms;

TEST_F(FMainTest, StartTakesTheNewestFileThatExists) {
  // Recent files, the oldest first, and what opens; where nothing does, the user is asked and
  // cancels.
  for (const auto& as : ::Rows(R"(
         recent                  | Old.dat New.dat  | New.dat
         the newest is gone      | Old.dat Gone.dat | Old.dat
         all are gone            | Gone.dat         | Template.dat
         none beside the program |                  |)")) {
    SCOPED_TRACE(as[0]);
    OwnSettings oOwn;
    ResetRecentFiles();
    for (const char* s : {"Old.dat", "New.dat"})
      TempFolder::Write(oFolder / s, ToUtf8(TestTemplates));
    RecentFiles().Initialize(MXRegistry::OpenRegKey(
        MXRegistry::HKEY_CURRENT_USER, Text(MXRegistry::RootKey) + u"FMain\\Recent Files",
        MXRegistry::KEY_ALL_ACCESS));
    std::istringstream oRecent(as[1]);
    for (std::string s; oRecent >> s;) RecentFiles().Add(File(s));
    const Text sOpens = as[2].empty() ? Text() : File(as[2]);
    if (sOpens.empty()) std::filesystem::remove(oFolder / "Template.dat");
    if (sOpens.empty()) User().ChooseFile([](FileDialog&) { return DialogAnswer{}; });
    FMain oOwnMain(moToolkit, oPrinters);
    Run(oIDE, oOwnMain, [&] {
      EXPECT_EQ(oOwnMain.Caption(),
                u"Tarvane Quillon" + (sOpens.empty() ? Text() : u" - " + sOpens));
      EXPECT_EQ(RecentFiles().Item(1), sOpens);
    });
  }
}

TEST_F(FMainTest, OpeningShowsTheReportAndTheNodeOfTheCodeInFront) {
  Add(u"mtwo", u"");
  oIDE.poShown = &Add(u"MTwo", u"Sub b()\nEnd Sub");
  oIDE.AddProject(u"Q");
  Add(u"MTwo", u"");
  Run([&] {
    ExpectHolds(Lines(oMain.srlResults), "Processing Template \"Std\"");
    Play(R"(the first of exactly that name | | tab, tree, list, title
            | Results, P[Standard EXE](Modules[Closed Folder](mtwo[Standard Module]
            \ *MTwo[Standard Module]))
            \ Q[Standard EXE](Modules[Closed Folder](MTwo[Standard Module])),
            \ Procedures of Module 'MTwo', MTwo.(declarations))");
    EXPECT_EQ(oMain.lblTree.GetCaption(), u"Projects");
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  });
  oIDE.oLog.Fail("ActiveCodePane");
  Run([&] { EXPECT_TRUE(Tree().starts_with("*P[Standard EXE]")) << "when no code can be told"; });
}

TEST_F(FMainTest, ABadTemplateLeavesTheWindowToOpenAnother) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  TempFolder::Write(oFolder / "Bad.dat", "<#Nonsense>\r\n");
  oStore.SetString(Key(u"FMain"), u"Open Template Path", File("gone"));
  Run([&] {
    Click(u"MOne");
    const struct {
      const char *sFile, *sReport;
    } aoRow[] = {
        {"Bad.dat", "Unknown Directive <#nonsense"}, {"Gone.dat", "Gone.dat"}, {"", "folder"}};
    for (const auto& oRow : aoRow) {
      SCOPED_TRACE(oRow.sFile);
      ChooseTemplate(oRow.sFile, oRow.sFile == aoRow[0].sFile ? Text() : File(""));
      Pick(u"FileOpenTemplate");
      ExpectHolds(Lines(oMain.srlResults), oRow.sReport);
      EXPECT_EQ(oMain.Model(), nullptr);
      EXPECT_EQ(Tree() + Tab() + Panel(1) + Panel(2) + Rows(oMain.lvwProcs), "Resultshidden");
      EXPECT_EQ(oMain.lblProperties.GetCaption() + oMain.txtCode.Text(), u"");
      EXPECT_FALSE(oMain.tvwProjects.Enabled() || oMain.oMenu[u"mnuTools"].Enabled());
    }
    ChooseTemplate("Template.dat", File(""));
    Press(u"Open");
    EXPECT_EQ(Tree(), "*P[Standard EXE](Modules[Closed Folder](MOne[Standard Module]))");
    EXPECT_EQ(oMain.tabView.Tabs().Count(), 3);
    EXPECT_EQ(MRules::oRules.sDefaultModTemplate + MRules::oRules.sDefaultProcTemplate, u"ModStd");
  });
  EXPECT_EQ(MRules::oRules.sDefaultModTemplate + MRules::oRules.sDefaultProcTemplate, u"");
  EXPECT_EQ(oStore.GetString(Key(u"FMain"), u"Open Template Path"), File(""));
}

TEST_F(FMainTest, AGroupThatCantBeReadIsToldAndOpensFromARecentFileOnceItCan) {
  TempFolder::Write(oFolder / "Other.dat", ToUtf8(TestTemplates));
  oIDE.AddProject(u"P");
  Run([&] {
    oIDE.oLog.Fail("VBProjects", 0);
    ChooseTemplate("Other.dat");
    Pick(u"FileOpenTemplate");
    ExpectHolds(Lines(oMain.srlResults), "The projects could not be read");
    EXPECT_TRUE(oMain.oMenu[u"mnuFile"].Enabled() && !oMain.oMenu[u"mnuTools"].Enabled());
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    oIDE.oLog.Fail("VBProjects", 1000000);
    EXPECT_EQ(oMain.oMenu.Array(u"mnuFileRecent")(2).Tag(), File("Template.dat"));
    EXPECT_TRUE(oMain.oMenu.Array(u"mnuFileRecent")(2).UserPick());
    EXPECT_EQ(Tree(), "*P[Standard EXE]");
    EXPECT_EQ(oMain.Caption(), u"Tarvane Quillon - " + File("Template.dat"));
    EXPECT_EQ(oMain.oMenu.Array(u"mnuFileRecent")(1).Tag(), File("Template.dat"));
  });
}

/// A filling list lets events through. Each is tried at each of those points; afterwards the window
/// is whole, and so it is when it is shown the next time.
TEST_F(FMainTest, EventsWhileAListFillsLeaveTheWindowWhole) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  oIDE.poShown = &Add(u"MTwo", u"Sub b()\nEnd Sub");
  TempFolder::Write(oFolder / "Broken.dat", "<#Template name=x type=nonsense>\n");
  TempFolder::Write(oFolder / "Other.dat", ToUtf8(TestTemplates));
  const auto Opens = [&](const char* sFile) {
    ChooseTemplate(sFile);
    Pick(u"FileOpenTemplate");
  };
  const std::vector<std::pair<const char*, std::function<void()>>> aoPoint = {
      {"start", {}},
      {"open", [&] { Opens("Template.dat"); }},
      {"recent", [&] { EXPECT_TRUE(oMain.oMenu.Array(u"mnuFileRecent")(1).UserPick()); }},
      {"component", [&] { Click(u"MOne"); }},
      {"project", [&] { Click(u"P"); }},
      {"folder", [&] { Click(u"Modules"); }},
      {"view", [&] { Pick(u"ViewProjectList"); }}};
  const std::vector<std::pair<const char*, std::function<void()>>> aoEvent = {
      {"exit", [&] { Pick(u"FileExit"); }},
      {"close box", [&] { EXPECT_TRUE(oMain.UserClose()); }},
      {"open", [&] { Opens("Other.dat"); }},
      {"open a broken one", [&] { Opens("Broken.dat"); }},
      {"the other view", [&] {
         // Off while a template opens.
         (oMain.tvwProjects.Tag() == u"Tree" ? oMain.oMenu[u"mnuViewProjectList"]
                                             : oMain.oMenu[u"mnuViewProjectTree"])
             .UserPick();
       }}};
  const auto IsWhole = [&] {
    EXPECT_EQ(std::to_string(oMain.tabView.Tabs().Count()) +
                  (oMain.tvwProjects.Enabled() ? "t" : "") +
                  (oMain.oMenu[u"mnuTools"].Enabled() ? "m" : "") + (oMain.Model() ? "o" : "") +
                  std::to_string(moRenderer.ShownPointer()),
              "3tmo0");
    Click(u"P");
    for (const TextView sNode : {u"MOne", u"MTwo"}) {
      Click(sNode);
      EXPECT_EQ(oMain.lblList.GetCaption(), u"Procedures of Module '" + Text(sNode) + u"'");
    }
  };
  for (const auto& [sPoint, oPoint] : aoPoint)
    for (const auto& [sEvent, oEvent] : aoEvent) {
      SCOPED_TRACE(std::string(sEvent) + " at " + sPoint);
      const AnswersWith oErrors(ErrorIds::ActionLeave);
      if (!oPoint) User().DoEvents(oEvent);
      Run([&] {
        if (oPoint) User().DoEvents(oEvent);
        if (oPoint) oPoint();
        if (oMain.Loaded() && !oMain.Model()) Opens("Template.dat");
        if (oMain.Loaded()) IsWhole();
      });
      Run(IsWhole);
      EXPECT_EQ(oErrors.nReports, 0);
    }
}

// Opening or leaving while the lists let events through must not pull the model from under a walk.
TEST_F(FMainTest, ATemplateMayBeClosedWhileAListFills) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  Run([&] {
    ChooseTemplate("Template.dat");
    User().DoEvents([&] { Pick(u"FileOpenTemplate"); });
    Click(u"MOne");
    EXPECT_EQ(Tree(), "*P[Standard EXE](Modules[Closed Folder](MOne[Standard Module]))");
    TempFolder::Write(oFolder / "Broken.dat", "<#Template name=x type=nonsense>\n");
    ChooseTemplate("Broken.dat");
    User().DoEvents([&] { Pick(u"FileOpenTemplate"); });
    Click(u"MOne");
    EXPECT_FALSE(oMain.tvwProjects.Enabled()) << "there is nothing to click";
    EXPECT_TRUE(oMain.oMenu.Array(u"mnuFileRecent")(2).UserPick());
    for (const TextView sNode : {u"MOne", u"P", u"MOne"}) {
      User().Modal<FCopySuggest>([&](FCopySuggest& o) {
        EXPECT_EQ(o.cmdAction(2).Enabled(), sNode == u"MOne") << "of the node that was clicked";
        EXPECT_TRUE(o.cmdCancel.UserClick());
      });
      User().DoEvents([&] { Pick(u"PropsCopySuggest"); });
      Click(sNode);
    }
    Click(u"P");
    User().DoEvents([&] { Pick(u"FileExit"); });
    Click(u"MOne");
    EXPECT_FALSE(oMain.Loaded());
  });
}

}  // namespace
