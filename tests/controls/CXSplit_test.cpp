// The splitter: where a drag may take the bar, and what it makes of both sides.
#include "CXSplit.h"

#include <limits>

#include "Parts.h"
#include "PictureBox.h"
#include "Play.h"

namespace {

using namespace Forms;

/// Holds whole lines of 200 twips, as some lists do.
struct LineBox : TextBox {
  using TextBox::TextBox;
  void ChangeBounds(const Rect& o) override {
    TextBox::ChangeBounds({o.lLeft, o.lTop, o.lWidth, o.lHeight - o.lHeight % 200});
  }
};

class CXSplitTest : public PlayTest {
 protected:
  CXSplitTest() {
    box.Move(0, 0, 6000, 6000);
    txtA.Move(0, 0, 3000, 3000);
    txtB.Move(3060, 0, 2940, 2000);
    lines.Move(3060, 3100, 2940, 2800);
    bar.Move(3000, 0, 60, 3000);
    form.Show();
    split.AddASide(txtA);
    split.AddBSide(txtB);
    log.Watch(split.AfterSplit, "split");
    Can("drag", [this](auto& o) { Drag(o.Number(1), std::max(1, o.Number(2))); });
    Can("back", [this](auto&) { Drag(3000 - bar.Left()), log.Take(); });
    Can("snap", [this](auto& o) { split.SetMarginSnap(o.Number(1) != 0); });
    Can("late", [this](auto&) { split.SetRealTime(false); });
    Can("cut", [this](auto& o) { bar.SetLeft(3000), txtB.Move(660, 0, o.Number(1), 2000); });
    Can("split", [this](auto&) { split.DoSplit(); });
  }
  void Drag(std::int32_t x, std::int32_t button = Button::Left) {
    bar.UserMouseDown(button, 0, 15, 15);
    if (bar.BackColor() == SystemColor::ButtonShadow) log.Note("pressed");
    bar.UserMouseMove(button, 0, x, 15);
    if (txtA.Width() == bar.Left()) log.Note("followed");
    bar.UserMouseUp(button, 0, 15, 15);
    EXPECT_EQ(bar.BackColor(), SystemColor::ButtonFace);
  }
  /// The bar, the sides, and whether they show.
  std::string Look() override {
    return std::to_string(bar.Left()) + ": " + std::to_string(txtA.Width()) +
           (txtA.Visible() ? "" : " hidden") + ", " + PlaceOf(txtB) +
           (txtB.Visible() ? "" : " hidden");
  }

  Frame box{form, u"box"};
  TextBox txtA{box, u"txtA"}, txtB{box, u"txtB"};
  LineBox lines{box, u"lines"};
  PictureBox bar{box, u"bar"};
  CXSplit split;
};

TEST_F(CXSplitTest, DragsEndInsideTheLimits) {
  split.Split(bar, SplitBar::Vertical);
  Play(R"(
    at first               |                           | 3000: 3000, 3060 0 2940 2000      | split split
    up to the margin       | drag -2700                | 300: 300, 360 0 5640 2000   | pressed split followed split
    one into the margin    | back; drag -2701          | 0: 0 hidden, 60 0 5940 2000 | pressed split followed split
    without snap           | back; snap 0; drag -2701  | 300: 300, 360 0 5640 2000   | pressed split followed split
    up to the right margin | back; snap 1; drag 2640   | 5640: 5640, 5700 0 300 2000 | pressed split followed split
    one into it            | back; drag 2641    | 5940: 5940, 6000 0 0 2000 hidden   | pressed split followed split
    back again             | back                      | 3000: 3000, 3060 0 2940 2000      |)");
  txtB.SetWidth(4000);  // reaches beyond the container
  Drag(3500);
  EXPECT_EQ(bar.Left(), 5940);
}

TEST_F(CXSplitTest, SidesFollowInTheDragOrAtItsEnd) {
  split.Split(bar, SplitBar::Vertical);
  log.Take();
  Play(R"(
    in the drag      | drag -300       | 2700: 2700, 2760 0 3240 2000 | pressed split followed split
    at its end       | late; drag -300 | 2400: 2400, 2460 0 3540 2000 | pressed split
    another button   | drag -300 2     |                              | followed
    room for one margin only | cut 0; drag -300 | 3000: 2400, 660 0 0 2000 | pressed
    by the window itself: no size below 0 | snap 0; split | 3000: 3000, 3060 0 0 2000 | split)");
}

TEST_F(CXSplitTest, KeptPlacesThatCannotBeComeInsideTheLimits) {
  using Limits = std::numeric_limits<std::int32_t>;
  split.SetMarginSnap(false);
  for (const std::int32_t place : {Limits::max(), Limits::min()}) {
    bar.SetLeft(place);
    split.Split(bar, SplitBar::Vertical);
    EXPECT_EQ(bar.Left(), place > 0 ? 5640 : 300);
  }
}

/// The margin counts from the control that reaches farthest into the way, whichever was named
/// first.
TEST_F(CXSplitTest, OfSeveralControlsTheNarrowestHoldsTheBar) {
  TextBox near{box, u"near"};
  for (const bool first : {false, true}) {
    SCOPED_TRACE(first);
    CXSplit own;
    own.SetMarginSnap(false);
    txtA.Move(0, 0, 3000, 3000);
    near.Move(500, 0, 2500, 3000);
    txtB.Move(3060, 0, 2940, 2000);
    lines.Move(3060, 3100, 1940, 2800);
    own.AddASide(first ? near : txtA);
    own.AddASide(first ? txtA : near);
    own.AddBSide(first ? lines : txtB);
    own.AddBSide(first ? txtB : lines);
    bar.SetLeft(3000);
    own.Split(bar, SplitBar::Vertical);
    Drag(-2900);
    EXPECT_EQ(bar.Left(), 800);
    Drag(5000);
    EXPECT_EQ(bar.Left(), 4640);
  }
}

TEST_F(CXSplitTest, AControlThatRoundsItsSizeKeepsItsFarEdge) {
  CXSplit own;
  EXPECT_EQ(FailureOf([&] { own.DoSplit(); }), 91);
  EXPECT_EQ(FailureOf([&] { own.Split(bar, SplitBar::Horizontal); }), 9);
  own.AddASide(txtB);
  own.AddBSide(lines);
  bar.Move(3060, 2150, 2940, 60);
  own.Split(bar, SplitBar::Horizontal);
  EXPECT_EQ(PlaceOf(txtB), "3060 0 2940 2150");
  EXPECT_EQ(PlaceOf(lines), "3060 2300 2940 3600");
}

}  // namespace
