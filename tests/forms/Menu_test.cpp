#include "Menu.h"

#include "ControlArray.h"
#include "Form.h"
#include "FormsFixture.h"

namespace {

using namespace Forms;

class FMenus : public Form {
 public:
  explicit FMenus(Toolkit& oToolkit) : Form(oToolkit, u"FMenus") {}
  Menu mnuFile{*this, u"mnuFile"};
  Menu mnuFileOpen{mnuFile, u"mnuFileOpen"};
  ControlArray<Menu> mnuFileRecent{mnuFile, u"mnuFileRecent"};
  Menu mnuFileLine{mnuFile, u"mnuFileLine"};
  Menu mnuFileMore{mnuFile, u"mnuFileMore"};
  Menu mnuFileMoreDeep{mnuFileMore, u"mnuFileMoreDeep"};

 private:
  void Design() override {
    mnuFileLine.SetCaption(u"-");
    mnuFileRecent(0).SetTag(u"design");
    mnuFileMoreDeep.SetShortcut(u'D', Shift::Ctrl);
  }
};

class MenuTest : public FormsTest {
 protected:
  MenuTest() {
    moLog.Watch(moForm.mnuFile.Click, "File");
    moLog.Watch(moForm.mnuFileOpen.Click, "Open");
    moLog.Watch(moForm.mnuFileMore.Click, "More");
    moLog.Watch(moForm.mnuFileMoreDeep.Click, "Deep");
    moForm.Show();
  }
  EventLog moLog;
  FMenus moForm{moToolkit};
};

TEST_F(MenuTest, PickingDropsTheMenusAboveFirst) {
  EXPECT_TRUE(moForm.mnuFileMoreDeep.UserPick());
  EXPECT_EQ(moLog.Take(), "File More Deep");
  EXPECT_FALSE(moForm.mnuFileLine.UserPick() || moForm.mnuFileMore.UserPick());
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(MenuTest, RulesSetWhenTheMenuDropsHoldForTheSamePick) {
  bool bEnabled = false;
  moForm.On(moForm.mnuFile.Click, [&] { moForm.mnuFileOpen.SetEnabled(bEnabled); });
  EXPECT_FALSE(moForm.mnuFileOpen.UserPick());
  EXPECT_EQ(moLog.Take(), "File");
  bEnabled = true;
  EXPECT_TRUE(moForm.mnuFileOpen.UserPick());
  EXPECT_EQ(moLog.Take(), "File Open");
}

TEST_F(MenuTest, NothingUnderADisabledOrHiddenMenuIsReached) {
  moForm.mnuFileMore.SetEnabled(false);
  EXPECT_FALSE(moForm.UserKey(u'D', Shift::Ctrl));
  moForm.mnuFileMore.SetEnabled(true);
  moForm.mnuFileMore.SetVisible(false);
  EXPECT_FALSE(moForm.mnuFileMore.UserDrop() || moForm.mnuFileMoreDeep.Reachable());
  EXPECT_EQ(moLog.Take(), "File");
}

TEST_F(MenuTest, ElementsMadeAtRunTimeStandTogetherByIndex) {
  for (const int lIndex : {2, 1, 3}) {
    Menu& oNew = moForm.mnuFileRecent.Load(lIndex);
    EXPECT_FALSE(oNew.Visible());
    EXPECT_EQ(oNew.Tag(), u"design");
  }
  std::string sOrder;
  for (const Menu* po : moForm.mnuFile.Items()) {
    sOrder +=
        ToUtf8(po->Name()).substr(7) + (po->Index() < 0 ? "" : std::to_string(po->Index())) + " ";
  }
  EXPECT_EQ(sOrder, "Open Recent0 Recent1 Recent2 Recent3 Line More ");
  moForm.Unload();
  EXPECT_EQ(moForm.mnuFile.Items().size(), 4U);
}

TEST_F(MenuTest, AnElementMayBeUnloadedInItsOwnClick) {
  Menu& oNew = moForm.mnuFileRecent.Load(1);
  oNew.SetVisible(true);
  moForm.On(oNew.Click, [&] {
    moForm.mnuFileRecent.Unload(1);
    moLog.Note("gone");
  });
  EXPECT_TRUE(oNew.UserPick());
  EXPECT_EQ(moLog.Take(), "File gone");
  EXPECT_EQ(moForm.mnuFile.Items().size(), 4U);
}

}  // namespace
