// The focus, tab order, and the keys that belong to the form.
#include "CheckBox.h"
#include "CommandButton.h"
#include "ControlArray.h"
#include "Form.h"
#include "FormsFixture.h"
#include "Frame.h"
#include "Label.h"
#include "Menu.h"
#include "OptionButton.h"
#include "TabStrip.h"
#include "TextBox.h"
#include "UserControl.h"

namespace {

using namespace Forms;

class Pair : public UserControl {
 public:
  using UserControl::UserControl;
  TextBox txtOne{*this, u"txtOne"}, txtTwo{*this, u"txtTwo"};
};

class FFocus : public Form {
 public:
  explicit FFocus(Toolkit& oToolkit) : Form(oToolkit, u"FFocus") {}
  Menu mnuEdit{*this, u"mnuEdit"}, mnuEditAll{mnuEdit, u"mnuEditAll"};
  Label lblName{*this, u"lblName"};
  TextBox txtName{*this, u"txtName"};
  Frame fraKind{*this, u"fraKind"};
  ControlArray<OptionButton> optKind{fraKind, u"optKind", 3};
  Pair oPair{*this, u"oPair"};
  TabStrip tabView{*this, u"tabView"};
  CheckBox chkLast{*this, u"chkLast"};
  CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"};

 private:
  void Design() override {
    mnuEditAll.SetShortcut(u'A', Shift::Ctrl);
    lblName.SetCaption(u"&Name");
    fraKind.SetCaption(u"Kin&d");
    optKind(0).SetCaption(u"&One");
    chkLast.SetCaption(u"&Last");
    cmdOK.SetCaption(u"OK");
    cmdCancel.SetCaption(u"&Leave");
    tabView.Tabs().Add(0, u"a", u"Pane &1");
    tabView.Tabs().Add(0, u"b", u"Pane &2");
    cmdOK.SetDefault(true);
    cmdCancel.SetCancel(true);
  }
};

class FocusTest : public FormsTest {
 protected:
  FocusTest() {
    moLog.Watch(moForm.txtName.GotFocus, "name+");
    moLog.Watch(moForm.txtName.LostFocus, "name-");
    moLog.Watch(moForm.oPair.EnterFocus, "enter");
    moLog.Watch(moForm.oPair.ExitFocus, "exit");
    moLog.Watch(moForm.oPair.GotFocus, "pair+");
    moLog.Watch(moForm.oPair.LostFocus, "pair-");
    moLog.Watch(moForm.oPair.txtOne.GotFocus, "one+");
    moLog.Watch(moForm.oPair.txtOne.LostFocus, "one-");
    moLog.Watch(moForm.oPair.txtTwo.GotFocus, "two+");
    moLog.Watch(moForm.cmdOK.Click, "OK");
    moLog.Watch(moForm.cmdCancel.Click, "Leave");
    moLog.Watch(moForm.chkLast.Click, "Last");
    moLog.Watch(moForm.mnuEditAll.Click, "All");
    moForm.Show();
    moLog.Take();
  }
  std::string Active() const {
    const Control* po = moForm.ActiveControl();
    return po ? ToUtf8(po->Name()) + (po->Index() < 0 ? "" : std::to_string(po->Index())) : "none";
  }
  EventLog moLog;
  FFocus moForm{moToolkit};
};

TEST_F(FocusTest, ShowingGivesTheFocusToTheFirstInTabOrder) {
  EXPECT_EQ(Active(), "txtName");
}

TEST_F(FocusTest, MovesRaiseTheirEventsAndThoseOfUserControlsAround) {
  moForm.oPair.txtOne.SetFocus();
  EXPECT_EQ(moLog.Take(), "name- enter pair+ one+");
  moForm.oPair.txtTwo.UserMouseDown(Button::Left, 0, 15, 15);
  EXPECT_EQ(moLog.Take(), "one- two+");
  moForm.txtName.UserFocus();
  EXPECT_EQ(moLog.Take(), "exit pair- name+");
  moForm.oPair.SetFocus();
  EXPECT_EQ(moLog.Take(), "name- enter pair+ one+");
  moForm.oPair.SetFocus();
  EXPECT_EQ(moLog.Take(), "");
  EXPECT_TRUE(moForm.oPair.HasFocus() && !moForm.oPair.txtTwo.HasFocus());
}

TEST_F(FocusTest, AHandlerMaySendTheFocusElsewhere) {
  auto oLink = moForm.txtName.LostFocus.Connect([&] { moForm.cmdOK.SetFocus(); });
  moForm.oPair.txtOne.SetFocus();
  EXPECT_EQ(Active(), "cmdOK");
  EXPECT_EQ(moLog.Take(), "name-");
  auto oEnter = moForm.oPair.EnterFocus.Connect([&] { moForm.cmdCancel.SetFocus(); });
  moForm.oPair.txtOne.SetFocus();
  EXPECT_EQ(Active(), "cmdCancel");
  EXPECT_EQ(moLog.Take(), "enter exit pair-");
}

TEST_F(FocusTest, ItPassesOnFromWhatHidesOrIsDisabled) {
  moForm.oPair.txtOne.SetFocus();
  moForm.oPair.txtOne.SetVisible(false);
  EXPECT_EQ(Active(), "txtTwo");
  moForm.oPair.SetEnabled(false);
  EXPECT_EQ(Active(), "tabView");
  moForm.SetEnabled(false);
  EXPECT_EQ(Active(), "none");
  EXPECT_EQ(FailureOf([&] { moForm.txtName.SetFocus(); }), 5);
  EXPECT_EQ(FailureOf([&] { moForm.lblName.SetFocus(); }), 5);
}

TEST_F(FocusTest, AUserControlWithoutAPartForItTakesTheFocusItself) {
  moForm.oPair.txtOne.SetEnabled(false);
  moForm.oPair.txtTwo.SetEnabled(false);
  moForm.oPair.SetFocus();
  EXPECT_EQ(Active(), "oPair");
  EXPECT_EQ(moLog.Take(), "name- enter pair+");
  moForm.oPair.txtTwo.SetEnabled(true);
  EXPECT_EQ(moForm.NextInTabOrder(&moForm.optKind(2)), &moForm.oPair.txtTwo);
}

TEST_F(FocusTest, TabWalksInOrderAndStopsOnceInAGroupOfOptions) {
  moForm.optKind(1).SetValue(true);
  moForm.cmdCancel.SetTabIndex(0);
  moForm.chkLast.SetTabStop(false);
  std::string sWalk;
  for (int i = 0; i < 8; ++i) {
    moForm.UserKey(Key::Tab, Shift::None);
    sWalk += Active() + " ";
  }
  EXPECT_EQ(sWalk, "optKind1 txtOne txtTwo tabView cmdOK cmdCancel txtName optKind1 ");
  moForm.UserKey(Key::Tab, Shift::Shift);
  EXPECT_EQ(Active(), "txtName");
  moForm.optKind(1).SetValue(false);
  moForm.optKind(0).SetEnabled(false);
  EXPECT_EQ(moForm.NextInTabOrder(&moForm.txtName), &moForm.optKind(1));
}

TEST_F(FocusTest, KeysOfTheForm) {
  struct Row {
    const char* sName;
    std::int32_t nKey, nShift;
    const char* sActive;
    const char* sEvents;
  };
  const Row aoRow[] = {
      {"label: the next control", u'N', Shift::Alt, "txtName", ""},
      {"frame: the first inside", u'D', Shift::Alt, "optKind0", "name-"},
      {"option button", u'O', Shift::Alt, "optKind0", "name-"},
      {"one key of two controls goes to the next", u'L', Shift::Alt, "chkLast", "name- Last"},
      {"tab", u'2', Shift::Alt, "tabView", "name-"},
      {"without Alt it is a key", u'L', Shift::None, "txtName", ""},
      {"Return presses the default button", Key::Return, Shift::None, "txtName", "OK"},
      {"Escape presses the cancel button", Key::Escape, Shift::None, "txtName", "Leave"},
      {"shortcut of a menu", u'A', Shift::Ctrl, "txtName", "All"},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    moForm.txtName.SetFocus();
    moLog.Take();
    moForm.UserKey(oRow.nKey, oRow.nShift);
    EXPECT_EQ(Active(), oRow.sActive);
    EXPECT_EQ(moLog.Take(), oRow.sEvents);
  }
  EXPECT_TRUE(moForm.optKind(0).Value());
  EXPECT_EQ(moForm.tabView.SelectedItem()->Key(), u"b");
  moForm.chkLast.SetFocus();
  moForm.UserKey(u'L', Shift::Alt);
  EXPECT_EQ(Active(), "cmdCancel");
  moForm.chkLast.SetEnabled(false);
  moForm.txtName.SetFocus();
  moForm.UserKey(u'L', Shift::Alt);
  EXPECT_EQ(Active(), "cmdCancel");
}

TEST_F(FocusTest, ReturnAndEscapeGoOnWhenNoButtonTakesThem) {
  moForm.cmdCancel.SetFocus();
  moForm.cmdCancel.UserKey(Key::Return);
  EXPECT_EQ(moLog.Take(), "name- Leave");  // a focused button before the default
  moForm.cmdOK.SetEnabled(false);
  moForm.cmdCancel.SetVisible(false);
  moForm.txtName.SetFocus();
  moLog.Take();
  EXPECT_FALSE(moForm.UserKey(Key::Return, Shift::None));
  EXPECT_FALSE(moForm.UserKey(Key::Escape, Shift::None));
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(FocusTest, ArrowsMoveInAGroupOfOptionsAndChoose) {
  moForm.optKind(0).UserClick();
  moForm.optKind(1).SetEnabled(false);
  moForm.optKind(0).UserKey(Key::Down);
  EXPECT_TRUE(moForm.optKind(2).Value() && !moForm.optKind(0).Value());
  moForm.optKind(2).UserKey(Key::Right);
  EXPECT_EQ(Active(), "optKind0");
  moForm.optKind(0).UserKey(Key::Up);
  EXPECT_EQ(Active(), "optKind2");
}

TEST_F(FocusTest, PreviewersSeeKeysFirstAndCanSwallowThem) {
  moForm.SetKeyPreview(true);
  moForm.oPair.SetKeyPreview(true);
  moLog.Watch(moForm.KeyDown, "form");
  moLog.Watch(moForm.oPair.KeyDown, "pair");
  moLog.Watch(moForm.oPair.txtOne.KeyDown, "one");
  moLog.Watch(moForm.oPair.txtOne.KeyPress, "press");
  moLog.Watch(moForm.oPair.txtOne.KeyUp, "up");
  moForm.oPair.txtOne.SetFocus();
  moLog.Take();
  EXPECT_TRUE(moForm.oPair.txtOne.UserKey(u'X'));
  EXPECT_EQ(moLog.Take(), "form pair one press up");
  auto oSwallow = moForm.oPair.KeyDown.Connect([](std::int32_t& nKey, std::int32_t) { nKey = 0; });
  moForm.oPair.txtOne.UserKey(u'X');
  EXPECT_EQ(moLog.Take(), "form pair up");
  EXPECT_EQ(moForm.oPair.txtOne.Text(), u"x");
}

}  // namespace
