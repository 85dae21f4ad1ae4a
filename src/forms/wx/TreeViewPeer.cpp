#include "TreeViewPeer.h"

#include <wx/dc.h>
#include <wx/renderer.h>

#include <algorithm>

#include "Drawing.h"
#include "NativeText.h"
#include "TreeView.h"
#include "WxRenderer.h"

namespace Forms {

TreeViewPeer::TreeViewPeer(WxRenderer& oRenderer, TreeView& oTree)
    : RowsPeer(oRenderer, oTree), moTree(oTree) {}

int TreeViewPeer::RowCount() const {
  return static_cast<int>(moTree.VisibleNodes().size());
}

int TreeViewPeer::Step() const {
  return moRenderer.Unit().Scaled(16);
}

int TreeViewPeer::SignLeft(const Node& oNode) const {
  int nLevel = 0;
  for (const Node* po = oNode.Parent(); po; po = po->Parent()) ++nLevel;
  return 2 + nLevel * Step();
}

int TreeViewPeer::MeasureRows() const {
  int nWidth = 0;
  for (const Node* po : moTree.VisibleNodes()) {
    const int nText = Pane().GetTextExtent(ToWx(po->Text())).x;
    nWidth = std::max(nWidth, SignLeft(*po) + Step() + IconPixels(moTree.Images()) + nText + 12);
  }
  return nWidth;
}

void TreeViewPeer::DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) {
  const auto oVisible = moTree.VisibleNodes();
  if (nRow >= static_cast<int>(oVisible.size())) return;
  const Node& oNode = *oVisible[static_cast<std::size_t>(nRow)];
  wxRect oRest(oRect);
  oRest.x += SignLeft(oNode);
  if (!oNode.Children().empty()) {
    const int nSign = moRenderer.Unit().Scaled(12);
    wxRendererNative::Get().DrawTreeItemButton(
        &Pane(), oDC, {oRest.x, oRest.y + (oRest.height - nSign) / 2, nSign, nSign},
        oNode.Expanded() ? wxCONTROL_EXPANDED : wxCONTROL_NONE);
  }
  oRest.x += Step();
  const bool bOpen = oNode.Expanded() && !oNode.ExpandedImage().empty();
  oRest.x += DrawIcon(oDC, moTree.Images(), bOpen ? oNode.ExpandedImage() : oNode.Image(), oRest);
  const wxString sText = ToWx(oNode.Text());
  oRest.x += 2;
  oRest.width = oDC.GetTextExtent(sText).x + 4;
  const bool bShows = Pane().HasFocus() || !moTree.HideSelection();
  DrawRowGround(oDC, oRest, bShows && oNode.Selected());
  oDC.DrawLabel(sText, wxRect(oRest).Deflate(2, 0), wxALIGN_LEFT | wxALIGN_CENTER_VERTICAL);
}

void TreeViewPeer::PressRow(int nRow, const wxMouseEvent& oEvent) {
  const auto oVisible = moTree.VisibleNodes();
  if (nRow >= static_cast<int>(oVisible.size())) return;
  Node& oNode = *oVisible[static_cast<std::size_t>(nRow)];
  const int nX = oEvent.GetX() + Pane().ScrolledLeft() - SignLeft(oNode);
  if (nX >= 0 && nX < Step() && !oNode.Children().empty()) {
    moTree.UserExpand(oNode, !oNode.Expanded());
  } else if (nX >= Step()) {
    moTree.UserNodeClick(oNode);
  }
}

void TreeViewPeer::DoubleRow(int nRow) {
  const auto oVisible = moTree.VisibleNodes();
  if (nRow < static_cast<int>(oVisible.size())) {
    moTree.UserNodeDblClick(*oVisible[static_cast<std::size_t>(nRow)]);
  }
}

int TreeViewPeer::RowOf(const Node* poNode) const {
  const auto oVisible = moTree.VisibleNodes();
  const auto it = std::find(oVisible.begin(), oVisible.end(), poNode);
  return it == oVisible.end() ? -1 : static_cast<int>(it - oVisible.begin());
}

int TreeViewPeer::FocusRow() const {
  return RowOf(moTree.SelectedItem());
}

void TreeViewPeer::GoToRow(int nRow, std::int32_t) {
  moTree.UserNodeClick(*moTree.VisibleNodes()[static_cast<std::size_t>(nRow)]);
}

void TreeViewPeer::Apply(const Changes& oChanges) {
  RowsPeer::Apply(oChanges);
  mnWidth = MeasureRows();  // in the font that was set by now
  Pane().Reshape(Pane().RowHeight());
  if (oChanges.Has(Property::Selection) && FocusRow() >= 0) Pane().ShowRow(FocusRow());
  const std::int32_t lNode = ScrollTarget();
  if (lNode < 1 || lNode > moTree.Nodes().Count()) return;
  const int nRow = RowOf(&moTree.Nodes().Item(lNode));
  if (nRow >= 0) Pane().ShowRow(nRow);
}

}  // namespace Forms
