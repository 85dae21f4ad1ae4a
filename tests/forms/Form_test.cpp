// The life of forms: loading, modal showing, unloading, sizes, and which form takes input.
#include "Form.h"

#include "CheckBox.h"
#include "CommandButton.h"
#include "ControlArray.h"
#include "FormsFixture.h"
#include "Label.h"
#include "ListBox.h"
#include "PictureBox.h"
#include "StatusBar.h"
#include "UserControl.h"

namespace {

using namespace Forms;

class Box : public UserControl {
 public:
  using UserControl::UserControl;
  Label lblInside{*this, u"lblInside"};

 private:
  void Design() override { lblInside.SetCaption(u"inside"); }
};

class FDemo : public Form {
 public:
  explicit FDemo(Toolkit& oToolkit) : Form(oToolkit, u"FDemo") {
    On(cmdOK.Click, [this] { Hide(); });
    On(cmdClose.Click, [this] { Unload(); });
  }
  Box boxPart{*this, u"boxPart"};
  CommandButton cmdOK{*this, u"cmdOK"}, cmdClose{*this, u"cmdClose"};
  CheckBox chkOn{*this, u"chkOn"};
  ListBox lstNames{*this, u"lstNames"};
  ControlArray<Label> lblRow{*this, u"lblRow"};
  PictureBox picArea{*this, u"picArea"};
  StatusBar sbrBelow{*this, u"sbrBelow"};

 private:
  void Design() override {
    SetCaption(u"Demo");
    Move(150, 300, 6000, 4500);
    boxPart.Move(0, 0, 900, 900);
    chkOn.SetChecked(true);
    lstNames.AddItem(u"first");
    lblRow(0).SetCaption(u"row");
    picArea.Move(0, 0, 600, 600);
  }
};

class FormTest : public FormsTest {
 protected:
  FormTest() {
    moLog.Watch(moForm.OnLoad, "Load");
    moLog.Watch(moForm.Resize, "Resize");
    moLog.Watch(moForm.Activate, "Activate");
    moLog.Watch(moForm.Deactivate, "Deactivate");
    moLog.Watch(moForm.QueryUnload, "QueryUnload");
    moLog.Watch(moForm.OnUnload, "Unload");
    moLog.Watch(moForm.chkOn.Click, "chkOn");
    moLog.Watch(moForm.picArea.Resize, "picArea");
    moLog.Watch(moForm.boxPart.Resize, "boxPart");
  }
  EventLog moLog;
  FDemo moForm{moToolkit};
};

TEST_F(FormTest, ShowingLoadsWithDesignValuesAndWithoutTheirEvents) {
  EXPECT_FALSE(moForm.Loaded());
  moForm.Show();
  EXPECT_EQ(moLog.Take(), "boxPart picArea Load Resize Activate");
  EXPECT_EQ(moForm.boxPart.lblInside.Caption(), u"inside");
  EXPECT_TRUE(moForm.chkOn.Checked() && moForm.Visible());
  EXPECT_EQ(moToolkit.ActiveForm(), &moForm);
  moForm.SetWidth(6300);
  moForm.picArea.SetWidth(600);  // as it was
  EXPECT_EQ(moLog.Take(), "Resize");
}

TEST_F(FormTest, TouchingAComponentLoadsTheFormAndReadingDoesNot) {
  EXPECT_EQ(moForm.cmdOK.Caption(), u"");
  EXPECT_FALSE(moForm.Loaded());
  moForm.boxPart.lblInside.SetCaption(u"new");
  EXPECT_TRUE(moForm.Loaded() && !moForm.Visible());
  EXPECT_EQ(moForm.boxPart.lblInside.Caption(), u"new");
  EXPECT_EQ(moForm.Caption(), u"Demo");
  moForm.Unload();
  moForm.SetTop(30);  // one of the four: the others are those of design time
  EXPECT_EQ(moForm.Bounds(), (Rect{150, 30, 6000, 4500}));
  moForm.Unload();
  moForm.lstNames.AddItem(u"second");
  EXPECT_EQ(moForm.lstNames.NewIndex(), 1);
}

TEST_F(FormTest, UnloadedFormsComeBackWithDesignValues) {
  moForm.Show();
  moForm.chkOn.SetChecked(false);
  moForm.lstNames.AddItem(u"second");
  moForm.lblRow.Load(1).SetCaption(u"more");
  moForm.cmdOK.ZOrder();
  moForm.cmdOK.SetTabIndex(99);
  moForm.cmdOK.SetDefault(true);
  moForm.SetWindowState(WindowState::Maximized);
  EXPECT_TRUE(moForm.Unload());
  EXPECT_FALSE(moForm.Loaded() || moForm.Visible());
  EXPECT_EQ(moToolkit.ActiveForm(), nullptr);
  moForm.Load();
  EXPECT_TRUE(moForm.chkOn.Checked());
  EXPECT_EQ(moForm.lstNames.ListCount(), 1);
  EXPECT_EQ(moForm.lblRow.Count(), 1);
  EXPECT_EQ(moForm.Controls().front(), &moForm.boxPart);
  EXPECT_EQ(moForm.DefaultButton(), nullptr);
  EXPECT_LT(moForm.cmdOK.TabIndex(), moForm.cmdClose.TabIndex());
  EXPECT_EQ(moForm.Bounds(), (Rect{150, 300, 6000, 4500}));
  EXPECT_EQ(moForm.WindowState(), WindowState::Normal);
}

TEST_F(FormTest, EitherUnloadEventCancelsAndTellsWhoUnloads) {
  struct Row {
    const char* sName;
    bool bCancelQuery, bCancelUnload;
    bool bUser;
    const char* sEvents;
  };
  const Row aoRow[] = {{"query cancels", true, false, true, "QueryUnload 0"},
                       {"unload cancels", false, true, true, "QueryUnload 0 Unload"},
                       {"code, cancelled", true, false, false, "QueryUnload 1"},
                       {"nobody cancels", false, false, false, "QueryUnload 1 Unload"}};
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    moForm.Show();
    moLog.Take();
    auto oQuery = moForm.QueryUnload.Connect([&](bool& bCancel, UnloadMode eMode) {
      moLog.Note(std::to_string(static_cast<int>(eMode)));
      bCancel = oRow.bCancelQuery;
      EXPECT_FALSE(moForm.Unload());  // from inside: ignored
    });
    auto oUnload = moForm.OnUnload.Connect([&](bool& bCancel) { bCancel = oRow.bCancelUnload; });
    const bool bCancelled = oRow.bCancelQuery || oRow.bCancelUnload;
    EXPECT_NE(oRow.bUser ? moForm.UserClose() : moForm.Unload(), bCancelled);
    EXPECT_EQ(moForm.Visible(), bCancelled);
    EXPECT_EQ(moLog.Take(), oRow.sEvents);
  }
}

TEST_F(FormTest, AFormWhoseLoadFailsIsNotLoaded) {
  auto oLink = moForm.OnLoad.Connect([] { throw Failure(7); });
  EXPECT_EQ(FailureOf([&] { moForm.chkOn.SetChecked(false); }), 7);
  EXPECT_FALSE(moForm.Loaded());
  EXPECT_TRUE(moToolkit.LoadedForms().empty());
  oLink.Disconnect();
  moForm.Show();
  EXPECT_TRUE(moForm.chkOn.Checked());
}

TEST_F(FormTest, ModalShowEndsWithHidingOrUnloading) {
  User().Modal<FDemo>([](FDemo& o) {
    EXPECT_TRUE(o.Modal());
    o.chkOn.UserClick();
    o.cmdOK.UserClick();
  });
  moForm.Show(ShowMode::Modal);
  EXPECT_TRUE(moForm.Loaded() && !moForm.chkOn.Checked() && !moForm.Modal());
  User().Modal<FDemo>([](FDemo& o) { o.cmdClose.UserClick(); });
  moForm.Show(ShowMode::Modal);
  EXPECT_FALSE(moForm.Loaded());
  User().Modal<FDemo>([](FDemo& o) {
    EXPECT_EQ(FailureOf([&] { o.Show(ShowMode::Modal); }), 400);
    o.UserClose();
  });
  moForm.Show(ShowMode::Modal);
}

TEST_F(FormTest, AModalFormTakesTheInputFromAllOthers) {
  FDemo oDialog(moToolkit);
  moForm.Show();
  moLog.Take();
  User().Modal<FDemo>([&](FDemo& o) {
    EXPECT_EQ(&o, &oDialog);
    EXPECT_EQ(o.Owner(), &moForm);
    EXPECT_FALSE(moForm.chkOn.UserClick() || moForm.UserClose() || moForm.UserActivate());
    EXPECT_TRUE(moForm.chkOn.Checked());
    EXPECT_EQ(moToolkit.ActiveForm(), &oDialog);
    o.Hide();
    EXPECT_TRUE(moForm.chkOn.UserClick());
  });
  oDialog.Show(ShowMode::Modal);
  EXPECT_EQ(moLog.Take(), "Deactivate Activate chkOn");
}

TEST_F(FormTest, HidingGivesTheInputBackToTheOwner) {
  FDemo oSecond(moToolkit), oThird(moToolkit);
  moForm.Show();
  oSecond.Show(ShowMode::Modeless, &moForm);
  oThird.Show();
  oSecond.UserActivate();
  oSecond.Hide();
  EXPECT_EQ(moToolkit.ActiveForm(), &moForm);
  moForm.Hide();
  EXPECT_EQ(moToolkit.ActiveForm(), &oThird);
}

TEST_F(FormTest, AFormThatEndsWhileLoadedClosesQuietly) {
  {
    FDemo oOther(moToolkit);
    moLog.Watch(oOther.QueryUnload, "other");
    oOther.Show();
    oOther.chkOn.SetFocus();
    moToolkit.LockWindowUpdate(&oOther.chkOn);
  }
  EXPECT_EQ(moLog.Take(), "");
  EXPECT_TRUE(moToolkit.LoadedForms().empty());
  EXPECT_EQ(moToolkit.ActiveForm(), nullptr);
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);
}

TEST_F(FormTest, WindowStatesKeepTheNormalPlace) {
  moForm.Show();
  moLog.Take();
  moForm.UserWindowState(WindowState::Maximized);
  EXPECT_EQ(moForm.Bounds(), (Rect{0, 0, 15360, 11070}));
  EXPECT_EQ(FailureOf([&] { moForm.SetLeft(30); }), 384);
  EXPECT_FALSE(moForm.UserMove(30, 30));
  moForm.SetWindowState(WindowState::Minimized);
  EXPECT_EQ(moForm.Bounds(), (Rect{150, 300, 6000, 4500}));
  moForm.SetWindowState(WindowState::Normal);
  EXPECT_TRUE(moForm.UserMove(30, 45));
  EXPECT_EQ(moForm.Bounds(), (Rect{30, 45, 6000, 4500}));
  EXPECT_EQ(moLog.Take(), "Resize Resize Resize");
}

TEST_F(FormTest, TheStatusBarFollowsBeforeResizeIsRaised) {
  moForm.Show();
  EXPECT_EQ(moForm.sbrBelow.Bounds(), (Rect{0, 3660, 5880, 375}));
  std::int32_t lTop = 0;
  auto oLink = moForm.Resize.Connect([&] { lTop = moForm.sbrBelow.Top(); });
  moForm.UserResize(6000, 5100);
  EXPECT_EQ(lTop, moForm.ScaleHeight() - 375);
  moForm.UserResize(30, 30);
  EXPECT_EQ(moForm.ScaleWidth(), 0);
}

}  // namespace
