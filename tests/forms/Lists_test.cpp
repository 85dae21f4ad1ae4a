// List boxes and combo boxes.
#include "ComboBox.h"
#include "ControlArray.h"
#include "Form.h"
#include "FormsFixture.h"
#include "ListBox.h"

namespace {

using namespace Forms;

class FLists : public Form {
 public:
  explicit FLists(Toolkit& oToolkit) : Form(oToolkit, u"FLists") {}
  ListBox lstPlain{*this, u"lstPlain"}, lstSimple{*this, u"lstSimple"};
  ListBox lstMulti{*this, u"lstMulti"};
  ControlArray<ListBox> lstSort{*this, u"lstSort", 2};
  ComboBox cboPick{*this, u"cboPick"};

 private:
  void Design() override {
    for (const auto* s : {u"b", u"a", u"c", u"a2"}) {
      for (ListBox* po : {&lstPlain, &lstSimple, &lstMulti}) po->AddItem(s);
    }
    lstSimple.SetMultiSelect(MultiSelect::Simple);
    lstMulti.SetMultiSelect(MultiSelect::Extended);
    lstSort(0).SetSorted(true);
  }
};

class ListsTest : public FormsTest {
 protected:
  ListsTest() {
    moLog.Watch(moForm.lstPlain.Click, "plain");
    moLog.Watch(moForm.lstMulti.Click, "multi");
    moLog.Watch(moForm.cboPick.Click, "combo");
    moForm.Show();
  }
  static std::string Chosen(const ListBox& o) {
    std::string s;
    for (std::int32_t i = 0; i < o.ListCount(); ++i) s += o.Selected(i) ? '1' : '0';
    return s;
  }
  EventLog moLog;
  FLists moForm{moToolkit};
};

TEST_F(ListsTest, SortedListsPutEachLineInItsPlaceAndTellWhere) {
  auto& oSort = moForm.lstSort(0);
  const struct {
    const char16_t* sText;
    std::int32_t lIndex;
  } aoRow[] = {{u"FMain", 0}, {u"(declarations)", 0}, {u"cmdOK", 1},
               {u"FMAIN", 3}, {u"fmain", 4},          {u"zeta", 5}};
  std::int32_t lData = 0;
  for (const auto& oRow : aoRow) {
    oSort.AddItem(oRow.sText);
    EXPECT_EQ(oSort.NewIndex(), oRow.lIndex) << ToUtf8(oRow.sText);
    oSort.SetItemData(oSort.NewIndex(), ++lData);
  }
  EXPECT_EQ(oSort.ItemData(2) * 10 + oSort.ItemData(4), 15);
  oSort.Clear();
  EXPECT_EQ(oSort.NewIndex(), -1);
}

TEST_F(ListsTest, TheSelectionKeepsItsLineWhenOthersComeAndGo) {
  auto& oList = moForm.lstPlain;
  oList.SetListIndex(2);
  oList.AddItem(u"first", 2);
  EXPECT_EQ(oList.Text(), u"c");
  oList.RemoveItem(1);
  EXPECT_EQ(oList.Text(), u"c");
  EXPECT_EQ(moLog.Take(), "plain");
  oList.RemoveItem(oList.ListIndex());
  EXPECT_EQ(oList.ListIndex(), -1);
}

TEST_F(ListsTest, SettingTheIndexClicksOnceAndTheUserAlways) {
  moForm.lstPlain.SetListIndex(1);
  moForm.lstPlain.SetListIndex(1);
  EXPECT_EQ(moLog.Take(), "plain");
  moForm.lstPlain.UserSelect(1);
  moForm.lstPlain.UserKey(Key::Down);
  moForm.lstPlain.UserKey(Key::End);
  moForm.lstPlain.UserKey(Key::Down);
  moForm.lstPlain.UserType(u"A");  // the next line that begins so, around the end
  EXPECT_EQ(moForm.lstPlain.ListIndex(), 1);
  EXPECT_EQ(moLog.Take(), "plain plain plain plain");
}

TEST_F(ListsTest, PlacesOutsideTheList) {
  auto& oList = moForm.lstPlain;
  EXPECT_EQ(FailureOf([&] { oList.SetListIndex(4); }), 380);
  EXPECT_EQ(FailureOf([&] { oList.SetListIndex(-2); }), 380);
  EXPECT_EQ(FailureOf([&] { oList.AddItem(u"x", 5); }), 5);
  EXPECT_EQ(FailureOf([&] { oList.RemoveItem(-1); }), 5);
  EXPECT_EQ(FailureOf([&] { oList.SetItemData(4, 1); }), 381);
  EXPECT_EQ(FailureOf([&] { oList.SetSelected(4, true); }), 380);
  EXPECT_EQ(oList.List(4) + oList.List(-1), u"");
  EXPECT_FALSE(oList.UserSelect(4) || moForm.lstMulti.UserSelect(-1) || oList.Selected(9));
  moForm.cboPick.UserType(u"x");  // nothing to pick
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(ListsTest, SeveralLinesByClickCtrlAndShift) {
  auto& oMulti = moForm.lstMulti;
  oMulti.UserSelect(1);
  oMulti.UserSelect(3, Shift::Ctrl);
  EXPECT_EQ(Chosen(oMulti), "0101");
  oMulti.UserSelect(1, Shift::Shift);
  EXPECT_EQ(Chosen(oMulti), "0111");
  oMulti.UserSelect(2, Shift::Shift);
  EXPECT_EQ(Chosen(oMulti), "0011");
  oMulti.UserSelection({1, 2, 3}, 1);
  oMulti.UserSelect(2, Shift::Ctrl);
  EXPECT_EQ(Chosen(oMulti), "0101");
  oMulti.UserSelect(0);
  EXPECT_EQ(Chosen(oMulti), "1000");
  EXPECT_EQ(moLog.Take(), "multi multi multi multi multi multi multi");
  oMulti.SetSelected(3, true);
  oMulti.SetSelected(3, true);
  EXPECT_EQ(moLog.Take(), "multi");
  EXPECT_EQ(oMulti.SelCount(), 2);
  oMulti.UserSelection({2, 9}, 2);
  EXPECT_EQ(Chosen(oMulti), "0010");
  moForm.lstSimple.UserSelect(0);
  moForm.lstSimple.UserSelect(2);
  moForm.lstSimple.UserSelect(0);
  EXPECT_EQ(Chosen(moForm.lstSimple), "0010");
}

TEST_F(ListsTest, ALookupFillsEither) {
  CXLookup oLookup;
  oLookup.Add(u"None", 1, u"");
  oLookup.Add(u"Firewall", 3, u"");
  oLookup.LoadListBox(moForm.cboPick, u"", 3);
  EXPECT_EQ(moForm.cboPick.Text(), u"Firewall");
  EXPECT_EQ(moForm.cboPick.ItemData(moForm.cboPick.ListIndex()), 3);
  oLookup.LoadListBox(moForm.lstPlain, u"nothing", -1);
  EXPECT_EQ(moForm.lstPlain.ListIndex(), -1);
  EXPECT_EQ(moLog.Take(), "combo");
}

}  // namespace
