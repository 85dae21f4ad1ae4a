#include "PageSetup.h"

#include "CXChoosePage.h"
#include "Form.h"
#include "MOptions.h"

void ShowPageSetup(Forms::Form& oOwner, Paper::Printers& oPrinters) {
  CXChoosePage oPage(oOwner.App(), oPrinters);
  oPage.Dialog = &oOwner;
  oPage.ScaleMode = CXChoosePage::Inches;
  oPage.LeftMargin = MOptions::lLeftMargin;
  oPage.TopMargin = MOptions::lTopMargin;
  oPage.RightMargin = MOptions::lRightMargin;
  oPage.BottomMargin = MOptions::lBottomMargin;
  if (!oPage.Show()) return;
  MOptions::lLeftMargin = oPage.LeftMargin;
  MOptions::lTopMargin = oPage.TopMargin;
  MOptions::lRightMargin = oPage.RightMargin;
  MOptions::lBottomMargin = oPage.BottomMargin;
  MOptions::SetPage();
}
