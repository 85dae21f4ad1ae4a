#include "ListView.h"

#include "Form.h"
#include "FormsFixture.h"

namespace {

using namespace Forms;

class FTable : public Form {
 public:
  explicit FTable(Toolkit& oToolkit) : Form(oToolkit, u"FTable") {}
  ListView lvwMulti{*this, u"lvwMulti"}, lvwSingle{*this, u"lvwSingle"};

 private:
  void Design() override {
    lvwMulti.SetMultiSelect(true);
    lvwMulti.SetSorted(true);
  }
};

class ListViewTest : public FormsTest {
 protected:
  ListViewTest() {
    moForm.Show();
    moList.ColumnHeaders().Add(u"Procedure", 2000);
    moList.ColumnHeaders().Add(u"Type");
    Fill(moList);
    Fill(moForm.lvwSingle);
    moLog.Watch(moList.ItemClick, "item");
    moLog.Watch(moList.ColumnClick, "column");
  }
  static void Fill(ListView& oList) {
    const struct {
      const char16_t *sName, *sType;
    } aoRow[] = {
        {u"Save", u"Sub"}, {u"load", u"Function"}, {u"Find", u"Sub"}, {u"add", u"Property"}};
    for (const auto& oRow : aoRow) oList.ListItems().Add(oRow.sName).SetSubItems(1, oRow.sType);
  }
  /// The rows; selected ones with a star, the SelectedItem in brackets.
  static std::string Shown(ListView& oList) {
    std::string s;
    for (std::int32_t i = 1; i <= oList.ListItems().Count(); ++i) {
      const ListItem& o = oList.ListItems().Item(i);
      const bool bFocus = oList.SelectedItem() == &o;
      s += (bFocus ? "[" : "") + ToUtf8(o.Text()) + (o.Selected() ? "*" : "") +
           (bFocus ? "] " : " ");
    }
    return s;
  }
  EventLog moLog;
  FTable moForm{moToolkit};
  ListView& moList = moForm.lvwMulti;
};

TEST_F(ListViewTest, TheFirstRowAddedIsSelectedWhereverItSorts) {
  EXPECT_EQ(Shown(moForm.lvwSingle), "[Save*] load Find add ");
  EXPECT_EQ(Shown(moList), "add Find load [Save*] ");
  moList.SelectedItem()->SetSelected(false);
  moList.ListItems().Item(1).SetSelected(true);
  EXPECT_EQ(Shown(moList), "[add*] Find load Save ");
}

TEST_F(ListViewTest, SortingByColumnAndOrderKeepsEqualRowsInTheirs) {
  moList.SetSortKey(1);
  EXPECT_EQ(Shown(moList), "load add [Save*] Find ");
  moList.SetSortOrder(ListSortOrder::Descending);
  EXPECT_EQ(Shown(moList), "[Save*] Find add load ");
  moList.SetSortKey(7);  // a column without texts
  EXPECT_EQ(Shown(moList), "[Save*] load Find add ");
  EXPECT_EQ(moList.SelectedItem()->Index(), 1);
  moForm.lvwSingle.SetSortKey(1);
  EXPECT_EQ(Shown(moForm.lvwSingle), "[Save*] load Find add ");  // isn't Sorted
  EXPECT_EQ(FailureOf([&] { moList.SetSortKey(-1); }), 380);
}

TEST_F(ListViewTest, ChangingCellsMovesNoRowUntilRowsCome) {
  for (std::int32_t i = 1; i <= 4; ++i) moList.ListItems().Item(i).SetText(ToText(9 - i));
  EXPECT_EQ(Shown(moList), "8 7 6 [5*] ");
  moList.ListItems().Add(u"55");
  EXPECT_EQ(Shown(moList), "[5*] 55 6 7 8 ");
}

TEST_F(ListViewTest, SelectionByTheUser) {
  struct Row {
    const char* sName;
    std::int32_t lRow, nShift;
    const char *sShown, *sEvents;
  };
  const Row aoRow[] = {
      {"alone", 2, Shift::None, "add [Find*] load Save ", "item"},
      {"Shift: a range from the last", 4, Shift::Shift, "add Find* load* [Save*] ", "item"},
      {"Shift again, the other way", 1, Shift::Shift, "[add*] Find* load Save ", "item"},
      {"Ctrl: one off", 1, Shift::Ctrl, "[add] Find* load Save ", "item"},
      {"Ctrl: one more", 4, Shift::Ctrl, "add Find* load [Save*] ", "item"},
      {"both: a range more", 3, Shift::Ctrl | Shift::Shift, "add Find* [load*] Save* ", "item"},
      {"the empty area with Ctrl", 0, Shift::Ctrl, "add Find* [load*] Save* ", ""},
      {"the empty area", 0, Shift::None, "add Find [load] Save ", ""},
      {"outside", 5, Shift::None, "add Find [load] Save ", ""},
  };
  for (const Row& oRow : aoRow) {
    SCOPED_TRACE(oRow.sName);
    moList.UserSelect(oRow.lRow, oRow.nShift);
    EXPECT_EQ(Shown(moList), oRow.sShown);
    EXPECT_EQ(moLog.Take(), oRow.sEvents);
  }
  moForm.lvwSingle.UserSelect(3, Shift::Ctrl);
  EXPECT_EQ(Shown(moForm.lvwSingle), "Save load [Find*] add ");
  moForm.lvwSingle.ListItems().Item(1).SetSelected(true);
  EXPECT_EQ(Shown(moForm.lvwSingle), "[Save*] load Find add ");
}

TEST_F(ListViewTest, KeysAndTheNativeSelection) {
  moList.UserSelect(1);
  moList.UserKey(Key::Down);
  moList.UserKey(Key::End, Shift::Shift);
  EXPECT_EQ(Shown(moList), "add Find* load* [Save*] ");
  moList.UserKey(Key::Down);
  EXPECT_EQ(moLog.Take(), "item item item");
  moList.UserSelection({1, 3}, 3);
  EXPECT_EQ(Shown(moList), "add* Find [load*] Save ");
  EXPECT_EQ(FailureOf([&] { moList.UserSelection({5}, 0); }), 35600);
  moList.SetVisible(false);
  EXPECT_FALSE(moList.UserSelect(2) || moList.UserSelection({}, 0));
}

TEST_F(ListViewTest, RemovedRowsLeaveNoTrace) {
  moList.UserSelect(2);
  moList.ListItems().Remove(2);
  EXPECT_EQ(Shown(moList), "add load Save ");
  moList.UserSelect(3, Shift::Shift);  // nothing to start a range from
  EXPECT_EQ(Shown(moList), "add load [Save*] ");
  moList.ListItems().Clear();
  EXPECT_EQ(moList.SelectedItem(), nullptr);
  moList.UserKey(Key::Down);
  Fill(moList);
  EXPECT_EQ(Shown(moList), "add Find load [Save*] ");
}

TEST_F(ListViewTest, Columns) {
  EXPECT_EQ(moList.ColumnHeaders().Item(2).Width(), 1440);
  EXPECT_TRUE(moList.UserColumnWidth(1, 900) && moList.UserColumnClick(2));
  EXPECT_EQ(moList.ColumnHeaders().Item(1).Width(), 900);
  EXPECT_EQ(moLog.Take(), "column");
  EXPECT_EQ(FailureOf([&] { moList.ColumnHeaders().Item(3); }), 35600);
  EXPECT_EQ(FailureOf([&] { moList.ColumnHeaders().Add(u"x", -1); }), 380);
  EXPECT_EQ(FailureOf([&] { moList.ListItems().Item(1).SetSubItems(0, u""); }), 380);
  EXPECT_EQ(moList.ListItems().Item(1).SubItems(9), u"");
  moList.ColumnHeaders().Clear();
  EXPECT_EQ(moList.ListItems().Item(2).Cell(2), u"Sub");  // rows stay
}

}  // namespace
