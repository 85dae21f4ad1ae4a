// The About box: which program this is, whose, and the notice against unauthorised copying.
//
//   FAbout(oToolkit).Display();
#pragma once

#include "CommandButton.h"
#include "Form.h"
#include "Label.h"
#include "PictureBox.h"

class FAbout : public Forms::Form {
 public:
  explicit FAbout(Forms::Toolkit& oToolkit);
  /// Returns when the user has closed it.
  void Display(Forms::Form* poOwner = nullptr);

  Forms::PictureBox picIcon{*this, u"picIcon"};
  Forms::Label lblVersion{*this, u"lblVersion"}, lblLegal{*this, u"lblLegal"},
      lblWarning{*this, u"lblWarning"};
  Forms::CommandButton cmdOK{*this, u"cmdOK"};

 private:
  void Design() override;
};
