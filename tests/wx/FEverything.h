// A form with every kind of control, and a log of what it hears.
#pragma once

#include "CodePane.h"
#include "ComboBox.h"
#include "ControlArray.h"
#include "Line.h"
#include "ListBox.h"
#include "ListView.h"
#include "Menu.h"
#include "PictureBox.h"
#include "Play.h"
#include "StatusBar.h"
#include "Timer.h"
#include "TreeView.h"
#include "UserControl.h"

/// A control of several parts: an entry with a button that drops a list over what is below.
class Chooser : public Forms::UserControl {
 public:
  Chooser(Forms::ControlContainer& container, TextView name);

  Forms::TextBox txtEntry{*this, u"txtEntry"};
  Forms::CommandButton cmdDrop{*this, u"cmdDrop"};
  Forms::ListBox lstChoices{*this, u"lstChoices"};

 private:
  void Design() override;
};

class FEverything : public Forms::Form {
 public:
  FEverything(Forms::Toolkit& toolkit, EventLog& log);

  Forms::Menu mnuFile{*this, u"mnuFile"};
  Forms::Menu mnuOpen{mnuFile, u"mnuOpen"}, mnuProof{mnuFile, u"mnuProof"};
  Forms::ControlArray<Forms::Menu> mnuRecent{mnuFile, u"mnuRecent"};
  Forms::Menu mnuLine{mnuFile, u"mnuLine"}, mnuExit{mnuFile, u"mnuExit"};
  Forms::ImageList imgIcons{*this, u"imgIcons"};
  Forms::Label lblName{*this, u"lblName"};
  Forms::TextBox txtName{*this, u"txtName"}, txtResults{*this, u"txtResults"};
  Forms::Frame fraKinds{*this, u"fraKinds"};
  Forms::CheckBox chkLocked{fraKinds, u"chkLocked"}, chkOff{fraKinds, u"chkOff"};
  Forms::OptionButton optFirst{fraKinds, u"optFirst"}, optSecond{fraKinds, u"optSecond"};
  Forms::CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"},
      cmdApply{*this, u"cmdApply"};
  Forms::Line linTop{*this, u"linTop"};
  Forms::PictureBox picOpen{*this, u"picOpen"}, picX{*this, u"picX"};
  Forms::ComboBox cboKind{*this, u"cboKind"};
  Forms::TreeView tvwAll{*this, u"tvwAll"};
  Forms::ListView lvwRows{*this, u"lvwRows"};
  Forms::ListBox lstFew{*this, u"lstFew"};
  Forms::TabStrip tabPages{*this, u"tabPages"};
  Forms::CodePane codText{*this, u"codText"};
  Forms::StatusBar staBelow{*this, u"staBelow"};
  Forms::ControlArray<Forms::Label> lblMore{*this, u"lblMore"};
  Forms::ControlArray<Forms::CheckBox> chkMore{*this, u"chkMore"};
  Chooser choKind{*this, u"choKind"};
  Forms::Timer tmrOnce{*this, u"tmrOnce"};

 private:
  void Design() override;
  void DesignMenus();
  void DesignDetails();
  void DesignLists();
};
