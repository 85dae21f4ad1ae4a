// Selecting rows by type and name.
#include "FSelectCustom.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

class FRows : public Form {
 public:
  explicit FRows(Toolkit& oToolkit) : Form(oToolkit, u"FRows") {}
  ListView lvwProcs{*this, u"lvwProcs"};

 private:
  void Design() override {
    lvwProcs.SetMultiSelect(true);
    for (int i = 0; i < 3; ++i) lvwProcs.ColumnHeaders().Add(u"");
    const TextView asRow[][2] = {{u"(declarations)", u""},   {u"Calc", u"Function"},
                                 {u"cmdOK_Click", u"Click"}, {u"cmdOK_GotFocus", u"Focus"},
                                 {u"Reset", u"Sub"},         {u"txt_Click", u"Click"},
                                 {u"Size", u"Property Let"}, {u"Size", u"Property Get"}};
    for (const auto& o : asRow) lvwProcs.ListItems().Add(o[0]).SetSubItems(1, o[1]);
    for (std::int32_t i = 1; i <= 8; ++i) lvwProcs.ListItems().Item(i).SetSelected(i == 8);
  }
};

class FSelectCustomTest : public DialogTest {
 protected:
  /// "1" for each selected row.
  std::string Selected() {
    std::string s;
    for (std::int32_t i = 1; i <= moRows.lvwProcs.ListItems().Count(); ++i)
      s += moRows.lvwProcs.ListItems().Item(i).Selected() ? '1' : '0';
    return s;
  }
  std::string Show(std::function<void(FSelectCustom&)> oAct) {
    User().Modal<FSelectCustom>(std::move(oAct));
    FSelectCustom(moToolkit).Display(moRows.lvwProcs);
    return Selected();
  }
  std::optional<Text> Stored() const {
    return moStore.GetString(Key(u"FSelectCustom"), u"Custom Select Pattern");
  }
  FRows moRows{moToolkit};
};

TEST_F(FSelectCustomTest, CaptionsPlacesAndFirstState) {
  Show([&](FSelectCustom& o) {
    EXPECT_EQ(Captions(o),
              "Custom Select; fraTypes Procedure Types; chkSub Su&b Procedures; "
              "chkFunction &Function Procedures; chkProperty &Properties; chkLet &Let; "
              "chkSet &Set; chkGet &Get; fraEvent &Event Hanlder Types; "
              "fraPattern Procedures Li&ke; cmdOK OK; cmdCancel Cancel; cmdHelp &Help");
    ExpectRoom(o);
    EXPECT_EQ(o.lstEvent.ListCount(), 3);
    EXPECT_EQ(o.lstEvent.List(0) + u"," + o.lstEvent.List(1) + u"," + o.lstEvent.List(2),
              u",Click,Focus");
    for (CheckBox* po : {&o.chkLet, &o.chkSet, &o.chkGet})
      EXPECT_TRUE(po->Checked() && !po->Enabled());
    o.chkProperty.UserClick();
    o.chkSet.UserClick();
    o.chkProperty.UserClick();
    EXPECT_FALSE(o.chkSet.Enabled() || o.chkSet.Checked());
    EXPECT_TRUE(o.chkLet.Checked());
    EXPECT_FALSE(o.UserKey(Key::Escape, 0));
    o.UserKey(u'K', Shift::Alt);
    EXPECT_TRUE(o.txtPattern.HasFocus());
    o.UserKey(u'E', Shift::Alt);
    EXPECT_TRUE(o.lstEvent.HasFocus());
    o.cmdHelp.UserClick();
    o.cmdCancel.UserClick();
  });
  EXPECT_EQ(Help(), "2800 ");
  moRows.lvwProcs.ListItems().Clear();
  SetHelp(false);
  Show([](FSelectCustom& o) {
    EXPECT_EQ(o.lstEvent.ListCount(), 0);
    EXPECT_FALSE(o.cmdHelp.Enabled());
    o.UserKey(Key::Return, 0);  // no rows: nothing to do
  });
}

TEST_F(FSelectCustomTest, TypesAndPatternAddUp) {
  const struct {
    const char* sName;
    std::vector<std::int32_t> alEvent;
    const char* sTicks;  ///< s f p for the first three, l t g to untick Let, Set, Get
    TextView sPattern;
    const char* sSelected;
  } aoRow[] = {
      {"nothing", {}, "", u"", "00000000"},
      {"subs", {}, "s", u"", "00001000"},
      {"functions", {}, "f", u"", "01000000"},
      {"properties", {}, "p", u"", "00000011"},
      {"properties without Get", {}, "pg", u"", "00000010"},
      {"one event type", {1}, "", u"", "00100100"},
      {"the blank type", {0}, "", u"", "10000000"},
      {"the blank type behind others", {0, 2}, "s", u"", "10011000"},
      {"names, with case", {}, "", u"cmd*", "00110000"},
      {"names in other case", {}, "", u"CMD*", "00000000"},
      {"subs and names", {}, "s", u"*_Click", "00101100"},
      {"declarations by name", {}, "", u"(*", "10000000"},
      {"list in a pattern", {}, "", u"[!a-zS]*[!k]", "11001000"},
  };
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    const std::string sSelected = Show([&](FSelectCustom& o) {
      o.txtPattern.SetText(oRow.sPattern);
      for (const auto l : oRow.alEvent) o.lstEvent.UserSelect(l);
      const std::pair<char, CheckBox*> aoBox[] = {{'s', &o.chkSub},      {'f', &o.chkFunction},
                                                  {'p', &o.chkProperty}, {'l', &o.chkLet},
                                                  {'t', &o.chkSet},      {'g', &o.chkGet}};
      for (const auto& [cTick, po] : aoBox)
        if (std::string(oRow.sTicks).find(cTick) != std::string::npos) po->UserClick();
      o.cmdOK.UserClick();
    });
    EXPECT_EQ(sSelected, oRow.sSelected);
    EXPECT_EQ(Stored(), oRow.sPattern);
  }
}

TEST_F(FSelectCustomTest, OnlyOkChangesAnything) {
  moStore.SetString(Key(u"FSelectCustom"), u"Custom Select Pattern", u"Res*");
  void (*const aAct[])(FSelectCustom&) = {[](FSelectCustom& o) { o.cmdCancel.UserClick(); },
                                          [](FSelectCustom& o) { o.UserClose(); }};
  for (const auto Act : aAct) {
    EXPECT_EQ(Show([&](FSelectCustom& o) {
                EXPECT_EQ(o.txtPattern.Text(), u"Res*");
                o.txtPattern.SetText(u"*");
                o.chkSub.UserClick();
                o.UserMove(900, 900);
                Act(o);
              }),
              "00000001");
    EXPECT_EQ(Stored(), u"Res*");
    EXPECT_EQ(moStore.GetLong(Key(u"FSelectCustom"), u"Left"), 900);
  }
}

TEST_F(FSelectCustomTest, AMalformedPatternIsExplainedAndChangesNothing) {
  const struct {
    TextView sPattern;
    const char* sFault;
  } aoRow[] = {{u"cmd[a", "a list that begins with [ isn't closed by ]."},
               {u"[", "a list that begins with [ isn't closed by ]."},
               {u"[z-a]*", "a range in a list runs backwards, as z-a does."},
               {u"[z-a", "a range in a list runs backwards, as z-a does."}};
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(ToUtf8(oRow.sPattern));
    User().MsgBox([&](const MsgBoxRequest& o) {
      const std::string sPrompt = ToUtf8(o.sPrompt);
      const std::string sStart = "The pattern " + ToUtf8(oRow.sPattern) + " can't be used: ";
      EXPECT_EQ(sPrompt.substr(0, sPrompt.find("\r\n")), sStart + oRow.sFault);
      EXPECT_NE(sPrompt.find("[!abc]"), std::string::npos);
      EXPECT_EQ(o.eIcon, MsgBoxIcon::Exclamation);
      EXPECT_EQ(o.sTitle, u"Custom Select");
      return MsgBoxResult::Ok;
    });
    EXPECT_EQ(Show([&](FSelectCustom& o) {
                o.chkSub.UserClick();
                o.txtPattern.SetText(oRow.sPattern);
                o.UserKey(Key::Return, 0);
                EXPECT_TRUE(o.Visible() && o.txtPattern.HasFocus());
                o.cmdCancel.UserClick();
              }),
              "00000001");
    EXPECT_EQ(Stored(), std::nullopt);
  }
}

}  // namespace
