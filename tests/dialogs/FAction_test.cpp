// The six dialogs that ask for a scope.
#include "FAction.h"

#include "DialogTest.h"
#include "Pictures.h"

namespace {

using namespace Forms;

class FActionTest : public DialogTest {};

template <class F>
void ExpectDialog(Toolkit& oToolkit, Script& oUser, const char* sCaption, std::int32_t lContext) {
  oUser.Modal<F>([&](F& o) {
    SCOPED_TRACE(sCaption);
    EXPECT_EQ(Captions(o), std::string(sCaption) +
                               "; cmdAction(1) Current &Selection; cmdAction(2) Current &Module; "
                               "cmdAction(3) Current &Project; cmdAction(4) &All Projects; "
                               "cmdCancel Cancel; cmdHelp &Help");
    EXPECT_EQ(o.HelpContextID(), lContext);
    EXPECT_FALSE(FindPicture(o.Image1.Picture(), 32).empty());
    EXPECT_TRUE(o.cmdAction(1).Default());
    EXPECT_EQ(o.Width() * 10000 + o.Height(), 42003000);
    ExpectRoom(o);
    o.cmdHelp.UserClick();
    o.Hide();
  });
  F(oToolkit).Display(true, true, true);
}

TEST_F(FActionTest, SixCaptionsPicturesAndHelpPagesOverOneDesign) {
  ExpectDialog<FApplyPending>(moToolkit, User(), "Apply Pending to VB Code", 2100);
  ExpectDialog<FCopySuggest>(moToolkit, User(), "Copy Suggested to Pending", 2000);
  ExpectDialog<FUndoPending>(moToolkit, User(), "Discard Pending Properties", 2000);
  ExpectDialog<FInsertLine>(moToolkit, User(), "Insert Line Numbers", 2100);
  ExpectDialog<FRemoveLine>(moToolkit, User(), "Remove Line Numbers", 2100);
  ExpectDialog<FRefreshTemplates>(moToolkit, User(), "Refresh Error Handlers", 2100);
  EXPECT_EQ(Help(), "2100 2000 2000 2100 2100 2100 ");
}

TEST_F(FActionTest, ButtonsKeysAndTheCloseBoxAnswer) {
  const struct {
    const char* sName;
    bool bSelection, bModule, bAll;
    void (*Act)(FAction&);
    eAction eExpected;
  } aoRow[] = {
      {"selection", true, true, true, [](FAction& o) { o.cmdAction(1).UserClick(); },
       eAction::Selection},
      {"module", true, true, true, [](FAction& o) { o.cmdAction(2).UserClick(); }, eAction::Module},
      {"all", true, true, true, [](FAction& o) { o.cmdAction(4).UserClick(); }, eAction::All},
      {"Return is the selection", true, false, false, [](FAction& o) { o.UserKey(Key::Return, 0); },
       eAction::Selection},
      {"access key", true, false, false, [](FAction& o) { o.UserKey(u'P', Shift::Alt); },
       eAction::Project},
      {"Escape", true, true, true, [](FAction& o) { o.UserKey(Key::Escape, 0); }, eAction::Cancel},
      {"close box", true, true, true, [](FAction& o) { o.UserClose(); }, eAction::Cancel},
      {"only the project is left, and has the focus", false, false, false,
       [](FAction& o) {
         EXPECT_FALSE(o.cmdAction(1).UserClick() || o.cmdAction(2).UserClick() ||
                      o.cmdAction(4).UserClick() || o.cmdAction(0).UserClick());
         o.UserKey(Key::Return, 0);
       },
       eAction::Project},
  };
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    User().Modal<FAction>([&](FAction& o) { oRow.Act(o); });
    FInsertLine oDialog(moToolkit);
    EXPECT_EQ(oDialog.Display(oRow.bSelection, oRow.bModule, oRow.bAll), oRow.eExpected);
    EXPECT_FALSE(oDialog.Loaded());
  }
}

TEST_F(FActionTest, ThePointerIsFreeMeanwhileAndBusyAfterwards) {
  SetHelp(false);
  for (const std::int32_t nBefore : {Pointer::Default, Pointer::Hourglass}) {
    moToolkit.Screen().SetMousePointer(nBefore);
    User().Modal<FAction>([&](FAction& o) {
      EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Default);
      EXPECT_FALSE(o.cmdHelp.Enabled());
      o.cmdCancel.UserClick();
    });
    FUndoPending(moToolkit).Display(true, true, true);
    EXPECT_EQ(moRenderer.ShownPointer(), Pointer::Hourglass);
  }
}

TEST_F(FActionTest, AllSixStandWhereTheLastOneWasLeft) {
  const struct {
    const char* sName;
    std::int32_t lStored, lLeft;
  } aoRow[] = {{"inside", 3000, 3000}, {"beyond the screen", 90000, 11160}, {"before it", -700, 0}};
  User().Modal<FAction>([&](FAction& o) {
    EXPECT_EQ(o.Left() * 10000 + o.Top(), 55802982);  // the middle, and somewhat above it
    o.UserMove(600, 750);
    o.UserClose();
  });
  FApplyPending(moToolkit).Display(true, true, true);
  EXPECT_EQ(moStore.GetLong(Key(u"FAction"), u"Top"), 750);
  for (const auto& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    moStore.SetLong(Key(u"FAction"), u"Left", oRow.lStored);
    moStore.SetLong(Key(u"FAction"), u"Width", 1);
    User().Modal<FAction>([&](FAction& o) {
      EXPECT_EQ(o.Bounds(), (Rect{oRow.lLeft, 750, 4200, 3000}));
      o.cmdCancel.UserClick();
    });
    FRemoveLine(moToolkit).Display(true, true, true);
  }
}

}  // namespace
