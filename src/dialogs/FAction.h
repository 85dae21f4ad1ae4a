// The dialogs that ask how much of the group a command is to work on: one window with six captions,
// help pages and pictures. All six keep their place under the one key "FAction".
#pragma once

#include "CommandButton.h"
#include "ControlArray.h"
#include "FDialog.h"
#include "PictureBox.h"

/// What was chosen: the number of the pressed button of cmdAction.
enum class eAction : std::int16_t {
  Cancel = 0,     ///< or the window's close box
  Selection = 1,  ///< the selected rows of the list in front
  Module = 2,     ///< all procedures of the current component
  Project = 3,    ///< the current project
  All = 4,        ///< all projects of the group
};

class FAction : public FDialog {
 public:
  /// The flags enable the buttons; the one for the project is always enabled.
  eAction Display(bool bSelection, bool bModule, bool bAll);

  Forms::PictureBox Image1{*this, u"Image1"};
  Forms::ControlArray<Forms::CommandButton> cmdAction{*this, u"cmdAction", 5};  ///< 1 to 4
  Forms::CommandButton cmdCancel{*this, u"cmdCancel"}, cmdHelp{*this, u"cmdHelp"};

 protected:
  /// sName: also the key of the picture. sCaption: lasts as long as the dialog.
  FAction(Forms::Toolkit& oToolkit, TextView sName, TextView sCaption, std::int32_t lHelpContext);

 private:
  void Design() override;
  void DesignButtons();
  void cmdAction_Click(std::int32_t Index);

  TextView msCaption;
  std::int32_t mlHelpContext;
  eAction miAction = eAction::Cancel;
};

class FApplyPending : public FAction {
 public:
  explicit FApplyPending(Forms::Toolkit& oToolkit)
      : FAction(oToolkit, u"FApplyPending", u"Apply Pending to VB Code", 2100) {}
};

class FCopySuggest : public FAction {
 public:
  explicit FCopySuggest(Forms::Toolkit& oToolkit)
      : FAction(oToolkit, u"FCopySuggest", u"Copy Suggested to Pending", 2000) {}
};

class FUndoPending : public FAction {
 public:
  explicit FUndoPending(Forms::Toolkit& oToolkit)
      : FAction(oToolkit, u"FUndoPending", u"Discard Pending Properties", 2000) {}
};

class FInsertLine : public FAction {
 public:
  explicit FInsertLine(Forms::Toolkit& oToolkit)
      : FAction(oToolkit, u"FInsertLine", u"Insert Line Numbers", 2100) {}
};

class FRemoveLine : public FAction {
 public:
  explicit FRemoveLine(Forms::Toolkit& oToolkit)
      : FAction(oToolkit, u"FRemoveLine", u"Remove Line Numbers", 2100) {}
};

class FRefreshTemplates : public FAction {
 public:
  explicit FRefreshTemplates(Forms::Toolkit& oToolkit)
      : FAction(oToolkit, u"FRefreshTemplates", u"Refresh Error Handlers", 2100) {}
};
