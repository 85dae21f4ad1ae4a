// The stand-in IDE over real files, with an add-in of the test's own.
#include "FIDE.h"

#include "CodePage.h"
#include "FSave.h"
#include "FormsFixture.h"
#include "MQuillon.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "ProjectTree.h"
#include "RegistryStore.h"

namespace {

using namespace Forms;

constexpr const char* sModuleBytes = "Attribute VB_Name = \"MMain\"\r\nSub Main()\r\nEnd Sub\r\n";
constexpr const char* sClassBytes = "Attribute VB_Name = \"COrder\"\r\nSub Ship()\r\nEnd Sub\r\n";

/// What an add-in does, as far as the stand-in can see it.
struct TestAddIn : IDTExtensibility {
  std::string* psLog;
  std::function<void(VBE&)>* poOnClick;
  VBE* poVBE = nullptr;
  Connection oLink, oButtonLink;

  TestAddIn(std::string& sLog, std::function<void(VBE&)>& oOnClick)
      : psLog(&sLog), poOnClick(&oOnClick) {}
  ~TestAddIn() override { *psLog += "gone "; }
  void OnConnection(VBE& oVBInst, std::int32_t nConnectMode) override {
    poVBE = &oVBInst;
    *psLog += "connect" + std::to_string(nConnectMode) + ' ';
    CommandBarControl& oEntry = oVBInst.CommandBars().Item(u"Add-Ins").Controls().Add(1);
    oEntry.SetCaption(u"&Test...");
    CommandBar& oBar = oVBInst.CommandBars().Add(u"Tester", 1);
    oBar.SetVisible(true);
    CommandBarControl& oButton = oBar.Controls().Add(1);
    oButton.SetTooltipText(u"Tests");
    oButton.PasteFace();
    const auto OnClick = [this](CommandBarControl&, bool&, bool&) { (*poOnClick)(*poVBE); };
    oLink = oVBInst.Events().CommandBarEvents(oEntry).Click.Connect(OnClick);
    oButtonLink = oVBInst.Events().CommandBarEvents(oButton).Click.Connect(OnClick);
  }
  void OnDisconnection(std::int32_t) override {
    *psLog += "disconnect ";
    poVBE->CommandBars().Item(u"Tester").Delete();
    poVBE->CommandBars().Item(u"Add-Ins").Controls().Item(1).Delete();
  }
  void OnStartupComplete() override { *psLog += "startup "; }
  void OnAddInsUpdate() override { *psLog += "update "; }
};

class FIDETest : public FormsTest {
 protected:
  FIDETest() {
    goRegistry = &moStore;
    MQuillon::Initialize();
    moToolkit.SetPictures([this](TextView sKey, std::int32_t lPixels) {
      return sKey == u"Clip" ? "picture" + std::to_string(lPixels) : moFaces.Find(sKey);
    });
    moToolkit.Clipboard().SetPicture(u"Clip");
    moTree.Write("Main.bas", sModuleBytes);
    moTree.Write("Order.cls", sClassBytes);
    moTree.Write("Shop.vbp",
                 "Type=Exe\r\nName=\"Shop\"\r\nModule=MMain; Main.bas\r\n"
                 "Class=COrder; Order.cls\r\n");
  }
  ~FIDETest() override {
    MXHTMLHelp::SetHelpFile({});
    goRegistry = nullptr;
  }

  void Start(const std::string& sGroup = "Shop.vbp", std::int32_t nMode = 1) {
    moIDE.Start({sGroup.empty() ? Text() : PathText(sGroup), nMode});
    moRenderer.Advance(100);
  }
  Text PathText(const std::string& sName) const { return TextOfPath(moTree.Path(sName)); }
  /// Clicks the add-in's menu entry, which runs this.
  void InAddIn(std::function<void(VBE&)> oDeed) {
    moOnClick = std::move(oDeed);
    EXPECT_TRUE(moIDE.mnuAddInsItem(1).UserPick());
  }
  /// Puts a line ahead of the code of the project's component of that number.
  void Edit(std::int32_t lComponent = 1) {
    InAddIn([=](VBE& oVBE) { CodeModuleOf(oVBE, lComponent).InsertLines(1, u"' edited"); });
  }
  static CodeModule& CodeModuleOf(VBE& oVBE, std::int32_t lComponent) {
    return *oVBE.VBProjects().Item(1).VBComponents().Item(lComponent).CodeModule();
  }
  void Select(TextView sName) {
    for (Node* po : moIDE.tvwGroup.Nodes().Roots().front()->Children())
      if (po->Text() == sName) moIDE.tvwGroup.UserNodeClick(*po);
  }
  /// Names and pictures of the tree, children in brackets.
  std::string Tree() const {
    std::string sTree;
    for (const Node* poRoot : moIDE.tvwGroup.Nodes().Roots()) {
      sTree += ToUtf8(poRoot->Text() + u"=" + poRoot->Image()) + '[';
      for (const Node* po : poRoot->Children())
        sTree += ToUtf8(po->Text() + u"=" + po->Image()) + ' ';
      sTree += ']';
    }
    return sTree;
  }
  std::string LastBox() {
    return User().Boxes().empty() ? "" : ToUtf8(User().Boxes().back().sPrompt);
  }
  void AnswerSave(CommandButton FSave::*pButton) {
    User().Modal<FSave>([=](FSave& o) { (o.*pButton).UserClick(); });
  }

  ProjectTree moTree;
  RegistryStore moStore;
  ButtonFaces moFaces;
  std::string msLog;
  std::function<void(VBE&)> moOnClick;
  FIDE moIDE{moToolkit, moFaces, [this] { return std::make_unique<TestAddIn>(msLog, moOnClick); }};
};

TEST_F(FIDETest, OpensTheGroupAndConnectsTheAddInAMomentAfterItShows) {
  moIDE.Start({PathText("Shop.vbp"), 1});
  EXPECT_TRUE(moIDE.Visible());
  EXPECT_EQ(msLog, "");
  moRenderer.Advance(100);
  EXPECT_EQ(msLog, "connect1 startup update ");
  EXPECT_EQ(Tree(), "Shop=Standard EXE[COrder=Class Module MMain=Standard Module ]");
  EXPECT_EQ(moIDE.Caption(), u"Shop.vbp - Tarvane Quillon");
  EXPECT_TRUE(moIDE.UserClose());
  EXPECT_EQ(msLog, "connect1 startup update disconnect gone ");
}

TEST_F(FIDETest, DamagedPlacesAndAMissingHelpFileLeaveAWindowThatWorks) {
  const Text sKey = Text(u"HKEY_CURRENT_USER\\").append(MXRegistry::RootKey) + u"FIDE";
  const std::int32_t lFar = 2147483647;
  struct Row {
    TextView sKey, sName;
    std::int32_t lValue;
  };
  for (const Row& oRow : {Row{u"", u"Left", -lFar}, Row{u"", u"Top", lFar}, Row{u"", u"Width", 0},
                          Row{u"", u"Height", 3}, Row{u"\\Split", u"Left", lFar}}) {
    SCOPED_TRACE(ToUtf8(oRow.sName));
    moStore.SetLong(sKey + Text(oRow.sKey), oRow.sName, oRow.lValue);
    Start();
    const Rect o = moIDE.Bounds();
    EXPECT_TRUE(o.lLeft >= 0 && o.lTop >= 0 && o.lWidth > 2400 && o.lHeight > 2400);
    EXPECT_TRUE(o.lLeft + o.lWidth <= 15360 && o.lTop + o.lHeight <= 11520);
    EXPECT_GE(moIDE.picRight.Width(), 1400);
    moIDE.UserClose();
  }
  Start();
  MXHTMLHelp::SetHelpFile(PathText("gone.htb"));
  User().MsgBox(MsgBoxResult::Ok);
  EXPECT_TRUE(moIDE.mnuHelpContents.UserPick());
  EXPECT_NE(LastBox().find("gone.htb"), std::string::npos);
  MXHTMLHelp::SetHelpFile(PathText("Main.bas"));
  EXPECT_TRUE(moIDE.mnuHelpContents.UserPick());
  EXPECT_EQ(moRenderer.Opened().size(), 1U);
}

TEST_F(FIDETest, WithoutAGroupTakesTheLastOneAndElseAsks) {
  User().ChooseFile([&](FileDialog& oDialog) {
    oDialog.asPath = {PathText("Shop.vbp")};
    return DialogAnswer{true, 0};
  });
  Start("");
  EXPECT_EQ(moIDE.mnuFileRecent(1).Caption(), u"&1 " + PathText("Shop.vbp"));
  EXPECT_TRUE(moIDE.UserClose());
  Start("");
  EXPECT_EQ(moIDE.Caption(), u"Shop.vbp - Tarvane Quillon");
}

TEST_F(FIDETest, CancelAtTheStartLeavesAWindowThatWorks) {
  User().ChooseFile([](FileDialog&) { return DialogAnswer{}; });
  Start("");
  EXPECT_EQ(msLog, "connect1 startup update ");
  EXPECT_EQ(Tree(), "");
  EXPECT_TRUE(moIDE.OpenGroup(PathText("Shop.vbp")));
  // The add-in holds on to its IDE, which is another one for each group.
  EXPECT_EQ(msLog, "connect1 startup update disconnect gone connect0 update ");
}

TEST_F(FIDETest, GroupThatCanNotBeReadIsToldAndTheOpenOneStays) {
  moTree.Write("Empty.vbg", "VBGROUP 5.0\r\nStartupProject=Gone.vbp\r\n");
  moTree.Write("Half.vbg", "VBGROUP 5.0\r\nProject=Gone.vbp\r\nProject=Shop.vbp\r\n");
  Start();
  struct Row {
    const char *sName, *sFile, *sTold;
    bool bOpens;
  };
  const Row aoRow[] = {
      {"missing", "No.vbg", "The group can't be opened.", false},
      {"no project", "Empty.vbg", "The group can't be opened.", false},
      {"one project of two", "Half.vbg", "The group is open, but not all of it", true},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    User().MsgBox(MsgBoxResult::Ok);
    EXPECT_EQ(moIDE.OpenGroup(PathText(oRow.sFile)), oRow.bOpens);
    EXPECT_EQ(LastBox().find(oRow.sTold), 0U) << LastBox();
    EXPECT_EQ(Tree(), "Shop=Standard EXE[COrder=Class Module MMain=Standard Module ]");
  }
}

TEST_F(FIDETest, MenuAndToolBarsAreThoseOfTheAddIn) {
  Start();
  EXPECT_EQ(moIDE.mnuAddInsItem(1).Caption(), u"&Test...");
  ASSERT_EQ(moIDE.cmdTool.Count(), 2);
  EXPECT_EQ(moToolkit.Picture(moIDE.cmdTool(1).Picture(), 16), "picture16");
  EXPECT_EQ(moIDE.cmdTool(1).ToolTipText(), u"Tests");
  const std::int32_t lBelow = moIDE.tvwGroup.Top();
  EXPECT_GE(lBelow, moIDE.cmdTool(1).Top() + moIDE.cmdTool(1).Height());
  int lClicks = 0;
  moOnClick = [&](VBE&) { ++lClicks; };
  EXPECT_TRUE(moIDE.cmdTool(1).UserClick());
  EXPECT_TRUE(moIDE.mnuAddInsItem(1).UserPick());
  EXPECT_EQ(lClicks, 2);
  EXPECT_TRUE(moIDE.mnuViewToolBar(1).UserPick());
  EXPECT_EQ(moIDE.cmdTool.Count(), 1);
  EXPECT_LT(moIDE.tvwGroup.Top(), lBelow);
  EXPECT_TRUE(moIDE.mnuAddInsLoad.UserPick());
  EXPECT_EQ(moIDE.mnuAddInsItem.Count(), 1);
  EXPECT_FALSE(moIDE.mnuAddInsBar1.Visible());
  msLog.clear();
  EXPECT_TRUE(moIDE.mnuAddInsLoad.UserPick());
  EXPECT_EQ(msLog, "connect0 update ");
  EXPECT_EQ(moIDE.cmdTool.Count(), 2);
}

TEST_F(FIDETest, BarsStandInTheirRowsInsideTheWindow) {
  Start();
  struct Row {
    const char* sName;
    std::int32_t lRow, lLeft;  ///< of the second bar; the first one is in row 0 at 0
    bool bBelow, bInside;
  };
  const Row aoRow[] = {
      {"the same row", 0, 0, false, true},
      {"the row below", 1, 0, true, true},
      {"far to the right, from a wider screen", 0, 100000000, false, true},
      {"left of the edge", 0, -500, false, true},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    InAddIn([&](VBE& oVBE) {
      CommandBar& oBar = oVBE.CommandBars().Add(u"Second", 1);
      oBar.Controls().Add(1).SetCaption(u"More");
      oBar.SetVisible(true);
      oBar.SetRowIndex(oRow.lRow);
      oBar.SetLeft(oRow.lLeft);
    });
    ASSERT_EQ(moIDE.cmdTool.Count(), 3);
    // A negative place sorts ahead of the first bar.
    const bool bFirst = oRow.lLeft < 0;
    const Rect oFirst = moIDE.cmdTool(bFirst ? 2 : 1).Bounds();
    const Rect oSecond = moIDE.cmdTool(bFirst ? 1 : 2).Bounds();
    EXPECT_EQ(oSecond.lTop > oFirst.lTop, oRow.bBelow);
    EXPECT_GE(oSecond.lLeft, 0);
    EXPECT_LE(oSecond.lLeft + oSecond.lWidth, moIDE.ScaleWidth());
    EXPECT_TRUE(oRow.bBelow || oSecond.lLeft >= oFirst.lLeft + oFirst.lWidth || bFirst);
    InAddIn([](VBE& oVBE) { oVBE.CommandBars().Item(u"Second").Delete(); });
  }
}

TEST_F(FIDETest, SelectedComponentIsTheActiveCodePane) {
  moTree.Write("Shop.vbp",
               "Type=Exe\r\nName=\"Shop\"\r\nModule=MMain; Main.bas\r\n"
               "Class=COrder; Order.cls\r\nClass=CGone; Gone.cls\r\n");
  Start();
  struct Row {
    const char *sName, *sCode;
    bool bPane;
  };
  const Row aoRow[] = {
      {"MMain", "Sub Main()\r\nEnd Sub", true},
      {"COrder", "Sub Ship()\r\nEnd Sub", true},
      {"CGone", "The code can't be read: ", false},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    Select(FromUtf8(oRow.sName));
    EXPECT_EQ(ToUtf8(moIDE.paneCode.Text()).find(oRow.sCode), 0U) << ToUtf8(moIDE.paneCode.Text());
    InAddIn([&](VBE& oVBE) {
      EXPECT_EQ(oVBE.ActiveCodePane() != nullptr, oRow.bPane);
      if (oRow.bPane) {
        EXPECT_EQ(ToUtf8(oVBE.ActiveCodePane()->CodeModule().Parent().Name()), oRow.sName);
      }
    });
  }
}

TEST_F(FIDETest, ChangesOfTheAddInAreShownAndSavedOnTheUsersWord) {
  Start();
  Select(u"MMain");
  EXPECT_FALSE(moIDE.mnuFileSave.Enabled());
  Edit();
  EXPECT_EQ(Tree(), "Shop=Standard EXE[COrder=Class Module MMain=Standard ModuleDirty ]");
  EXPECT_EQ(moIDE.staBar.Panels(2).Text(), u"1 file is not saved");
  EXPECT_EQ(moIDE.paneCode.Line(1), u"' edited");
  EXPECT_TRUE(moIDE.mnuViewChanges.UserPick());
  EXPECT_TRUE(moIDE.paneChanges.Visible());
  EXPECT_FALSE(moIDE.paneCode.Visible());
  EXPECT_EQ(moIDE.paneChanges.Line(3), u"' edited");
  EXPECT_EQ(moIDE.paneChanges.Mark(3), LineMark::Added);
  EXPECT_EQ(moTree.Read("Main.bas"), sModuleBytes);
  EXPECT_TRUE(moIDE.mnuFileSave.UserPick());
  EXPECT_EQ(moTree.Read("Main.bas"),
            "Attribute VB_Name = \"MMain\"\r\n' edited\r\nSub Main()\r\nEnd Sub\r\n");
  EXPECT_EQ(Tree(), "Shop=Standard EXE[COrder=Class Module MMain=Standard Module ]");
  EXPECT_EQ(moIDE.paneChanges.Text(), u"No changes.");
}

TEST_F(FIDETest, LeavingAsksWhatBecomesOfChanges) {
  struct Row {
    const char* sName;
    CommandButton FSave::*pButton;
    bool bLeaves, bWritten;
  };
  const Row aoRow[] = {
      {"Cancel", &FSave::cmdCancel, false, false},
      {"Discard", &FSave::cmdDiscard, true, false},
      {"Save", &FSave::cmdSave, true, true},
  };
  for (const bool bClose : {true, false})
    for (const Row& oRow : aoRow) {
      SCOPED_TRACE(std::string(oRow.sName) + (bClose ? " at the end" : " at another group"));
      moTree.Write("Main.bas", sModuleBytes);
      Start();
      Edit();
      AnswerSave(oRow.pButton);
      EXPECT_EQ(bClose ? moIDE.UserClose() : moIDE.OpenGroup(PathText("Shop.vbp")), oRow.bLeaves);
      EXPECT_EQ(moTree.Read("Main.bas") != sModuleBytes, oRow.bWritten);
      EXPECT_EQ(moIDE.mnuFileSave.Enabled() && moIDE.Loaded(), !oRow.bLeaves);
      if (!oRow.bLeaves) AnswerSave(&FSave::cmdDiscard);
      if (moIDE.Loaded()) moIDE.UserClose();
    }
}

TEST_F(FIDETest, SaveThatFailsIsToldAndNothingIsLost) {
  Start();
  Edit(1);
  Edit(2);
  std::filesystem::permissions(moTree.Path("Main.bas"), std::filesystem::perms::owner_read);
  User().MsgBox(MsgBoxResult::Ok);
  EXPECT_FALSE(moIDE.SaveAll());
  EXPECT_NE(LastBox().find("choose File, Save All again"), std::string::npos);
  EXPECT_NE(LastBox().find("Main.bas"), std::string::npos);
  EXPECT_EQ(LastBox().find("Order.cls"), std::string::npos);
  EXPECT_NE(moTree.Read("Order.cls"), sClassBytes);
  EXPECT_EQ(moTree.Read("Main.bas"), sModuleBytes);
  EXPECT_EQ(Tree(), "Shop=Standard EXE[COrder=Class Module MMain=Standard ModuleDirty ]");
  // At the end the window stays open, with the change.
  AnswerSave(&FSave::cmdSave);
  User().MsgBox(MsgBoxResult::Ok);
  EXPECT_FALSE(moIDE.UserClose());
  std::filesystem::permissions(moTree.Path("Main.bas"), std::filesystem::perms::owner_all);
  EXPECT_TRUE(moIDE.SaveAll());
  EXPECT_NE(moTree.Read("Main.bas"), sModuleBytes);
}

TEST_F(FIDETest, FilesOfOtherProgramsAreReadAgainOrTold) {
  Start();
  Select(u"MMain");
  moTree.Write("Main.bas", "Attribute VB_Name = \"MMain\"\r\nSub Other()\r\nEnd Sub\r\n");
  std::string sSeen;
  InAddIn([&](VBE& oVBE) { sSeen = ToUtf8(CodeModuleOf(oVBE, 1).Lines(1, 1)); });
  EXPECT_EQ(sSeen, "Sub Other()");
  EXPECT_EQ(moIDE.paneCode.Line(1), u"Sub Other()");
  User().MsgBox(MsgBoxResult::Ok);
  InAddIn([&](VBE& oVBE) {
    CodeModuleOf(oVBE, 1).InsertLines(1, u"' mine");
    moTree.Write("Main.bas", "Attribute VB_Name = \"MMain\"\r\n' theirs, longer\r\n");
  });
  EXPECT_NE(LastBox().find("Another program has changed or removed"), std::string::npos);
  EXPECT_EQ(moIDE.paneCode.Line(1), u"' mine");
  InAddIn([](VBE&) {});  // it isn't told again
  EXPECT_EQ(User().Boxes().size(), 1U);
  User().MsgBox(MsgBoxResult::Ok);
  InAddIn([&](VBE&) { moTree.Write("Shop.vbp", moTree.Read("Shop.vbp") + "Title=\"Shop\"\r\n"); });
  EXPECT_NE(LastBox().find("Shop.vbp"), std::string::npos);
  EXPECT_NE(LastBox().find("File, Reload Group"), std::string::npos);
  AnswerSave(&FSave::cmdDiscard);
  EXPECT_TRUE(moIDE.mnuFileReload.UserPick());
  Select(u"MMain");
  EXPECT_EQ(moIDE.paneCode.Line(1), u"' theirs, longer");
}

TEST_F(FIDETest, WindowStaysOpenWhileTheAddInWorks) {
  Start();
  InAddIn([&](VBE&) { EXPECT_FALSE(moIDE.Unload()); });
  EXPECT_TRUE(moIDE.Loaded());
  EXPECT_TRUE(moIDE.UserClose());
}

TEST_F(FIDETest, AddInThatFailsLeavesAWindowThatWorks) {
  Start();
  InAddIn([](VBE& oVBE) {
    oVBE.CommandBars().Item(u"Tester").Controls().Item(1).SetTooltipText(u"New");
    throw Failure(5);
  });
  EXPECT_EQ(moIDE.cmdTool(1).ToolTipText(), u"New");
  Edit();
  EXPECT_TRUE(moIDE.SaveAll());
}

}  // namespace
