#include "CXListView.h"

#include <algorithm>

#include "Failure.h"
#include "MXRegistry.h"
#include "RegistryStore.h"

using namespace Forms;

namespace {

constexpr std::int32_t OwnWidth = -1;    ///< for the list's own default width
constexpr std::int32_t ColumnGap = 300;  ///< twips that ResizeColumns takes off each column

Text WidthName(std::int32_t lColumn) {
  return u"ColWidth" + ToText(lColumn);
}

void SetSubItemsOf(ListItem& oRow, CXListView::Texts asText) {
  std::int32_t lColumn = 0;
  for (const TextView sText : asText) {
    if (lColumn > 0) oRow.SetSubItems(lColumn, sText);
    ++lColumn;
  }
}

TextView FirstOf(CXListView::Texts asText) {
  return asText.size() == 0 ? TextView() : *asText.begin();
}

}  // namespace

ListView& CXListView::List() const {
  if (!mpoListView) throw Failure(91);
  return *mpoListView;
}

void CXListView::SetListView(ListView& oListView) {
  mpoListView = &oListView;
  mpoRow = nullptr;
  oListView.SetView(3);
  oListView.ColumnHeaders().Clear();
  oListView.ListItems().Clear();
}

std::int32_t CXListView::KeptWidth(std::int32_t lColumn, std::int32_t lDefault) const {
  const std::int32_t lWidth = MXRegistry::GetRegLong(mhRegNode, WidthName(lColumn), lDefault);
  return lWidth < 0 ? lDefault : lWidth;
}

void CXListView::AddHeading(TextView sHeading, std::int32_t lDefaultWidth) {
  ColumnHeaders& oColumns = List().ColumnHeaders();
  const std::int32_t lWidth =
      msLayout.empty() ? lDefaultWidth : KeptWidth(oColumns.Count() + 1, lDefaultWidth);
  ColumnHeader& oColumn =
      lWidth == OwnWidth ? oColumns.Add(sHeading) : oColumns.Add(sHeading, lWidth);
  if (msLayout.empty()) oColumn.SetTag(ToText(oColumn.Width()));
}

void CXListView::SetWidths(const std::vector<std::int32_t>& alWidth) {
  ColumnHeaders& oColumns = List().ColumnHeaders();
  for (std::int32_t i = 1; i <= oColumns.Count(); ++i) {
    if (static_cast<std::size_t>(i) >= alWidth.size()) return;
    oColumns.Item(i).SetWidth(alWidth[static_cast<std::size_t>(i)]);
  }
}

void CXListView::ResizeColumns() {
  ColumnHeaders& oColumns = List().ColumnHeaders();
  for (std::int32_t i = 1; i <= oColumns.Count(); ++i) {
    oColumns.Item(i).SetWidth(std::max(List().Width() / oColumns.Count() - ColumnGap, 0));
  }
}

void CXListView::NewRow() {
  mpoRow = &List().ListItems().Add({});
  mnNextSubItem = 0;
}

void CXListView::AddRowItems(Texts asText) {
  if (!mpoRow) throw Failure(91);
  for (const TextView sText : asText) {
    mnNextSubItem == 0 ? mpoRow->SetText(sText) : mpoRow->SetSubItems(mnNextSubItem, sText);
    ++mnNextSubItem;
  }
}

ListItem& CXListView::AddIconRow(TextView sIcon, Texts asText) {
  ListItem& oRow = List().ListItems().Add(FirstOf(asText), sIcon);
  SetSubItemsOf(oRow, asText);
  return oRow;
}

ListItem& CXListView::AddRow(Texts asText) {
  return AddIconRow({}, asText);
}

void CXListView::ClearRows() {
  if (!msLayout.empty()) SaveLayout();
  mpoRow = nullptr;
  List().ListItems().Clear();
}

bool CXListView::Visible() const {
  return List().Visible();
}

void CXListView::SetVisible(bool bVisible) {
  List().SetVisible(bVisible);
  List().Refresh();
}

void CXListView::SetLayout(TextView sLayout) {
  msLayout = sLayout;
  ColumnHeaders& oColumns = List().ColumnHeaders();
  if (msLayout.empty()) return;
  for (std::int32_t i = 1; i <= oColumns.Count(); ++i) {
    ColumnHeader& oColumn = oColumns.Item(i);
    oColumn.SetWidth(KeptWidth(i, oColumn.Width()));
  }
}

void CXListView::SaveLayout() {
  // This runs at every click in a tree, so the settings file is written only if a width changed.
  const RegistryStore::Batch oOneSave(CurrentRegistry());
  ColumnHeaders& oColumns = List().ColumnHeaders();
  for (std::int32_t i = 1; i <= oColumns.Count(); ++i) {
    const std::int32_t lWidth = oColumns.Item(i).Width();
    if (KeptWidth(i, OwnWidth) != lWidth) {
      MXRegistry::SetRegLong(mhRegNode, WidthName(i), lWidth);
    }
  }
}
