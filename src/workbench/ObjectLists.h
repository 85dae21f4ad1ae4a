// The module list and the procedure list: filled from the model's events, kept up to date without
// asking for the rows again.
#pragma once

#include "CIDEHandler.h"
#include "CXListView.h"

struct Workbench;

class ObjectLists {
 public:
  enum class Kind { None, Mods, Procs };

  explicit ObjectLists(Workbench& owner) : window(owner) {}
  /// Takes the headings, with the widths that were kept.
  void MakeLists();
  /// Links that fill a list while the model tells its components or procedures.
  void Connect(CIDEHandler& model, std::vector<Connection>& links);
  void Clear();

  void SetInFront(Kind kind) { inFront = kind; }
  bool ShowsProcs() const { return inFront == Kind::Procs; }
  bool ShowsMods() const { return inFront == Kind::Mods; }
  /// The list in front; null while none is.
  Forms::ListView* ListInFront() const;
  /// It is visible and has rows.
  bool HasRows() const;
  void ListSelectionExists(bool& bExists) const;
  /// Selects the rows of the list in front for which it gives true.
  void SelectRows(const std::function<bool(const Forms::ListItem&)>& choice);

  void RefreshModList(bool bSelectedOnly);
  void RefreshProcList(bool bSelectedOnly, bool bReprocess);
  void RefreshCurrentList(bool bSelectedOnly);
  void ProcessModListSelection();
  /// Of the list in front, to the status bar.
  void ShowObjectCount();
  void OpenSelectedModule();
  void SortBy(Forms::ListView& list, const Forms::ColumnHeader& column);

 private:
  void HideLists();
  void ShowList(Forms::ListView& list);
  void EnumComponentsExProc(const ComponentRow& row);
  void EnumProceduresProc(const ProcedureRow& row);
  void EnumProceduresError(ComponentHandle hComponent, const LoadError& error);
  /// Names the missing files in the Errors pane, once each time they change.
  void TellMissingFiles();
  void RefreshProcRow(Forms::ListItem& row);
  void MarkRow(Forms::ListItem& row, bool dirty);

  Workbench& window;
  CXListView moModList, moProcList;
  Kind inFront = Kind::None;
  TextArray missing, missingTold;  ///< components of the module list whose file isn't there
};

/// The selected rows, from the first on, at most that many.
std::vector<Forms::ListItem*> SelectedRows(Forms::ListView& list,
                                           std::size_t most = static_cast<std::size_t>(-1));
