#include "BulkCommands.h"

#include "MRules.h"
#include "Workbench.h"

using namespace Forms;

bool BulkCommands::HasScope() const {
  const auto& model = window.session.Model();
  return model && model->ProjectCount() >= 1;
}

template <class Dialog>
eAction BulkCommands::AskScope() {
  bool selection = false;
  window.lists.ListSelectionExists(selection);
  const bool procedures = window.lists.ShowsProcs();
  const bool open = !(procedures && window.tree.ReadOnly());
  const bool several = window.session.Model()->ProjectCount() >= 2;
  return Dialog(window.form.App()).Display(selection && open, procedures && open, several);
}

template <class Visit>
void BulkCommands::WalkScope(eAction scope, Visit&& visit) {
  if (scope == eAction::Project) return visit(ModelScope(window.tree.Project()));
  if (scope == eAction::All) return visit(ModelScope::Group());
  if (scope != eAction::Cancel) WalkRows(scope == eAction::Selection, visit);
}

template <class Visit>
void BulkCommands::WalkRows(bool selectedOnly, Visit&& visit) {
  ListView* list = window.lists.ListInFront();
  if (!list) return;
  // Collected first, because processing a row may change the list.
  std::vector<std::pair<std::int32_t, Text>> rows;
  for (std::int32_t i = 1; i <= list->ListItems().Count(); ++i) {
    const ListItem& row = list->ListItems().Item(i);
    if (row.Tag() > 0 && (row.Selected() || !selectedOnly)) rows.push_back({row.Tag(), row.Text()});
  }
  const Text module = window.lists.ShowsProcs()
                          ? window.session.Model()->ComponentName(window.tree.Component()) + u"."
                          : Text();
  WindowEvents::Rows progress(window.events, rows.size());
  for (const auto& [handle, name] : rows) {
    visit(window.lists.ShowsProcs() ? ModelScope(ProcedureHandle(handle))
                                    : ModelScope(ComponentHandle(handle)));
    progress.Next(module + name);
  }
}

void BulkCommands::RefreshAfter(eAction scope) {
  const bool selected = scope == eAction::Selection;
  if (scope == eAction::Project || scope == eAction::All) {
    window.lists.RefreshCurrentList(false);
  } else if (window.lists.ShowsProcs()) {
    window.lists.RefreshProcList(selected, true);
  } else if (window.lists.ShowsMods()) {
    window.lists.RefreshModList(selected);
  }
}

void BulkCommands::Rewrite(eAction scope, bool refresh, MQuillon::LineNumAction numbers) {
  window.panes.SelectTab(u"Results");
  window.session.Template()->BatchStart();
  WalkScope(scope, [&](const ModelScope& part) {
    window.session.Model()->ApplyPendingSettings(part, refresh, numbers);
  });
}

void BulkCommands::ApplyPending() {
  if (!HasScope()) return;
  const eAction scope = AskScope<FApplyPending>();
  window.events.Busy(u"mnuToolsApplyPending_Click", [&] {
    window.form.Refresh();
    Rewrite(scope, false, MQuillon::LineNumAction::AsRule);
    RefreshAfter(scope);
    window.session.Template()->BatchSummary();
  });
}

void BulkCommands::CopySuggested() {
  if (!HasScope()) return;
  window.events.Busy(u"mnuPropsCopySuggest_Click", [&] {
    const eAction scope = AskScope<FCopySuggest>();
    window.form.Refresh();
    WalkScope(scope, [&](const ModelScope& part) {
      window.session.Model()->ApplySuggestedSettings(part);
    });
    RefreshAfter(scope);
  });
}

void BulkCommands::DiscardPending() {
  if (!HasScope()) return;
  const eAction scope = AskScope<FUndoPending>();
  window.events.Busy(u"mnuPropsUndoPending_Click", [&] {
    window.form.Refresh();
    WalkScope(scope,
              [&](const ModelScope& part) { window.session.Model()->ApplyCurrentSettings(part); });
    RefreshAfter(scope);
  });
}

void BulkCommands::InsertLineNumbers() {
  RunRefresh<FInsertLine>(u"mnuToolsLineAdd_Click", MQuillon::LineNumAction::Insert);
}

void BulkCommands::RemoveLineNumbers() {
  RunRefresh<FRemoveLine>(u"mnuToolsLineRemove_Click", MQuillon::LineNumAction::Remove);
}

void BulkCommands::RefreshErrorHandlers() {
  RunRefresh<FRefreshTemplates>(u"mnuToolsRefresh_Click", MQuillon::LineNumAction::AsRule);
}

template <class Dialog>
void BulkCommands::RunRefresh(TextView routine, MQuillon::LineNumAction numbers) {
  if (!HasScope()) return;
  const eAction scope = AskScope<Dialog>();
  const bool asRule = numbers == MQuillon::LineNumAction::AsRule;
  window.events.Busy(routine, [&] {
    window.form.Refresh();
    Rewrite(scope, true, asRule ? MRules::oRules.eLineNumAction : numbers);
    if (scope == eAction::Project || scope == eAction::All) {
      window.lists.RefreshProcList(false, true);
    } else if (window.lists.ShowsProcs()) {
      window.lists.RefreshProcList(scope == eAction::Selection, true);
    }
    window.session.Template()->BatchSummary();
    if (asRule) window.lists.RefreshCurrentList(false);
  });
}
