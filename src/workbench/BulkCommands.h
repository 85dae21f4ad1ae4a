// The commands on many procedures: each asks for a scope and walks it, one call of the model per
// row, or one for a whole project or the group.
#pragma once

#include "FAction.h"
#include "MQuillon.h"

struct Workbench;

class BulkCommands {
 public:
  explicit BulkCommands(Workbench& owner) : window(owner) {}

  void ApplyPending();
  void CopySuggested();
  void DiscardPending();
  void InsertLineNumbers();
  void RemoveLineNumbers();
  void RefreshErrorHandlers();

 private:
  bool HasScope() const;
  template <class Dialog>
  eAction AskScope();
  template <class Visit>
  void WalkScope(eAction scope, Visit&& visit);
  template <class Visit>
  void WalkRows(bool selectedOnly, Visit&& visit);
  void RefreshAfter(eAction scope);
  /// Rewrites a scope, with an account in the Results pane.
  void Rewrite(eAction scope, bool refresh, MQuillon::LineNumAction numbers);
  template <class Dialog>
  void RunRefresh(TextView routine, MQuillon::LineNumAction numbers);

  Workbench& window;
};
