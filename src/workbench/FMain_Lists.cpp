// The module list and the procedure list: filled from the model's events, kept up to date without
// asking for the rows again.
#include "FMain.h"
#include "Icons.h"
#include "MQuillon.h"
#include "MXDate.h"
#include "MXString.h"
#include "Toolkit.h"

using namespace Forms;

namespace {

/// Calls oVisit with each row that stands for something, of all or of the selected ones.
template <class Visit>
void EachRow(ListView& oList, bool bSelectedOnly, Visit&& oVisit) {
  ListItems& oRows = oList.ListItems();
  for (std::int32_t i = 1; i <= oRows.Count(); ++i) {
    ListItem& oRow = oRows.Item(i);
    if (oRow.Tag() > 0 && (!bSelectedOnly || oRow.Selected())) oVisit(oRow);
  }
}

/// Trace means nothing for a declarations section.
Text TraceText(TextView sName, MQuillon::TriState eTrace) {
  return sName == MQuillon::DeclarationsName
             ? Text()
             : MQuillon::oLookupTrace->LookupDisplayName(MQuillon::ToNumber(eTrace));
}

}  // namespace

void FMain::HideLists() {
  lblListViewSurrogate.SetCaption({});
  lvwMods.SetVisible(false);
  moModList.ClearRows();
  lvwProcs.SetVisible(false);
  moProcList.ClearRows();
}

void FMain::ShowList(ListView& oList) {
  const CIDEHandler* poModel = oIDEHandler.get();
  oList.SetHideSelection(true);
  oList.SetVisible(true);
  App().DoEvents();
  if (oIDEHandler.get() != poModel) return;
  if (oList.ListItems().Count() > 0) {
    if (oList.SelectedItem()) oList.SelectedItem()->SetSelected(false);
    oList.ListItems().Item(1).SetSelected(true);
  }
  oList.SetHideSelection(false);
}

void FMain::EnumComponentsExProc(const ComponentRow& oRow) {
  const Text sType = MQuillon::VBComponentTypeName(oRow.nComponentType);
  ListItem& oItem = moModList.AddRow(
      {oRow.sName, sType, MQuillon::InstancingTypeName(oRow.lInstancing),
       oRow.bReadOnly ? u"ReadOnly" : u"",
       oRow.dModified != 0 ? MXDate::FileTime(oRow.dModified) : Text(), oRow.sFileName});
  oItem.SetSmallIcon(
      Icons::Marked(imlProjects, sType, oIDEHandler->ComponentIsDirty(oRow.hComponent)));
  oItem.SetTag(oRow.hComponent.Number());
  if (oRow.isMissing) mMissing.push_back(oRow.sName + u": " + oRow.sFileName);
}

void FMain::TellMissingFiles() {
  if (mMissing.empty() || mMissing == mMissingTold) return;
  mMissingTold = mMissing;
  ShowErrors();
  for (const Text& file : mMissing) srlErrors.Add(u"File is missing: " + file);
  srlResults.Add(ToText(static_cast<std::int32_t>(mMissing.size())) +
                 u" File(s) missing on disk, see VBIDE Errors");
}

void FMain::EnumProceduresProc(const ProcedureRow& oRow) {
  const CProcSettings& o = *oRow.oProcSettings;
  ListItem& oItem = moProcList.AddRow(
      {oRow.sPROCEDURE, oRow.sProcType, MQuillon::ScopeTypeName(oRow.nScope), o.sTemplate(),
       MQuillon::oLookupLocked->LookupDisplayName(MQuillon::ToNumber(o.eLocked())),
       MQuillon::oLookupBoundary->LookupItem(MQuillon::ToNumber(o.eBoundary())),
       MQuillon::oLookupSeverity->LookupItem(MQuillon::ToNumber(o.eSeverity())),
       MQuillon::oLookupRetry->LookupItem(MQuillon::ToNumber(o.eRetry())),
       TraceText(oRow.sPROCEDURE, o.eTrace())});
  const Text sIcon = Icons::OfProcedure(oRow.sPROCEDURE, oRow.sProcType);
  oItem.SetSmallIcon(Icons::Marked(imlProjects, sIcon, oRow.bDirty));
  oItem.SetTag(oRow.hProcedure.Number());
}

void FMain::EnumProceduresError(ComponentHandle hComponent, const LoadError& oError) {
  ShowErrors();
  const Text sName = oIDEHandler->Component(hComponent).sName;
  srlErrors.Add(u"I asked VB Extensibility about this Module [" + sName +
                u"] It threw me the following Error on [" + oError.sErrorContext + u"].");
  srlErrors.Add(u"  Number = " + ToText(oError.lError) +
                (oError.lError == 0 ? u" [yes! zero!]" : u"") + u"  Decsription = \"" +
                oError.sErrorDesc + u"\"  Source = \"" + oError.sErrorSource + u"\"" +
                (oError.sErrorSource == u"TarvaneQuillon" ? u" ...but don't believe it :-)" : u""));
  srlErrors.Add(
      u"Your Project Code or Components may be in a non-runnable state which VB Extensibility is "
      u"unhappy with");
}

void FMain::MarkRow(ListItem& oRow, bool bDirty) {
  oRow.SetSmallIcon(Icons::Marked(imlProjects, oRow.SmallIcon(), bDirty));
}

void FMain::RefreshProcRow(ListItem& oRow) {
  const ProcedureHandle h(oRow.Tag());
  CIDEHandler& o = *oIDEHandler;
  MarkRow(oRow, o.ProcedureIsDirty(h));
  const Text sTemplate = o.ProcTemplate(h);
  oRow.SetSubItems(3, sTemplate == MQuillon::NoneName ? Text() : sTemplate);
  oRow.SetSubItems(4, MQuillon::oLookupLocked->LookupDisplayName(MQuillon::ToNumber(o.Locked(h))));
  oRow.SetSubItems(5, MQuillon::oLookupBoundary->LookupItem(MQuillon::ToNumber(o.BoundaryId(h))));
  oRow.SetSubItems(6, MQuillon::oLookupSeverity->LookupItem(MQuillon::ToNumber(o.SeverityId(h))));
  oRow.SetSubItems(7, MQuillon::oLookupRetry->LookupItem(MQuillon::ToNumber(o.RetryId(h))));
  oRow.SetSubItems(8, TraceText(oRow.Text(), o.Trace(h)));
}

void FMain::RefreshProcList(bool bSelectedOnly, bool bReprocess) {
  EachRow(lvwProcs, bSelectedOnly, [&](ListItem& oRow) { RefreshProcRow(oRow); });
  if (bReprocess) ProcessProcListSelection();
  RefreshProjectTree();
}

void FMain::RefreshModList(bool bSelectedOnly) {
  EachRow(lvwMods, bSelectedOnly, [&](ListItem& oRow) {
    MarkRow(oRow, oIDEHandler->ComponentIsDirty(ComponentHandle(oRow.Tag())));
  });
  RefreshProjectTree();
}

void FMain::RefreshCurrentList(bool bSelectedOnly) {
  ShowsProcs() ? RefreshProcList(bSelectedOnly, true) : RefreshModList(bSelectedOnly);
}

void FMain::lvwMods_DblClick() {
  OnEvent(u"lvwMods_DblClick", [&] {
    const ListItem* poRow = lvwMods.SelectedItem();
    if (!poRow || poRow->Tag() == 0) return;
    const ComponentHandle hComponent(poRow->Tag());
    Nodes& oNodes = tvwProjects.Nodes();
    for (std::int32_t i = 1; i <= oNodes.Count(); ++i) {
      if (ComponentHandle(oNodes.Item(i).Tag()) == hComponent)
        return SelectNode(mhProject, hComponent);
    }
  });
}

void FMain::SortBy(ListView& oList, const ColumnHeader& oColumn) {
  Busy(oList.Name() + u"_ColumnClick", [&] {
    const std::int32_t lKey = oColumn.Index() - 1;
    const bool bTurn = oList.SortKey() == lKey && oList.SortOrder() == ListSortOrder::Ascending;
    oList.SetSortKey(lKey);
    oList.SetSortOrder(bTurn ? ListSortOrder::Descending : ListSortOrder::Ascending);
  });
}

void FMain::ShowObjectCount(ListView& oList) {
  StatusBar1.Panels(1).SetText(ToText(oList.ListItems().Count()) + u" Object(s)");
}

void FMain::ShowPath(TextView sPath) {
  StatusBar1.Panels(2).SetTag(sPath);
  FitPath();
}

void FMain::FitPath() {
  constexpr std::int32_t PanelEdges = 360;  // twips for the panel's borders and gaps; an estimate
  Panel& oPanel = StatusBar1.Panels(2);
  oPanel.SetText(MXString::TrimPathToFit(
      oPanel.Tag(), [&](TextView s) { return static_cast<double>(TextWidth(s)); },
      oPanel.Width() - PanelEdges, true));
}
