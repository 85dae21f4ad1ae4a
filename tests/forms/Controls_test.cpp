// Labels, buttons, boxes, pictures, arrays: state, events, and what a user can reach.
#include "CheckBox.h"
#include "CommandButton.h"
#include "ControlArray.h"
#include "Form.h"
#include "FormsFixture.h"
#include "Frame.h"
#include "Label.h"
#include "Line.h"
#include "OptionButton.h"
#include "PictureBox.h"
#include "StatusBar.h"
#include "TabStrip.h"
#include "TextOrder.h"

namespace {

using namespace Forms;

class FControls : public Form {
 public:
  explicit FControls(Toolkit& oToolkit) : Form(oToolkit, u"FControls") {}
  Frame fraOne{*this, u"fraOne"}, fraTwo{*this, u"fraTwo"};
  ControlArray<OptionButton> optOne{fraOne, u"optOne", 2};
  OptionButton optTwo{fraTwo, u"optTwo"};
  CheckBox chkBox{*this, u"chkBox"};
  CommandButton cmdGo{fraOne, u"cmdGo"};
  ControlArray<Label> lblRow{*this, u"lblRow"};
  PictureBox picArea{*this, u"picArea"};
  TabStrip tabView{*this, u"tabView"};
  StatusBar sbrBelow{*this, u"sbrBelow"};
  Line linEdge{*this, u"linEdge"};

 private:
  void Design() override {
    lblRow(0).SetBackColor(SystemColor::WindowBackground);
    optTwo.SetValue(true);
    sbrBelow.SetPanelCount(2);
  }
};

class ControlsTest : public FormsTest {
 protected:
  ControlsTest() {
    moLog.Watch(moForm.optOne(0).Click, "one0");
    moLog.Watch(moForm.optOne(1).Click, "one1");
    moLog.Watch(moForm.optTwo.Click, "two");
    moLog.Watch(moForm.chkBox.Click, "box");
    moLog.Watch(moForm.cmdGo.Click, "go");
    moLog.Watch(moForm.tabView.Click, "tab");
    moForm.Show();
  }
  EventLog moLog;
  FControls moForm{moToolkit};
};

TEST_F(ControlsTest, ANewValueRaisesClickWhoeverSetsIt) {
  moForm.chkBox.SetChecked(true);
  moForm.chkBox.SetChecked(true);
  EXPECT_EQ(moLog.Take(), "box");
  moForm.chkBox.UserClick();
  EXPECT_FALSE(moForm.chkBox.Checked());
  moForm.chkBox.UserKey(Key::Space);
  moForm.chkBox.SetValue(CheckValue::Grayed);
  moForm.chkBox.UserClick();
  EXPECT_EQ(moForm.chkBox.Value(), CheckValue::Unchecked);
  EXPECT_EQ(moLog.Take(), "box box box box");
}

TEST_F(ControlsTest, AnOptionClearsItsNeighboursInTheContainerOnly) {
  moForm.optOne(0).SetValue(true);
  EXPECT_EQ(moLog.Take(), "one0");
  moForm.optOne(1).UserClick();
  EXPECT_EQ(moLog.Take(), "one1");
  EXPECT_TRUE(moForm.optOne(1).Value() && !moForm.optOne(0).Value() && moForm.optTwo.Value());
  moForm.optOne(1).UserClick();
  moForm.optOne(1).SetValue(false);
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(ControlsTest, DisabledOrHiddenContainersKeepTheUserOut) {
  moForm.fraOne.SetEnabled(false);
  EXPECT_TRUE(moForm.cmdGo.Enabled());
  EXPECT_FALSE(moForm.cmdGo.UserClick() || moForm.cmdGo.UserMouseDown(1, 0, 0, 0));
  moForm.fraOne.SetEnabled(true);
  moForm.fraOne.SetVisible(false);
  EXPECT_FALSE(moForm.cmdGo.UserClick() || moForm.cmdGo.UserKey(Key::Space));
  moForm.fraOne.SetVisible(true);
  EXPECT_TRUE(moForm.cmdGo.UserKey(Key::Space));
  EXPECT_EQ(moLog.Take(), "go");
}

TEST_F(ControlsTest, ArrayElementsComeHiddenWithTheLooksOfTheFirstAndEndInTheirOwnEvents) {
  moForm.lblRow.OnElement([this](Label& o) {
    o.On(o.DblClick, [this, &o] {
      moLog.Note("row" + std::to_string(o.Index()));
      moForm.lblRow.Unload(o.Index());
      moForm.lblRow.Load(3).SetCaption(u"new");
    });
  });
  Label& oRow = moForm.lblRow.Load(3);
  EXPECT_EQ(oRow.BackColor(), SystemColor::WindowBackground);
  EXPECT_FALSE(oRow.UserDblClick());
  oRow.SetVisible(true);
  EXPECT_TRUE(oRow.UserDblClick());
  EXPECT_EQ(moLog.Take(), "row3");
  EXPECT_EQ(moForm.lblRow(3).Caption(), u"new");
  EXPECT_EQ(moForm.lblRow.UBound(), 3);
  EXPECT_EQ(FailureOf([&] { moForm.lblRow.Load(3); }), 360);
  EXPECT_EQ(FailureOf([&] { moForm.lblRow.Load(-1); }), 340);
  EXPECT_EQ(FailureOf([&] { moForm.lblRow.Unload(2); }), 340);
  EXPECT_EQ(FailureOf([&] { moForm.lblRow.Unload(0); }), 362);
  EXPECT_EQ(FailureOf([&] { moForm.lblRow(9).SetTag(u""); }), 340);
}

TEST_F(ControlsTest, SizesAndFontsThatCannotBeAreRefused) {
  EXPECT_EQ(FailureOf([&] { moForm.cmdGo.SetWidth(-15); }), 380);
  EXPECT_EQ(FailureOf([&] { moForm.cmdGo.Move(0, 0, 15, -15); }), 380);
  moRenderer.RemoveFont(u"Nowhere");
  EXPECT_EQ(FailureOf([&] { moForm.cmdGo.SetFontName(u"Nowhere"); }), 380);
  EXPECT_EQ(moForm.cmdGo.Font(), FontSpec{});
  moForm.cmdGo.SetFontBold(true);
  EXPECT_EQ(moForm.cmdGo.Font().lWeight, 700);
  moForm.picArea.Move(0, 0, 30, 300);
  EXPECT_EQ(moForm.picArea.ScaleWidth(), 0);
  EXPECT_EQ(moForm.picArea.ScaleHeight(), 240);
  EXPECT_EQ(FailureOf([&] { moForm.Container(); }), 91);
}

TEST_F(ControlsTest, TabsKeepOneSelected) {
  auto& oTabs = moForm.tabView.Tabs();
  oTabs.Add(0, u"Results", u"&Results");
  EXPECT_EQ(moForm.tabView.SelectedItem()->Key(), u"Results");
  oTabs.Add(1, u"Code", u"&Code");
  oTabs.Add(1, u"Properties", u"&Properties");
  EXPECT_EQ(oTabs.Item(u"Results").Index(), 3);
  EXPECT_EQ(moLog.Take(), "");
  oTabs.Item(u"Results").SetSelected(true);  // selected already: the panes follow all the same
  EXPECT_TRUE(moForm.tabView.UserKey(Key::Left));
  EXPECT_TRUE(oTabs.Item(u"Code").Selected());
  EXPECT_EQ(moLog.Take(), "tab tab");
  oTabs.Remove(u"Code");
  EXPECT_TRUE(oTabs.Item(u"Results").Selected());
  EXPECT_EQ(moLog.Take(), "tab");
  oTabs.Remove(u"Properties");
  EXPECT_EQ(moLog.Take(), "");
  EXPECT_EQ(FailureOf([&] { oTabs.Add(1, u"Results", u""); }), 35602);
  EXPECT_EQ(FailureOf([&] { oTabs.Add(3, u"x", u""); }), 35600);
  EXPECT_EQ(FailureOf([&] { oTabs.Remove(u"Code"); }), 35601);
  oTabs.Clear();
  EXPECT_EQ(moForm.tabView.SelectedItem(), nullptr);
  moForm.tabView.Move(150, 150, 1000, 100);
  EXPECT_EQ(moForm.tabView.ClientArea(), (Rect{210, 510, 880, 0}));
}

TEST_F(ControlsTest, PanelsAndPointsTellTheirOwn) {
  moForm.sbrBelow.Panels(2).SetText(u"path");
  EXPECT_EQ(moForm.sbrBelow.Panels(1).Text(), u"");
  EXPECT_EQ(FailureOf([&] { moForm.sbrBelow.Panels(3); }), 35600);
  EXPECT_EQ(FailureOf([&] { moForm.sbrBelow.Panels(1).SetWidth(-1); }), 380);
  moForm.linEdge.SetPoints(15, 30, 45, 60);
  moForm.linEdge.SetX2(90);
  EXPECT_EQ(moForm.linEdge.X1() + moForm.linEdge.Y2() + moForm.linEdge.X2(), 15 + 60 + 90);
}

TEST(CaptionTest, AccessKeysAndPlainText) {
  const struct {
    const char16_t *sCaption, *sPlain;
    char16_t cKey;
  } aoRow[] = {{u"&Open...", u"Open...", u'o'},
               {u"Save && E&xit", u"Save & Exit", u'x'},
               {u"plain", u"plain", 0},
               {u"end&", u"end", 0},
               {u"&&", u"&", 0},
               {u"&1 a&b", u"1 ab", u'1'},
               {u"", u"", 0}};
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(ToUtf8(oRow.sCaption));
    EXPECT_EQ(AccessKey(oRow.sCaption), oRow.cKey);
    EXPECT_EQ(ToUtf8(PlainCaption(oRow.sCaption)), ToUtf8(oRow.sPlain));
  }
}

}  // namespace
