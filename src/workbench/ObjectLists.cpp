#include "ObjectLists.h"

#include "Icons.h"
#include "MQuillon.h"
#include "MXDate.h"
#include "Toolkit.h"
#include "Workbench.h"

using namespace Forms;

namespace {

/// Calls visit with each row that stands for something, of all or of the selected ones.
template <class Visit>
void EachRow(ListView& list, bool selectedOnly, Visit&& visit) {
  ListItems& rows = list.ListItems();
  for (std::int32_t i = 1; i <= rows.Count(); ++i) {
    ListItem& row = rows.Item(i);
    if (row.Tag() > 0 && (!selectedOnly || row.Selected())) visit(row);
  }
}

/// Trace means nothing for a declarations section.
Text TraceText(TextView name, MQuillon::TriState trace) {
  return name == MQuillon::DeclarationsName
             ? Text()
             : MQuillon::oLookupTrace->LookupDisplayName(MQuillon::ToNumber(trace));
}

void Begin(CXListView& list, ListView& view, std::int32_t key, TextView layout) {
  list = CXListView();
  list.SetListView(view);
  list.SethRegNode(key);
  list.SetLayout(layout);
}

}  // namespace

std::vector<ListItem*> SelectedRows(ListView& list, std::size_t most) {
  std::vector<ListItem*> selected;
  ListItems& rows = list.ListItems();
  for (std::int32_t i = 1; i <= rows.Count() && selected.size() < most; ++i) {
    if (rows.Item(i).Selected()) selected.push_back(&rows.Item(i));
  }
  return selected;
}

void ObjectLists::MakeLists() {
  Begin(moModList, window.form.lvwMods, window.keys.mhRegModList, u"ModList");
  for (const TextView heading : {u"Name", u"Type", u"Instancing", u"ReadOnly"})
    moModList.AddHeading(heading, 1500);
  moModList.AddHeading(u"Modified", 2000);
  moModList.AddHeading(u"FileName", 4000);
  Begin(moProcList, window.form.lvwProcs, window.keys.mhRegProcList, u"ProcList");
  moProcList.AddHeading(u"Procedure", 2000);
  for (const TextView heading :
       {u"Type", u"Scope", u"Template", u"Locked", u"Boundary", u"Severity"})
    moProcList.AddHeading(heading, 1000);
  for (const TextView heading : {u"Retry", u"Trace"}) moProcList.AddHeading(heading, 800);
}

void ObjectLists::Connect(CIDEHandler& model, std::vector<Connection>& links) {
  links.push_back(model.EnumComponentsExBOF.Connect([this] {
    missing.clear();
    HideLists();
  }));
  links.push_back(model.EnumProceduresBOF.Connect([this] { HideLists(); }));
  links.push_back(model.EnumComponentsExProc.Connect(
      [this](const ComponentRow& row) { EnumComponentsExProc(row); }));
  links.push_back(model.EnumProceduresProc.Connect(
      [this](const ProcedureRow& row) { EnumProceduresProc(row); }));
  links.push_back(model.EnumComponentsExEOF.Connect([this] {
    TellMissingFiles();
    ShowList(window.form.lvwMods);
  }));
  links.push_back(model.EnumProceduresEOF.Connect([this] { ShowList(window.form.lvwProcs); }));
  links.push_back(model.EnumProceduresError.Connect(
      [this](ComponentHandle h, const LoadError& error) { EnumProceduresError(h, error); }));
}

void ObjectLists::Clear() {
  window.form.lblList.SetCaption({});
  HideLists();
  inFront = Kind::None;
  missingTold.clear();
}

ListView* ObjectLists::ListInFront() const {
  return ShowsProcs() ? &window.form.lvwProcs : ShowsMods() ? &window.form.lvwMods : nullptr;
}

bool ObjectLists::HasRows() const {
  ListView* list = ListInFront();
  return list && list->Visible() && list->ListItems().Count() > 0;
}

void ObjectLists::ListSelectionExists(bool& bExists) const {
  ListView* list = ListInFront();
  bExists = list && !SelectedRows(*list, 1).empty();
}

void ObjectLists::SelectRows(const std::function<bool(const ListItem&)>& choice) {
  ListView* list = ListInFront();
  if (!list) return;
  ListItems& rows = list->ListItems();
  for (std::int32_t i = 1; i <= rows.Count(); ++i) rows.Item(i).SetSelected(choice(rows.Item(i)));
  if (ShowsProcs()) window.sheet.ProcessProcListSelection();
}

void ObjectLists::HideLists() {
  window.form.lblListViewSurrogate.SetCaption({});
  window.form.lvwMods.SetVisible(false);
  moModList.ClearRows();
  window.form.lvwProcs.SetVisible(false);
  moProcList.ClearRows();
}

void ObjectLists::ShowList(ListView& list) {
  const CIDEHandler* model = window.session.Model().get();
  list.SetHideSelection(true);
  list.SetVisible(true);
  window.form.App().DoEvents();
  if (window.session.Model().get() != model) return;
  if (list.ListItems().Count() > 0) {
    if (list.SelectedItem()) list.SelectedItem()->SetSelected(false);
    list.ListItems().Item(1).SetSelected(true);
  }
  list.SetHideSelection(false);
}

void ObjectLists::EnumComponentsExProc(const ComponentRow& row) {
  const Text type = MQuillon::VBComponentTypeName(row.nComponentType);
  ListItem& item = moModList.AddRow({row.sName, type, MQuillon::InstancingTypeName(row.lInstancing),
                                     row.bReadOnly ? u"ReadOnly" : u"",
                                     row.dModified != 0 ? MXDate::FileTime(row.dModified) : Text(),
                                     row.sFileName});
  item.SetSmallIcon(Icons::Marked(window.form.imlProjects, type,
                                  window.session.Model()->ComponentIsDirty(row.hComponent)));
  item.SetTag(row.hComponent.Number());
  if (row.isMissing) missing.push_back(row.sName + u": " + row.sFileName);
}

void ObjectLists::TellMissingFiles() {
  if (missing.empty() || missing == missingTold) return;
  missingTold = missing;
  window.panes.ShowErrors();
  for (const Text& file : missing) window.form.srlErrors.Add(u"File is missing: " + file);
  window.form.srlResults.Add(ToText(static_cast<std::int32_t>(missing.size())) +
                             u" File(s) missing on disk, see VBIDE Errors");
}

void ObjectLists::EnumProceduresProc(const ProcedureRow& row) {
  const CProcSettings& o = *row.oProcSettings;
  ListItem& item = moProcList.AddRow(
      {row.sPROCEDURE, row.sProcType, MQuillon::ScopeTypeName(row.nScope), o.sTemplate(),
       MQuillon::oLookupLocked->LookupDisplayName(MQuillon::ToNumber(o.eLocked())),
       MQuillon::oLookupBoundary->LookupItem(MQuillon::ToNumber(o.eBoundary())),
       MQuillon::oLookupSeverity->LookupItem(MQuillon::ToNumber(o.eSeverity())),
       MQuillon::oLookupRetry->LookupItem(MQuillon::ToNumber(o.eRetry())),
       TraceText(row.sPROCEDURE, o.eTrace())});
  item.SetSmallIcon(Icons::Marked(window.form.imlProjects,
                                  Icons::OfProcedure(row.sPROCEDURE, row.sProcType), row.bDirty));
  item.SetTag(row.hProcedure.Number());
}

void ObjectLists::EnumProceduresError(ComponentHandle hComponent, const LoadError& error) {
  window.panes.ShowErrors();
  Scroller& pane = window.form.srlErrors;
  const Text name = window.session.Model()->Component(hComponent).sName;
  pane.Add(u"I asked VB Extensibility about this Module [" + name +
           u"] It threw me the following Error on [" + error.sErrorContext + u"].");
  pane.Add(u"  Number = " + ToText(error.lError) + (error.lError == 0 ? u" [yes! zero!]" : u"") +
           u"  Decsription = \"" + error.sErrorDesc + u"\"  Source = \"" + error.sErrorSource +
           u"\"" +
           (error.sErrorSource == u"TarvaneQuillon" ? u" ...but don't believe it :-)" : u""));
  pane.Add(
      u"Your Project Code or Components may be in a non-runnable state which VB Extensibility is "
      u"unhappy with");
}

void ObjectLists::MarkRow(ListItem& row, bool dirty) {
  row.SetSmallIcon(Icons::Marked(window.form.imlProjects, row.SmallIcon(), dirty));
}

void ObjectLists::RefreshProcRow(ListItem& row) {
  const ProcedureHandle h(row.Tag());
  CIDEHandler& o = *window.session.Model();
  MarkRow(row, o.ProcedureIsDirty(h));
  const Text templateName = o.ProcTemplate(h);
  row.SetSubItems(3, templateName == MQuillon::NoneName ? Text() : templateName);
  row.SetSubItems(4, MQuillon::oLookupLocked->LookupDisplayName(MQuillon::ToNumber(o.Locked(h))));
  row.SetSubItems(5, MQuillon::oLookupBoundary->LookupItem(MQuillon::ToNumber(o.BoundaryId(h))));
  row.SetSubItems(6, MQuillon::oLookupSeverity->LookupItem(MQuillon::ToNumber(o.SeverityId(h))));
  row.SetSubItems(7, MQuillon::oLookupRetry->LookupItem(MQuillon::ToNumber(o.RetryId(h))));
  row.SetSubItems(8, TraceText(row.Text(), o.Trace(h)));
}

void ObjectLists::RefreshProcList(bool bSelectedOnly, bool bReprocess) {
  EachRow(window.form.lvwProcs, bSelectedOnly, [&](ListItem& row) { RefreshProcRow(row); });
  if (bReprocess) ShowsMods() ? ProcessModListSelection() : window.sheet.ProcessProcListSelection();
  window.tree.RefreshProjectTree();
}

void ObjectLists::RefreshModList(bool bSelectedOnly) {
  EachRow(window.form.lvwMods, bSelectedOnly, [&](ListItem& row) {
    MarkRow(row, window.session.Model()->ComponentIsDirty(ComponentHandle(row.Tag())));
  });
  window.tree.RefreshProjectTree();
}

void ObjectLists::RefreshCurrentList(bool bSelectedOnly) {
  ShowsProcs() ? RefreshProcList(bSelectedOnly, true) : RefreshModList(bSelectedOnly);
}

void ObjectLists::ProcessModListSelection() {
  const std::size_t selected = SelectedRows(window.form.lvwMods).size();
  if (selected == 0) return ShowObjectCount();
  window.panes.ShowCount(selected, u" Object(s) Selected");
}

void ObjectLists::ShowObjectCount() {
  if (ListView* list = ListInFront())
    window.panes.ShowCount(static_cast<std::size_t>(list->ListItems().Count()), u" Object(s)");
}

void ObjectLists::OpenSelectedModule() {
  const ListItem* row = window.form.lvwMods.SelectedItem();
  if (row && row->Tag() != 0)
    window.tree.SelectNode(window.tree.Project(), ComponentHandle(row->Tag()));
}

void ObjectLists::SortBy(ListView& list, const ColumnHeader& column) {
  const std::int32_t key = column.Index() - 1;
  const bool turns = list.SortKey() == key && list.SortOrder() == ListSortOrder::Ascending;
  list.SetSortKey(key);
  list.SetSortOrder(turns ? ListSortOrder::Descending : ListSortOrder::Ascending);
}
