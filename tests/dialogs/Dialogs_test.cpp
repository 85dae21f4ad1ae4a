// What all dialogs have: a place that is kept, room for everything, controls that are off at first,
// help pages. And the About box, which has less, and the help's viewer.
#include "DialogTest.h"
#include "FAbout.h"
#include "FAction.h"
#include "FOptions.h"
#include "FPrintOption.h"
#include "FRules.h"
#include "FSelectCustom.h"
#include "Pictures.h"

namespace {

using namespace Forms;

class DialogsTest : public DialogTest {
 protected:
  /// The pages that Help opens on the tabs, from the last one to the first.
  std::string Help(Form& o) {
    std::string sAll;
    auto* poTabs = dynamic_cast<TabStrip*>(ControlsOf(o).front());
    for (std::int32_t i = poTabs ? poTabs->Tabs().Count() : 1; i > 0; --i) {
      Do(o, (poTabs ? "tabOption=" + std::to_string(i) + "; " : "") + "cmdHelp");
      const Text& s = moRenderer.Opened().back();
      sAll += ToUtf8(s.substr(s.rfind(u'|') + 1)) + " ";
    }
    return sAll;
  }
  template <class F>
  std::function<void()> Asks(bool bSelection, bool bModule, bool bAll) {
    return [=, this] { F(moToolkit).Display(bSelection, bModule, bAll); };
  }
};

TEST_F(DialogsTest, PlacesHelpAndWhatIsOff) {
  Form oOwner(moToolkit, u"FRows");
  ListView lvw(oOwner, u"lvw");
  const struct {
    std::function<void()> Show;
    const char *sKey, *sHelp, *sOff;
  } aoRow[] = {
      {Asks<FApplyPending>(true, true, true), "FAction", "2100 ", ""},
      {Asks<FCopySuggest>(true, false, true), "FAction", "2000 ", " cmdAction(2)"},
      {Asks<FUndoPending>(false, true, true), "FAction", "2000 ", " cmdAction(1)"},
      {Asks<FInsertLine>(true, true, false), "FAction", "2100 ", " cmdAction(4)"},
      {Asks<FRemoveLine>(true, true, true), "FAction", "2100 ", ""},
      {Asks<FRefreshTemplates>(true, true, true), "FAction", "2100 ", ""},
      {[&] { FOptions(moToolkit).Display(); }, "FOptions", "2300 ", ""},
      {[&] { FPrintOption(moToolkit, moPrinters).Display(); }, "FPrintOption", "2400 ",
       " optProcSettingsModule optProcSettingsProject cmdOK"},
      {[&] { FSelectCustom(moToolkit).Display(lvw); }, "FSelectCustom", "2800 ",
       " chkLet chkSet chkGet"},
      {[&] { FRules(moToolkit).Display(); }, "FRules", "2750 2740 2730 2720 2710 ",
       " lblModSeverity cboModSeverity lblModRetry cboModRetry lblSeverity cboSeverity lblRetry "
       "cboRetry lblTrace cboTrace lblBoundary cboBoundary txtWhatLines"}};
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sKey + std::to_string(&oRow - aoRow));
    const Text sKey = Key(FromUtf8(oRow.sKey));
    OwnSettings oFresh;
    MXHTMLHelp::SetHelpFile(HelpFile());
    Rect oPlace;
    User().Modal<Form>([&](Form& o) {
      oPlace = o.Bounds();
      EXPECT_EQ(oPlace.lLeft, (15360 - oPlace.lWidth) / 2);
      EXPECT_EQ(oPlace.lTop, (11520 - oPlace.lHeight) * 35 / 100);
      EXPECT_EQ(Off(o), oRow.sOff);
      ExpectRoom(o);
      for (auto* po : ControlsOf(o)) {
        const auto* poPicture = dynamic_cast<PictureBox*>(po);
        EXPECT_TRUE(HasItsCaption(*po)) << NameOf(*po);
        EXPECT_FALSE(poPicture && FindPicture(poPicture->Picture(), 32).empty());
      }
      EXPECT_EQ(Help(o), oRow.sHelp);
      o.UserMove(600, 750);
      Do(o, "close");
    });
    moToolkit.Screen().SetMousePointer(Pointer::Hourglass);
    oRow.Show();
    oFresh.SetLong(sKey, u"Width", 1);
    MXHTMLHelp::SetHelpFile(u"/none");
    User().Modal<Form>([&](Form& o) {
      EXPECT_EQ(o.Bounds(), (Rect{600, 750, oPlace.lWidth, oPlace.lHeight}));
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
      const Control& oHelp = Find(o, "cmdHelp");
      EXPECT_FALSE(oHelp.Visible() && (oHelp.Enabled() || oPlace.lHeight == 4680));  // of sheets
      Do(o, o.Name() == u"FSelectCustom" ? "!Escape; close" : "Escape");
    });
    oRow.Show();
    EXPECT_EQ(oFresh.GetLong(sKey, u"Top"), 750);
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
  }
}

TEST_F(DialogsTest, AboutTellsWhatItIsAndCloses) {
  User().Modal<FAbout>([](FAbout& o) {
    EXPECT_EQ(o.Caption(), u"About Tarvane");
    EXPECT_FALSE(o.lblLegal.Caption().empty() || o.lblWarning.Caption().empty());
    ExpectRoom(o);
    Do(o, "Escape");
  });
  FAbout(moToolkit).Display();
}

TEST_F(DialogsTest, HelpOpensItsFileAtAPage) {
  MXHTMLHelp::ShowHelpTOC(moToolkit, 1800);
  MXHTMLHelp::ShowHelpIndex(moToolkit);
  MXHTMLHelp::ShowHelpSearch(moToolkit);
  const Text sFile = HelpFile();
  EXPECT_EQ(moRenderer.Opened(),
            (std::vector<Text>{sFile + u"|0|1800", sFile + u"|1|0", sFile + u"|2|0"}));
}

}  // namespace
