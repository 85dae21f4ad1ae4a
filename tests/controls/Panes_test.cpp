// The title strip and the appending text pane.
#include "Caption.h"
#include "Form.h"
#include "FormsFixture.h"
#include "Parts.h"
#include "Scroller.h"

namespace {

using namespace Forms;

class FPanes : public Form {
 public:
  explicit FPanes(Toolkit& oToolkit) : Form(oToolkit, u"FPanes") {}
  ::Caption lblTitle{*this, u"lblTitle"};
  Scroller srlText{*this, u"srlText"};

 private:
  void Design() override { srlText.Move(0, 600, 3000, 3000); }
};

class PanesTest : public FormsTest {
 protected:
  PanesTest() { moForm.Show(); }
  TextBox& Box() { return Part<TextBox>(moForm.srlText, u"txtScroller"); }
  std::string Points(std::int32_t lIndex) {
    const auto& o = Part<Line>(moForm.lblTitle, u"linBorder", lIndex);
    return std::to_string(o.X1()) + " " + std::to_string(o.Y1()) + " " + std::to_string(o.X2()) +
           " " + std::to_string(o.Y2());
  }
  FPanes moForm{moToolkit};
};

TEST_F(PanesTest, TheTitleStaysInTheMiddleOfItsBorder) {
  moForm.lblTitle.Move(0, 0, 2000, 300);
  EXPECT_EQ(Part<Label>(moForm.lblTitle, u"lblCaption").Top(), 37);
  EXPECT_EQ(Points(0), "0 0 0 285");
  EXPECT_EQ(Points(1), "15 0 1985 0");
  EXPECT_EQ(Points(2), "1985 0 1985 285");
  EXPECT_EQ(Points(3), "0 285 2000 285");
  moForm.lblTitle.SetBorder(false);
  EXPECT_FALSE(moForm.lblTitle.Border() || Part<Line>(moForm.lblTitle, u"linBorder", 3).Visible());
}

TEST_F(PanesTest, OldTextFallsAwayInBlocks) {
  Scroller& o = moForm.srlText;
  EXPECT_EQ(PlaceOf(Box()), "0 0 3000 3000");
  o.Add(Text(1024, u'a'));
  o.Add(Text(32000 - 1026 - 2, u'b'));
  o.Add(u"");  // at 32000 characters: no cut yet
  EXPECT_EQ(Box().Text().size(), 32002U);
  o.Add(u"end");
  EXPECT_EQ(Box().Text().size(), 32002U - 1024 + 5);
  EXPECT_EQ(Box().Text().substr(0, 3), u"\r\nb");
  EXPECT_EQ(Box().Text().substr(32002 - 1024 - 5), u"b\r\n\r\nend\r\n");
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);
  o.Add(u"x");  // no second cut so soon
  EXPECT_EQ(Box().Text().size(), 32002U - 1024 + 8);
}

TEST_F(PanesTest, ClearedAndReloadedPanesCountAnew) {
  Scroller& o = moForm.srlText;
  const auto AddsTwoLines = [&] {
    o.Add(u"");
    o.Add(u"b");
    EXPECT_EQ(Box().Text(), u"\r\nb\r\n");
    EXPECT_EQ(o.SelStart(), 5);
  };
  o.Add(Text(40000, u'x'));
  Box().UserSelection(0, 3);
  EXPECT_EQ(o.SelText(), u"xxx");
  EXPECT_FALSE(Box().UserText(u"typed", 0));
  o.Clear();
  AddsTwoLines();
  o.Add(Text(40000, u'x'));
  moForm.Unload();
  AddsTwoLines();
}

}  // namespace
