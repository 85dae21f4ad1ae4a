// Where the parts of the main window stand, how they follow its size and the bars between them, and
// how its places are kept. All lengths are twips; no width or height becomes negative.
#pragma once

#include <optional>
#include <vector>

#include "CXSplit.h"
#include "FormsTypes.h"

struct Workbench;

/// The window's keys of the settings store, 0 while it isn't loaded. That of the recent files stays
/// open: their list belongs to the process and uses it after the window is closed.
struct WindowKeys {
  void Open();
  void Close();
  std::int32_t mhRegForm = 0, mhRegRecent = 0, mhRegSplit1 = 0, mhRegSplit2 = 0, mhRegSplit3 = 0,
               mhRegModList = 0, mhRegProcList = 0;
};

class WindowLayout {
 public:
  explicit WindowLayout(Workbench& owner) : window(owner) {}

  /// Brings window and bars to their kept places, and all parts to theirs between the bars.
  void Restore();
  void Save();
  void MakeSplitters();
  void EndSplitters() { links.clear(); }
  /// The window, and the container of the tabs, has another size.
  void Resize();
  void ResizeTabs();
  /// Brings back the tabs' pane when its bar was dragged to the window's edge.
  void ShowTabs();
  /// Gives the pane of errors the room below its bar.
  void FitErrors();

 private:
  void RestoreWindow();
  void RestoreBars();
  /// Moves the bars to the given places if their kept ones are damaged.
  void HoldBars(const Forms::Rect& bar1, const Forms::Rect& bar2, const Forms::Rect& bar3);
  /// Moves the bars so far that each part of the window has some room. True when they moved.
  bool KeepBarsInside();
  void PlacePanes();
  void LayOutVertically();
  void AfterSplit2();
  void AfterSplit3();

  Workbench& window;
  std::optional<CXSplit> split1, split2, split3;
  std::vector<Connection> links;
};
