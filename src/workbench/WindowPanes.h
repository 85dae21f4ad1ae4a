// The tabs with their panes, the pane of modules that can't be read, and the status bar.
#pragma once

#include <cstdint>

#include "Text.h"

struct Workbench;

class WindowPanes {
 public:
  explicit WindowPanes(Workbench& owner) : window(owner) {}

  /// The tabs Properties and Code, which are there while a template without errors is open.
  void AddTabs();
  void RemoveTabs();
  void SelectTab(TextView key);
  bool ShowsTab(TextView key) const;
  /// Brings the pane of the selected tab to the front.
  void TabClick();

  bool ShowsErrors() const { return mbErrors; }
  void ShowErrors();
  void HideErrors();

  /// number and what of, in the first panel of the status bar.
  void ShowCount(std::size_t number, TextView what);
  /// A path in the second panel, shortened to what fits.
  void ShowPath(TextView path);
  void FitPath();

  /// The faces and sizes that the options name, as far as the machine has them, and with weight
  /// also bold and italic. At the start the text panes keep theirs.
  void TakeFonts(bool weightOfTexts);

 private:
  Workbench& window;
  bool mbErrors = false;
};
