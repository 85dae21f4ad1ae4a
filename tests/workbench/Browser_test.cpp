// The tree in both views, the lists that follow it, and modules that can't be read.
#include <sys/stat.h>

#include <regex>

#include "../project/Handles.h"
#include "ErrorRuntimeFake.h"
#include "FMainTest.h"
#include "NodeKey.h"

namespace {

using namespace Forms;

TEST(NodeKey, IsReadByTheViewThatMadeIt) {
  using NodeKey::Fields, NodeKey::Folder, NodeKey::List, NodeKey::Project, NodeKey::Read,
      NodeKey::Tree;
  const struct {
    const char* sName;
    Text sKey;
    TextView sView;
    Fields oFields;
  } aoRow[] = {
      {"project", Project(3_project), Tree, {3_project}},
      {"project, no folders", Project(3_project), List, {3_project}},
      {"folder", Folder(3_project, 2), Tree, {3_project, 2}},
      {"component",
       NodeKey::Component(Tree, 3_project, 2, 17_component),
       Tree,
       {3_project, 2, 17_component}},
      {"component, no folders",
       NodeKey::Component(List, 3_project, 2, 17_component),
       List,
       {3_project, 0, 17_component}},
      {"no key", u"", Tree, {}},
      {"no numbers", u"VBProject.x.9999999999.-1.", Tree, {}},
  };
  EXPECT_EQ(NodeKey::Component(Tree, 3_project, 2, 17_component), u"VBProject.3.2.17.");
  EXPECT_EQ(NodeKey::Component(List, 3_project, 2, 17_component), u"VBProject.3.17.");
  for (const auto& oRow : aoRow) EXPECT_EQ(Read(oRow.sKey, oRow.sView), oRow.oFields) << oRow.sName;
}

TEST_F(FMainTest, TreeShowsProjectsAndComponentsInBothViews) {
  oIDE.AddProject(u"Shop", ProjectType::ActiveXDll);
  Add(u"mZoo", u"");
  Add(u"FTwo", u"", ComponentType::VBForm);
  Add(u"MArk", u"");
  Add(u"Odd", u"", MQuillon::FromNumber<ComponentType>(13));
  oIDE.AddProject(u"Till");
  Add(u"MArk", u"Sub t()\nEnd Sub");
  Run([&] {
    Node& oShop = *oMain.tvwProjects.Nodes().Roots().front();
    EXPECT_TRUE(oShop.Expanded());
    EXPECT_EQ(oShop.Children().front()->ExpandedImage(), u"Open Folder");
    Play(R"(
        folders | | tree | *Shop[ActiveX DLL](Forms[Closed Folder](FTwo[Form Module])
            \ Modules[Closed Folder](MArk[Standard Module] mZoo[Standard Module]) Odd[])
            \ Till[Standard EXE](Modules[Closed Folder](MArk[Standard Module]))
        no folders, and the folder's project | >Modules; ViewProjectList | tree
            | *Shop[ActiveX DLL](FTwo[Form Module] MArk[Standard Module] mZoo[Standard Module]
            \ Odd[]) Till[Standard EXE](MArk[Standard Module])
        the same component, marked | >mZoo; Locked=True; ViewProjectTree | tree, list
            | Shop[ActiveX DLL](Forms[Closed Folder](FTwo[Form Module])
            \ Modules[Closed Folder](MArk[Standard Module] *mZoo[Standard ModuleDirty]) Odd[])
            \ Till[Standard EXE](Modules[Closed Folder](MArk[Standard Module])),
            \ Procedures of Module 'mZoo')");
    Node& oTill = *oMain.tvwProjects.Nodes().Roots().back();
    EXPECT_TRUE(oMain.tvwProjects.UserNodeClick(*oTill.Children().front()->Children().front()));
    Play(
        "not the other MArk | ViewProjectList | rows "
        "| *Declarations,(declarations) / Method,t,Sub,Public /");
    EXPECT_TRUE(Tree().ends_with("(*MArk[Standard Module])"));
  });
}

TEST_F(FMainTest, NodesDecideWhatTheListsShow) {
  oIDE.AddProject(u"Shop", ProjectType::ActiveXDll).sFileName = u"/a/Shop.vbp";
  Add(u"CBox", u"", ComponentType::Class).nInstancing = 5;
  const std::string sFixed = oFolder / "MFix.bas";
  TempFolder::Write(sFixed, "x");
  chmod(sFixed.c_str(), 0444);
  Add(u"MFix", u"").asFile = {FromUtf8(sFixed)};
  Add(u"MNew", u"").asFile = {u""};
  Run([&] {
    Play(R"(
        a folder  | >Class Modules | list, count, path, rows
            | Class Modules of Project 'Shop', 1 Object(s), /a/Shop.vbp,
            \ *Class Module,CBox,Class Module,MultiUse,/src/CBox.bas /
        a project | >Shop | list, count, path | Modules of Project 'Shop', 3 Object(s), /a/Shop.vbp
        a class   | >CBox | list, count, path, rows
            | Procedures of Class 'CBox', 1 Object(s) Selected, /src/CBox.bas,
            \ *Declarations,(declarations) /
        no file   | >MNew | list, count, path
            | Procedures of Module 'MNew', 1 Object(s) Selected,)");
    EXPECT_NE(oMain.lvwMods.Visible(), oMain.lvwProcs.Visible());
    Click(u"Modules");
    oMain.SetWidth(oMain.Width() - 15);
    EXPECT_EQ(Panel(2), "/a/Shop.vbp") << "the path follows the window";
    const std::string sRows = Rows(oMain.lvwMods);
    EXPECT_TRUE(
        std::regex_search(sRows, std::regex("^.Standard Module.MFix.Standard Module.ReadOnly."
                                            "\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d.")))
        << sRows;
    EXPECT_TRUE(sRows.ends_with("\nStandard Module|MNew|Standard Module\n")) << sRows;
  });
}

TEST_F(FMainTest, ProcedureRowsTellTypeScopeAndPendingValues) {
  Add(u"FOne",
      u"Const Sev = tvnSeverityFatal\n'@ Mod\n"
      u"Private Sub cmd_Click()\n'@ Std&Locked\n    On Error GoTo Trap\nTrap:\n"
      u"    Fail tvnSeverityNormal\nEnd Sub\nFriend Property Let b(v)\nEnd Property\n"
      u"Function a1()\nOn Error Resume Next\nEnd Function\n",
      ComponentType::VBForm)
      .asControl = {u"cmd"};
  Run([&] {
    Play(R"(a form | >FOne | rows
        | *Declarations,(declarations),Mod,Fatal / Method,a1,Function,Public,(bespoke) /
        \ Property,b,Property Let,Friend,Fatal /
        \ Event,cmd_Click,Click,Private,Std,Locked,Normal /)");
  });
}

TEST_F(FMainTest, TheSheetFollowsEveryChangeOfTheSelection) {
  Add(u"MOne", u"Sub a()\nEnd Sub\nSub b()\nEnd Sub");
  Run([&] {
    Play("the processed node reloads nothing | >MOne; #2 3; >MOne | count | 2 Object(s) Selected");
    EXPECT_TRUE(oMain.tvwProjects.HasFocus());
    const auto Keyed = [&](ListView& oList, std::int32_t nKey, std::int32_t lRow) {
      EXPECT_TRUE(oList.SelectedItem() && oList.UserSelect(lRow));
      oList.UserKey(nKey, 0);
      return Panel(1) + " " + Look("title");
    };
    EXPECT_EQ(Keyed(oMain.lvwProcs, Key::Home, 2), "1 Object(s) Selected MOne.(declarations)");
    EXPECT_EQ(Keyed(oMain.lvwProcs, Key::Down, 1), "1 Object(s) Selected MOne.a");
    EXPECT_EQ(Keyed(oMain.lvwProcs, Key::End, 1), "1 Object(s) Selected MOne.b");
    EXPECT_EQ(Keyed(oMain.lvwProcs, Key::Up, 3), "1 Object(s) Selected MOne.a");
    Click(u"Modules");
    EXPECT_EQ(Keyed(oMain.lvwMods, Key::Down, 1), "1 Object(s) Selected ");
  });
}

TEST_F(FMainTest, MissingFilesAreNamedOnceAndAskNothing) {
  const AnswersWith oErrors(ErrorIds::ActionLeave);
  Add(u"MOne", u"");
  Add(u"MTwo", u"").asFile = {File("Template.dat")};
  Run([&] {
    for (const TextView s : {u"MOne", u"P", u"MOne", u"Modules"}) Click(s);
    EXPECT_EQ(Lines(oMain.srlErrors), "File is missing: MOne: /src/MOne.bas\r\n");
    ExpectHolds(Lines(oMain.srlResults), "1 File(s) missing on disk, see VBIDE Errors\r\n");
    EXPECT_EQ(oMain.lvwMods.ListItems().Item(1).Cell(5), u"") << "no date";
    EXPECT_EQ(oMain.lvwMods.ListItems().Item(2).Cell(5).size(), 19U);
  });
  EXPECT_EQ(oErrors.nReports, 0) << "no box";
}

TEST_F(FMainTest, AModuleThatCantBeReadIsToldInItsPane) {
  Add(u"MBad", u"").asFile = {u""};
  Add(u"MOne", u"Sub a()\nEnd Sub").asFile = {u""};
  oIDE.oLog.Fail("CodeModule of MBad", 0);
  Run([&] {
    const auto& oTitle = oMain.lblErrors;
    EXPECT_FALSE(oMain.fraErrors.Visible());
    Click(u"MBad");
    ExpectHolds(Lines(oMain.srlErrors),
                "[MBad] It threw me the following Error on [CodeModule Property of VBComponent "
                "Object].\r\n  Number = 70  Decsription = \"CodeModule of MBad failed\"  Source = "
                "\"FakeIDE\"\r\n");
    EXPECT_TRUE(oMain.fraErrors.Visible() && !oMain.srlErrors.HasFocus());
    EXPECT_EQ(oTitle(0).BackColor(), SystemColor::InactiveTitleBar);
    EXPECT_EQ(Rows(oMain.lvwProcs) + Rows(oMain.lvwMods), "hiddenhidden");
    EXPECT_EQ(Panel(1), "0 Object(s)");
    Click(u"MOne");
    EXPECT_EQ(Panel(1), "1 Object(s) Selected") << "another node recovers";
    EXPECT_TRUE(oTitle(1).UserMouseDown(Button::Left, 0, 0, 0));
    EXPECT_EQ(oTitle(0).BackColor(), SystemColor::ActiveTitleBar) << "the pane has the focus";
    EXPECT_TRUE(oMain.cmdHideErrors.UserClick());
    EXPECT_FALSE(oMain.fraErrors.Visible());
    oMain.Model()->EnumProceduresError(1_component, LoadError{u"c", 0, u"d", u"TarvaneQuillon"});
    ExpectHolds(Lines(oMain.srlErrors),
                "  Number = 0 [yes! zero!]  Decsription = \"d\"  Source = \"TarvaneQuillon\" "
                "...but don't believe it :-)\r\n");
  });
}

TEST_F(FMainTest, ColumnsSortAndTurnAround) {
  Add(u"MOne", u"Sub b()\nEnd Sub\nFunction a()\nEnd Function\nSub C()\nEnd Sub");
  Run([&] {
    Click(u"MOne");
    const auto Names = [&](std::int32_t lColumn) {
      EXPECT_TRUE(oMain.lvwProcs.UserColumnClick(lColumn));
      return Each(1, 4, [&](auto i) { return oMain.lvwProcs.ListItems().Item(i).Text(); });
    };
    EXPECT_EQ(Names(1), "C|b|a|(declarations)|");
    EXPECT_EQ(Names(1), "(declarations)|a|b|C|");
    EXPECT_EQ(Names(2), "(declarations)|a|b|C|") << "by type: none, Function, Sub, Sub";
    EXPECT_EQ(Names(2).substr(4), "a|(declarations)|");
  });
}

TEST_F(FMainTest, ADoubleClickGoesDownToTheProceduresAndColumnWidthsComeBack) {
  Add(u"MOne", u"");
  Add(u"MTwo", u"");
  Run([&] {
    Click(u"Modules");
    EXPECT_TRUE(oMain.lvwMods.UserSelect(2));
    EXPECT_TRUE(oMain.lvwMods.UserDblClick());
    Play("down | | list | Procedures of Module 'MTwo'");
    ExpectHolds(Tree(), "*MTwo");
    EXPECT_TRUE(oMain.lvwProcs.UserColumnWidth(2, 1234));
  });
  Run([&] {
    EXPECT_EQ(oMain.lvwProcs.ColumnHeaders().Item(2).Width(), 1234);
    EXPECT_EQ(oMain.lvwMods.ColumnHeaders().Item(2).Width(), 1500);
  });
}

}  // namespace
