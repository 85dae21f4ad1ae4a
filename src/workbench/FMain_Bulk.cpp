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
  if (eScope == eAction::Project) return oVisit(0, 0, mhProject, false);
  if (eScope == eAction::All) return oVisit(0, 0, 0, true);
  ListView* poList = ListInFront();
  if (eScope == eAction::Cancel || !poList) return;
  // Collected first, because processing a row may change the list.
  std::vector<std::pair<Handle, Text>> oRows;
  for (std::int32_t i = 1; i <= poList->ListItems().Count(); ++i) {
    const ListItem& oRow = poList->ListItems().Item(i);
    if (oRow.Tag() > 0 && (oRow.Selected() || eScope == eAction::Module))
      oRows.push_back({oRow.Tag(), oRow.Text()});
  }
  const Text sModule = ShowsProcs() ? oIDEHandler->ComponentName(mhComponent) + u"." : Text();
  RowProgress oProgress(*this, oRows.size());
  for (const auto& [h, sName] : oRows) {
    ShowsProcs() ? oVisit(h, 0, 0, false) : oVisit(0, h, 0, false);
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
      WalkScope(eScope, [&](Handle hProcedure, Handle hComponent, Handle hProject, bool bGroup) {
        oIDEHandler->ApplyPendingSettings(hProcedure, hComponent, hProject, bGroup, false,
                                          MQuillon::LineNumAction::AsRule);
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
      WalkScope(eScope, [&](Handle hProcedure, Handle hComponent, Handle hProject, bool bGroup) {
        oIDEHandler->ApplySuggestedSettings(hProcedure, hComponent, hProject, bGroup);
      });
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
      WalkScope(eScope, [&](Handle hProcedure, Handle hComponent, Handle hProject, bool bGroup) {
        oIDEHandler->ApplyCurrentSettings(hProcedure, hComponent, hProject, bGroup);
      });
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
  WalkScope(eScope, [&](Handle hProcedure, Handle hComponent, Handle hProject, bool bGroup) {
    oIDEHandler->ApplyPendingSettings(hProcedure, hComponent, hProject, bGroup, true,
                                      LineNumAction);
  });
  if (eScope == eAction::Project || eScope == eAction::All) {
    RefreshProcList(false, true);
  } else if (ShowsProcs()) {
    RefreshProcList(eScope == eAction::Selection, true);
  }
  oTemplate->BatchSummary();
}
