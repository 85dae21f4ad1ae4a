// Showing and leaving the window, what it keeps, the guard with its progress, the toolbar, the
// layout.
#include "FMainTest.h"
#include "FOptions.h"
#include "FRules.h"

namespace {

using namespace Forms;

TEST_F(FMainTest, LeavingAsksWhenSomethingIsPending) {
  struct Row {
    const char* sName;
    bool bExit, bDirty;
    MsgBoxResult eAnswer;
    bool bOpen;
  };
  for (const Row& oRow : {
           Row{"exit, nothing pending", true, false, MsgBoxResult::Ok, false},
           Row{"exit, kept", true, true, MsgBoxResult::Cancel, true},
           Row{"exit, discarded", true, true, MsgBoxResult::Ok, false},
           Row{"close box, nothing pending", false, false, MsgBoxResult::Ok, false},
           Row{"close box, kept", false, true, MsgBoxResult::Cancel, true},
           Row{"close box, discarded", false, true, MsgBoxResult::Ok, false},
       }) {
    SCOPED_TRACE(oRow.sName);
    PaneIDE oOwn;
    oOwn.Add(u"MOne", ComponentStdModule, u"Sub a()\nEnd Sub");
    const std::size_t nBoxes = User().Boxes().size();
    User().Modal<FMain>([&](FMain& o) {
      moRenderer.Advance(100);
      Click(u"MOne");
      if (oRow.bDirty) {
        Edit(u"Locked", u"True");
        User().MsgBox(oRow.eAnswer);
      }
      oRow.bExit ? oMain.oMenu.mnuFileExit.UserPick() : oMain.UserClose();
      EXPECT_EQ(o.Loaded(), oRow.bOpen);
      EXPECT_EQ(oMain.Model() != nullptr, oRow.bOpen);
      if (o.Loaded()) o.Hide();
      o.Unload();
    });
    oMain.Display(oOwn, oConnect);
    EXPECT_EQ(oMain.poConnect(), &oConnect);
    ASSERT_EQ(User().Boxes().size() - nBoxes, oRow.bDirty ? 1U : 0U);
    if (!oRow.bDirty) continue;
    const MsgBoxRequest& oBox = User().Boxes().back();
    EXPECT_EQ(oBox.sPrompt + u"|" + oBox.sTitle, u"Discard Pending Properties?|Tarvane Quillon");
    EXPECT_EQ(oBox.eButtons, MsgBoxButtons::OkCancel);
    EXPECT_EQ(oBox.eIcon, MsgBoxIcon::Question);
  }
}

TEST_F(FMainTest, PlacesComeBackAndTheRestBeginsAnew) {
  oIDE.AddProject(u"P", 0);
  Rect oPlace;
  std::int32_t lBar = 0;
  Run([&] {
    oMain.Move(300, 450, 9000, 6000);
    oMain.picSplit1.UserMouseDown(Button::Left, 0, 0, 0);
    oMain.picSplit1.UserMouseMove(Button::Left, 0, -1500, 0);
    oMain.picSplit1.UserMouseUp(Button::Left, 0, 0, 0);
    oMain.oMenu.mnuViewProjectList.UserPick();
    oMain.oMenu.mnuViewErrors.UserPick();
    oPlace = oMain.Bounds();
    lBar = oMain.picSplit1.Left();
    EXPECT_EQ(oMain.tvwProjects.Width(), lBar);
    EXPECT_EQ(oMain.lvwMods.Left(), lBar + oMain.picSplit1.Width());
    EXPECT_EQ(oMain.lvwMods.Left() + oMain.lvwMods.Width(), oMain.picSplit2.Left());
  });
  Run([&] {
    EXPECT_EQ(oMain.Bounds(), oPlace);
    EXPECT_EQ(oMain.picSplit1.Left(), lBar);
    EXPECT_EQ(oMain.tvwProjects.Tag(), u"Tree");
    EXPECT_FALSE(oMain.fraErrors.Visible());
  });
}

TEST_F(FMainTest, DamagedPlacesGiveAUsableWindow) {
  struct Row {
    const char *sKey, *sName;
    std::int32_t lValue;
  };
  const auto Fits = [&] {
    const FMain& o = oMain;
    return o.tvwProjects.Width() >= 600 && o.lvwMods.Width() >= 600 &&
           o.picContainer.Width() >= 600 && o.picSplit1.Left() < o.picSplit2.Left() &&
           o.picContainer.Left() + o.picContainer.Width() <= o.ScaleWidth() &&
           o.picSplit3.Top() < o.ScaleHeight() && o.picSplit1.Width() < 100;
  };
  for (const Row& oRow : {
           Row{"FMain", "Left", -2147483647},
           Row{"FMain", "Width", 0},
           Row{"FMain", "State", 1},
           Row{"FMain", "State", 77},
           Row{"FMain", "State", 2},
           Row{"FMain\\Split1", "Left", 2147483647},
           Row{"FMain\\Split1", "Width", 9000},
           Row{"FMain\\Split2", "Left", -5},
           Row{"FMain\\Split2", "Left", 40},
           Row{"FMain\\Split3", "Top", 2147483647},
           Row{"FMain\\ModList", "ColWidth1", -7},
       }) {
    SCOPED_TRACE(std::string(oRow.sKey) + " " + oRow.sName + " " + std::to_string(oRow.lValue));
    RegistryStore oOwn;
    goRegistry = &oOwn;
    oOwn.SetLong(Text(u"HKEY_CURRENT_USER\\").append(MXRegistry::RootKey) + FromUtf8(oRow.sKey),
                 FromUtf8(oRow.sName), oRow.lValue);
    Run([&] {
      EXPECT_TRUE(Fits());
      EXPECT_NE(oMain.WindowState(), WindowState::Minimized);
      EXPECT_EQ(oMain.WindowState() == WindowState::Maximized, oRow.lValue == 2);
      EXPECT_EQ(oMain.lvwMods.ColumnHeaders().Count(), 6);
      oMain.oMenu.mnuViewErrors.UserPick();
      EXPECT_TRUE(Fits());
    });
    goRegistry = &oStore;
  }
}

TEST_F(FMainTest, GuardCountsAndProgressBorrowsThePanels) {
  oIDE.AddProject(u"P", 0);
  Text sCode;
  for (char c = 'a'; c <= 'z'; ++c)
    for (char d = 'a'; d <= 'b'; ++d)
      sCode += FromUtf8(std::string("Sub ") + c + d + "()\nEnd Sub\n");
  Add(u"MBig", sCode);
  Run([&] {
    oMain.EventPop();
    oMain.EventPush(Pointer::Hourglass);
    oMain.EventPush(Pointer::SizeNS);
    bool bCascaded = false;
    oMain.CascadedEvent(bCascaded);
    EXPECT_TRUE(bCascaded);
    oMain.EventPop();
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
    oMain.EventPop();
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);

    const auto Bar = [&](std::int16_t nPercent) {
      oMain.Model()->Progress(nPercent, u"MBig." + ToText(nPercent));
      return oMain.picProgress.Width();
    };
    EXPECT_EQ(Bar(100), oMain.StatusBar1.Panels(1).Width()) << "on a hidden bar";
    const std::string sPanels = "1 Object(s) P.vbp";
    Click(u"Modules");
    oMain.Model()->ProgressStart();
    EXPECT_TRUE(oMain.picProgress.Visible() && oMain.picProgress.Width() == 0);
    EXPECT_EQ(Bar(50), 1072);
    EXPECT_EQ(Bar(-1), 1072);
    EXPECT_EQ(Bar(101), 1072);
    EXPECT_EQ(Panel(1) + "|" + Panel(2), "|MBig.50");
    oMain.Model()->ProgressEnd();
    EXPECT_EQ(Panel(1) + " " + Panel(2), sPanels);
    const auto nBefore = moRenderer.Refreshes(oMain.picProgress);
    Click(u"MBig");
    EXPECT_EQ(moRenderer.Refreshes(oMain.picProgress) - nBefore, 52);
    EXPECT_FALSE(oMain.picProgress.Visible());
  });
}

TEST_F(FMainTest, ToolbarPressesReleasesAndFrames) {
  oIDE.AddProject(u"P", 0);
  Run([&] {
    const MainToolbar& o = oMain.oToolbar;
    PictureBox& oList = o.picButton(3);
    EXPECT_EQ(oList.Left(), 1230);
    EXPECT_EQ(o.linSep1(2).X1(), 1590);
    EXPECT_EQ(o.picButton(6).Left(), 2445);
    const auto Places = [&] {
      return std::to_string(oList.Left()) + "," + std::to_string(oList.Top()) +
             (o.linTop.BorderColor() == SystemColor::ButtonShadow ? " pressed" : "") +
             (o.linTop.Visible() ? " framed" : "") + " " + ToUtf8(oMain.tvwProjects.Tag());
    };
    oList.UserMouseMove(0, 0, 150, 150);
    EXPECT_EQ(Places(), "1230,60 framed Tree");
    EXPECT_EQ(o.linRight.X1(), 1545);
    EXPECT_EQ(o.linBottom.X2(), 1560);
    oList.UserMouseDown(Button::Right, 0, 10, 10);
    EXPECT_EQ(Places(), "1230,60 framed Tree");
    oList.UserMouseDown(Button::Left, 0, 10, 10);
    EXPECT_EQ(Places(), "1245,75 pressed framed Tree");
    oList.UserMouseMove(Button::Left, 0, -15, -15);
    EXPECT_EQ(Places(), "1245,75 pressed framed Tree") << "still over its place";
    oList.UserMouseMove(Button::Left, 0, -16, 0);
    EXPECT_EQ(Places(), "1230,60 framed Tree");
    oList.UserMouseUp(Button::Left, 0, -16, 0);
    EXPECT_EQ(Places(), "1230,60 framed Tree") << "let go outside: no command";
    oList.UserMouseDown(Button::Left, 0, 10, 10);
    oList.UserMouseMove(Button::Left, 0, 400, 10);
    oList.UserMouseMove(Button::Left, 0, 20, 10);
    EXPECT_EQ(Places(), "1245,75 pressed framed Tree");
    oList.UserMouseUp(Button::Left, 0, 20, 10);
    EXPECT_EQ(Places(), "1230,60 framed List");
    EXPECT_FALSE(oList.UserMouseDown(Button::Left, 0, 0, 0)) << "off now";
    oMain.UserMouseMove(0, 0, 5000, 200);
    EXPECT_FALSE(o.linTop.Visible() || o.linRight.Visible());
  });
}

TEST_F(FMainTest, PartsFollowTheWindow) {
  oIDE.AddProject(u"P", 0);
  Run([&] {
    const std::int32_t lBar = oMain.StatusBar1.Height();
    oMain.Move(0, 0, 12000, 8000);
    EXPECT_EQ(oMain.tvwProjects.Height(), oMain.ScaleHeight() - 690 - lBar);
    EXPECT_EQ(oMain.lvwMods.Height(), oMain.tvwProjects.Height());
    EXPECT_EQ(oMain.picContainer.Left() + oMain.picContainer.Width(), oMain.ScaleWidth());
    EXPECT_EQ(oMain.StatusBar1.Panels(2).Width(), oMain.StatusBar1.Width() - 2145);
    const Rect oClient = oMain.tabView.ClientArea(), oPane = oMain.srlResults.Bounds();
    EXPECT_EQ(oPane,
              (Rect{oClient.lLeft, oClient.lTop + 255, oClient.lWidth, oClient.lHeight - 255}));
    oMain.oMenu.mnuViewErrors.UserPick();
    EXPECT_EQ(oMain.fraErrors.Top() + oMain.fraErrors.Height(), oMain.ScaleHeight() - lBar);
    EXPECT_EQ(oMain.lvwMods.Top() + oMain.lvwMods.Height(), oMain.picSplit3.Top());
    EXPECT_EQ(oMain.srlErrors.Width(), oMain.fraErrors.Width());
    EXPECT_EQ(oMain.cmdHideErrors.Left(), oMain.fraErrors.Width() - 255);
    const std::int32_t lTree = oMain.tvwProjects.Height();
    oMain.SetHeight(3000);
    EXPECT_EQ(oMain.tvwProjects.Height(), lTree) << "too low for a layout";
    oMain.SetWidth(1000);
    EXPECT_EQ(oMain.picContainer.Width(), 0);
    EXPECT_EQ(oMain.StatusBar1.Panels(2).Width(), 2000);
    oMain.SetWindowState(WindowState::Minimized);
  });
}

TEST_F(FMainTest, RulesAndFontsTakeEffectAtOnce) {
  oIDE.AddProject(u"P", 0);
  Add(u"MOne", u"Sub a()\nEnd Sub");
  moRenderer.RemoveFont(u"Gone");
  MOptions::oCodeFont = {u"Gone", 14, true, false};
  Run([&] {
    EXPECT_EQ(oMain.txtCode.Font().sName, u"Courier New") << "its own, for want of the other";
    EXPECT_EQ(oMain.txtCode.Font().dSize, 14);
    Click(u"MOne");
    User().Modal<FRules>([](FRules& o) { o.cmdOK.UserClick(); });
    EXPECT_TRUE(oMain.oMenu.mnuRulesDefine.UserPick());
    User().Modal<FOptions>([](FOptions& o) { o.cmdCancel.UserClick(); });
    EXPECT_TRUE(oMain.oMenu.mnuToolsOptions.UserPick());
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  });
  MOptions::oCodeFont = {};
}

}  // namespace
