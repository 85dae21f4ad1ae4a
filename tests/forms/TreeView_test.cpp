#include "TreeView.h"

#include "Play.h"

namespace {

using namespace Forms;

class TreeViewTest : public PlayTest {
 protected:
  TreeViewTest() {
    log.Watch(tree.NodeClick, "click");
    log.Watch(tree.Expand, "expand");
    log.Watch(tree.Collapse, "collapse");
    log.Watch(tree.DblClick, "double");
    form.Show();
    pictures.Add(u"Project");
    pictures.Add(u"Form", u"form-picture");
    tree.SetImages(&pictures);
    // One project with three components under it, and one without.
    nodes.Add(u"1.", u"Orders", u"Project");
    for (const auto* s : {u"FMain", u"cOrder", u"MStart"}) nodes.Add(Project(), s, s, u"Form");
    nodes.Add(u"2.", u"Empty", u"Project");
    Can("node", [this](auto& o) { return tree.UserNodeClick(At(o)); });
    Can("two", [this](auto& o) { return tree.UserNodeDblClick(At(o)); });
    Can("open", [this](auto& o) { return tree.UserExpand(At(o)); });
    Can("close", [this](auto& o) { return tree.UserExpand(At(o), false); });
    Can("select", [this](auto& o) { At(o).SetSelected(o.Number(2) != 0); });
    Can("sort", [this](auto& o) { At(o).SetSorted(true); });
    Can("add", [this](auto& o) { nodes.Add(At(o), o.Wide(2), o.Wide(2)); });
    Can("root", [this](auto& o) { nodes.Add(o.Wide(1), o.Wide(2), o.Wide(3)); });
    Can("image", [this](auto& o) { At(o).SetImage(o.Wide(2)); });
    Can("remove", [this](auto& o) { nodes.Remove(At(o)); });
    Can("clear", [this](auto&) { nodes.Clear(); });
    Can("number", [this](auto& o) { nodes.Item(o.Number(1)); });
  }
  Node& At(const Deed& o) { return nodes.Item(o.Wide(1)); }
  Node& Project() { return nodes.Item(1); }
  /// The visible nodes, the selected one in brackets.
  std::string Look() override {
    std::string all;
    for (const Node* po : tree.VisibleNodes())
      all += po->Selected() ? "[" + ToUtf8(po->Text()) + "] " : ToUtf8(po->Text()) + " ";
    return all + (tree.SelectedItem() ? "" : "-");
  }
  ImageList pictures{form, u"pictures"};
  TreeView tree{form, u"tree"};
  Nodes& nodes = tree.Nodes();
};

TEST_F(TreeViewTest, CodeSortsSelectsAndRemovesWithoutEvents) {
  Play(R"(
    selecting shows the node         | select cOrder 1 | Orders FMain [cOrder] MStart Empty |
    another one isn't selected: no change | select 2. 0 |   |
    none                             | select cOrder 0 | Orders FMain cOrder MStart Empty - |
    children that are there          | sort 1.      | Orders cOrder FMain MStart Empty - |
    and those to come                | add 1. dBase | Orders cOrder dBase FMain MStart Empty - |
    a selected node below a removed one | add FMain deep; select deep 1; remove 1. | Empty - |
    its keys are gone                | select deep 1; number 2      |               | 35601 35600
    and free                         | root 1. Again                | Empty Again - |
    all                              | clear                        | -             |)");
}

TEST_F(TreeViewTest, NumbersAreThoseOfAddingWithoutGaps) {
  Project().SetSorted(true);
  EXPECT_EQ(nodes.Item(2).Text(), u"FMain");
  nodes.Remove(Project());
  EXPECT_EQ(nodes.Item(1).Key(), u"2.");
  EXPECT_EQ(nodes.Item(u"2.").Index(), 1);
}

TEST_F(TreeViewTest, UserClicksAndKeys) {
  Play(R"(
    clicked, and once more | node 1.; node 1. | [Orders] Empty                     | click click
    Right opens            | key tree Right   | [Orders] FMain cOrder MStart Empty | expand
    and goes inside        | key tree Right   | Orders [FMain] cOrder MStart Empty | click
    but no deeper          | key tree Right   |                                    |
    down                   | key tree Down    | Orders FMain [cOrder] MStart Empty | click
    the end                | key tree End     | Orders FMain cOrder MStart [Empty] | click
    nothing below it       | key tree Down    |                                    |
    up                     | key tree Up      | Orders FMain cOrder [MStart] Empty | click
    Left goes out          | key tree Left    | [Orders] FMain cOrder MStart Empty | click
    and closes             | key tree Left    | [Orders] Empty                     | collapse
    but no further         | key tree Left    |                                    |
    a double click         | two 1.           | [Orders] FMain cOrder MStart Empty | expand double
    closing above the selection selects | node cOrder; close 1. | [Orders] Empty    | click collapse click
    nothing to open        | open 2.          |                                    | no
    a disabled tree        | off tree; node 1.; open 1. |                          | no no)");
}

TEST_F(TreeViewTest, AHandlerMayClearTheTree) {
  auto link = tree.Collapse.Connect([&](Node&) { nodes.Clear(); });
  Play("cleared | open 1.; node FMain; close 1. | - | expand click collapse");
}

TEST_F(TreeViewTest, KeysAndPicturesThatCannotBeAreRefused) {
  Play(R"(
    a key twice        | root 1. again                              | | 35602
    no such picture    | root 9. new Nothing; image 1. Nothing      | | 35601 35601
    no such node       | select 9. 1; number 6                      | | 35601 35600)");
  EXPECT_EQ(nodes.Count(), 5);
  EXPECT_EQ(FailureOf([&] { pictures.Add(u"Form"); }), 35602);
  EXPECT_EQ(pictures.Picture(u"Form"), u"form-picture");
}

}  // namespace
