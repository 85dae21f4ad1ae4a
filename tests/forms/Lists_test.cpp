// List boxes and combo boxes.
#include "ComboBox.h"
#include "ListBox.h"
#include "Play.h"

namespace {

using namespace Forms;

class ListsTest : public PlayTest {
 protected:
  ListsTest() {
    WatchClicks();
    form.Show();
    for (const auto* s : {u"b", u"a", u"c", u"a2"})
      for (ListBox* po : {&plain, &simple, &multi}) po->AddItem(s);
    simple.SetMultiSelect(MultiSelect::Simple);
    multi.SetMultiSelect(MultiSelect::Extended);
    Can("set", [this](auto& o) { List(o).SetListIndex(o.Number(2)); });
    Can("pick", [this](auto& o) { return List(o).UserSelect(o.Number(2), o.Number(3)); });
    Can("add", [this](auto& o) { List(o).AddItem(u"x", o.Number(2)); });
    Can("remove", [this](auto& o) { List(o).RemoveItem(o.Number(2)); });
    Can("data", [this](auto& o) { List(o).SetItemData(o.Number(2), 1); });
    Can("select", [this](auto& o) { Box(o).SetSelected(o.Number(2), o.Number(3) != 0); });
    Can("native", [this](auto& o) {
      std::vector<std::int32_t> rows;
      for (std::size_t i = 3; i < o.words.size(); ++i) rows.push_back(o.Number(i));
      return Box(o).UserSelection(rows, o.Number(2));
    });
  }
  ListEntries& List(const Deed& o) { return dynamic_cast<ListEntries&>(At(o)); }
  ListBox& Box(const Deed& o) { return dynamic_cast<ListBox&>(At(o)); }
  /// The line of the list that has one, and the selected ones of the others.
  std::string Look() override {
    std::string all = ToUtf8(plain.Text());
    for (const ListBox* po : {&simple, &multi}) {
      all += " ";
      for (std::int32_t i = 0; i < po->ListCount(); ++i) all += po->Selected(i) ? '1' : '0';
    }
    return all;
  }
  ListBox plain{form, u"plain"}, simple{form, u"simple"}, multi{form, u"multi"};
  ComboBox combo{form, u"combo"};
};

TEST_F(ListsTest, SortedListsPutEachLineInItsPlaceAndTellWhere) {
  ListBox sorted(form, u"sorted");
  sorted.SetSorted(true);
  std::string places;
  for (const auto* s : {u"FMain", u"(declarations)", u"cmdOK", u"FMAIN", u"fmain", u"zeta"}) {
    sorted.AddItem(s);
    places += std::to_string(sorted.NewIndex());
    sorted.SetItemData(sorted.NewIndex(), static_cast<std::int32_t>(places.size()));
  }
  EXPECT_EQ(places, "001345");
  EXPECT_EQ(sorted.ItemData(2) * 10 + sorted.ItemData(4), 15);
  sorted.Clear();
  EXPECT_EQ(sorted.NewIndex(), -1);
}

TEST_F(ListsTest, OneLineIsSelected) {
  Play(R"(
    by code, once                  | set plain 2; set plain 2 | c 0000 0000 | plain
    kept when others come and go   | add plain 2; remove plain 1 |          |
    gone with its line             | remove plain 2 | 0000 0000   |
    by the user, each time         | pick plain 1; pick plain 1 | x 0000 0000 | plain plain
    by keys, up to the end         | key plain Down; key plain End; key plain Down | a2 0000 0000 | plain
    by a letter, around the end    | type plain B   | b 0000 0000 | plain
    no such line, for code         | set plain 3; set plain -2; add plain 4; remove plain -1 | | 380 380 5 5
    neither data nor selection     | data plain 3; select plain 3 1 |       | 381 380
    nor for the user               | pick plain 3; pick multi -1    |       | no no
    nothing to pick                | type combo x                   |       |)");
  EXPECT_EQ(plain.List(3) + plain.List(-1), u"");
  EXPECT_FALSE(plain.Selected(9));
}

TEST_F(ListsTest, SeveralLinesByClickCtrlAndShift) {
  Play(R"(
    alone                   | pick multi 1            | 0000 0100 | multi
    Ctrl: one more          | pick multi 3 Ctrl       | 0000 0101 | multi
    Shift: a range          | pick multi 1 Shift      | 0000 0111 | multi
    from the same end       | pick multi 2 Shift      | 0000 0011 | multi
    the native selection    | native multi 1 1 2 3    | 0000 0111 | multi
    Ctrl: one less          | pick multi 2 Ctrl       | 0000 0101 | multi
    alone again             | pick multi 0            | 0000 1000 | multi
    by code, once           | select multi 3 1; select multi 3 1 | 0000 1001 | multi
    lines that aren't there | native multi 2 2 9      | 0000 0010 | multi
    without keys, each turns | pick simple 0; pick simple 2; pick simple 0 | 0010 0010 | simple simple simple)");
  EXPECT_EQ(multi.SelCount(), 1);
}

TEST_F(ListsTest, ALookupFillsEither) {
  CXLookup lookup;
  lookup.Add(u"None", 1, u"");
  lookup.Add(u"Firewall", 3, u"");
  lookup.LoadListBox(combo, u"", 3);
  EXPECT_EQ(combo.Text(), u"Firewall");
  EXPECT_EQ(combo.ItemData(combo.ListIndex()), 3);
  lookup.LoadListBox(plain, u"nothing", -1);
  EXPECT_EQ(plain.ListIndex(), -1);
  EXPECT_EQ(log.Take(), "combo");
}

}  // namespace
