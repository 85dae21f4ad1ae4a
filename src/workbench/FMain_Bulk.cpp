// The commands on many procedures: each asks for a scope and walks it, one call of the model per
// row, or one for a whole project or the group.
#include "FMain.h"
#include "MQuillon.h"
#include "MRules.h"

using namespace Forms;

template <class Dialog>
eAction FMain::AskScope() {
  bool bSelection = false;
  ListSelectionExists(bSelection);
  const bool bOpen = !(ShowsProcs() && mbReadOnly);
  const bool bSeveral = oIDEHandler->ProjectCount() >= 2;
  return Dialog(App()).Display(bSelection && bOpen, ShowsProcs() && bOpen, bSeveral);
}

bool FMain::HasScope() const {
  return oIDEHandler && oIDEHandler->ProjectCount() >= 1;
}

class FMain::RowProgress {
 public:
  RowProgress(FMain& oMain, std::size_t lRows) : moMain(oMain), mlRows(lRows) {
    constexpr std::size_t RowsWorthProgress =
        30;  // for fewer rows the bar would only flicker; a choice
    if (lRows < RowsWorthProgress) return;
    moMain.ProgressStart();
    moMain.mbRowProgress = true;
  }
  RowProgress(const RowProgress&) = delete;
  RowProgress& operator=(const RowProgress&) = delete;
  ~RowProgress() {
    if (!moMain.mbRowProgress) return;
    moMain.mbRowProgress = false;
    if (moMain.Loaded()) moMain.ProgressEnd();
  }
  void Next(TextView sCaption) {
    ++mlRow;
    if (moMain.mbRowProgress)
      moMain.Progress(static_cast<std::int16_t>(mlRow * 100 / mlRows), sCaption);
  }

 private:
  FMain& moMain;
  std::size_t mlRows, mlRow = 0;
};

template <class Visit>
void FMain::WalkScope(eAction eScope, Visit&& oVisit) {
  if (eScope == eAction::Project) return oVisit(ModelScope(mhProject));
  if (eScope == eAction::All) return oVisit(ModelScope::Group());
  ListView* poList = ListInFront();
  if (eScope == eAction::Cancel || !poList) return;
  // Collected first, because processing a row may change the list.
  std::vector<std::pair<std::int32_t, Text>> oRows;
  for (std::int32_t i = 1; i <= poList->ListItems().Count(); ++i) {
    const ListItem& oRow = poList->ListItems().Item(i);
    if (oRow.Tag() > 0 && (oRow.Selected() || eScope == eAction::Module))
      oRows.push_back({oRow.Tag(), oRow.Text()});
  }
  const Text sModule = ShowsProcs() ? oIDEHandler->ComponentName(mhComponent) + u"." : Text();
  RowProgress oProgress(*this, oRows.size());
  for (const auto& [lHandle, sName] : oRows) {
    oVisit(ShowsProcs() ? ModelScope(ProcedureHandle(lHandle))
                        : ModelScope(ComponentHandle(lHandle)));
    oProgress.Next(sModule + sName);
  }
}

void FMain::RefreshAfter(eAction eScope) {
  const bool bSelected = eScope == eAction::Selection;
  if (eScope == eAction::Project || eScope == eAction::All) {
    RefreshCurrentList(false);
  } else if (ShowsProcs()) {
    RefreshProcList(bSelected, true);
  } else if (ShowsMods()) {
    RefreshModList(bSelected);
  }
}

void FMain::mnuToolsApplyPending_Click() {
  OnEvent(u"mnuToolsApplyPending_Click", [&] {
    if (!HasScope()) return;
    const eAction eScope = AskScope<FApplyPending>();
    Busy(u"mnuToolsApplyPending_Click", [&] {
      Refresh();
      SelectTab(u"Results");
      oTemplate->BatchStart();
      WalkScope(eScope, [&](const ModelScope& oScope) {
        oIDEHandler->ApplyPendingSettings(oScope, false, MQuillon::LineNumAction::AsRule);
      });
      RefreshAfter(eScope);
      oTemplate->BatchSummary();
    });
  });
}

void FMain::mnuPropsCopySuggest_Click() {
  OnEvent(u"mnuPropsCopySuggest_Click", [&] {
    if (!HasScope()) return;
    Busy(u"mnuPropsCopySuggest_Click", [&] {
      const eAction eScope = AskScope<FCopySuggest>();
      Refresh();
      WalkScope(eScope,
                [&](const ModelScope& oScope) { oIDEHandler->ApplySuggestedSettings(oScope); });
      RefreshAfter(eScope);
    });
  });
}

void FMain::mnuPropsUndoPending_Click() {
  OnEvent(u"mnuPropsUndoPending_Click", [&] {
    if (!HasScope()) return;
    const eAction eScope = AskScope<FUndoPending>();
    Busy(u"mnuPropsUndoPending_Click", [&] {
      Refresh();
      WalkScope(eScope,
                [&](const ModelScope& oScope) { oIDEHandler->ApplyCurrentSettings(oScope); });
      RefreshAfter(eScope);
    });
  });
}

void FMain::mnuToolsLineAdd_Click() {
  RunRefresh<FInsertLine>(u"mnuToolsLineAdd_Click", MQuillon::LineNumAction::Insert);
}

void FMain::mnuToolsLineRemove_Click() {
  RunRefresh<FRemoveLine>(u"mnuToolsLineRemove_Click", MQuillon::LineNumAction::Remove);
}

void FMain::mnuToolsRefresh_Click() {
  RunRefresh<FRefreshTemplates>(u"mnuToolsRefresh_Click", MQuillon::LineNumAction::AsRule);
}

template <class Dialog>
void FMain::RunRefresh(TextView sProcedure, MQuillon::LineNumAction LineNumAction) {
  OnEvent(sProcedure, [&] {
    if (!HasScope()) return;
    const eAction eScope = AskScope<Dialog>();
    Busy(sProcedure, [&] {
      Refresh();
      DoRefresh(eScope, LineNumAction);
      if (LineNumAction == MQuillon::LineNumAction::AsRule) RefreshCurrentList(false);
    });
  });
}

void FMain::DoRefresh(eAction eScope, MQuillon::LineNumAction LineNumAction) {
  if (LineNumAction == MQuillon::LineNumAction::AsRule)
    LineNumAction = MRules::oRules.eLineNumAction;
  SelectTab(u"Results");
  oTemplate->BatchStart();
  WalkScope(eScope, [&](const ModelScope& oScope) {
    oIDEHandler->ApplyPendingSettings(oScope, true, LineNumAction);
  });
  if (eScope == eAction::Project || eScope == eAction::All) {
    RefreshProcList(false, true);
  } else if (ShowsProcs()) {
    RefreshProcList(eScope == eAction::Selection, true);
  }
  oTemplate->BatchSummary();
}
