// What the modal dialogs have in common: a window of fixed size in the middle of the screen, or
// where it stood last; a key of its own in the registry, which holds that place; and showing it
// with a pointer that isn't busy. A dialog is an object that lives for one call of its Display.
#pragma once

#include "Form.h"
#include "Frame.h"

class FDialog : public Forms::Form {
 protected:
  /// sKey: name of the key below MXRegistry::RootKey, which dialogs may share.
  FDialog(Forms::Toolkit& oToolkit, TextView sName, TextView sKey);
  ~FDialog() override;

  /// For Design: lWidth and lHeight are the window's, with its frame and title.
  void DesignWindow(TextView sCaption, std::int32_t lWidth, std::int32_t lHeight);
  /// Shows the loaded form and returns when it is hidden or unloaded. Then the
  /// pointer is what it was before.
  void RunModal();
  /// 0 while the form isn't loaded.
  std::int32_t hReg() const { return mhReg; }

 private:
  void OpenKey(TextView sKey);
  void CloseKey();

  std::int32_t mhReg = 0;
};
