// Choosing the fonts.
#include "FOptions.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

class FOptionsTest : public DialogTest {
 protected:
  FOptionsTest() { MOptions::Initialize(); }
  ~FOptionsTest() override {
    MOptions::oCodeFont = MOptions::oResultsFont = MOptions::oErrorFont = {};
  }
  bool Show(std::function<void(FOptions&)> oAct) {
    User().Modal<FOptions>(std::move(oAct));
    return FOptions(moToolkit).Display();
  }
  /// The next font that the user picks, or the dialog's failure.
  void Pick(TextView sFace, double dSize, bool bBold, std::int32_t lError = 0) {
    User().ChooseFont([=, s = Text(sFace)](FontDialog& o) {
      o.oFont.sName = s;
      o.oFont.dSize = dSize;
      o.oFont.bBold = bBold;
      return DialogAnswer{lError == 0, lError};
    });
  }
  std::string Stored() const {
    std::string s;
    for (const TextView sFont : {u"Code", u"Results", u"Error"}) {
      const Text sName = Text(sFont) + u" Font ";
      s += ToUtf8(moStore.GetString(Key(u"Options"), sName + u"Face").value_or(u"none")) + " " +
           std::to_string(moStore.GetLong(Key(u"Options"), sName + u"Size").value_or(0)) + " " +
           std::to_string(moStore.GetLong(Key(u"Options"), sName + u"Bold").value_or(9)) + ";";
    }
    return s;
  }
};

TEST_F(FOptionsTest, CaptionsAndPlaces) {
  Show([](FOptions& o) {
    EXPECT_EQ(Captions(o),
              "Options; tabOption &General; cmdOK OK; cmdCancel Cancel; cmdHelp &Help; "
              "fraFont &Code Font; lblFont MS Sans Serif  8 pt; cmdFont Change...; "
              "fraFont &Results Font; lblFont MS Sans Serif  8 pt; cmdFont Change...; "
              "fraFont &Errors Font; lblFont MS Sans Serif  8 pt; cmdFont Change...");
    EXPECT_EQ(o.Bounds(), (Rect{4440, 2394, 6480, 4680}));
    ExpectRoom(o);
    o.UserKey(u'E', Shift::Alt);
    EXPECT_TRUE(o.aoFont[2].cmdFont.HasFocus());
    o.UserKey(Key::Tab, 0);
    EXPECT_TRUE(o.cmdOK.HasFocus());
    o.cmdHelp.UserClick();
    o.UserKey(Key::Escape, 0);
  });
  EXPECT_EQ(Help(), "2300 ");
  SetHelp(false);
  Show([](FOptions& o) {
    EXPECT_FALSE(o.cmdHelp.Visible());
    o.UserClose();
  });
}

TEST_F(FOptionsTest, SamplesAreTheWorkingCopyUntilOk) {
  MOptions::oCodeFont = {u"Courier New", 10, true, false};
  for (const bool bOk : {false, true}) {
    Pick(u"Arial", 9.5, true);
    Pick(u"Wide", 12, false);
    EXPECT_EQ(Show([&](FOptions& o) {
                EXPECT_EQ(o.aoFont[0].lblFont.Caption(), u"Courier New  10 pt");
                EXPECT_EQ(o.aoFont[0].lblFont.Font().lWeight, 700);
                o.aoFont[1].cmdFont.UserClick();
                EXPECT_EQ(o.aoFont[1].lblFont.Caption(), u"Arial  9.5 pt");
                EXPECT_EQ(o.aoFont[1].lblFont.Font().sName, u"Arial");
                o.aoFont[2].cmdFont.UserClick();
                (bOk ? o.cmdOK : o.cmdCancel).UserClick();
              }),
              bOk);
    EXPECT_EQ(MOptions::oResultsFont.sFace, bOk ? u"Arial" : u"MS Sans Serif");
    EXPECT_EQ(Stored(),
              bOk ? "Courier New 10 -1;Arial 10 -1;Wide 12 0;" : "none 0 9;none 0 9;none 0 9;");
  }
}

TEST_F(FOptionsTest, CancelAndAFailureOfTheFontDialogLeaveTheSample) {
  User().ChooseFont([](FontDialog& o) {
    EXPECT_EQ(o.oFont.dSize, 8);
    o.oFont.sName = u"Arial";
    return DialogAnswer{};
  });
  Pick(u"Arial", 9, false, 4095);
  Show([](FOptions& o) {
    o.aoFont[0].cmdFont.UserClick();
    o.aoFont[0].cmdFont.UserClick();
    EXPECT_EQ(o.aoFont[0].lblFont.Caption(), u"MS Sans Serif  8 pt");
    o.cmdCancel.UserClick();
  });
}

TEST_F(FOptionsTest, DamagedAndForeignFontsDoNoHarm) {
  const struct {
    const char* sName;
    MOptions::Font oStored;
    TextView sCaption;
    const char* sAfterOk;
  } aoRow[] = {
      {"face of another machine", {u"Gone", 10, false, false}, u"Gone  10 pt", "Gone 10 0;"},
      {"no size", {u"Arial", 0, false, false}, u"Arial  8.25 pt", "Arial 8 0;"},
      {"negative size", {u"Arial", -12, false, false}, u"Arial  8.25 pt", "Arial 8 0;"},
      {"huge size", {u"Arial", 70000, false, false}, u"Arial  8.25 pt", "Arial 8 0;"}};
  moRenderer.RemoveFont(u"Gone");
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    MOptions::oCodeFont = oRow.oStored;
    Show([&](FOptions& o) {
      EXPECT_EQ(o.aoFont[0].lblFont.Caption(), oRow.sCaption);
      o.cmdOK.UserClick();
    });
    EXPECT_EQ(Stored().substr(0, Stored().find(';') + 1), oRow.sAfterOk);
  }
}

}  // namespace
