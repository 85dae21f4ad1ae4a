// The add-in as the IDE sees it: connection hangs an entry in the IDE's menu "Add-Ins" and the
// toolbar "Tarvane", a click on either opens the main window, disconnection takes all of it away.
//
//   Connect oConnect(oToolkit, oPrinters);
//   oConnect.OnConnection(oVBE, 1);
//
// The toolbar's place is kept in the settings, key IDEToolBar: Position, RowIndex, Left, Top as the
// IDE counts them, Visible as -1 or 0. The objects of the IDE belong to the IDE.
#pragma once

#include <memory>

#include "VBE.h"

namespace Forms {
class Toolkit;
}
namespace Paper {
class Printers;
}
class FMain;
class GuardScope;

class Connect : public IDTExtensibility {
 public:
  /// Both outlive this object; the printers are those of the main window.
  Connect(Forms::Toolkit& oToolkit, Paper::Printers& oPrinters);
  ~Connect() override;
  Connect(const Connect&) = delete;
  Connect& operator=(const Connect&) = delete;

  /// nConnectMode 0 and 1 hang the menu entry and the toolbar, 2 opens the main window at once and
  /// returns when it closes; others only connect. A second connection keeps the first IDE and
  /// window.
  void OnConnection(VBE& oVBInst, ConnectMode nConnectMode) override;
  void OnDisconnection(std::int32_t nRemoveMode) override;
  void OnStartupComplete() override {}
  void OnAddInsUpdate() override;

  void AddMenus();
  /// Takes away by name what is there, also what a run that crashed left behind. Never fails.
  void RemoveAddInMenus();

  /// Null unless connected.
  FMain* Main() const { return moMain.get(); }

 private:
  void AddMenuEntry(GuardScope& oScope);
  void AddToolBar(GuardScope& oScope);
  /// sRoutine lives as long as the program.
  Connection OnClick(CommandBarControl* poControl, TextView sRoutine);
  void Clicked(TextView sRoutine);
  void RestorePlace();
  void SavePlace() const;
  void ForgetControls();

  Forms::Toolkit& moToolkit;
  Paper::Printers& moPrinters;
  VBE* VBInst = nullptr;
  CommandBar* moToolBar = nullptr;
  CommandBarControl* moButton = nullptr;
  CommandBarControl* moMenu = nullptr;
  std::unique_ptr<FMain> moMain;
  Connection moMenuEvents, moButtonEvents;
};
