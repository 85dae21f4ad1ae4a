// The stand-in IDE over real files, with an add-in of the test's own.
#include "FIDE.h"

#include "FSave.h"
#include "FormLook.h"
#include "FormsFixture.h"
#include "MQuillon.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "OwnSettings.h"
#include "PathText.h"
#include "ProjectTree.h"
#include "TableRows.h"
#include "WritingRun.h"

namespace {

using namespace Forms;

const std::string sHead = "Attribute VB_Name = \"MMain\"\r\n";
const std::string sModuleBytes = sHead + "Sub Main()\r\nEnd Sub\r\n";
constexpr const char* sClassBytes = "Attribute VB_Name = \"COrder\"\r\nSub Ship()\r\nEnd Sub\r\n";
constexpr const char* sClean = "Shop=Standard EXE[COrder=Class Module MMain=Standard Module ]";
constexpr const char* sDirty = "Shop=Standard EXE[COrder=Class Module MMain=Standard ModuleDirty ]";

/// What an add-in does, as far as the stand-in can see it.
struct TestAddIn : IDTExtensibility {
  std::string* psLog;
  std::function<void(VBE&)>* poOnClick;
  VBE* poVBE = nullptr;
  Connection oLink, oButtonLink;

  TestAddIn(std::string& s, std::function<void(VBE&)>& o) : psLog(&s), poOnClick(&o) {}
  ~TestAddIn() override { *psLog += "gone "; }
  void OnConnection(VBE& oVBInst, ConnectMode nConnectMode) override {
    poVBE = &oVBInst;
    *psLog += "connect" + std::to_string(MQuillon::ToNumber(nConnectMode)) + ' ';
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
  ~FIDETest() override { MXHTMLHelp::SetHelpFile({}); }

  void Start(const std::string& sGroup = "Shop.vbp", ConnectMode nMode = ConnectMode::Startup) {
    moIDE.Start({sGroup.empty() ? Text() : PathText(sGroup), nMode});
    moRenderer.Advance(100);
  }
  Text PathText(const std::string& sName) const { return TextOfPath(moTree.Path(sName)); }
  /// Clicks the add-in's menu entry, which runs this.
  void InAddIn(std::function<void(VBE&)> oDeed) {
    moOnClick = std::move(oDeed);
    EXPECT_TRUE(moIDE.oMenu.Array(u"mnuAddInsItem")(1).UserPick());
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
    Text sTree;
    for (const Node* poRoot : moIDE.tvwGroup.Nodes().Roots()) {
      sTree += poRoot->Text() + u"=" + poRoot->Image() + u"[";
      for (const Node* po : poRoot->Children()) sTree += po->Text() + u"=" + po->Image() + u" ";
      sTree += u"]";
    }
    return ToUtf8(sTree);
  }
  /// Does something of which a box tells; gives its words.
  template <class Deed>
  std::string Told(Deed&& oDeed) {
    User().MsgBox(MsgBoxResult::Ok);
    oDeed();
    return ToUtf8(User().Boxes().back().sPrompt);
  }
  static void ExpectHolds(const std::string& sAll, std::initializer_list<const char*> asPart) {
    for (const char* s : asPart) EXPECT_NE(sAll.find(s), std::string::npos) << sAll;
  }
  void AnswerSave(const std::string& sDeed) { User().Modal<FSave>(Deeds(sDeed)); }

  ProjectTree moTree;
  OwnSettings moStore;
  ButtonFaces moFaces;
  std::string msLog;
  std::function<void(VBE&)> moOnClick;
  FIDE moIDE{moToolkit, moFaces, [this] { return std::make_unique<TestAddIn>(msLog, moOnClick); }};
};

class OpenFIDETest : public FIDETest {
  void SetUp() override { Start(); }
};

TEST_F(FIDETest, OpensTheGroupAndConnectsTheAddInAMomentAfterItShows) {
  moIDE.Start({PathText("Shop.vbp"), ConnectMode::Startup});
  EXPECT_TRUE(moIDE.Visible());
  EXPECT_EQ(msLog, "");
  moRenderer.Advance(100);
  EXPECT_EQ(msLog, "connect1 startup update ");
  EXPECT_EQ(Tree(), sClean);
  EXPECT_EQ(moIDE.Caption(), u"Shop.vbp - Tarvane Quillon");
  EXPECT_TRUE(moIDE.UserClose());
  EXPECT_EQ(msLog, "connect1 startup update disconnect gone ");
}

TEST_F(FIDETest, DamagedPlacesAndAMissingHelpFileLeaveAWindowThatWorks) {
  const Text sKey = Text(u"HKEY_CURRENT_USER\\").append(MXRegistry::RootKey) + u"FIDE";
  for (const auto& as : Rows(R"(
         Left   |        | -2147483647
         Top    |        | 2147483647
         Width  |        | 0
         Height |        | 3
         Left   | \Split | 2147483647)")) {
    SCOPED_TRACE(as[0] + as[1]);
    moStore.SetLong(sKey + FromUtf8(as[1]), FromUtf8(as[0]), std::stoi(as[2]));
    Start();
    const Rect o = moIDE.Bounds();
    EXPECT_TRUE(o.lLeft >= 0 && o.lTop >= 0 && o.lWidth > 2400 && o.lHeight > 2400);
    EXPECT_TRUE(o.lLeft + o.lWidth <= 15360 && o.lTop + o.lHeight <= 11520);
    EXPECT_GE(moIDE.picRight.Width(), 1400);
    moIDE.UserClose();
  }
  Start();
  MXHTMLHelp::SetHelpFile(PathText("gone.htb"));
  ExpectHolds(Told([&] { moIDE.oMenu[u"mnuHelpContents"].UserPick(); }), {"gone.htb"});
  MXHTMLHelp::SetHelpFile(PathText("Main.bas"));
  EXPECT_TRUE(moIDE.oMenu[u"mnuHelpContents"].UserPick());
  EXPECT_EQ(moRenderer.Opened().size(), 1U);
}

TEST_F(FIDETest, WithoutAGroupAsksAndTheNextTimeTakesTheLastOne) {
  User().ChooseFile([](FileDialog&) { return DialogAnswer{}; });
  Start("");
  EXPECT_EQ(msLog, "connect1 startup update ");
  EXPECT_EQ(Tree(), "");
  User().ChooseFile([&](FileDialog& oDialog) {
    oDialog.asPath = {PathText("Shop.vbp")};
    return DialogAnswer{true, 0};
  });
  EXPECT_TRUE(moIDE.oMenu[u"mnuFileOpen"].UserPick());
  EXPECT_EQ(Tree(), sClean);
  // The add-in holds on to its IDE, which is another one for each group.
  EXPECT_EQ(msLog, "connect1 startup update disconnect gone connect0 update ");
  EXPECT_EQ(moIDE.oMenu.Array(u"mnuFileRecent")(1).Caption(), u"&1 " + PathText("Shop.vbp"));
  EXPECT_TRUE(moIDE.UserClose());
  Start("");
  EXPECT_EQ(moIDE.Caption(), u"Shop.vbp - Tarvane Quillon");
}

TEST_F(FIDETest, GroupThatCanNotBeReadIsToldAndTheOpenOneStays) {
  moTree.Write("Empty.vbg", "VBGROUP 5.0\r\nStartupProject=Gone.vbp\r\n");
  moTree.Write("Half.vbg", "VBGROUP 5.0\r\nProject=Gone.vbp\r\nProject=Shop.vbp\r\n");
  Start();
  for (const auto& as : Rows(R"(
         missing            | No.vbg    | The group can't be opened.
         no project         | Empty.vbg | The group can't be opened.
         one project of two | Half.vbg  | The group is open, but not all of it)")) {
    SCOPED_TRACE(as[0]);
    bool bOpened = false;
    EXPECT_EQ(Told([&] { bOpened = moIDE.OpenGroup(PathText(as[1])); }).find(as[2]), 0U);
    EXPECT_EQ(bOpened, as[1] == "Half.vbg");
    EXPECT_EQ(Tree(), sClean);
  }
}

TEST_F(OpenFIDETest, MenuAndToolBarsAreThoseOfTheAddIn) {
  EXPECT_EQ(moIDE.oMenu.Array(u"mnuAddInsItem")(1).Caption(), u"&Test...");
  ASSERT_EQ(moIDE.cmdTool.Count(), 2);
  EXPECT_EQ(moToolkit.Picture(moIDE.cmdTool(1).Picture(), 16), "picture16");
  EXPECT_EQ(moIDE.cmdTool(1).ToolTipText(), u"Tests");
  const std::int32_t lBelow = moIDE.tvwGroup.Top();
  EXPECT_GE(lBelow, moIDE.cmdTool(1).Top() + moIDE.cmdTool(1).Height());
  int lClicks = 0;
  moOnClick = [&](VBE&) { ++lClicks; };
  EXPECT_TRUE(moIDE.cmdTool(1).UserClick());
  EXPECT_TRUE(moIDE.oMenu.Array(u"mnuAddInsItem")(1).UserPick());
  EXPECT_EQ(lClicks, 2);
  EXPECT_TRUE(moIDE.oMenu.Array(u"mnuViewToolBar")(1).UserPick());
  EXPECT_EQ(moIDE.cmdTool.Count(), 1);
  EXPECT_LT(moIDE.tvwGroup.Top(), lBelow);
  EXPECT_TRUE(moIDE.oMenu[u"mnuAddInsLoad"].UserPick());
  EXPECT_EQ(moIDE.oMenu.Array(u"mnuAddInsItem").Count(), 1);
  EXPECT_FALSE(moIDE.oMenu[u"mnuAddInsBar1"].Visible());
  msLog.clear();
  EXPECT_TRUE(moIDE.oMenu[u"mnuAddInsLoad"].UserPick());
  EXPECT_EQ(msLog, "connect0 update ");
  EXPECT_EQ(moIDE.cmdTool.Count(), 2);
}

TEST_F(OpenFIDETest, BarsStandInTheirRowsInsideTheWindow) {
  // Row and wish of the second bar; the first one is in row 0 at 0.
  for (const auto& as : Rows(R"(
         the same row     | 0 | 0
         the row below    | 1 | 0
         far to the right, from a wider screen | 0 | 100000000
         left of the edge | 0 | -500)")) {
    SCOPED_TRACE(as[0]);
    const std::int32_t lRow = std::stoi(as[1]), lLeft = std::stoi(as[2]);
    InAddIn([&](VBE& oVBE) {
      CommandBar& oBar = oVBE.CommandBars().Add(u"Second", 1);
      oBar.Controls().Add(1).SetCaption(u"More");
      oBar.SetVisible(true);
      oBar.SetRowIndex(lRow);
      oBar.SetLeft(lLeft);
    });
    ASSERT_EQ(moIDE.cmdTool.Count(), 3);
    // A negative place sorts ahead of the first bar.
    const bool bFirst = lLeft < 0;
    const Rect oFirst = moIDE.cmdTool(bFirst ? 2 : 1).Bounds();
    const Rect oSecond = moIDE.cmdTool(bFirst ? 1 : 2).Bounds();
    EXPECT_EQ(oSecond.lTop > oFirst.lTop, lRow == 1);
    EXPECT_TRUE(oSecond.lLeft >= 0 && oSecond.lLeft + oSecond.lWidth <= moIDE.ScaleWidth());
    EXPECT_TRUE(lRow == 1 || oSecond.lLeft >= oFirst.lLeft + oFirst.lWidth || bFirst);
    InAddIn([](VBE& oVBE) { oVBE.CommandBars().Item(u"Second").Delete(); });
  }
}

TEST_F(FIDETest, SelectedComponentIsTheActiveCodePane) {
  moTree.Write("Shop.vbp", moTree.Read("Shop.vbp") + "Class=CGone; Gone.cls\r\n");
  Start();
  for (const auto& as : Rows(R"(
         MMain  | Sub Main()
         COrder | Sub Ship()
         CGone  | The code can't be read: )")) {
    SCOPED_TRACE(as[0]);
    Select(FromUtf8(as[0]));
    EXPECT_EQ(ToUtf8(moIDE.paneCode.Text()).find(as[1]), 0U) << ToUtf8(moIDE.paneCode.Text());
    InAddIn([&](VBE& oVBE) {
      auto* const poPane = oVBE.ActiveCodePane();
      EXPECT_EQ(poPane ? ToUtf8(poPane->CodeModule().Parent().Name()) : "CGone", as[0]);
    });
  }
}

TEST_F(OpenFIDETest, ChangesOfTheAddInAreShownAndSavedOnTheUsersWord) {
  Select(u"MMain");
  EXPECT_FALSE(moIDE.oMenu[u"mnuFileSave"].Enabled());
  Edit();
  EXPECT_EQ(Tree(), sDirty);
  EXPECT_EQ(moIDE.staBar.Panels(2).Text(), u"1 file is not saved");
  EXPECT_EQ(moIDE.paneCode.Line(1), u"' edited");
  EXPECT_TRUE(moIDE.oMenu[u"mnuViewChanges"].UserPick());
  EXPECT_TRUE(moIDE.paneChanges.Visible() && !moIDE.paneCode.Visible());
  EXPECT_EQ(moIDE.paneChanges.Line(3), u"' edited");
  EXPECT_EQ(moIDE.paneChanges.Mark(3), LineMark::Added);
  Select(u"COrder");
  EXPECT_EQ(moIDE.paneChanges.Text(), u"No changes.");
  EXPECT_EQ(moTree.Read("Main.bas"), sModuleBytes);
  EXPECT_TRUE(moIDE.oMenu[u"mnuFileSave"].UserPick());
  EXPECT_EQ(moTree.Read("Main.bas"), sHead + "' edited\r\nSub Main()\r\nEnd Sub\r\n");
  EXPECT_EQ(Tree(), sClean);
  EXPECT_EQ(moIDE.paneChanges.Text(), u"No changes.");
}

TEST_F(FIDETest, AsksOnceWhetherFoldersOutsideMayBeWritten) {
  for (const bool bYes : {false, true}) {
    SCOPED_TRACE(bYes);
    const ProjectTree oOther;
    const std::string sModule = oOther.Write("Out.bas", sClassBytes);
    moTree.Write("Shop.vbp", "Type=Exe\r\nModule=MOut; " + sModule + "\r\n");
    User().MsgBox(bYes ? MsgBoxResult::Yes : MsgBoxResult::No);
    Start();
    EXPECT_NE(ToUtf8(User().Boxes().back().sPrompt).find("\r\n" + oOther.Root() + "\r\n"),
              std::string::npos);
    EXPECT_TRUE(moIDE.OpenGroup(PathText("Shop.vbp"))) << "and asks no more";
    Edit();
    if (!bYes) User().MsgBox(MsgBoxResult::Ok);
    EXPECT_EQ(moIDE.SaveAll(), bYes);
    EXPECT_EQ(oOther.Read("Out.bas") != sClassBytes, bYes);
    if (!bYes) AnswerSave("cmdDiscard");
    moIDE.UserClose();
  }
}

TEST_F(FIDETest, NamesEachFolderOutsideTwelveAtATime) {
  const ProjectTree oOther;
  std::string sProject = "Type=Exe\r\n", sPrompts;
  for (const char c : std::string("abcdefghijklm"))
    sProject +=
        std::string("Module=M") + c + "; " + oOther.Write(c + std::string("/M.bas"), "") + "\r\n";
  moTree.Write("Shop.vbp", sProject);
  for (int i = 0; i < 2; ++i) User().MsgBox(MsgBoxResult::No);
  Start();
  EXPECT_EQ(User().Boxes().size(), 2u) << "twelve, and the thirteenth";
  for (const auto& oBox : User().Boxes()) sPrompts += ToUtf8(oBox.sPrompt);
  for (const char c : std::string("abcdefghijklm"))
    EXPECT_NE(sPrompts.find("\r\n" + oOther.Path({c}) + "\r\n"), std::string::npos) << sPrompts;
}

TEST_F(FIDETest, LeavingAsksWhatBecomesOfChanges) {
  for (const bool bClose : {true, false})
    for (const std::string sButton : {"cmdCancel", "cmdDiscard", "cmdSave"}) {
      SCOPED_TRACE(sButton + (bClose ? " at the end" : " at another group"));
      const bool bLeaves = sButton != "cmdCancel";
      moTree.Write("Main.bas", sModuleBytes);
      Start();
      Edit();
      AnswerSave(sButton);
      EXPECT_EQ(bClose ? moIDE.UserClose() : moIDE.OpenGroup(PathText("Shop.vbp")), bLeaves);
      EXPECT_EQ(moTree.Read("Main.bas") != sModuleBytes, sButton == "cmdSave");
      EXPECT_EQ(moIDE.oMenu[u"mnuFileSave"].Enabled() && moIDE.Loaded(), !bLeaves);
      if (!bLeaves) AnswerSave("cmdDiscard");
      if (moIDE.Loaded()) moIDE.UserClose();
    }
}

TEST_F(OpenFIDETest, SaveThatFailsIsToldAndNothingIsLost) {
  Edit(1);
  Edit(2);
  std::filesystem::permissions(moTree.Path("Main.bas"), std::filesystem::perms::owner_read);
  const std::string sTold = Told([&] { EXPECT_FALSE(moIDE.SaveAll()); });
  ExpectHolds(sTold, {"choose File, Save All again", "Main.bas"});
  EXPECT_EQ(sTold.find("Order.cls"), std::string::npos);
  EXPECT_NE(moTree.Read("Order.cls"), sClassBytes);
  EXPECT_EQ(moTree.Read("Main.bas"), sModuleBytes);
  EXPECT_EQ(Tree(), sDirty);
  // At the end the window stays open, with the change.
  AnswerSave("cmdSave");
  Told([&] { EXPECT_FALSE(moIDE.UserClose()); });
  std::filesystem::permissions(moTree.Path("Main.bas"), std::filesystem::perms::owner_all);
  EXPECT_TRUE(moIDE.SaveAll());
  EXPECT_NE(moTree.Read("Main.bas"), sModuleBytes);
}

TEST_F(OpenFIDETest, LastSaveIsTakenBackOnTheUsersWord) {
  ExpectHolds(Told([&] { moIDE.oMenu[u"mnuFileUndo"].UserPick(); }), {"There is no run"});
  Edit(1);
  Edit(2);
  ASSERT_TRUE(moIDE.SaveAll());
  const std::string sSaved = moTree.Read("Main.bas");
  User().MsgBox(MsgBoxResult::No);
  EXPECT_TRUE(moIDE.oMenu[u"mnuFileUndo"].UserPick());
  EXPECT_EQ(moTree.Read("Main.bas"), sSaved);
  moTree.Write("Order.cls", std::string(sClassBytes) + "' later\r\n");
  User().MsgBox(MsgBoxResult::Yes);
  ExpectHolds(Told([&] { moIDE.oMenu[u"mnuFileUndo"].UserPick(); }), {"left alone", "Order.cls"});
  EXPECT_EQ(moTree.Read("Main.bas"), sModuleBytes);
  EXPECT_EQ(moTree.Read("Order.cls"), std::string(sClassBytes) + "' later\r\n");
  EXPECT_EQ(Tree(), sClean) << "the window has read them again";
}

TEST_F(FIDETest, RunThatWasKilledIsTakenBackAheadOfOpeningOnTheUsersWord) {
  const std::string sNew = sModuleBytes + "' new\r\n";
  moTree.Write("Main.bas", sNew);
  const RunStore oStore = UserRuns();
  {
    RunJournal oJournal(oStore, {"quillon apply", 1, 1, {moTree.Path("Shop.vbp")}},
                        SystemFileOps());
    oJournal.Add(moTree.Path("Main.bas"), moTree.Path("gone"), sModuleBytes, sNew);
    oJournal.Flush();
  }
  for (const bool bYes : {false, true}) {
    SCOPED_TRACE(bYes);
    User().MsgBox(bYes ? MsgBoxResult::Yes : MsgBoxResult::No);
    if (bYes) User().MsgBox(MsgBoxResult::Ok);
    Start();
    ASSERT_FALSE(User().Boxes().empty());
    ExpectHolds(ToUtf8(User().Boxes().front().sPrompt), {"quillon apply of ", "broken off"});
    EXPECT_EQ(moTree.Read("Main.bas"), bYes ? sModuleBytes : sNew);
    moIDE.UserClose();
  }
  ExpectHolds(ToUtf8(User().Boxes().back().sPrompt), {"1 file as before"});
  Start();
  EXPECT_EQ(Tree(), sClean) << "and asks no more";
}

TEST_F(OpenFIDETest, FilesOfOtherProgramsAreReadAgainOrTold) {
  Select(u"MMain");
  moTree.Write("Main.bas", "Attribute VB_Name = \"MMain\"\r\nSub Other()\r\nEnd Sub\r\n");
  InAddIn([&](VBE& oVBE) { EXPECT_EQ(CodeModuleOf(oVBE, 1).Lines(1, 1), u"Sub Other()"); });
  EXPECT_EQ(moIDE.paneCode.Line(1), u"Sub Other()");
  const auto Conflicts = [&](VBE& oVBE) {
    CodeModuleOf(oVBE, 1).InsertLines(1, u"' mine");
    moTree.Write("Main.bas", "Attribute VB_Name = \"MMain\"\r\n' theirs, longer\r\n");
  };
  ExpectHolds(Told([&] { InAddIn(Conflicts); }), {"Another program has changed or removed"});
  EXPECT_EQ(moIDE.paneCode.Line(1), u"' mine");
  InAddIn([](VBE&) {});  // it isn't told again
  EXPECT_EQ(User().Boxes().size(), 1U);
  const auto Changes = [&](VBE&) { moTree.Write("Shop.vbp", moTree.Read("Shop.vbp") + "\r\n"); };
  ExpectHolds(Told([&] { InAddIn(Changes); }), {"Shop.vbp", "File, Reload Group"});
  AnswerSave("cmdDiscard");
  EXPECT_TRUE(moIDE.oMenu[u"mnuFileReload"].UserPick());
  Select(u"MMain");
  EXPECT_EQ(moIDE.paneCode.Line(1), u"' theirs, longer");
}

TEST_F(OpenFIDETest, WindowStaysOpenWhileTheAddInWorksOrFails) {
  InAddIn([&](VBE& oVBE) {
    EXPECT_FALSE(moIDE.Unload());
    oVBE.CommandBars().Item(u"Tester").Controls().Item(1).SetTooltipText(u"New");
    throw Failure(5);
  });
  EXPECT_EQ(moIDE.cmdTool(1).ToolTipText(), u"New");
  Edit();
  EXPECT_TRUE(moIDE.SaveAll());
  EXPECT_TRUE(moIDE.UserClose());
}

}  // namespace
