// Showing and leaving the window, what it keeps, the guard with its progress, the toolbar, the
// layout.
#include <numeric>

#include "FAction.h"
#include "FMainTest.h"
#include "FOptions.h"
#include "FPrintOption.h"
#include "FRules.h"

namespace {

using namespace Forms;

TEST_F(FMainTest, LeavingAsksWhenSomethingIsPending) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  for (const bool bExit : {true, false})
    for (const bool bDirty : {false, true})
      for (const bool bStays : {false, true}) {
        SCOPED_TRACE(std::to_string(bExit) + std::to_string(bDirty) + std::to_string(bStays));
        Run([&] {
          Click(u"MOne");
          if (bDirty) Edit(u"Locked", u"True");
          if (bDirty)
            User().MsgBox([&](const MsgBoxRequest& o) {
              EXPECT_EQ(o.sPrompt + u"|" + o.sTitle,
                        u"Discard Pending Properties?|Tarvane Quillon");
              EXPECT_TRUE(o.eButtons == MsgBoxButtons::OkCancel && o.eIcon == MsgBoxIcon::Question);
              return bStays ? MsgBoxResult::Cancel : MsgBoxResult::Ok;
            });
          bExit ? Pick(u"FileExit") : static_cast<void>(oMain.UserClose());
          EXPECT_EQ(oMain.Loaded(), bDirty && bStays);
          EXPECT_EQ(oMain.Model() != nullptr, bDirty && bStays);
        });
        EXPECT_EQ(oMain.poConnect(), &oConnect);
      }
}

TEST_F(FMainTest, PlacesComeBackAndTheRestBeginsAnew) {
  oIDE.AddProject(u"P");
  Rect oPlace;
  std::int32_t lBar = 0;
  Run([&] {
    oMain.Move(300, 450, 9000, 6000);
    oMain.picSplit1.UserMouseDown(Button::Left, 0, 0, 0);
    oMain.picSplit1.UserMouseMove(Button::Left, 0, -1500, 0);
    EXPECT_NE(oMain.tvwProjects.Width(), oMain.picSplit1.Left()) << "not before the end";
    oMain.picSplit1.UserMouseUp(Button::Left, 0, 0, 0);
    Pick(u"ViewProjectList");
    Pick(u"ViewErrors");
    oPlace = oMain.Bounds();
    lBar = oMain.picSplit1.Left();
    EXPECT_EQ(oMain.tvwProjects.Width(), lBar);
    EXPECT_EQ(oMain.lvwMods.Left(), lBar + oMain.picSplit1.Width());
    EXPECT_EQ(oMain.lvwMods.Left() + oMain.lvwMods.Width(), oMain.picSplit2.Left());
    oMain.EventPush(Pointer::Hourglass);  // as a failure leaves it
  });
  EXPECT_EQ(oStore.GetLong(Key(u"FMain\\Split1"), u"Left"), lBar);
  for (const TextView s : {u"FMain", u"FMain\\Split2", u"FMain\\Split3"})
    EXPECT_GT(oStore.GetLong(Key(s), u"Width").value_or(0), 0) << ToUtf8(s);
  Run([&] {
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    oMain.EventPush(Pointer::Hourglass);
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass) << "the outermost one";
    oMain.EventPop();
    EXPECT_EQ(oMain.Bounds(), oPlace);
    EXPECT_EQ(oMain.picSplit1.Left(), lBar);
    EXPECT_EQ(oMain.tvwProjects.Tag(), u"Tree");
    EXPECT_FALSE(oMain.fraErrors.Visible());
  });
}

TEST_F(FMainTest, DamagedPlacesGiveAUsableWindow) {
  constexpr std::int32_t lFar = 2147483647;
  const auto Fits = [&] {
    const FMain& o = oMain;
    return o.tvwProjects.Width() >= 600 && o.lvwMods.Width() >= 600 &&
           o.picContainer.Width() >= 600 && o.picSplit1.Left() < o.picSplit2.Left() &&
           o.picContainer.Left() + o.picContainer.Width() <= o.ScaleWidth() &&
           o.picSplit3.Top() < o.ScaleHeight() && o.picSplit1.Width() < 100 && o.Left() >= 0 &&
           o.Top() >= 0 && o.Left() + o.Width() <= 15360 && o.Top() + o.Height() <= 11520 &&
           o.Width() >= 2400 && o.Height() >= 2400;
  };
  const struct {
    TextView sKey, sName;
    std::int32_t lValue;
  } aoRow[] = {{u"FMain", u"Left", -lFar},
               {u"FMain", u"Left", lFar},
               {u"FMain", u"Top", lFar},
               {u"FMain", u"Width", 0},
               {u"FMain", u"State", 1},
               {u"FMain", u"State", 2},
               {u"FMain", u"State", 77},
               {u"FMain\\Split1", u"Left", lFar},
               {u"FMain\\Split1", u"Width", 9000},
               {u"FMain\\Split2", u"Left", -5},
               {u"FMain\\Split2", u"Left", 40},
               {u"FMain\\Split3", u"Top", lFar},
               {u"FMain\\ModList", u"ColWidth1", -7}};
  for (const auto& [sKey, sName, lValue] : aoRow) {
    SCOPED_TRACE(ToUtf8(sKey) + " " + ToUtf8(sName) + " " + std::to_string(lValue));
    OwnSettings oOwn(oFolder / "settings.reg");
    oOwn.SetLong(Key(sKey), sName, lValue);
    // Settings that can't be saved don't keep the window from closing.
    std::filesystem::remove(oFolder / "settings.reg");
    std::filesystem::create_directory(oFolder / "settings.reg");
    Run([&, bLarge = lValue == 2] {
      EXPECT_TRUE(Fits());
      EXPECT_EQ(oMain.WindowState(), bLarge ? WindowState::Maximized : WindowState::Normal);
      EXPECT_EQ(oMain.lvwMods.ColumnHeaders().Count(), 6);
      Pick(u"ViewErrors");
      EXPECT_TRUE(Fits());
    });
    EXPECT_FALSE(oMain.Loaded());
    EXPECT_TRUE(std::filesystem::remove(oFolder / "settings.reg"));
  }
}

TEST_F(FMainTest, GuardCountsAndProgressBorrowsThePanels) {
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
    Click(u"Modules");
    oMain.Model()->ProgressStart();
    EXPECT_TRUE(oMain.picProgress.Visible() && oMain.picProgress.Width() == 0);
    for (const std::int16_t nPercent : std::initializer_list<std::int16_t>{50, -1, 101})
      EXPECT_EQ(Bar(nPercent), 1072) << nPercent;
    EXPECT_EQ(Panel(1) + "|" + Panel(2), "|MBig.50");
    oMain.Model()->ProgressEnd();
    EXPECT_EQ(Panel(1) + " " + Panel(2), "1 Object(s) P.vbp");
    oMain.Model()->ProgressStart();
    oMain.EventPop();
    EXPECT_FALSE(oMain.picProgress.Visible()) << "though the walk has not told its end";
    const auto nBefore = moRenderer.Refreshes(oMain.picProgress);
    Click(u"MBig");
    EXPECT_EQ(moRenderer.Refreshes(oMain.picProgress) - nBefore, 52);
    EXPECT_FALSE(oMain.picProgress.Visible());
  });
}

TEST_F(FMainTest, CommandsThatTakeTheirTimeShowTheHourglass) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  Run([&] {
    Click(u"MOne");
    for (const TextView sItem :
         {u"FilePrint", u"FilePageSetup", u"SelectAll", u"SelectNone", u"SelectInvert"}) {
      SCOPED_TRACE(ToUtf8(sItem));
      if (sItem == u"FilePrint")
        User().Modal<FPrintOption>([](auto& o) { o.cmdCancel.UserClick(); });
      if (sItem == u"FilePageSetup") User().ChoosePage([](PageDialog&) { return DialogAnswer{}; });
      const std::size_t lBefore = moRenderer.Pointers().size();
      Pick(sItem);
      ASSERT_GT(moRenderer.Pointers().size(), lBefore);
      EXPECT_EQ(moRenderer.Pointers()[lBefore], Pointer::Hourglass);
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    }
  });
}

TEST_F(FMainTest, ACommandOnManyRowsShowsProgressOverThem) {
  Text sLarge;
  for (std::int32_t i = 1; i <= 35; ++i) sLarge += u"Sub a" + ToText(i) + u"()\nEnd Sub\n";
  Add(u"MLarge", sLarge);
  for (std::int32_t i = 1; i <= 29; ++i) Add(u"MSmall" + ToText(i), {});
  Run([&] {
    const auto Painted = [&](Forms::ListView& oList, std::int32_t lFirst, std::int32_t lRows) {
      std::vector<std::int32_t> alRow(static_cast<std::size_t>(lRows));
      std::iota(alRow.begin(), alRow.end(), lFirst);
      Select(oList, alRow);
      User().Modal<FCopySuggest>([](FCopySuggest& o) { o.cmdAction(1).UserClick(); });
      const auto nBefore = moRenderer.Refreshes(oMain.picProgress);
      const std::string sPanel = Panel(2);
      Pick(u"PropsCopySuggest");
      EXPECT_EQ(Panel(2), sPanel);
      EXPECT_FALSE(oMain.picProgress.Visible());
      return moRenderer.Refreshes(oMain.picProgress) - nBefore;
    };
    Click(u"Modules");
    EXPECT_EQ(Painted(oMain.lvwMods, 2, 29), 0) << "too few to wait for";
    EXPECT_EQ(Painted(oMain.lvwMods, 1, 30), 30) << "and none for what MLarge loads";
    Click(u"MLarge");
    EXPECT_EQ(Painted(oMain.lvwProcs, 1, 36), 36);
  });
}

TEST_F(FMainTest, ToolbarPressesReleasesAndFrames) {
  oIDE.AddProject(u"P");
  Run([&] {
    const MainToolbar& o = oMain.oToolbar;
    for (std::int32_t i = 1; i < MainToolbar::lButtons; ++i)
      EXPECT_GE(o.picButton(i).Left(), o.picButton(i - 1).Left() + o.picButton(i - 1).Width());
    for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(o.linSep2(i).X1(), o.linSep1(i).X1() + 15);
    PictureBox& oList = o.picButton(3);
    const auto Check = [&](auto oAct, std::int32_t nButton, std::int32_t lX, std::int32_t lY,
                           const char* sPlaces) {
      (oList.*oAct)(nButton, 0, lX, lY);
      EXPECT_EQ(std::to_string(oList.Left()) + "," + std::to_string(oList.Top()) +
                    (o.linTop.BorderColor() == SystemColor::ButtonShadow ? " pressed" : "") +
                    (o.linTop.Visible() ? " framed" : "") + " " + ToUtf8(oMain.tvwProjects.Tag()),
                sPlaces)
          << lX;
    };
    const auto Move = &Control::UserMouseMove, Down = &Control::UserMouseDown,
               Up = &Control::UserMouseUp;
    Check(Move, 0, 150, 150, "1230,60 framed Tree");
    Check(Down, Button::Right, 10, 10, "1230,60 framed Tree");
    Check(Down, Button::Left, 10, 10, "1245,75 pressed framed Tree");
    Check(Move, Button::Left, -15, -15, "1245,75 pressed framed Tree");  // still over its place
    Check(Move, Button::Left, -16, 0, "1230,60 framed Tree");
    Check(Up, Button::Left, -16, 0, "1230,60 framed Tree");  // let go outside: no command
    Check(Down, Button::Left, 10, 10, "1245,75 pressed framed Tree");
    Check(Move, Button::Left, 400, 10, "1230,60 framed Tree");
    Check(Move, Button::Left, 20, 10, "1245,75 pressed framed Tree");
    Check(Up, Button::Left, 20, 10, "1230,60 framed List");
    std::string sFrame;
    for (const Line* po : {&o.linLeft, &o.linRight, &o.linTop, &o.linBottom})
      for (const std::int32_t l : {po->X1(), po->Y1(), po->X2(), po->Y2()})
        sFrame += std::to_string(l) + " ";
    EXPECT_EQ(sFrame, "1215 45 1215 360 1545 45 1545 360 1215 45 1545 45 1215 360 1560 360 ");
    EXPECT_FALSE(oList.UserMouseDown(Button::Left, 0, 0, 0)) << "off now";
    oMain.UserMouseMove(0, 0, 5000, 200);
    EXPECT_FALSE(o.linTop.Visible() || o.linRight.Visible());
  });
}

TEST_F(FMainTest, PartsFollowTheWindow) {
  oIDE.AddProject(u"P");
  const auto Bottom = [](const Control& o) { return o.Top() + o.Height(); };
  const auto Right = [](const Control& o) { return o.Left() + o.Width(); };
  Run([&] {
    EXPECT_EQ(oMain.picSplit1.Left(), oMain.ScaleWidth() / 3);
    EXPECT_EQ(oMain.picSplit2.Left(), oMain.ScaleWidth() / 3 * 2);
    EXPECT_EQ(oMain.picSplit3.Top(), oMain.ScaleHeight() / 3 * 2);
    oMain.Move(0, 0, 12000, 8000);
    const std::int32_t lEnd = oMain.ScaleHeight() - oMain.StatusBar1.Height();
    for (const Control* po : std::initializer_list<const Control*>{
             &oMain.picContainer, &oMain.tvwProjects, &oMain.lvwMods, &oMain.lvwProcs,
             &oMain.picSplit1, &oMain.picSplit2})
      EXPECT_LE(std::abs(Bottom(*po) - lEnd), 45) << ToUtf8(po->Name());
    EXPECT_EQ(oMain.picProgress.Top(), lEnd + 45);
    EXPECT_EQ(oMain.tvwProjects.Top(), oMain.lvwProcs.Top());
    EXPECT_EQ(oMain.oToolbar.linToolbarTop(0).X2(), oMain.ScaleWidth());
    EXPECT_EQ(Right(oMain.picContainer), oMain.ScaleWidth());
    EXPECT_EQ(oMain.StatusBar1.Panels(2).Width(), oMain.StatusBar1.Width() - 2145);
    const Rect o = oMain.tabView.ClientArea();
    EXPECT_EQ(oMain.lblResults.Top(), o.lTop + 30);
    EXPECT_EQ(oMain.srlResults.Bounds(), (Rect{o.lLeft, o.lTop + 255, o.lWidth, o.lHeight - 255}));
    oMain.picSplit3.SetTop(oMain.StatusBar1.Top() - 100);
    Pick(u"ViewErrors");
    EXPECT_EQ(oMain.picSplit3.Top(), oMain.StatusBar1.Top() - 645) << "room for the pane";
    EXPECT_EQ(Bottom(oMain.fraErrors), lEnd);
    EXPECT_EQ(Bottom(oMain.lvwMods), oMain.picSplit3.Top());
    EXPECT_EQ(oMain.srlErrors.Width(), oMain.fraErrors.Width());
    EXPECT_EQ(oMain.srlErrors.Height(), oMain.fraErrors.Height() - 270);
    EXPECT_EQ(oMain.cmdHideErrors.Left(), oMain.fraErrors.Width() - 255);
    const std::int32_t lTree = oMain.tvwProjects.Height();
    Pick(u"ViewErrors");
    const std::int32_t lEdges = oMain.Height() - oMain.ScaleHeight();
    oMain.SetHeight(lEdges + 3000);
    EXPECT_EQ(oMain.tvwProjects.Height(), lTree) << "too low for a layout";
    oMain.SetHeight(lEdges + 3015);
    EXPECT_NE(oMain.tvwProjects.Height(), lTree);
    oMain.SetHeight(2800);
    const std::int32_t lTop = oMain.picSplit3.Top();
    Pick(u"ViewErrors");
    EXPECT_EQ(oMain.picSplit3.Top(), lTop) << "the list keeps its least height";
    const auto Drag = [](Control& oBar, std::int32_t lBy) {
      oBar.UserMouseDown(Button::Left, 0, 0, 0);
      oBar.UserMouseMove(Button::Left, 0, lBy, 0);
      oBar.UserMouseUp(Button::Left, 0, 0, 0);
    };
    Drag(oMain.picSplit1, -9000);
    EXPECT_EQ(oMain.tvwProjects.Width(), 600) << "the margin";
    oMain.SetWidth(1000);
    EXPECT_EQ(Right(oMain.picContainer), oMain.ScaleWidth());
    oMain.SetWidth(6120);
    Drag(oMain.picSplit2, 9000);
    EXPECT_EQ(oMain.picContainer.Width(), 600);
    Pick(u"ViewProperties");
    EXPECT_EQ(oMain.picContainer.Width(), 6000 - 4000 - oMain.picSplit2.Width());
    oMain.SetWidth(1000);
    EXPECT_EQ(oMain.StatusBar1.Panels(2).Width(), 2000);
    oMain.picProgress.SetTop(7);
    oMain.SetWindowState(WindowState::Minimized);
    EXPECT_EQ(oMain.picProgress.Top(), 7) << "no layout for what isn't seen";
  });
}

TEST_F(FMainTest, RulesAndFontsTakeEffectAtOnce) {
  Add(u"MOne", u"Sub a()\nEnd Sub");
  moRenderer.RemoveFont(u"Gone");
  MOptions::oCodeFont = {u"Gone", 14, true, false};
  MOptions::oResultsFont = MOptions::oErrorFont = {u"Arial", 13, true, true};
  Run([&] {
    const FontSpec oCode = oMain.txtCode.Font();
    EXPECT_TRUE(oCode.sName == u"Courier New" && oCode.dSize == 14) << "the name is its own";
    Click(u"MOne");
    Select(oMain.lvwProcs, {2});
    const auto Fatals = [&] {
      return std::ranges::count_if(oMain.prlProperties.Controls(), [](const Control* po) {
        const auto* poCell = dynamic_cast<const Label*>(po);
        return poCell && poCell->Visible() && poCell->Caption() == u"Fatal";
      });
    };
    EXPECT_EQ(Fatals(), 0);
    User().Modal<FRules>(
        [](FRules& o) { o.oDefaults.cboSeverity.UserSelect(2), o.cmdOK.UserClick(); });
    Pick(u"RulesDefine");
    EXPECT_EQ(Fatals(), 1) << "suggested";
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
    for (const bool bOk : {false, true}) {
      User().Modal<FOptions>([&](FOptions& o) { (bOk ? o.cmdOK : o.cmdCancel).UserClick(); });
      Pick(u"ToolsOptions");
      for (const Scroller* po : {&oMain.srlResults, &oMain.srlErrors}) {
        const auto oFont = static_cast<const TextBox*>(po->Controls().front())->Font();
        EXPECT_EQ(oFont.dSize, 13) << "from the start";
        EXPECT_EQ(oFont.bBold && oFont.bItalic, bOk);
      }
    }
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
  });
  MOptions::oCodeFont = MOptions::oResultsFont = MOptions::oErrorFont = {};
}

}  // namespace
