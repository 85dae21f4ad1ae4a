// Choosing the fonts.
#include "FOptions.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

class FOptionsTest : public DialogTest {
 protected:
  /// The user's answer in the font dialog, which starts on a font of 8 points.
  void Pick(TextView sFace, double dSize, bool bBold, DialogAnswer oAnswer = {true, 0}) {
    User().ChooseFont([=, s = Text(sFace)](FontDialog& o) {
      EXPECT_EQ(o.oFont.dSize, 8);
      o.oFont.sName = s;
      o.oFont.dSize = dSize;
      o.oFont.bBold = bBold;
      o.oFont.bItalic = true;
      return oAnswer;
    });
  }
  /// Face, size, bold and italic of a stored font.
  std::string Stored(TextView sFont) const {
    const auto Name = [&](TextView sValue) { return Text(sFont).append(sValue); };
    std::string s = ToUtf8(moStore.GetString(Key(u"Options"), Name(u" Font Face")).value_or(u"-"));
    for (const TextView sValue : {u" Font Size", u" Font Bold", u" Font Italic"})
      s += " " + std::to_string(moStore.GetLong(Key(u"Options"), Name(sValue)).value_or(9));
    return s;
  }
  static std::string Sample(const FontBox& o) {
    const FontSpec& oFont = o.lblFont.Font();
    return ToUtf8(o.lblFont.Caption() + u", " + oFont.sName) + (oFont.bBold ? " bold" : "") +
           (oFont.bItalic ? " italic" : "");
  }
};

TEST_F(FOptionsTest, SamplesAreTheWorkingCopyUntilOk) {
  MOptions::oCodeFont = {u"Courier New", 10, true, false};
  for (const bool bOk : {false, true}) {
    Pick(u"Arial", 9.5, true);
    Pick(u"Wide", 12, false, {false, 0});
    Pick(u"Wide", 12, false, {false, 4095});
    EXPECT_EQ(Open(FOptions(moToolkit),
                   [&](FOptions& o) {
                     EXPECT_EQ(Sample(o.aoFont[0]), "Courier New  10 pt, Courier New bold");
                     o.aoFont[1].cmdFont.UserClick();
                     EXPECT_EQ(Sample(o.aoFont[1]), "Arial  9.5 pt, Arial bold italic");
                     Do(o, "Alt+E");
                     EXPECT_TRUE(o.aoFont[2].cmdFont.HasFocus());
                     for (int i = 0; i < 2; ++i) o.aoFont[2].cmdFont.UserClick();
                     EXPECT_EQ(Sample(o.aoFont[2]), "MS Sans Serif  8 pt, MS Sans Serif");
                     Do(o, "Tab");
                     EXPECT_TRUE(o.cmdOK.HasFocus());
                     Do(o, bOk ? "cmdOK" : "cmdCancel");
                   }),
              bOk);
    EXPECT_EQ(MOptions::oResultsFont.sFace, bOk ? u"Arial" : u"MS Sans Serif");
    EXPECT_EQ(Stored(u"Code"), bOk ? "Courier New 10 -1 0" : "- 9 9 9");
    EXPECT_EQ(Stored(u"Results"), bOk ? "Arial 10 -1 -1" : "- 9 9 9");
    EXPECT_EQ(Stored(u"Error"), bOk ? "MS Sans Serif 8 0 0" : "- 9 9 9");
  }
}

TEST_F(FOptionsTest, DamagedAndForeignFontsDoNoHarm) {
  moRenderer.RemoveFont(u"Gone");
  for (const auto& as : Rows(R"(
         face of another machine | Gone  | 10    | Gone  10 pt, MS Sans Serif | 10
         no size                 | Arial | 0     | Arial  8.25 pt, Arial      | 8
         negative size           | Arial | -12   | Arial  8.25 pt, Arial      | 8
         huge size               | Arial | 70000 | Arial  8.25 pt, Arial      | 8)")) {
    SCOPED_TRACE(as[0]);
    MOptions::oCodeFont = {FromUtf8(as[1]), std::stoi(as[2]), false, false};
    Open(FOptions(moToolkit), [&](FOptions& o) {
      EXPECT_EQ(Sample(o.aoFont[0]), as[3]);
      Do(o, "cmdOK");
    });
    EXPECT_EQ(Stored(u"Code"), as[1] + " " + as[4] + " 0 0");
  }
}

}  // namespace
