// Choosing the fonts.
#include "FOptions.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

class FOptionsTest : public DialogTest {
 protected:
  /// The user's answer in the font dialog, which starts on a font of 8 points.
  void Pick(const FontSpec& oFont, DialogAnswer oAnswer = {true, 0}) {
    User().ChooseFont([=](FontDialog& o) {
      EXPECT_EQ(o.oFont.dSize, 8);
      o.oFont = oFont;
      return oAnswer;
    });
  }
  /// Face, size, bold and italic of the stored fonts.
  std::string Stored() const {
    std::string s;
    for (const TextView sFont : {u"Code", u"Results", u"Error"}) {
      const Text sName = Text(sFont) + u" Font ", sKey = Key(u"Options");
      s += ToUtf8(moStore.GetString(sKey, sName + u"Face").value_or(u"-"));
      for (const TextView sValue : {u"Size", u"Bold", u"Italic"})
        s += " " + std::to_string(moStore.GetLong(sKey, sName + Text(sValue)).value_or(9));
      s += "; ";
    }
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
    Pick({.sName = u"Arial", .dSize = 9.5, .bBold = true, .bItalic = true});
    for (const std::int32_t lFailure : {0, 4095}) Pick({.sName = u"Wide"}, {false, lFailure});
    const auto Act = [&](FOptions& o) {
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
    };
    EXPECT_EQ(Open(FOptions(moToolkit), Act), bOk);
    EXPECT_EQ(MOptions::oResultsFont.sFace, bOk ? u"Arial" : u"MS Sans Serif");
    EXPECT_EQ(Stored(), bOk ? "Courier New 10 -1 0; Arial 10 -1 -1; MS Sans Serif 8 0 0; "
                            : "- 9 9 9; - 9 9 9; - 9 9 9; ");
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
    EXPECT_TRUE(Stored().starts_with(as[1] + " " + as[4] + " 0 0;")) << Stored();
  }
}

}  // namespace
