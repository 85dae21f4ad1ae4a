#include "Menu.h"

#include "ControlArray.h"
#include "Play.h"

namespace {

using namespace Forms;

class MenuTest : public PlayTest {
 protected:
  MenuTest() {
    for (Menu* po : {&mnuFile, &mnuOpen, &mnuMore, &mnuDeep}) log.Watch(po->Click, NameOf(*po));
    form.Show();
    mnuLine.SetCaption(u"-");
    mnuRecent(0).SetTag(u"design");
    mnuDeep.SetShortcut(u'D', Shift::Ctrl);
    Can("pick", [this](auto& o) { return MenuOf(o).UserPick(); });
    Can("drop", [this](auto& o) { return MenuOf(o).UserDrop(); });
    Can("enable", [this](auto& o) { MenuOf(o).SetEnabled(o.Number(2) != 0); });
    Can("reveal", [this](auto& o) { MenuOf(o).SetVisible(o.Number(2) != 0); });
  }
  Menu& MenuOf(const Deed& o) {
    for (Component* po : form.Components())
      if (NameOf(*po) == o.Word(1)) return dynamic_cast<Menu&>(*po);
    throw std::logic_error("There is no menu " + o.Word(1));
  }
  /// The entries of the first menu.
  std::string Look() override {
    std::string all;
    for (const Menu* po : mnuFile.Items()) all += NameOf(*po) + " ";
    return all;
  }
  Menu mnuFile{form, u"File"}, mnuOpen{mnuFile, u"Open"};
  ControlArray<Menu> mnuRecent{mnuFile, u"Recent"};
  Menu mnuLine{mnuFile, u"Line"}, mnuMore{mnuFile, u"More"}, mnuDeep{mnuMore, u"Deep"};
};

TEST_F(MenuTest, PickingDropsTheMenusAboveFirstAndReachesNothingUnderADisabledOrHiddenOne) {
  form.On(mnuFile.Click, [&] { mnuOpen.SetEnabled(!mnuOpen.Enabled()); });
  Play(R"(
    an entry of a menu in a menu | pick Deep                             | | File More Deep
    neither a line nor a menu    | pick Line; pick More                  | | no no
    enabled as the menu drops    | pick Open                             | | File Open
    disabled as it drops         | pick Open                             | | File no
    under a disabled menu        | enable More 0; stroke D Ctrl          | | File no
    under a hidden one           | enable More 1; reveal More 0; drop More; pick Deep | | no File no)");
}

TEST_F(MenuTest, ElementsMadeAtRunTimeStandTogetherByIndexAndMayEndInTheirOwnClick) {
  for (const int index : {2, 1, 3}) EXPECT_EQ(mnuRecent.Load(index).Tag(), u"design");
  form.On(mnuRecent(1).Click, [&] { mnuRecent.Unload(1); });
  EXPECT_EQ(Look(), "Open Recent(0) Recent(1) Recent(2) Recent(3) Line More ");
  Play(R"(
    hidden at first    | pick Recent(1)                     |                                       | File no
    ends in its click  | reveal Recent(1) 1; pick Recent(1) | Open Recent(0) Recent(2) Recent(3) Line More | File)");
  form.Unload();
  EXPECT_EQ(Look(), "Open Recent(0) Line More ");
}

}  // namespace
