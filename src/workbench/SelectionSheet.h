// What is selected in the procedure list: the property sheet of it, the edits in the sheet, and the
// text of a procedure, with what applying its pending changes would make of it if asked for.
#pragma once

#include "CIDEHandler.h"
#include "ListView.h"

struct Workbench;
namespace PropertySheet {
struct Subject;
}

class SelectionSheet {
 public:
  explicit SelectionSheet(Workbench& owner) : window(owner) {}

  void ProcessProcListSelection();
  void ClearSheet();
  /// An edit: reaches each selected procedure that can take it.
  void PropertyChange(TextView sName, TextView sValue);
  bool ShowsPendingCode() const { return pendingCode; }
  void TurnPendingCode();

 private:
  void ShowOne(const Forms::ListItem& row);
  void ShowSeveral();
  void ShowSheet(PropertySheet::Subject& subject);
  void SetPending(const Forms::ListItem& row, TextView sName, TextView sValue);
  void ShowCode(ProcedureHandle hProcedure);
  void ShowPendingCode(ProcedureHandle hProcedure, TextView present);

  Workbench& window;
  bool pendingCode = false;
};
