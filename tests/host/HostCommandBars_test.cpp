#include "HostCommandBars.h"

#include "ProjectTree.h"

namespace {

TEST(HostCommandBars, ServeAnAddIn) {
  HostCommandBars oBars;
  CommandBarControls& oMenu = oBars.Item(u"add-ins").Controls();
  CommandBarControl& oEntry = oMenu.Add(1);
  int nClicks = 0;
  Connection oLink =
      oBars.CommandBarEvents(oEntry).Click.Connect([&](CommandBarControl& oControl, bool&, bool&) {
        ++nClicks;
        oControl.Delete();  // an add-in may be disconnected from its own menu
      });
  oBars.Click(oEntry);
  EXPECT_EQ(nClicks, 1);
  EXPECT_EQ(oMenu.Count(), 0);
  CommandBar& oBar = oBars.Add(u"Tools", 1);
  CommandBarControl& oButton = oBar.Controls().Add(1);
  oButton.PasteFace();
  Picture oClip{"picture"};
  oBars.SetClipboard([&] { return oClip; });
  oButton.PasteFace();
  EXPECT_EQ(oBars.Item(2).Controls().Item(1).Face().sBytes, "picture");
  oClip = {};
  EXPECT_EQ(FailureNumber([&] { oButton.PasteFace(); }), 5);
  EXPECT_EQ(FailureNumber([&] { oBars.Add(u"tools", 1); }), 5);
  EXPECT_EQ(FailureNumber([&] { oMenu.Add(10); }), 5);
  EXPECT_EQ(FailureNumber([&] { oMenu.Item(1); }), 9);
  EXPECT_EQ(FailureNumber([&] { oEntry.Delete(); }), 5);
  EXPECT_EQ(FailureNumber([&] { oBars.Item(u"Add-Ins").Delete(); }), 5);
  oBar.Delete();
  EXPECT_EQ(FailureNumber([&] { oBars.Item(u"Tools"); }), 5);
}

}  // namespace
