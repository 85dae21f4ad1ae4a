#include "FDialog.h"

#include "MXForm.h"
#include "MXRegistry.h"
#include "Toolkit.h"

FDialog::FDialog(Forms::Toolkit& oToolkit, TextView sName, TextView sKey) : Form(oToolkit, sName) {
  On(OnLoad, [this, s = Text(sKey)] {
    OpenKey(s);
    MXForm::Center(*this);
    MXForm::RestorePosition(*this, mhReg, false);
  });
  On(QueryUnload, [this](bool&, Forms::UnloadMode) { MXForm::SavePosition(*this, mhReg, false); });
  On(OnUnload, [this](bool&) { CloseKey(); });
}

FDialog::~FDialog() {
  CloseKey();
}

void FDialog::OpenKey(TextView sKey) {
  mhReg =
      MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER, Text(MXRegistry::RootKey).append(sKey),
                             MXRegistry::KEY_ALL_ACCESS);
}

void FDialog::CloseKey() {
  if (mhReg != 0) MXRegistry::CloseRegKey(mhReg);
  mhReg = 0;
}

void FDialog::DesignWindow(TextView sCaption, std::int32_t lWidth, std::int32_t lHeight) {
  SetCaption(sCaption);
  SetBorderStyle(Forms::FormBorder::FixedDialog);
  SetMaxButton(false);
  SetMinButton(false);
  Move(0, 0, lWidth, lHeight);
}

void FDialog::RunModal() {
  const std::int32_t nBefore = App().Screen().MousePointer();
  App().Screen().SetMousePointer(Forms::Pointer::Default);
  Show(Forms::ShowMode::Modal);
  App().Screen().SetMousePointer(nBefore);
}
