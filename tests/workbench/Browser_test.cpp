// The tree in both views, the lists that follow it, and modules that can't be read.
#include <sys/stat.h>

#include "FMainTest.h"
#include "NodeKey.h"

namespace {

using namespace Forms;

TEST(NodeKey, IsReadByTheViewThatMadeIt) {
  using NodeKey::Fields;
  struct Row {
    const char* sName;
    Text sKey, sView;
    Fields oFields;
  };
  for (const Row& oRow : {
           Row{"project", NodeKey::Project(3), u"Tree", {3, 0, 0}},
           Row{"project, no folders", NodeKey::Project(3), u"List", {3, 0, 0}},
           Row{"folder", NodeKey::Folder(3, 2), u"Tree", {3, 2, 0}},
           Row{"component", NodeKey::Component(u"Tree", 3, 2, 17), u"Tree", {3, 2, 17}},
           Row{"component, no folders", NodeKey::Component(u"List", 3, 2, 17), u"List", {3, 0, 17}},
           Row{"no key", u"", u"Tree", {0, 0, 0}},
           Row{"no numbers", u"VBProject.x.9999999999.-1.", u"Tree", {0, 0, 0}},
       }) {
    SCOPED_TRACE(oRow.sName);
    EXPECT_EQ(NodeKey::Read(oRow.sKey, oRow.sView), oRow.oFields);
  }
}

TEST_F(FMainTest, TreeShowsProjectsAndComponentsInBothViews) {
  oIDE.AddProject(u"Shop", 2);
  Add(u"mZoo", u"");
  Add(u"FTwo", u"", ComponentVBForm);
  Add(u"MArk", u"");
  Add(u"Odd", u"", 13);
  oIDE.AddProject(u"Till", 0);
  Add(u"MArk", u"");
  Run([&] {
    EXPECT_EQ(Tree(),
              "*Shop[ActiveX DLL](Forms[Closed Folder](FTwo[Form Module]) Modules[Closed "
              "Folder](MArk[Standard Module] mZoo[Standard Module]) Odd[]) "
              "Till[Standard EXE](Modules[Closed Folder](MArk[Standard Module]))");
    Click(u"Modules");
    EXPECT_TRUE(oMain.oMenu.mnuViewProjectList.UserPick());
    EXPECT_EQ(Tree(),
              "*Shop[ActiveX DLL](FTwo[Form Module] MArk[Standard Module] mZoo[Standard Module] "
              "Odd[]) Till[Standard EXE](MArk[Standard Module])")
        << "the folder's project";
    Click(u"mZoo");
    EXPECT_TRUE(oMain.oMenu.mnuViewProjectTree.UserPick());
    EXPECT_NE(Tree().find(" *mZoo["), std::string::npos) << Tree();
    EXPECT_EQ(oMain.lblList.GetCaption(), u"Procedures of Module 'mZoo'");
  });
}

TEST_F(FMainTest, NodesDecideWhatTheListsShow) {
  oIDE.AddProject(u"Shop", 2).sFileName = u"/a/Shop.vbp";
  FakeComponent& oClass = Add(u"CBox", u"", ComponentClass);
  oClass.nInstancing = 5;
  const std::string sFixed = oFolder / "MFix.bas";
  TempFolder::Write(sFixed, "x");
  chmod(sFixed.c_str(), 0444);
  Add(u"MFix", u"").asFile = {FromUtf8(sFixed)};
  FakeComponent& oNew = Add(u"MNew", u"");
  oNew.asFile = {u""};
  Run([&] {
    struct Row {
      const char *sNode, *sTitle, *sRows, *sPanels;
    };
    for (const Row& oRow : {
             Row{"Class Modules", "Class Modules of Project 'Shop'",
                 "*Class Module|CBox|Class Module|MultiUse|/src/CBox.bas\n",
                 "1 Object(s) /a/Shop.vbp"},
             Row{"Shop", "Modules of Project 'Shop'", "3", "3 Object(s) /a/Shop.vbp"},
             Row{"MNew", "Procedures of Module 'MNew'", "*Declarations|(declarations)\n",
                 "1 Object(s) Selected "},
         }) {
      SCOPED_TRACE(oRow.sNode);
      Click(FromUtf8(oRow.sNode));
      EXPECT_EQ(ToUtf8(oMain.lblList.GetCaption()), oRow.sTitle);
      EXPECT_EQ(Panel(1) + " " + Panel(2), oRow.sPanels);
      ListView& oFront = oMain.lvwMods.Visible() ? oMain.lvwMods : oMain.lvwProcs;
      const std::string sRows = Rows(oFront);
      EXPECT_EQ(*oRow.sRows == '3' ? "3" : sRows, oRow.sRows);
      EXPECT_NE(oMain.lvwMods.Visible(), oMain.lvwProcs.Visible());
    }
    Click(u"Modules");
    const std::string sRows = Rows(oMain.lvwMods);
    EXPECT_TRUE(sRows.starts_with("*Standard Module|MFix|Standard Module|ReadOnly|2")) << sRows;
    EXPECT_TRUE(sRows.ends_with("\nStandard Module|MNew|Standard Module\n")) << sRows;
  });
}

TEST_F(FMainTest, ProcedureRowsTellTypeScopeAndPendingValues) {
  oIDE.AddProject(u"P", 0);
  Add(u"FOne",
      u"Const Sev = tvnSeverityFatal\n'@ Mod\n"
      u"Private Sub cmd_Click()\n'@ Std&Locked\n    On Error GoTo Trap\nTrap:\n"
      u"    Fail tvnSeverityNormal\nEnd Sub\nFriend Property Let b(v)\nEnd Property\n"
      u"Function a1()\nOn Error Resume Next\nEnd Function\n",
      ComponentVBForm)
      .asControl = {u"cmd"};
  Run([&] {
    Click(u"FOne");
    EXPECT_EQ(Rows(oMain.lvwProcs),
              "*Declarations|(declarations)|Mod|Fatal\nMethod|a1|Function|Public|(bespoke)\n"
              "Property|b|Property Let|Friend|Fatal\n"
              "Event|cmd_Click|Click|Private|Std|Locked|Normal\n");
  });
}

TEST_F(FMainTest, AClickOnTheProcessedNodeReloadsNothing) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub a()\nEnd Sub\nSub b()\nEnd Sub");
  Run([&] {
    Click(u"MOne");
    Select(oMain.lvwProcs, {2, 3});
    Click(u"MOne");
    EXPECT_EQ(Panel(1), "2 Object(s) Selected");
    EXPECT_TRUE(oMain.tvwProjects.HasFocus());
  });
}

TEST_F(FMainTest, AModuleThatCantBeReadIsToldInItsPane) {
  oIDE.AddProject(u"P", 0);
  Add(u"MBad", u"");
  Add(u"MOne", u"Sub a()\nEnd Sub");
  oIDE.oLog.Fail("CodeModule of MBad", 0);
  Run([&] {
    EXPECT_FALSE(oMain.fraErrors.Visible());
    Click(u"MBad");
    EXPECT_EQ(Lines(oMain.srlErrors),
              "I asked VB Extensibility about this Module [MBad] It threw me the following Error "
              "on [CodeModule Property of VBComponent Object].\r\n"
              "  Number = 70  Decsription = \"CodeModule of MBad failed\"  Source = \"FakeIDE\"\r\n"
              "Your Project Code or Components may be in a non-runnable state which VB "
              "Extensibility is unhappy with\r\n");
    EXPECT_TRUE(oMain.fraErrors.Visible() && oMain.srlErrors.HasFocus() == false);
    EXPECT_EQ(Rows(oMain.lvwProcs) + Rows(oMain.lvwMods), "hiddenhidden");
    EXPECT_EQ(Panel(1), "0 Object(s)");
    Click(u"MOne");
    EXPECT_EQ(Panel(1), "1 Object(s) Selected") << "another node recovers";
    EXPECT_TRUE(oMain.cmdHideErrors.UserClick());
    EXPECT_FALSE(oMain.fraErrors.Visible());
    oMain.Model()->EnumProceduresError(1, LoadError{u"c", 0, u"d", u"TarvaneQuillon"});
    EXPECT_NE(Lines(oMain.srlErrors)
                  .find("  Number = 0 [yes! zero!]  Decsription = \"d\"  Source = "
                        "\"TarvaneQuillon\" ...but don't believe it :-)\r\n"),
              std::string::npos);
  });
}

TEST_F(FMainTest, ColumnsSortAndTurnAround) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub b()\nEnd Sub\nFunction a()\nEnd Function\nSub C()\nEnd Sub");
  Run([&] {
    Click(u"MOne");
    const auto Names = [&](std::int32_t lColumn) {
      EXPECT_TRUE(oMain.lvwProcs.UserColumnClick(lColumn));
      std::string s;
      for (std::int32_t i = 1; i <= 4; ++i)
        s += ToUtf8(oMain.lvwProcs.ListItems().Item(i).Text()) + " ";
      return s;
    };
    EXPECT_EQ(Names(1), "C b a (declarations) ");
    EXPECT_EQ(Names(1), "(declarations) a b C ");
    EXPECT_EQ(Names(2), "(declarations) a b C ") << "by type: none, Function, Sub, Sub";
    EXPECT_EQ(Names(2).substr(4), "a (declarations) ");
  });
}

TEST_F(FMainTest, ADoubleClickGoesDownToTheProcedures) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"");
  Add(u"MTwo", u"");
  Run([&] {
    Click(u"Modules");
    EXPECT_TRUE(oMain.lvwMods.UserSelect(2));
    EXPECT_TRUE(oMain.lvwMods.UserDblClick());
    EXPECT_EQ(oMain.lblList.GetCaption(), u"Procedures of Module 'MTwo'");
    EXPECT_NE(Tree().find("*MTwo"), std::string::npos);
  });
}

TEST_F(FMainTest, ColumnWidthsComeBack) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"");
  Run([&] {
    Click(u"MOne");
    EXPECT_TRUE(oMain.lvwProcs.UserColumnWidth(2, 1234));
  });
  Run([&] {
    EXPECT_EQ(oMain.lvwProcs.ColumnHeaders().Item(2).Width(), 1234);
    EXPECT_EQ(oMain.lvwMods.ColumnHeaders().Item(2).Width(), 1500);
  });
}

}  // namespace
