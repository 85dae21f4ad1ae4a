// Labels, buttons, boxes, pictures, arrays: state, events, and what a user can reach.
#include "ControlArray.h"
#include "PictureBox.h"
#include "Play.h"
#include "StatusBar.h"
#include "TextOrder.h"

namespace {

using namespace Forms;

class ControlsTest : public PlayTest {
 protected:
  ControlsTest() {
    WatchClicks();
    form.Show();
    lblRow(0).SetBackColor(SystemColor::WindowBackground);
    Can("check", [this](auto& o) { chkBox.SetValue(CheckValue(o.Number(1))); });
    Can("option", [this](auto& o) { optOne(o.Number(1)).SetValue(o.Number(2) != 0); });
    Can("load", [this](auto& o) { lblRow.Load(o.Number(1)); });
    Can("drop", [this](auto& o) { lblRow.Unload(o.Number(1)); });
    Can("tab", [this](auto& o) { tabs.Add(o.Number(2), o.Wide(1), u""); });
    Can("untab", [this](auto& o) { tabs.Remove(o.Wide(1)); });
    Can("turn", [this](auto& o) { tabs.Item(o.Wide(1)).SetSelected(true); });
  }
  /// What is on, the tabs with the selected one in brackets, and what is disabled behind a "/".
  std::string Look() override {
    std::string all(static_cast<std::size_t>(chkBox.Value()), '+');
    for (auto* po : {&optOne(0), &optOne(1), &optTwo}) all += po->Value() ? '1' : '0';
    for (std::int32_t i = 1; i <= tabs.Count(); ++i) {
      const std::string key = ToUtf8(tabs.Item(i).Key());
      all += tabs.Item(i).Selected() ? " [" + key + "]" : " " + key;
    }
    return all + " /" + Off(form);
  }
  Frame fraOne{form, u"fraOne"}, fraTwo{form, u"fraTwo"};
  ControlArray<OptionButton> optOne{fraOne, u"optOne", 2};
  OptionButton optTwo{fraTwo, u"optTwo"};
  CheckBox chkBox{form, u"chkBox"};
  CommandButton cmdGo{fraOne, u"cmdGo"};
  ControlArray<Label> lblRow{form, u"lblRow"};
  TabStrip tabView{form, u"tabView"};
  Tabs& tabs = tabView.Tabs();
};

TEST_F(ControlsTest, BoxesAndOptionsRaiseClickForANewValueWhoeverSetsIt) {
  Play(R"(
    a box by code                   | check 1             | +000 /  | chkBox
    as it is                        | check 1             |         |
    by a click                      | chkBox              | 000 /   | chkBox
    by a key                        | key chkBox Space    | +000 /  | chkBox
    the user takes no gray          | check 2; chkBox     | 000 /   | chkBox chkBox
    an option                       | optTwo              | 001 /   | optTwo
    one in another container        | option 0 1          | 101 /   | optOne(0)
    a neighbour                     | optOne(1)           | 011 /   | optOne(1)
    the same again                  | optOne(1)           |         |
    turned off by code              | option 1 0          | 001 /   |
    nothing in a disabled container | off fraOne; cmdGo; press cmdGo             | 001 / fraOne | no no
    nothing in a hidden one         | on fraOne; hide fraOne; cmdGo; key cmdGo Space | 001 /    | no no
    shown again                     | show fraOne; key cmdGo Space               |              | cmdGo)");
}

TEST_F(ControlsTest, ArrayElementsComeHiddenWithTheLooksOfTheFirstAndEndInTheirOwnEvents) {
  lblRow.OnElement([this](Label& o) {
    o.On(o.DblClick, [this, &o] {
      log.Note(NameOf(o));
      lblRow.Unload(o.Index());
      lblRow.Load(3).SetCaption(u"new");
    });
  });
  Play(R"(
    hidden at first        | load 3; double lblRow(3)                | | no
    loaded again inside    | show lblRow(3); double lblRow(3)        | | lblRow(3)
    twice, or below 0      | load 3; load -1                         | | 360 340
    none there             | drop 2; enter lblRow(3)                 | | 340 no
    one of design time     | drop 0                                  | | 362)");
  EXPECT_EQ(lblRow(3).Caption(), u"new");
  EXPECT_EQ(lblRow(3).BackColor(), SystemColor::WindowBackground);
  EXPECT_EQ(lblRow.UBound(), 3);
  EXPECT_EQ(FailureOf([&] { lblRow(9).SetTag(u""); }), 340);
}

TEST_F(ControlsTest, TabsKeepOneSelected) {
  Play(R"(
    the first one            | tab Results 0                | 000 [Results] /                 |
    others before it         | tab Code 1; tab Properties 1 | 000 Properties Code [Results] / |
    selected already: the panes follow all the same | turn Results | | tabView
    by a key                 | key tabView Left       | 000 Properties [Code] Results / | tabView
    one key twice            | tab Results 1          |                                 | 35602
    no such places           | tab x 5; tab x -1      |                                 | 35600 35600
    the next one follows     | untab Code             | 000 Properties [Results] /      | tabView
    no such tab              | untab Code             |                                 | 35601
    another one goes quietly | untab Properties       | 000 [Results] /                 |)");
  tabs.Clear();
  EXPECT_EQ(tabView.SelectedItem(), nullptr);
  tabView.Move(150, 150, 1000, 100);
  EXPECT_EQ(tabView.ClientArea(), (Rect{210, 510, 880, 0}));
}

TEST_F(ControlsTest, WhatCannotBeIsRefusedAndChangesNothing) {
  StatusBar sbrBelow(form, u"sbrBelow");
  sbrBelow.SetPanelCount(2);
  EXPECT_EQ(FailureOf([&] { cmdGo.SetWidth(-15); }), 380);
  EXPECT_EQ(FailureOf([&] { cmdGo.Move(0, 0, 15, -15); }), 380);
  EXPECT_EQ(FailureOf([&] { sbrBelow.Panels(3); }), 35600);
  EXPECT_EQ(FailureOf([&] { sbrBelow.Panels(1).SetWidth(-1); }), 380);
  EXPECT_EQ(FailureOf([&] { form.Container(); }), 91);
  moRenderer.RemoveFont(u"Nowhere");
  EXPECT_EQ(FailureOf([&] { cmdGo.SetFontName(u"Nowhere"); }), 380);
  EXPECT_EQ(cmdGo.Font(), FontSpec{});
  cmdGo.SetFontBold(true);
  EXPECT_EQ(cmdGo.Font().lWeight, 700);
  PictureBox picArea(form, u"picArea");
  picArea.Move(0, 0, 30, 300);
  EXPECT_EQ(picArea.ScaleWidth(), 0);
  EXPECT_EQ(picArea.ScaleHeight(), 240);
}

TEST(CaptionTest, AccessKeysAndPlainText) {
  for (const auto& row : Rows(R"(
      &Open...     | Open...     | o
      Save && E&xit | Save & Exit | x
      plain        | plain       |
      end&         | end         |
      &&           | &           |
      &1 a&b       | 1 ab        | 1
      -            | -           |)")) {
    SCOPED_TRACE(row[0]);
    const char16_t key = AccessKey(FromUtf8(row[0]));
    EXPECT_EQ(key ? std::string(1, static_cast<char>(key)) : "", row[2]);
    EXPECT_EQ(ToUtf8(PlainCaption(FromUtf8(row[0]))), row[1]);
  }
  EXPECT_EQ(AccessKey(u""), 0);
}

}  // namespace
