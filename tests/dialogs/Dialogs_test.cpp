// What all dialogs have: captions, a size, room for everything, controls that are off at first,
// help pages, and a place that is kept. And the About box, which has less, and the help's viewer.
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
  /// The pages that Help opened since the last call, each with a blank.
  std::string Help() {
    std::string sAll;
    for (; mnHelp < moRenderer.Opened().size(); ++mnHelp) {
      const Text& s = moRenderer.Opened()[mnHelp];
      sAll += ToUtf8(s.substr(s.rfind(u'|') + 1)) + " ";
    }
    return sAll;
  }
  /// Asks for help on each page, from the last one to the first.
  static void AskHelp(Form& o) {
    for (auto* po : ControlsOf(o)) {
      const auto* poPicture = dynamic_cast<PictureBox*>(po);
      EXPECT_FALSE(poPicture && FindPicture(poPicture->Picture(), 32).empty());
    }
    auto* poTabs = dynamic_cast<TabStrip*>(ControlsOf(o).front());
    for (std::int32_t i = poTabs ? poTabs->Tabs().Count() : 1; i > 0; --i) {
      if (poTabs) poTabs->UserSelect(i);
      Do(o, "cmdHelp");
    }
  }
  std::size_t mnHelp = 0;
};

TEST_F(DialogsTest, CaptionsPlacesHelpAndWhatIsOff) {
  const std::string sScopes =
      "; Current &Selection; Current &Module; Current &Project; &All Projects; Cancel; &Help";
  const std::string sFont = "; MS Sans Serif  8 pt; Change...";
  Form oOwner(moToolkit, u"FRows");
  ListView lvw(oOwner, u"lvw");
  const struct {
    TextView sKey;
    std::function<void()> Show;
    std::string sCaptions;
    std::int32_t lWidth, lHeight;
    const char *sOff, *sHelp;
  } aoRow[] = {
      {u"FAction", [&] { FApplyPending(moToolkit).Display(true, true, true); },
       "Apply Pending to VB Code" + sScopes, 4200, 3000, "", "2100 "},
      {u"FAction", [&] { FCopySuggest(moToolkit).Display(true, false, true); },
       "Copy Suggested to Pending" + sScopes, 4200, 3000, " cmdAction(2)", "2000 "},
      {u"FAction", [&] { FUndoPending(moToolkit).Display(false, true, true); },
       "Discard Pending Properties" + sScopes, 4200, 3000, " cmdAction(1)", "2000 "},
      {u"FAction", [&] { FInsertLine(moToolkit).Display(true, true, false); },
       "Insert Line Numbers" + sScopes, 4200, 3000, " cmdAction(4)", "2100 "},
      {u"FAction", [&] { FRemoveLine(moToolkit).Display(true, true, true); },
       "Remove Line Numbers" + sScopes, 4200, 3000, "", "2100 "},
      {u"FAction", [&] { FRefreshTemplates(moToolkit).Display(true, true, true); },
       "Refresh Error Handlers" + sScopes, 4200, 3000, "", "2100 "},
      {u"FOptions", [&] { FOptions(moToolkit).Display(); },
       "Options; &General; OK; Cancel; &Help; &Code Font" + sFont + "; &Results Font" + sFont +
           "; &Errors Font" + sFont,
       6480, 4680, "", "2300 "},
      {u"FPrintOption", [&] { FPrintOption(moToolkit, moPrinters).Display(); },
       "Print; Printer: hall & stairs; Print What; Project &Summary; "
       "Procedure Property &Settings for; Current &Module; Current &Project; Page Set&up...; OK; "
       "Cancel; &Help",
       5880, 3780, " optProcSettingsModule optProcSettingsProject cmdOK", "2400 "},
      {u"FSelectCustom", [&] { FSelectCustom(moToolkit).Display(lvw); },
       "Custom Select; Procedure Types; Su&b Procedures; &Function Procedures; &Properties; &Let; "
       "&Set; &Get; &Event Hanlder Types; Procedures Li&ke; OK; Cancel; &Help",
       6120, 4860, " chkLet chkSet chkGet", "2800 "},
      {u"FRules", [&] { FRules(moToolkit).Display(); },
       "Rules; &Defaults; Pre&cedence; Boundary &Management; Line &Numbering; &General; OK; "
       "Cancel; &Help; What Default Values do you want Quillon to suggest for Properties?; "
       "Module Defaults; &Template; &Severity; &Retry; "
       "Procedure Defaults; T&emplate; Se&verity; Retr&y; Tra&cing; "
       "Do you want Quillon to suggest Leaving Current Property values or to suggest Replacing "
       "values according to the Default Value Rules?; Property Value Precedence; "
       "&Template; Leave Current; Replace with Default; &Severity; Leave; Replace; "
       "&Retry; Leave; Replace; Tra&cing; Leave; Replace; Boundary Default; Do you want Quillons' "
       "Property &Expert to suggest Boundary Property Values based on Project Analysis "
       "(recommended)?; Or do you want Quillon to suggest &this Default Boundary?; "
       "Boundary Precedence; Do you want Quillon to suggest Leaving Current &Firewall Boundary "
       "Values that you have set?; Do you want Quillon to suggest Replacing &Other Current "
       "Boundary Values (recommended with Property Expert)?; "
       "Line Numbering Action; &Insert/Refresh; &Leave; &Remove; What to Line Number; &Every Line; "
       "E&very          Lines; L&ogic Control Statements Only; What to Skip; "
       "D&ata Declarations; &Simple End Statements; Procedures s&horter than            Lines; "
       "ReadOnly Files; Always &Skip ReadOnly Files",
       6480, 4680,
       " lblModSeverity cboModSeverity lblModRetry cboModRetry lblSeverity cboSeverity lblRetry "
       "cboRetry lblTrace cboTrace lblBoundary cboBoundary txtWhatLines",
       "2750 2740 2730 2720 2710 "}};
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sCaptions.substr(0, 20));
    RegistryStore oFresh;
    goRegistry = &oFresh;
    SetHelp(true);
    Rect oPlace{(15360 - oRow.lWidth) / 2, (11520 - oRow.lHeight) * 35 / 100, oRow.lWidth,
                oRow.lHeight};
    User().Modal<Form>([&](Form& o) {
      EXPECT_EQ(o.Bounds(), oPlace);
      EXPECT_EQ(Captions(o), oRow.sCaptions);
      EXPECT_EQ(Off(o), oRow.sOff);
      ExpectRoom(o);
      AskHelp(o);
      o.UserMove(600, 750);
      Do(o, "close");
    });
    moToolkit.Screen().SetMousePointer(Pointer::Hourglass);
    oRow.Show();
    EXPECT_EQ(Help(), oRow.sHelp);
    oFresh.SetLong(Key(oRow.sKey), u"Width", 1);
    oPlace = {600, 750, oRow.lWidth, oRow.lHeight};
    SetHelp(false);
    User().Modal<Form>([&](Form& o) {
      EXPECT_EQ(o.Bounds(), oPlace);
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
      const Control& oHelp = Find(o, "cmdHelp");
      EXPECT_EQ(oHelp.Visible(), oRow.lHeight != 4680);  // the sheets hide it
      EXPECT_TRUE(!oHelp.Visible() || !oHelp.Enabled());
      Do(o, oRow.sKey == u"FSelectCustom" ? "!Escape; close" : "Escape");
    });
    oRow.Show();
    EXPECT_EQ(oFresh.GetLong(Key(oRow.sKey), u"Top"), 750);
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
  }
}

TEST_F(DialogsTest, AboutTellsWhatItIsAndCloses) {
  User().Modal<FAbout>([](FAbout& o) {
    EXPECT_EQ(Captions(o).find("About Tarvane; Tarvane Quillon 3.1"), 0U);
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
  const std::vector<Text> asExpected = {HelpFile() + u"|0|1800", HelpFile() + u"|1|0",
                                        HelpFile() + u"|2|0"};
  EXPECT_EQ(moRenderer.Opened(), asExpected);
}

}  // namespace
