// The splitter: where a drag may take the bar, and what it makes of both sides.
#include "CXSplit.h"

#include <limits>

#include "Form.h"
#include "FormsFixture.h"
#include "Parts.h"
#include "TextBox.h"

namespace {

using namespace Forms;

/// A list that holds whole lines of 200 twips.
class LineBox : public TextBox {
 public:
  using TextBox::TextBox;

 private:
  void ChangeBounds(const Rect& oBounds) override {
    Rect oWhole = oBounds;
    oWhole.lHeight -= oWhole.lHeight % 200;
    TextBox::ChangeBounds(oWhole);
  }
};

class FSplit : public Form {
 public:
  explicit FSplit(Toolkit& oToolkit) : Form(oToolkit, u"FSplit") {}
  PictureBox picBox{*this, u"picBox"};
  TextBox txtA{picBox, u"txtA"}, txtB{picBox, u"txtB"};
  LineBox linB{picBox, u"linB"};
  PictureBox picSplit{picBox, u"picSplit"};

 private:
  void Design() override {
    picBox.SetBorderStyle(BorderStyle::None);
    picBox.Move(0, 0, 6000, 6000);
    txtA.Move(0, 0, 3000, 3000);
    txtB.Move(3060, 0, 2940, 2000);
    linB.Move(3060, 3100, 2940, 2800);
    picSplit.Move(3000, 0, 60, 3000);
  }
};

class CXSplitTest : public FormsTest {
 protected:
  CXSplitTest() {
    moForm.Show();
    moSplit.AddASide(moForm.txtA);
    moSplit.AddBSide(moForm.txtB);
    moLink = moSplit.AfterSplit.Connect([this] { ++mlSplits; });
  }
  void Drag(std::int32_t lX) {
    Bar().UserMouseDown(Button::Left, 0, 15, 15);
    Bar().UserMouseMove(Button::Left, 0, lX, 15);
    Bar().UserMouseUp(Button::Left, 0, 15, 15);
  }
  PictureBox& Bar() { return moForm.picSplit; }

  FSplit moForm{moToolkit};
  CXSplit moSplit;
  Connection moLink;
  std::int32_t mlSplits = 0;
};

TEST_F(CXSplitTest, DragsEndInsideTheLimits) {
  const struct {
    const char* sName;
    bool bSnap;
    std::int32_t lBy, lBar, lSizeA, lSizeB;
    bool bA, bB;
  } aoRow[] = {
      {"to the left", true, -1000, 2000, 2000, 3940, true, true},
      {"up to the margin", true, -2700, 300, 300, 5640, true, true},
      {"one into the margin", true, -2701, 0, 0, 5940, false, true},
      {"far out", true, -100000, 0, 0, 5940, false, true},
      {"without snap", false, -2701, 300, 300, 5640, true, true},
      {"up to the right margin", true, 2640, 5640, 5640, 300, true, true},
      {"one into it", true, 2641, 5940, 5940, 0, true, false},
      {"right without snap", false, 2641, 5640, 5640, 300, true, true},
  };
  for (const auto& o : aoRow) {
    SCOPED_TRACE(o.sName);
    moSplit.SetMarginSnap(o.bSnap);
    moForm.Unload();
    moForm.Show();
    moSplit.Split(Bar(), SplitBar::Vertical);
    Drag(o.lBy);
    EXPECT_EQ(Bar().Left(), o.lBar);
    EXPECT_EQ(moForm.txtA.Width(), o.lSizeA);
    EXPECT_EQ(moForm.txtB.Left(), o.lBar + 60);
    EXPECT_EQ(moForm.txtB.Width(), o.lSizeB);
    EXPECT_EQ(moForm.txtA.Visible(), o.bA);
    EXPECT_EQ(moForm.txtB.Visible(), o.bB);
    Drag(3000 - Bar().Left());
    EXPECT_TRUE(moForm.txtA.Visible() && moForm.txtB.Visible());
    EXPECT_EQ(PlaceOf(moForm.txtB), "3060 0 2940 2000");
  }
}

TEST_F(CXSplitTest, SidesFollowInTheDragOrAtItsEnd) {
  moSplit.Split(Bar(), SplitBar::Vertical);
  EXPECT_EQ(mlSplits, 2);
  moSplit.SetRealTime(false);
  mlSplits = 0;
  Bar().UserMouseDown(Button::Left, 0, 0, 0);
  EXPECT_EQ(Bar().BackColor(), SystemColor::ButtonShadow);
  Bar().UserMouseMove(Button::Left, 0, -300, 0);
  EXPECT_EQ(moForm.txtA.Width(), 3000);
  Bar().UserMouseUp(Button::Left, 0, 0, 0);
  EXPECT_EQ(moForm.txtA.Width(), 2700);
  EXPECT_EQ(Bar().BackColor(), SystemColor::ButtonFace);
  EXPECT_EQ(mlSplits, 1);
  Bar().UserMouseDown(Button::Right, 0, 0, 0);
  EXPECT_EQ(Bar().BackColor(), SystemColor::ButtonFace);
  Bar().UserMouseMove(Button::Right, 0, -300, 0);
  Bar().UserMouseUp(Button::Right, 0, 0, 0);
  EXPECT_EQ(Bar().Left(), 2700);
  EXPECT_EQ(mlSplits, 1);
}

TEST_F(CXSplitTest, ATooSmallContainerKeepsTheBar) {
  moForm.txtB.SetWidth(0);
  moForm.txtB.SetLeft(660);  // room for one margin only
  moSplit.Split(Bar(), SplitBar::Vertical);
  Drag(-300);
  EXPECT_EQ(Bar().Left(), 3000);
  EXPECT_EQ(mlSplits, 0);
  moSplit.DoSplit();  // by the window itself: no size below 0
  EXPECT_EQ(moForm.txtB.Width(), 0);
}

TEST_F(CXSplitTest, APlaceOutsideIsPulledIn) {
  for (const auto lPlace :
       {std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
    moSplit.SetMarginSnap(false);
    Bar().SetLeft(lPlace);
    moSplit.Split(Bar(), SplitBar::Vertical);
    EXPECT_EQ(Bar().Left(), lPlace > 0 ? 5640 : 300);
  }
}

TEST_F(CXSplitTest, TheBarStaysInItsContainer) {
  moForm.txtB.SetWidth(4000);  // reaches beyond it
  moSplit.Split(Bar(), SplitBar::Vertical);
  Drag(3500);
  EXPECT_EQ(Bar().Left(), 5940);
}

TEST_F(CXSplitTest, AControlThatRoundsItsSizeKeepsItsFarEdge) {
  CXSplit oSplit;
  EXPECT_EQ(FailureOf([&] { oSplit.DoSplit(); }), 91);
  EXPECT_EQ(FailureOf([&] { oSplit.Split(Bar(), SplitBar::Horizontal); }), 9);
  oSplit.AddASide(moForm.txtB);
  oSplit.AddBSide(moForm.linB);
  Bar().Move(3060, 2150, 2940, 60);
  oSplit.Split(Bar(), SplitBar::Horizontal);
  EXPECT_EQ(PlaceOf(moForm.txtB), "3060 0 2940 2150");
  EXPECT_EQ(PlaceOf(moForm.linB), "3060 2300 2940 3600");
}

}  // namespace
