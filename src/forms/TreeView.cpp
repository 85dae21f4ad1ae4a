// The nodes first, then the tree's own properties and what the user does.
#include "TreeView.h"

#include <algorithm>

#include "Failure.h"
#include "TextOrder.h"

namespace Forms {

namespace {

bool InOrder(const Node* po, const Node* poOther) {
  return LessNoCase(po->Text(), poOther->Text());
}

void AppendVisible(const std::vector<Node*>& oNodes, std::vector<Node*>& oVisible) {
  for (Node* po : oNodes) {
    oVisible.push_back(po);
    if (po->Expanded()) AppendVisible(po->Children(), oVisible);
  }
}

bool IsBelow(const Node* po, const Node& oAbove) {
  while (po && po != &oAbove) po = po->Parent();
  return po != nullptr;
}

}  // namespace

Node::Node(Forms::Nodes& oNodes, Node* poParent, TextView sKey, TextView sText, TextView sImage)
    : moNodes(oNodes), mpoParent(poParent), msKey(sKey), msText(sText), msImage(sImage) {}

TreeView& Node::Tree() const {
  return moNodes.moTree;
}

void Node::SetText(TextView sText) {
  Tree().TouchTree();
  msText = sText;
  Tree().NodeChanged(Property::Items, mlIndex);
}

void Node::SetImage(TextView sKey) {
  Tree().TouchTree();
  CheckImage(Tree().Images(), sKey);
  if (msImage == sKey) return;
  msImage = sKey;
  Tree().NodeChanged(Property::Images, mlIndex);
}

void Node::SetExpandedImage(TextView sKey) {
  Tree().TouchTree();
  CheckImage(Tree().Images(), sKey);
  msExpandedImage = sKey;
  Tree().NodeChanged(Property::Images, mlIndex);
}

void Node::SetExpanded(bool bExpanded) {
  Tree().TouchTree();
  if (mbExpanded == bExpanded) return;
  mbExpanded = bExpanded;
  Tree().NodeChanged(Property::Expanded, mlIndex);
}

void Node::SetSorted(bool bSorted) {
  Tree().TouchTree();
  mbSorted = bSorted;
  if (!bSorted) return;
  std::stable_sort(moChildren.begin(), moChildren.end(), InOrder);
  Tree().NodeChanged(Property::Items, 0);
}

void Node::Place(Node& oChild) {
  auto it = moChildren.end();
  if (mbSorted) it = std::upper_bound(moChildren.begin(), moChildren.end(), &oChild, InOrder);
  moChildren.insert(it, &oChild);
}

bool Node::Selected() const {
  return Tree().SelectedItem() == this;
}

void Node::SetSelected(bool bSelected) {
  Tree().TouchTree();
  if (bSelected) EnsureVisible();
  if (bSelected != Selected()) Tree().Select(bSelected ? this : nullptr);
}

void Node::EnsureVisible() {
  for (Node* po = mpoParent; po; po = po->mpoParent) po->SetExpanded(true);
  Tree().NodeChanged(Property::Scroll, mlIndex);
}

Node& Nodes::Add(Node& oParent, TextView sKey, TextView sText, TextView sImage) {
  return Insert(&oParent, sKey, sText, sImage);
}

Node& Nodes::Add(TextView sKey, TextView sText, TextView sImage) {
  return Insert(nullptr, sKey, sText, sImage);
}

Node& Nodes::Insert(Node* poParent, TextView sKey, TextView sText, TextView sImage) {
  moTree.TouchTree();
  CheckImage(moTree.Images(), sImage);
  if (!sKey.empty() && Exists(sKey)) {
    throw Failure(35602, u"There is a node with the key " + Text(sKey) + u" already");
  }
  moNodes.push_back(std::make_unique<Node>(*this, poParent, sKey, sText, sImage));
  Node& oNew = *moNodes.back();
  oNew.mlIndex = Count();
  if (!sKey.empty()) moKeys[Text(sKey)] = &oNew;
  poParent ? poParent->Place(oNew) : moRoots.push_back(&oNew);
  moTree.NodeChanged(Property::Items, 0);
  return oNew;
}

Node& Nodes::Item(std::int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) {
    throw Failure(35600, u"There is no node with the number " + ToText(lIndex));
  }
  return *moNodes[static_cast<std::size_t>(lIndex) - 1];
}

Node& Nodes::Item(TextView sKey) const {
  const auto it = moKeys.find(Text(sKey));
  if (it == moKeys.end()) throw Failure(35601, u"There is no node with the key " + Text(sKey));
  return *it->second;
}

void Nodes::Remove(Node& oNode) {
  moTree.TouchTree();
  if (IsBelow(moTree.SelectedItem(), oNode)) moTree.Select(nullptr);
  std::erase(oNode.mpoParent ? oNode.mpoParent->moChildren : moRoots, &oNode);
  // The list has parents ahead of their children, so that one pass marks all descendants.
  oNode.mlIndex = 0;
  for (const auto& p : moNodes) {
    if (p->mpoParent && p->mpoParent->mlIndex == 0) p->mlIndex = 0;
    if (p->mlIndex == 0) moKeys.erase(p->msKey);
  }
  std::erase_if(moNodes, [](const auto& p) { return p->mlIndex == 0; });
  std::int32_t lIndex = 0;
  for (const auto& p : moNodes) p->mlIndex = ++lIndex;
  moTree.NodeChanged(Property::Items, 0);
}

void Nodes::Clear() {
  moTree.TouchTree();
  moTree.Select(nullptr);
  Drop();
  moTree.NodeChanged(Property::Items, 0);
}

void Nodes::Drop() {
  moRoots.clear();
  moKeys.clear();
  moNodes.clear();
}

void TreeView::Select(Node* poNode) {
  Set(mpoSelected, poNode, Property::Selection);
}

std::vector<Node*> TreeView::VisibleNodes() const {
  std::vector<Node*> oVisible;
  AppendVisible(moNodes.Roots(), oVisible);
  return oVisible;
}

bool TreeView::UserNodeClick(Node& oNode) {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserFocus();
  Select(&oNode);
  NodeClick(oNode);
  return true;
}

bool TreeView::UserExpand(Node& oNode, bool bExpand) {
  if (!UserEnabled() || oNode.Children().empty() || oNode.Expanded() == bExpand) return false;
  auto pHold = Hold();
  const bool bHides = !bExpand && mpoSelected != &oNode && IsBelow(mpoSelected, oNode);
  oNode.SetExpanded(bExpand);
  if (bHides) Select(&oNode);
  bExpand ? Expand(oNode) : Collapse(oNode);
  // If a handler of Collapse removed the node, nothing is selected any more.
  if (bHides && mpoSelected == &oNode) NodeClick(oNode);
  return true;
}

bool TreeView::UserNodeDblClick(Node& oNode) {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserExpand(oNode, !oNode.Expanded());
  DblClick();
  return true;
}

void TreeView::KeyAction(std::int32_t nKeyCode, std::int32_t) {
  const auto oVisible = VisibleNodes();
  const auto itNow = std::find(oVisible.begin(), oVisible.end(), mpoSelected);
  const bool bFound = itNow != oVisible.end();
  const auto lNow = bFound ? static_cast<std::int32_t>(itNow - oVisible.begin()) : -1;
  const auto lLast = static_cast<std::int32_t>(oVisible.size()) - 1;
  const std::int32_t lMoved = MovedIndex(nKeyCode, lNow, 0, lLast);
  if (lMoved != lNow) {
    UserNodeClick(*oVisible[static_cast<std::size_t>(lMoved)]);
  } else if (bFound && nKeyCode == Key::Right && !UserExpand(**itNow) &&
             !(*itNow)->Children().empty()) {
    UserNodeClick(*(*itNow)->Children().front());
  } else if (bFound && nKeyCode == Key::Left && !UserExpand(**itNow, false) && (*itNow)->Parent()) {
    UserNodeClick(*(*itNow)->Parent());
  }
}

void TreeView::Reset() {
  Control::Reset();
  moNodes.Drop();
  mpoSelected = nullptr;
  mpoImages = nullptr;
  mbHideSelection = false;
}

}  // namespace Forms
