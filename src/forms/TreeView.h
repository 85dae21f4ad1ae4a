// A tree of nodes with keys, pictures and one selected node.
//
//   auto& oProject = tvw.Nodes().Add(u"VBProject.1.", u"Orders", u"Standard EXE");
//   tvw.Nodes().Add(oProject, u"VBProject.1.3.", u"FMain", u"Form Module").SetTag(3);
//
// Nodes count from 1, in the order in which they were added; removing one closes the gap. A
// reference to a node holds until the node is removed. Setting properties raises no events.
#pragma once

#include <map>

#include "Control.h"
#include "ImageList.h"

namespace Forms {

class Nodes;
class TreeView;

class Node {
 public:
  Node(Nodes& oNodes, Node* poParent, TextView sKey, TextView sText, TextView sImage);

  const ::Text& Key() const { return msKey; }
  std::int32_t Index() const { return mlIndex; }
  const ::Text& Text() const { return msText; }
  /// Doesn't move the node, even if its siblings are sorted.
  void SetText(TextView sText);
  const ::Text& Image() const { return msImage; }
  /// Failure 35601 for a key that the tree's image list doesn't have.
  void SetImage(TextView sKey);
  /// Shown while the node is expanded; empty for Image.
  const ::Text& ExpandedImage() const { return msExpandedImage; }
  void SetExpandedImage(TextView sKey);
  std::int32_t Tag() const { return mlTag; }
  void SetTag(std::int32_t lTag) { mlTag = lTag; }
  bool Expanded() const { return mbExpanded; }
  void SetExpanded(bool bExpanded);
  /// Whether the nodes directly below stand in order of their texts, without regard to case:
  /// those that are there, and those to come.
  bool Sorted() const { return mbSorted; }
  void SetSorted(bool bSorted);
  bool Selected() const;
  /// True makes it the tree's one selected node and expands all above it; False on the selected
  /// node leaves none.
  void SetSelected(bool bSelected);
  void EnsureVisible();
  /// Null for a root.
  Node* Parent() const { return mpoParent; }
  /// The nodes directly below, in the order shown.
  const std::vector<Node*>& Children() const { return moChildren; }

 private:
  friend class Nodes;
  TreeView& Tree() const;
  /// Puts a new node among those directly below.
  void Place(Node& oChild);

  Nodes& moNodes;
  Node* mpoParent;
  ::Text msKey, msText, msImage, msExpandedImage;
  std::int32_t mlIndex = 0, mlTag = 0;
  bool mbExpanded = false, mbSorted = false;
  std::vector<Node*> moChildren;
};

class Nodes {
 public:
  explicit Nodes(TreeView& oTree) : moTree(oTree) {}
  /// A root; the first form is for a node below oParent. Failure 35602 for a key that is taken,
  /// 35601 for an unknown image. An empty key is none.
  Node& Add(Node& oParent, TextView sKey, TextView sText, TextView sImage = {});
  Node& Add(TextView sKey, TextView sText, TextView sImage = {});
  std::int32_t Count() const { return static_cast<std::int32_t>(moNodes.size()); }
  /// By number or key; Failure 35600 or 35601 when there is none.
  Node& Item(std::int32_t lIndex) const;
  Node& Item(TextView sKey) const;
  bool Exists(TextView sKey) const { return moKeys.count(Text(sKey)) != 0; }
  /// With all nodes below it. If the selected node goes, none is selected.
  void Remove(Node& oNode);
  void Clear();
  /// In the order shown.
  const std::vector<Node*>& Roots() const { return moRoots; }

 private:
  friend class Node;
  friend class TreeView;
  Node& Insert(Node* poParent, TextView sKey, TextView sText, TextView sImage);
  void Drop();

  TreeView& moTree;
  std::vector<std::unique_ptr<Node>> moNodes;
  std::map<Text, Node*> moKeys;
  std::vector<Node*> moRoots;
};

class TreeView : public Control {
 public:
  TreeView(ControlContainer& oContainer, TextView sName) : Control(oContainer, sName) { Reset(); }
  ComponentKind Kind() const override { return ComponentKind::TreeView; }

  Forms::Nodes& Nodes() {
    Touch();
    return moNodes;
  }
  const Forms::Nodes& Nodes() const { return moNodes; }
  Node* SelectedItem() const { return mpoSelected; }
  ImageList* Images() const { return mpoImages; }
  void SetImages(ImageList* poImages) { mpoImages = poImages; }  ///< design time
  /// Whether the selection is drawn only while the tree has the focus.
  bool HideSelection() const { return mbHideSelection; }
  void SetHideSelection(bool b) { Set(mbHideSelection, b, Property::Selection); }
  /// The nodes that no collapsed node hides, from top to bottom.
  std::vector<Node*> VisibleNodes() const;

  /// The user selected the node, by mouse or key, or clicked it again.
  Signal<Node&> NodeClick;
  Signal<Node&> Expand, Collapse;

  bool UserNodeClick(Node& oNode);
  /// Collapsing above the selected node selects the collapsed one, as a click does.
  bool UserExpand(Node& oNode, bool bExpand = true);
  /// Expands or collapses the node and raises DblClick.
  bool UserNodeDblClick(Node& oNode);

  void Reset() override;

  // For nodes only.
  void Select(Node* poNode);
  void NodeChanged(Property eProperty, std::int32_t lIndex) { Changed(eProperty, lIndex); }
  void TouchTree() { Touch(); }

 protected:
  ControlState DefaultState() const override { return FieldDefaults(); }
  /// Up, Down, Home, End; Left and Right collapse and expand or go up and down a level.
  void KeyAction(std::int32_t nKeyCode, std::int32_t nShift) override;

 private:
  Forms::Nodes moNodes{*this};
  Node* mpoSelected = nullptr;
  ImageList* mpoImages = nullptr;
  bool mbHideSelection = false;
};

}  // namespace Forms
