// The About box, and the viewer of the help.
#include "FAbout.h"

#include "DialogTest.h"

namespace {

using namespace Forms;

using FAboutTest = DialogTest;

TEST_F(FAboutTest, TellsWhatItIsAndCloses) {
  User().Modal<FAbout>([](FAbout& o) {
    EXPECT_NE(o.lblVersion.Caption().find(u"Tarvane Quillon 3.1"), Text::npos);
    EXPECT_FALSE(o.lblLegal.Caption().empty() || o.lblWarning.Caption().empty());
    ExpectRoom(o);
    o.cmdOK.UserKey(Key::Escape);
  });
  FAbout oAbout(moToolkit);
  oAbout.Display();
  EXPECT_FALSE(oAbout.Loaded());
}

TEST_F(FAboutTest, HelpOpensItsFileAtAPage) {
  EXPECT_TRUE(MXHTMLHelp::HelpExists());
  MXHTMLHelp::ShowHelpTOC(moToolkit, 1800);
  MXHTMLHelp::ShowHelpIndex(moToolkit);
  MXHTMLHelp::ShowHelpSearch(moToolkit);
  const std::vector<Text> asExpected = {HelpFile() + u"|0|1800", HelpFile() + u"|1|0",
                                        HelpFile() + u"|2|0"};
  EXPECT_EQ(moRenderer.Opened(), asExpected);
  SetHelp(false);
  EXPECT_FALSE(MXHTMLHelp::HelpExists());
}

}  // namespace
