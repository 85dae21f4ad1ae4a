#include "TreeView.h"

#include "Form.h"
#include "FormsFixture.h"

namespace {

using namespace Forms;

class FTree : public Form {
 public:
  explicit FTree(Toolkit& oToolkit) : Form(oToolkit, u"FTree") {}
  ImageList imlPictures{*this, u"imlPictures"};
  TreeView tvwTree{*this, u"tvwTree"};

 private:
  void Design() override {
    imlPictures.Add(u"Project");
    imlPictures.Add(u"Form", u"form-picture");
    tvwTree.SetImages(&imlPictures);
  }
};

class TreeViewTest : public FormsTest {
 protected:
  TreeViewTest() {
    moLog.Watch(moTree.NodeClick, "click");
    moLog.Watch(moTree.Expand, "expand");
    moLog.Watch(moTree.Collapse, "collapse");
    moLog.Watch(moTree.DblClick, "double");
    moForm.Show();
    // One project with three components under it, and one without.
    Node& oProject = moTree.Nodes().Add(u"1.", u"Orders", u"Project");
    for (const auto* s : {u"FMain", u"cOrder", u"MStart"}) {
      moTree.Nodes().Add(oProject, Text(u"1.") + s, s, u"Form");
    }
    moTree.Nodes().Add(u"2.", u"Empty", u"Project");
  }
  std::string Visible() const {
    std::string s;
    for (const Node* po : moTree.VisibleNodes()) s += ToUtf8(po->Text()) + " ";
    return s;
  }
  std::string Selected() const {
    return moTree.SelectedItem() ? ToUtf8(moTree.SelectedItem()->Text()) : "none";
  }
  Node& Project() { return moTree.Nodes().Item(1); }

  EventLog moLog;
  FTree moForm{moToolkit};
  TreeView& moTree = moForm.tvwTree;
};

TEST_F(TreeViewTest, SortedHoldsForChildrenThatAreThereAndThoseToCome) {
  Project().SetExpanded(true);
  EXPECT_EQ(Visible(), "Orders FMain cOrder MStart Empty ");
  Project().SetSorted(true);
  moTree.Nodes().Add(Project(), u"", u"dBase");
  EXPECT_EQ(Visible(), "Orders cOrder dBase FMain MStart Empty ");
  EXPECT_EQ(moTree.Nodes().Item(2).Text(), u"FMain");  // numbers stay those of adding
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(TreeViewTest, RemovingTakesAllBelowAndClosesTheGap) {
  moTree.Nodes().Add(moTree.Nodes().Item(u"1.FMain"), u"deep", u"deep");
  moTree.Nodes().Item(u"deep").SetSelected(true);
  moTree.Nodes().Remove(Project());
  EXPECT_EQ(moTree.Nodes().Count(), 1);
  EXPECT_EQ(moTree.Nodes().Item(1).Key(), u"2.");
  EXPECT_EQ(moTree.Nodes().Item(u"2.").Index(), 1);
  EXPECT_FALSE(moTree.Nodes().Exists(u"deep"));
  EXPECT_EQ(Selected(), "none");
  moTree.Nodes().Add(u"1.", u"Again");
  EXPECT_EQ(Visible(), "Empty Again ");
  moTree.Nodes().Clear();
  EXPECT_EQ(Visible(), "");
}

TEST_F(TreeViewTest, SelectingFromCodeShowsTheNodeAndRaisesNothing) {
  moTree.Nodes().Item(u"1.cOrder").SetSelected(true);
  EXPECT_TRUE(Project().Expanded());
  moTree.Nodes().Item(5).SetSelected(false);  // another one: no change
  EXPECT_EQ(Selected(), "cOrder");
  moTree.Nodes().Item(u"1.cOrder").SetSelected(false);
  EXPECT_EQ(Selected(), "none");
  EXPECT_EQ(moLog.Take(), "");
}

TEST_F(TreeViewTest, UserClicksAndKeys) {
  moTree.UserNodeClick(Project());
  moTree.UserNodeClick(Project());
  EXPECT_EQ(moLog.Take(), "click click");
  const struct {
    std::int32_t nKey;
    const char *sSelected, *sEvents;
  } aoRow[] = {{Key::Right, "Orders", "expand"},  {Key::Right, "FMain", "click"},
               {Key::Right, "FMain", ""},         {Key::Down, "cOrder", "click"},
               {Key::End, "Empty", "click"},      {Key::Down, "Empty", ""},
               {Key::Up, "MStart", "click"},      {Key::Left, "Orders", "click"},
               {Key::Left, "Orders", "collapse"}, {Key::Left, "Orders", ""}};
  for (const auto& oRow : aoRow) {
    moTree.UserKey(oRow.nKey);
    EXPECT_EQ(Selected() + " " + moLog.Take(), std::string(oRow.sSelected) + " " + oRow.sEvents);
  }
}

TEST_F(TreeViewTest, CollapsingAboveTheSelectionSelectsTheCollapsedNode) {
  moTree.UserNodeDblClick(Project());
  moTree.UserNodeClick(moTree.Nodes().Item(3));
  EXPECT_EQ(moLog.Take(), "expand double click");
  EXPECT_TRUE(moTree.UserExpand(Project(), false));
  EXPECT_EQ(moLog.Take() + " " + Selected(), "collapse click Orders");
  EXPECT_FALSE(moTree.UserExpand(moTree.Nodes().Item(u"2.")));
  moTree.SetEnabled(false);
  EXPECT_FALSE(moTree.UserNodeClick(Project()) || moTree.UserExpand(Project()));
}

TEST_F(TreeViewTest, AHandlerMayClearTheTree) {
  moTree.UserExpand(Project());
  moTree.UserNodeClick(moTree.Nodes().Item(2));
  auto oLink = moTree.Collapse.Connect([&](Node&) { moTree.Nodes().Clear(); });
  moLog.Take();
  moTree.UserExpand(Project(), false);
  EXPECT_EQ(moLog.Take(), "collapse");
}

TEST_F(TreeViewTest, KeysAndPicturesThatCannotBeAreRefused) {
  auto& oNodes = moTree.Nodes();
  EXPECT_EQ(FailureOf([&] { oNodes.Add(u"1.", u"again"); }), 35602);
  EXPECT_EQ(FailureOf([&] { oNodes.Add(u"9.", u"new", u"Nothing"); }), 35601);
  EXPECT_EQ(FailureOf([&] { oNodes.Item(1).SetImage(u"Nothing"); }), 35601);
  EXPECT_EQ(FailureOf([&] { oNodes.Item(u"9."); }), 35601);
  EXPECT_EQ(FailureOf([&] { oNodes.Item(6); }), 35600);
  EXPECT_EQ(oNodes.Count(), 5);
  EXPECT_EQ(FailureOf([&] { moForm.imlPictures.Add(u"Form"); }), 35602);
  EXPECT_EQ(moForm.imlPictures.Picture(u"Form"), u"form-picture");
}

}  // namespace
