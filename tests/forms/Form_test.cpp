// The life of forms: loading, modal showing, unloading, sizes, and which form takes input.
#include "Form.h"

#include "ControlArray.h"
#include "ListBox.h"
#include "PictureBox.h"
#include "Play.h"
#include "StatusBar.h"
#include "UserControl.h"

namespace {

using namespace Forms;

struct Box : UserControl {
  using UserControl::UserControl;
  void Design() override { lblInside.SetCaption(u"inside"); }
  Label lblInside{*this, u"lblInside"};
};

struct FDemo : Form {
  FDemo(Toolkit& toolkit, TextView name) : Form(toolkit, name) {
    On(cmdOK.Click, [this] { Hide(); });
    On(cmdClose.Click, [this] { Unload(); });
  }
  void Design() override {
    Move(150, 300, 6000, 4500);
    boxPart.Move(0, 0, 900, 900);
    chkOn.SetChecked(true);
    lstNames.AddItem(u"first");
    picArea.Move(0, 0, 600, 600);
  }
  Box boxPart{*this, u"boxPart"};
  CommandButton cmdOK{*this, u"cmdOK"}, cmdClose{*this, u"cmdClose"};
  CheckBox chkOn{*this, u"chkOn"};
  ListBox lstNames{*this, u"lstNames"};
  ControlArray<Label> lblRow{*this, u"lblRow"};
  PictureBox picArea{*this, u"picArea"};
  StatusBar sbrBelow{*this, u"sbrBelow"};
};

class FormTest : public PlayOn<FDemo> {
 protected:
  FormTest() {
    log.Watch(form.OnLoad, "Load");
    log.Watch(form.Resize, "Resize");
    log.Watch(form.Activate, "Activate");
    log.Watch(form.Deactivate, "Deactivate");
    log.Watch(form.QueryUnload, "QueryUnload");
    log.Watch(form.OnUnload, "Unload");
    log.Watch(form.chkOn.Click, "chkOn");
    log.Watch(form.picArea.Resize, "picArea");
    log.Watch(form.boxPart.Resize, "boxPart");
    Can("load", [this](auto&) { form.Load(); });
    Can("unload", [this](auto&) { return form.Unload(); });
    Can("present", [this](auto&) { form.Show(); });
    Can("check", [this](auto& o) { form.chkOn.SetChecked(o.Number(1) != 0); });
    Can("caption", [this](auto& o) { form.boxPart.lblInside.SetCaption(o.Wide(1)); });
    Can("add", [this](auto& o) { form.lstNames.AddItem(o.Wide(1)); });
    Can("width", [this](auto& o) { At(o).SetWidth(o.Number(2)); });
    Can("top", [this](auto& o) { form.SetTop(o.Number(1)); });
    Can("move", [this](auto& o) { return form.UserMove(o.Number(1), o.Number(2)); });
    Can("drag", [this](auto& o) { return form.UserResize(o.Number(1), o.Number(2)); });
    Can("state", [this](auto& o) { form.SetWindowState(Forms::WindowState(o.Number(1))); });
  }
  /// Loaded or shown; the window, the status bar's upper edge; what is on it.
  std::string Look() override {
    const Rect o = form.Bounds();
    std::string all = !form.Loaded() ? "- " : form.Visible() ? "shown " : "loaded ";
    for (const auto l : {o.lLeft, o.lTop, o.lWidth, o.lHeight, form.sbrBelow.Top()})
      all += std::to_string(l) + " ";
    return all + (form.chkOn.Checked() ? "on " : "off ") +
           std::to_string(form.lstNames.ListCount()) + ToUtf8(form.boxPart.lblInside.Caption());
  }
};

TEST_F(FormTest, ShowingLoadsWithDesignValuesAndWithoutTheirEvents) {
  Play(R"(
    shown            | present            | shown 150 300 6000 4500 3660 on 1inside | boxPart picArea Load Resize Activate
    wider            | width form 6300    | shown 150 300 6300 4500 3660 on 1inside | Resize
    a part, as it was | width picArea 600 |                                         |
    unloaded         | check 0; unload    | - 0 0 4800 3600 0 off 0 | chkOn QueryUnload Unload
    loaded by a part | caption new        | loaded 150 300 6000 4500 3660 on 1new | boxPart picArea Load
    by one of the four places: the others are those of design time
                     | unload; top 30 | loaded 150 30 6000 4500 3660 on 1inside | QueryUnload Unload boxPart picArea Load
    by a new line    | unload; add x  | loaded 150 300 6000 4500 3660 on 2inside | QueryUnload Unload boxPart picArea Load)");
  EXPECT_EQ(form.lstNames.NewIndex(), 1);
}

TEST_F(FormTest, WindowStatesKeepTheNormalPlaceAndTheStatusBarFollowsBeforeResize) {
  form.Show();
  log.Take();
  const auto link = form.Resize.Connect([&] { log.Note(std::to_string(form.sbrBelow.Top())); });
  Play(R"(
    maximised      | state 2        | shown 0 0 15360 11070 10230 on 1inside     | Resize 10230
    can't be moved | top 30; move 30 30 |                                        | 384 no
    minimised      | state 1        | shown 150 300 6000 4500 3660 on 1inside    | Resize 3660
    as it was      | state 0        |                                            | Resize 3660
    moved          | move 30 45     | shown 30 45 6000 4500 3660 on 1inside      |
    larger         | drag 6000 5100 | shown 30 45 6000 5100 4260 on 1inside      | Resize 4260
    no room        | drag 30 30     | shown 30 45 30 30 -375 on 1inside          | Resize -375)");
  EXPECT_EQ(form.ScaleWidth(), 0);
}

TEST_F(FormTest, UnloadedFormsComeBackWithDesignValues) {
  form.Show();
  form.lblRow.Load(1).SetCaption(u"more");
  form.cmdOK.ZOrder();
  form.cmdOK.SetTabIndex(99);
  form.cmdOK.SetDefault(true);
  form.SetWindowState(WindowState::Maximized);
  EXPECT_TRUE(form.Unload());
  EXPECT_EQ(moToolkit.ActiveForm(), nullptr);
  form.Load();
  EXPECT_EQ(form.lblRow.Count(), 1);
  EXPECT_EQ(form.Controls().front(), &form.boxPart);
  EXPECT_EQ(form.DefaultButton(), nullptr);
  EXPECT_LT(form.cmdOK.TabIndex(), form.cmdClose.TabIndex());
  EXPECT_EQ(form.Bounds(), (Rect{150, 300, 6000, 4500}));
  EXPECT_EQ(form.WindowState(), WindowState::Normal);
}

TEST_F(FormTest, EitherUnloadEventCancelsAndTellsWhoUnloads) {
  // Who cancels, who unloads; the events.
  for (const auto& row : Rows(R"(
         query cancels   | query  | user | QueryUnload 0
         unload cancels  | unload | user | QueryUnload 0 Unload
         code, cancelled | query  | code | QueryUnload 1
         nobody cancels  |        | code | QueryUnload 1 Unload)")) {
    SCOPED_TRACE(row[0]);
    form.Show();
    log.Take();
    auto query = form.QueryUnload.Connect([&](bool& cancel, UnloadMode mode) {
      log.Note(std::to_string(static_cast<int>(mode)));
      cancel = row[1] == "query";
      EXPECT_FALSE(form.Unload());  // from inside: ignored
    });
    auto unload = form.OnUnload.Connect([&](bool& cancel) { cancel = row[1] == "unload"; });
    EXPECT_EQ(row[2] == "user" ? form.UserClose() : form.Unload(), row[1].empty());
    EXPECT_EQ(form.Visible(), !row[1].empty());
    EXPECT_EQ(log.Take(), row[3]);
  }
}

TEST_F(FormTest, AFormWhoseLoadFailsIsNotLoaded) {
  auto link = form.OnLoad.Connect([] { throw Failure(7); });
  EXPECT_EQ(FailureOf([&] { form.chkOn.SetChecked(false); }), 7);
  EXPECT_FALSE(form.Loaded());
  EXPECT_TRUE(moToolkit.LoadedForms().empty());
  link.Disconnect();
  form.Show();
  EXPECT_TRUE(form.chkOn.Checked());
}

TEST_F(FormTest, ModalShowEndsWithHidingOrUnloading) {
  const auto After = [&](std::function<void(FDemo&)> act) {
    User().Modal<FDemo>(std::move(act));
    form.Show(ShowMode::Modal);
    return form.Loaded() && !form.Modal();
  };
  EXPECT_TRUE(After([](FDemo& o) {
    EXPECT_TRUE(o.Modal() && o.chkOn.UserClick());
    o.cmdOK.UserClick();
  }));
  EXPECT_FALSE(form.chkOn.Checked());
  EXPECT_FALSE(After([](FDemo& o) { o.cmdClose.UserClick(); }));
  EXPECT_FALSE(After([](FDemo& o) {
    EXPECT_EQ(FailureOf([&] { o.Show(ShowMode::Modal); }), 400);
    o.UserClose();
  }));
}

TEST_F(FormTest, AModalFormTakesTheInputFromAllOthers) {
  FDemo dialog(moToolkit, u"2");
  form.Show();
  log.Take();
  User().Modal<FDemo>([&](FDemo& o) {
    EXPECT_EQ(o.Owner(), &form);
    EXPECT_FALSE(form.chkOn.UserClick() || form.UserClose() || form.UserActivate());
    EXPECT_EQ(moToolkit.ActiveForm(), &dialog);
    o.Hide();
    EXPECT_TRUE(form.chkOn.UserClick());
  });
  dialog.Show(ShowMode::Modal);
  EXPECT_EQ(log.Take(), "Deactivate Activate chkOn");
}

TEST_F(FormTest, HidingGivesTheInputBackToTheOwner) {
  FDemo second(moToolkit, u"2"), third(moToolkit, u"3");
  form.Show();
  second.Show(ShowMode::Modeless, &form);
  third.Show();
  second.UserActivate();
  second.Hide();
  EXPECT_EQ(moToolkit.ActiveForm(), &form);
  form.Hide();
  EXPECT_EQ(moToolkit.ActiveForm(), &third);
}

TEST_F(FormTest, AFormThatEndsWhileLoadedClosesQuietly) {
  {
    FDemo other(moToolkit, u"2");
    log.Watch(other.QueryUnload, "other");
    other.Show();
    other.chkOn.SetFocus();
    moToolkit.LockWindowUpdate(&other.chkOn);
  }
  EXPECT_EQ(log.Take(), "");
  EXPECT_TRUE(moToolkit.LoadedForms().empty());
  EXPECT_EQ(moToolkit.ActiveForm(), nullptr);
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);
}

}  // namespace
