// What the library is beside its COM side: windows inside the IDE's process, settings, the error
// run-time, and the add-in itself. Made before the IDE gets its first object, ended when the
// library may leave the process; both can come again.
#pragma once

#include <memory>

#include "AddInObject.h"
#include "Desktop.h"
#include "Printers.h"
#include "RegistryStore.h"

class AddInProgram : public IAddInProgram {
 public:
  /// module: the library (its HMODULE). folder: where it lies, with help and template beside it.
  /// Null when it can't work; the user has been told why.
  static std::unique_ptr<AddInProgram> Start(void* module, const Text& folder, Text commandLine);
  ~AddInProgram() override;

  std::unique_ptr<IDTExtensibility> MakeAddIn() override;
  bool HoldsGroup(const IDTExtensibility& addIn) override;
  void CloseWindow(IDTExtensibility& addIn) override;
  void SetIDE(const ComIDE* ide) override { mIDE = ide; }

 private:
  explicit AddInProgram(void* module);
  bool StartUp(const Text& folder, Text commandLine);

  const ComIDE* mIDE = nullptr;
  RegistryStore mStore;
  Forms::HostedDesktop mDesktop;
  Paper::Printers mPrinters;
};
