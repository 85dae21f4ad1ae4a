// Selecting rows by type and name.
#include "FSelectCustom.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

class FSelectCustomTest : public DialogTest {
 protected:
  FSelectCustomTest() {
    lvw.SetMultiSelect(true);
    for (int i = 0; i < 3; ++i) lvw.ColumnHeaders().Add(u"");
    const TextView asRow[][2] = {{u"(declarations)", u""},   {u"Calc", u"Function"},
                                 {u"cmdOK_Click", u"Click"}, {u"cmdOK_GotFocus", u"Focus"},
                                 {u"Reset", u"Sub"},         {u"txt_Click", u"Click"},
                                 {u"Size", u"Property Let"}, {u"Size", u"Property Get"}};
    for (const auto& o : asRow) lvw.ListItems().Add(o[0]).SetSubItems(1, o[1]);
    for (std::int32_t i = 1; i <= 8; ++i) lvw.ListItems().Item(i).SetSelected(i == 8);
  }
  std::string Show(std::function<void(FSelectCustom&)> oAct) {
    Open(FSelectCustom(moToolkit), oAct, lvw);
    return Selected();
  }
  /// "1" for each row that is.
  std::string Selected() {
    std::string s;
    for (std::int32_t i = 1; i <= lvw.ListItems().Count(); ++i)
      s += lvw.ListItems().Item(i).Selected() ? '1' : '0';
    return s;
  }
  std::string Stored() const {
    return ToUtf8(
        moStore.GetString(Key(u"FSelectCustom"), u"Custom Select Pattern").value_or(u"?"));
  }
  Form moForm{moToolkit, u"FRows"};
  ListView lvw{moForm, u"lvwProcs"};
};

TEST_F(FSelectCustomTest, OffersTheOtherTypesOnceAndKeepsTicks) {
  Show([&](FSelectCustom& o) {
    Text sOffered;
    for (std::int32_t i = 0; i < o.lstEvent.ListCount(); ++i) sOffered += o.lstEvent.List(i) + u",";
    EXPECT_EQ(sOffered, u",Click,Focus,");
    EXPECT_EQ(Switched(o, "chkProperty; chkSet"), " +chkLet +chkSet +chkGet");
    EXPECT_EQ(Switched(o, "chkProperty"), " -chkLet -chkSet -chkGet");
    EXPECT_TRUE(o.chkLet.Checked() && !o.chkSet.Checked() && o.chkGet.Checked());
    Do(o, "Alt+K");
    EXPECT_TRUE(o.txtPattern.HasFocus());
    Do(o, "Alt+E");
    EXPECT_TRUE(o.lstEvent.HasFocus());
    Do(o, "cmdCancel");
  });
  lvw.ListItems().Clear();
  Show([](FSelectCustom& o) {
    EXPECT_EQ(o.lstEvent.ListCount(), 0);
    Do(o, "Return");  // no rows: nothing to do
  });
}

TEST_F(FSelectCustomTest, TypesAndPatternAddUpAndOnlyOkSelects) {
  for (const auto& as : Rows(R"(
         nothing                      |                      |               | 00000000
         functions                    | chkFunction;         |               | 01000000
         properties without Get       | chkProperty; chkGet; |               | 00000010
         properties without Let       | chkProperty; chkLet; |               | 00000001
         one event type               | lstEvent=1;          |               | 00100100
         the blank type behind others | lstEvent=0; lstEvent=2; chkSub; |    | 10011000
         names, with case             |                      | cmd*          | 00110000
         names in other case          |                      | CMD*          | 00000000
         subs and names               | chkSub;              | *_Click       | 00101100
         list in a pattern            |                      | [!a-zS]*[!k]  | 11001000)")) {
    SCOPED_TRACE(as[0]);
    const std::string sDeeds = as[1] + (as[1].empty() ? "" : " ") + "txtPattern=" + as[2] + "; ";
    moStore.SetString(Key(u"FSelectCustom"), u"Custom Select Pattern", u"Res*");
    for (const char* sEnd : {"cmdCancel", "close", "cmdOK"}) {
      const bool bOk = sEnd == std::string("cmdOK");
      const std::string sBefore = Selected();
      EXPECT_EQ(Show([&](FSelectCustom& o) {
                  EXPECT_EQ(o.txtPattern.Text(), u"Res*");
                  Do(o, sDeeds + sEnd);
                }),
                bOk ? as[3] : sBefore);
      EXPECT_EQ(Stored(), bOk ? as[2] : "Res*");
    }
  }
}

TEST_F(FSelectCustomTest, AMalformedPatternIsExplainedAndChangesNothing) {
  for (const auto& as : Rows(R"(
         [      | a list that begins with [ isn't closed by ].
         [z-a   | a range in a list runs backwards, as z-a does.)")) {
    SCOPED_TRACE(as[0]);
    User().MsgBox([&](const MsgBoxRequest& o) {
      EXPECT_EQ(ToUtf8(o.sPrompt.substr(0, o.sPrompt.find(u"\r\n"))),
                "The pattern " + as[0] + " can't be used: " + as[1]);
      EXPECT_NE(o.sPrompt.find(u"[!abc]"), Text::npos);
      EXPECT_TRUE(o.eIcon == MsgBoxIcon::Exclamation && o.sTitle == u"Custom Select");
      return MsgBoxResult::Ok;
    });
    EXPECT_EQ(Show([&](FSelectCustom& o) {
                Do(o, "chkSub; txtPattern=" + as[0] + "; Return");
                EXPECT_TRUE(o.Visible() && o.txtPattern.HasFocus());
                Do(o, "cmdCancel");
              }),
              "00000001");
    EXPECT_EQ(Stored(), "?");
  }
}

}  // namespace
