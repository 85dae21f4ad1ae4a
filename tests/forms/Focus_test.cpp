// The focus, tab order, and the keys that belong to the form.
#include "ControlArray.h"
#include "Menu.h"
#include "Play.h"
#include "UserControl.h"

namespace {

using namespace Forms;

class Pair : public UserControl {
 public:
  using UserControl::UserControl;
  TextBox txtOne{*this, u"txtOne"}, txtTwo{*this, u"txtTwo"};
};

class FocusTest : public PlayTest {
 protected:
  FocusTest() {
    for (Control* po :
         std::initializer_list<Control*>{&txtName, &pair, &pair.txtOne, &pair.txtTwo}) {
      log.Watch(po->GotFocus, NameOf(*po) + "+");
      log.Watch(po->LostFocus, NameOf(*po) + "-");
    }
    log.Watch(pair.EnterFocus, "enter");
    log.Watch(pair.ExitFocus, "exit");
    for (Control* po : std::initializer_list<Control*>{&cmdOK, &cmdCancel, &chkLast})
      log.Watch(po->Click, NameOf(*po));
    log.Watch(mnuEditAll.Click, "All");
    form.Show();
    mnuEditAll.SetShortcut(u'A', Shift::Ctrl);
    lblName.SetCaption(u"&Name");
    fraKind.SetCaption(u"Kin&d");
    optKind(0).SetCaption(u"&One");
    chkLast.SetCaption(u"&Last");
    cmdCancel.SetCaption(u"&Leave");
    for (const TextView s : {u"Pane &1", u"Pane &2"}) tabView.Tabs().Add(0, s, s);
    cmdOK.SetDefault(true);
    cmdCancel.SetCancel(true);
    log.Take();
    Can("options", [this](auto& o) { optKind(o.Number(1)).SetValue(o.Number(2) != 0); });
    Can("index", [this](auto& o) { At(o).SetTabIndex(o.Number(2)); });
    Can("skip", [this](auto& o) { At(o).SetTabStop(false); });
    Can("tab", [this](auto& o) {
      for (int i = 0; i < o.Number(1); ++i) {
        form.UserKey(Key::Tab, o.Number(2));
        walk += Look() + " ";
      }
    });
  }
  std::string Look() override {
    const Control* po = form.ActiveControl();
    return po ? NameOf(*po) + (OnOf(*po) ? "*" : "") : "none";
  }
  static bool OnOf(const Control& o) {
    const auto* po = dynamic_cast<const OptionButton*>(&o);
    return po && po->Value();
  }

  Menu mnuEdit{form, u"mnuEdit"}, mnuEditAll{mnuEdit, u"mnuEditAll"};
  Label lblName{form, u"lblName"};
  TextBox txtName{form, u"txtName"};
  Frame fraKind{form, u"fraKind"};
  ControlArray<OptionButton> optKind{fraKind, u"optKind", 3};
  Pair pair{form, u"pair"};
  TabStrip tabView{form, u"tabView"};
  CheckBox chkLast{form, u"chkLast"};
  CommandButton cmdOK{form, u"cmdOK"}, cmdCancel{form, u"cmdCancel"};
  std::string walk;
};

TEST_F(FocusTest, MovesRaiseTheirEventsAndThoseOfUserControlsAround) {
  EXPECT_EQ(Look(), "txtName") << "the first in tab order, when the form shows";
  Play(R"(
    into a user control  | focus txtOne     | txtOne  | txtName- enter pair+ txtOne+
    inside, by the mouse | press txtTwo     | txtTwo  | txtOne- txtTwo+
    out of it            | enter txtName    | txtName | txtTwo- exit pair- txtName+
    to the control itself: to its first part | focus pair | txtOne | txtName- enter pair+ txtOne+
    once more            | focus pair       |         |
    passed on from what hides | hide txtOne | txtTwo  | txtOne- txtTwo+
    from a container that is disabled | off pair | tabView | txtTwo- exit pair-
    not to what can't have it | focus pair; focus lblName | | 5 5
    not on a disabled form    | off form; focus txtName   | none | 5)");
}

TEST_F(FocusTest, AUserControlWithoutAPartForItTakesTheFocusItself) {
  Play(R"(
    no part can have it | off txtOne; off txtTwo; focus pair | pair | txtName- enter pair+)");
  EXPECT_TRUE(pair.HasFocus() && !pair.txtTwo.HasFocus());
  pair.txtTwo.SetEnabled(true);
  EXPECT_EQ(form.NextInTabOrder(&optKind(2)), &pair.txtTwo);
}

TEST_F(FocusTest, AHandlerMaySendTheFocusElsewhere) {
  auto link = txtName.LostFocus.Connect([&] { cmdOK.SetFocus(); });
  Play("from the control that loses it | focus txtOne | cmdOK | txtName-");
  auto enter = pair.EnterFocus.Connect([&] { cmdCancel.SetFocus(); });
  Play("from the one that gets it | focus txtOne | cmdCancel | enter exit pair-");
}

TEST_F(FocusTest, TabWalksInOrderAndStopsOnceInAGroupOfOptions) {
  Play(
      "forward | options 1 1; index cmdCancel 0; skip chkLast; tab 8 | optKind(1)* |"
      "txtName- enter pair+ txtOne+ txtOne- txtTwo+ txtTwo- exit pair- txtName+ txtName-");
  EXPECT_EQ(walk, "optKind(1)* txtOne txtTwo tabView cmdOK cmdCancel txtName optKind(1)* ");
  Play(R"(
    back                        | tab 1 Shift                        | txtName    | txtName+
    the first that can be used  | options 1 0; off optKind(0); tab 1 | optKind(1) | txtName-)");
}

TEST_F(FocusTest, KeysOfTheForm) {
  Play(R"(
    label: the next control   | stroke N Alt                      | txtName     |
    frame: the first inside   | stroke D Alt                      | optKind(0)  | txtName-
    option button             | focus txtName; stroke O Alt       | optKind(0)* | txtName+ txtName-
    one key of two controls goes to the next | stroke L Alt       | chkLast     | chkLast
    and to the one behind it  | stroke L Alt                      | cmdCancel   | cmdCancel
    but not to a disabled one | off chkLast; focus tabView; stroke L Alt |      | cmdCancel
    tab                       | focus txtName; Alt+2              | tabView     | txtName+ txtName-
    without Alt it is a key   | focus txtName; stroke L           | txtName     | txtName+ no
    Return presses the default button | Return                    |             | cmdOK
    Escape presses the cancel button  | Escape                    |             | cmdCancel
    shortcut of a menu        | stroke A Ctrl                     |             | All
    a focused button before the default | focus cmdCancel; Return | cmdCancel   | txtName- cmdCancel
    no button takes them      | off cmdOK; hide cmdCancel; focus txtName; Return; Escape | txtName | txtName+ no no)");
  EXPECT_EQ(tabView.SelectedItem()->Key(), u"Pane &2");
}

TEST_F(FocusTest, ArrowsMoveInAGroupOfOptionsAndChoose) {
  Play(R"(
    to the next         | optKind(0); key optKind(0) Down | optKind(1)* | txtName-
    over a disabled one | optKind(0); off optKind(1); key optKind(0) Down | optKind(2)* |
    round the end       | key optKind(2) Right                            | optKind(0)* |
    and back            | key optKind(0) Up                               | optKind(2)* |)");
  EXPECT_FALSE(optKind(0).Value());
}

TEST_F(FocusTest, PreviewersSeeKeysFirstAndCanSwallowThem) {
  form.SetKeyPreview(true);
  pair.SetKeyPreview(true);
  pair.txtOne.SetFocus();
  log.Watch(form.KeyDown, "form");
  log.Watch(pair.KeyDown, "pair");
  log.Watch(pair.txtOne.KeyDown, "one");
  log.Watch(pair.txtOne.KeyPress, "press");
  log.Watch(pair.txtOne.KeyUp, "up");
  log.Take();
  Play("all of them | key txtOne X | | form pair one press up");
  auto swallow = pair.KeyDown.Connect([](std::int32_t& key, std::int32_t) { key = 0; });
  Play("swallowed halfway | key txtOne X | | form pair up");
  EXPECT_EQ(pair.txtOne.Text(), u"x");
}

}  // namespace
