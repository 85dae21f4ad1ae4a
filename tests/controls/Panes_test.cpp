// The title strip and the appending text pane.
#include "Caption.h"
#include "Form.h"
#include "FormsFixture.h"
#include "Parts.h"
#include "Scroller.h"

namespace {

using namespace Forms;

class PanesTest : public FormsTest {
 protected:
  PanesTest() { moForm.Show(); }
  std::size_t Held() const { return oBox.Text().size(); }

  Form moForm{moToolkit, u"FPanes"};
  ::Caption lblTitle{moForm, u"lblTitle"};
  Scroller srlText{moForm, u"srlText"};
  TextBox& oBox = Part<TextBox>(srlText, u"txtScroller");
};

TEST_F(PanesTest, TheTitleStaysInTheMiddleOfItsBorder) {
  lblTitle.Move(0, 0, 2000, 300);
  EXPECT_EQ(Part<Label>(lblTitle, u"lblCaption").Top(), 37);
  const char* asEdge[] = {"0 0 0 285", "15 0 1985 0", "1985 0 1985 285", "0 285 2000 285"};
  EXPECT_TRUE(lblTitle.Border());
  lblTitle.SetBorder(false);
  for (std::int32_t i = 0; i < 4; ++i) {
    const auto& oEdge = Part<Line>(lblTitle, u"linBorder", i);
    EXPECT_EQ(PlaceOf(oEdge), asEdge[i]);
    EXPECT_EQ(oEdge.BorderColor(), i < 2 ? SystemColor::ButtonShadow : SystemColor::Highlight3D);
    EXPECT_FALSE(oEdge.Visible());
  }
}

TEST_F(PanesTest, OldTextFallsAwayInBlocks) {
  srlText.Move(150, 150, 3000, 1500);
  EXPECT_EQ(PlaceOf(oBox), "0 0 3000 1500");
  srlText.Add(Text(1024, u'a'));
  srlText.Add(Text(32000 - 1026 - 2, u'b'));
  srlText.Add(u"");  // at 32000 characters: no cut yet
  EXPECT_EQ(Held(), 32002U);
  srlText.Add(u"end");
  EXPECT_EQ(Held(), 32002U - 1024 + 5);
  EXPECT_EQ(oBox.Text().substr(0, 3), u"\r\nb");
  EXPECT_EQ(oBox.Text().substr(Held() - 10), u"b\r\n\r\nend\r\n");
  srlText.Add(u"x");  // no second cut so soon
  EXPECT_EQ(Held(), 32002U - 1024 + 8);
  EXPECT_EQ(moToolkit.LockedControl(), nullptr);
}

TEST_F(PanesTest, ClearedAndReloadedPanesCountAnew) {
  for (const bool bUnload : {false, true}) {
    srlText.Add(Text(40000, u'x'));
    bUnload ? void(moForm.Unload()) : srlText.Clear();
    srlText.Add(u"");
    srlText.Add(u"b");
    EXPECT_EQ(oBox.Text(), u"\r\nb\r\n");
    EXPECT_FALSE(oBox.UserText(u"typed", 0));
  }
}

}  // namespace
