// Asks what becomes of unsaved changes before a group is closed.
//
//   switch (FSave(App()).Display(asPath)) ...
#pragma once

#include <string>
#include <vector>

#include "CommandButton.h"
#include "FDialog.h"
#include "Label.h"
#include "ListBox.h"

enum class SaveAnswer { Save, Discard, Cancel };

class FSave : public FDialog {
 public:
  explicit FSave(Forms::Toolkit& oToolkit);
  /// asPath: the files with unsaved changes. Closing the dialog is Cancel.
  SaveAnswer Display(const std::vector<std::string>& asPath);

  Forms::Label lblPrompt{*this, u"lblPrompt"};
  Forms::ListBox lstFiles{*this, u"lstFiles"};
  Forms::CommandButton cmdSave{*this, u"cmdSave"}, cmdDiscard{*this, u"cmdDiscard"},
      cmdCancel{*this, u"cmdCancel"};

 private:
  void Design() override;
  void LayOut();
  void Answer(SaveAnswer eAnswer);

  SaveAnswer meAnswer = SaveAnswer::Cancel;
};
