#include "ListView.h"

#include "Play.h"

namespace {

using namespace Forms;

class ListViewTest : public PlayTest {
 protected:
  ListViewTest() {
    multi.SetMultiSelect(true);
    multi.SetSorted(true);
    form.Show();
    multi.ColumnHeaders().Add(u"Procedure", 2000);
    multi.ColumnHeaders().Add(u"Type");
    Fill(multi);
    Fill(single);
    log.Watch(multi.ItemClick, "item");
    log.Watch(multi.ColumnClick, "column");
    Can("sort", [this](auto& o) { List(o).SetSortKey(o.Number(2)); });
    Can("down", [this](auto& o) { List(o).SetSortOrder(ListSortOrder::Descending); });
    Can("pick", [this](auto& o) { return List(o).UserSelect(o.Number(2), o.Number(3)); });
    Can("native", [this](auto& o) { return multi.UserSelection({1, o.Number(1)}, 3); });
    Can("select", [this](const Deed& o) {
      List(o).ListItems().Item(o.Number(2)).SetSelected(o.Number(3) != 0);
    });
    Can("remove", [this](auto& o) { multi.ListItems().Remove(o.Number(1)); });
    Can("clear", [this](auto&) { multi.ListItems().Clear(); });
    Can("fill", [this](auto&) { Fill(multi); });
    Can("add", [this](auto& o) { multi.ListItems().Add(o.Wide(1)); });
    Can("name", [this](auto& o) { multi.ListItems().Item(o.Number(1)).SetText(o.Wide(2)); });
  }
  ListView& List(const Deed& o) { return dynamic_cast<ListView&>(At(o)); }
  static void Fill(ListView& list) {
    for (const auto& row : Rows("Save|Sub \n load|Function \n Find|Sub \n add|Property"))
      list.ListItems().Add(FromUtf8(row[0])).SetSubItems(1, FromUtf8(row[1]));
  }
  /// The rows of both lists; selected ones with a star, the SelectedItem in brackets.
  std::string Look() override {
    std::string all;
    for (ListView* po : {&multi, &single}) {
      for (std::int32_t i = 1; i <= po->ListItems().Count(); ++i) {
        const ListItem& item = po->ListItems().Item(i);
        const std::string name = ToUtf8(item.Text()) + (item.Selected() ? "*" : "");
        all += po->SelectedItem() == &item ? "[" + name + "] " : name + " ";
      }
      all += po == &multi ? "/ " : "";
    }
    return all;
  }
  ListView multi{form, u"multi"}, single{form, u"single"};
};

TEST_F(ListViewTest, RowsAreSortedByColumnAndOrderAndEqualOnesKeepTheirs) {
  Play(R"(
    the first row added is selected |    | add Find load [Save*] / [Save*] load Find add |
    by the second column | sort multi 1     | load add [Save*] Find / [Save*] load Find add |
    downwards            | down multi       | [Save*] Find add load / [Save*] load Find add |
    no texts there       | sort multi 7     | [Save*] load Find add / [Save*] load Find add |
    a list that isn't sorted | sort single 1 |  |
    no such column       | sort multi -1    |  | 380)");
  EXPECT_EQ(multi.SelectedItem()->Index(), 1);
}

TEST_F(ListViewTest, ChangingCellsMovesNoRowUntilRowsCome) {
  Play(R"(
    changed  | name 1 8; name 2 7; name 3 6; name 4 5 | 8 7 6 [5*] / [Save*] load Find add |
    one more | add 55 | [5*] 55 6 7 8 / [Save*] load Find add |)");
}

TEST_F(ListViewTest, SelectionByTheUserAndByCode) {
  Play(R"(
    alone                    | pick multi 2            | add [Find*] load Save / [Save*] load Find add | item
    Shift: a range from it   | pick multi 4 Shift      | add Find* load* [Save*] / [Save*] load Find add | item
    the other way            | pick multi 1 Shift      | [add*] Find* load Save / [Save*] load Find add | item
    Ctrl: one off            | pick multi 1 Ctrl       | [add] Find* load Save / [Save*] load Find add | item
    Ctrl: one more           | pick multi 4 Ctrl       | add Find* load [Save*] / [Save*] load Find add | item
    both: a range more       | pick multi 3 Ctrl+Shift | add Find* [load*] Save* / [Save*] load Find add | item
    the empty area with Ctrl | pick multi 0 Ctrl       |                        |
    the empty area           | pick multi 0            | add Find [load] Save / [Save*] load Find add |
    outside                  | pick multi 5            |                        | no
    keys                     | pick multi 1; key multi Down; key multi End Shift | add Find* load* [Save*] / [Save*] load Find add | item item item
    the end of the rows      | key multi Down          |                        |
    the native selection     | native 2                | add* Find* [load] Save / [Save*] load Find add | item
    a row that isn't there   | native 5                | add* Find [load] Save / [Save*] load Find add | 35600
    a hidden list            | hide multi; pick multi 2; native 2 |             | no no
    by code                  | select multi 1 0; select multi 4 1 | add Find load [Save*] / [Save*] load Find add |
    one at a time            | pick single 3 Ctrl      | add Find load [Save*] / Save load [Find*] add |
    one by code              | select single 1 1       | add Find load [Save*] / [Save*] load Find add |)");
}

TEST_F(ListViewTest, RemovedRowsLeaveNoTrace) {
  Play(R"(
    the selected row              | pick multi 2; remove 2 | add load Save / [Save*] load Find add | item
    nothing to start a range from | pick multi 3 Shift     | add load [Save*] / [Save*] load Find add | item
    all rows                      | clear; key multi Down  | / [Save*] load Find add |
    new ones                      | fill | add Find load [Save*] / [Save*] load Find add |)");
}

TEST_F(ListViewTest, Columns) {
  EXPECT_EQ(multi.ColumnHeaders().Item(2).Width(), 1440);
  EXPECT_TRUE(multi.UserColumnWidth(1, 900) && multi.UserColumnClick(2));
  EXPECT_EQ(multi.ColumnHeaders().Item(1).Width(), 900);
  EXPECT_EQ(log.Take(), "column");
  EXPECT_EQ(FailureOf([&] { multi.ColumnHeaders().Item(3); }), 35600);
  EXPECT_EQ(FailureOf([&] { multi.ColumnHeaders().Add(u"x", -1); }), 380);
  EXPECT_EQ(FailureOf([&] { multi.ListItems().Item(1).SetSubItems(0, u""); }), 380);
  EXPECT_EQ(multi.ListItems().Item(1).SubItems(9), u"");
  multi.ColumnHeaders().Clear();
  EXPECT_EQ(multi.ListItems().Item(2).Cell(2), u"Sub");  // rows stay
}

}  // namespace
