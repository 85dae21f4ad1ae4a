// The splitter: where a drag may take the bar, and what it makes of both sides.
#include "CXSplit.h"

#include <limits>

#include "Form.h"
#include "FormsFixture.h"
#include "Frame.h"
#include "Parts.h"
#include "TableRows.h"
#include "TextBox.h"

namespace {

using namespace Forms;

/// Holds whole lines of 200 twips, as some lists do.
struct LineBox : TextBox {
  using TextBox::TextBox;
  void ChangeBounds(const Rect& o) override {
    TextBox::ChangeBounds({o.lLeft, o.lTop, o.lWidth, o.lHeight - o.lHeight % 200});
  }
};

class CXSplitTest : public FormsTest {
 protected:
  CXSplitTest() {
    fraBox.Move(0, 0, 6000, 6000);
    txtA.Move(0, 0, 3000, 3000);
    txtB.Move(3060, 0, 2940, 2000);
    linB.Move(3060, 3100, 2940, 2800);
    oBar.Move(3000, 0, 60, 3000);
    moForm.Show();
    moSplit.AddASide(txtA);
    moSplit.AddBSide(txtB);
    moLog.Watch(moSplit.AfterSplit, "split");
  }
  void Drag(std::int32_t lX, std::int32_t nButton = Button::Left) {
    oBar.UserMouseDown(nButton, 0, 15, 15);
    if (oBar.BackColor() == SystemColor::ButtonShadow) moLog.Note("pressed");
    oBar.UserMouseMove(nButton, 0, lX, 15);
    if (txtA.Width() == oBar.Left()) moLog.Note("followed");
    oBar.UserMouseUp(nButton, 0, 15, 15);
    EXPECT_EQ(oBar.BackColor(), SystemColor::ButtonFace);
  }
  /// The bar, the sides, and whether they show.
  std::string Look() {
    return std::to_string(oBar.Left()) + ": " + std::to_string(txtA.Width()) +
           (txtA.Visible() ? "" : " hidden") + ", " + PlaceOf(txtB) +
           (txtB.Visible() ? "" : " hidden");
  }

  Form moForm{moToolkit, u"FSplit"};
  Frame fraBox{moForm, u"fraBox"};
  TextBox txtA{fraBox, u"txtA"}, txtB{fraBox, u"txtB"};
  LineBox linB{fraBox, u"linB"};
  PictureBox oBar{fraBox, u"picSplit"};
  CXSplit moSplit;
  EventLog moLog;
};

TEST_F(CXSplitTest, DragsEndInsideTheLimits) {
  moSplit.Split(oBar, SplitBar::Vertical);
  for (const auto& as : Rows(R"(
         up to the margin       | -2700 | 300: 300, 360 0 5640 2000
         one into the margin    | -2701 | 0: 0 hidden, 60 0 5940 2000
         without snap           | -2701 | 300: 300, 360 0 5640 2000
         up to the right margin | 2640  | 5640: 5640, 5700 0 300 2000
         one into it            | 2641  | 5940: 5940, 6000 0 0 2000 hidden)")) {
    SCOPED_TRACE(as[0]);
    moSplit.SetMarginSnap(as[0] != "without snap");
    Drag(std::stoi(as[1]));
    EXPECT_EQ(Look(), as[2]);
    Drag(3000 - oBar.Left());
    EXPECT_EQ(Look(), "3000: 3000, 3060 0 2940 2000");
  }
  txtB.SetWidth(4000);  // reaches beyond the container
  Drag(3500);
  EXPECT_EQ(oBar.Left(), 5940);
}

TEST_F(CXSplitTest, SidesFollowInTheDragOrAtItsEnd) {
  moSplit.Split(oBar, SplitBar::Vertical);
  Drag(-300);
  EXPECT_EQ(moLog.Take(), "split split pressed split followed split");
  moSplit.SetRealTime(false);
  Drag(-300);
  EXPECT_EQ(moLog.Take(), "pressed split");
  Drag(-300, Button::Right);
  EXPECT_EQ(Look() + moLog.Take(), "2400: 2400, 2460 0 3540 2000followed");
}

TEST_F(CXSplitTest, PlacesThatCannotBe) {
  using Limits = std::numeric_limits<std::int32_t>;
  moSplit.SetMarginSnap(false);
  for (const std::int32_t lPlace : {Limits::max(), Limits::min()}) {
    oBar.SetLeft(lPlace);
    moSplit.Split(oBar, SplitBar::Vertical);
    EXPECT_EQ(oBar.Left(), lPlace > 0 ? 5640 : 300);
  }
  moLog.Take();
  oBar.SetLeft(3000);
  txtB.Move(660, 0, 0, 2000);  // room for one margin only
  Drag(-300);
  EXPECT_EQ(oBar.Left(), 3000);
  EXPECT_EQ(moLog.Take(), "pressed");
  moSplit.DoSplit();  // by the window itself: no size below 0
  EXPECT_EQ(Look(), "3000: 3000, 3060 0 0 2000");
}

TEST_F(CXSplitTest, AControlThatRoundsItsSizeKeepsItsFarEdge) {
  CXSplit oSplit;
  EXPECT_EQ(FailureOf([&] { oSplit.DoSplit(); }), 91);
  EXPECT_EQ(FailureOf([&] { oSplit.Split(oBar, SplitBar::Horizontal); }), 9);
  oSplit.AddASide(txtB);
  oSplit.AddBSide(linB);
  oBar.Move(3060, 2150, 2940, 60);
  oSplit.Split(oBar, SplitBar::Horizontal);
  EXPECT_EQ(PlaceOf(txtB), "3060 0 2940 2150");
  EXPECT_EQ(PlaceOf(linB), "3060 2300 2940 3600");
}

}  // namespace
