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

namespace Forms {

/// A control of several parts: an entry with a button that drops a list over what is below.
class Chooser : public UserControl {
 public:
  Chooser(ControlContainer& container, TextView name);

  TextBox txtEntry{*this, u"txtEntry"};
  CommandButton cmdDrop{*this, u"cmdDrop"};
  ListBox lstChoices{*this, u"lstChoices"};

 private:
  void Design() override;
};

class FEverything : public Form {
 public:
  FEverything(Toolkit& toolkit, EventLog& log);

  Menu mnuFile{*this, u"mnuFile"}, mnuOpen{mnuFile, u"mnuOpen"}, mnuProof{mnuFile, u"mnuProof"};
  ControlArray<Menu> mnuRecent{mnuFile, u"mnuRecent"};
  Menu mnuLine{mnuFile, u"mnuLine"}, mnuExit{mnuFile, u"mnuExit"};
  ImageList imgIcons{*this, u"imgIcons"};
  Label lblName{*this, u"lblName"};
  TextBox txtName{*this, u"txtName"}, txtResults{*this, u"txtResults"};
  Frame fraKinds{*this, u"fraKinds"};
  CheckBox chkLocked{fraKinds, u"chkLocked"}, chkOff{fraKinds, u"chkOff"};
  OptionButton optFirst{fraKinds, u"optFirst"}, optSecond{fraKinds, u"optSecond"};
  CommandButton cmdOK{*this, u"cmdOK"}, cmdCancel{*this, u"cmdCancel"},
      cmdApply{*this, u"cmdApply"};
  Line linTop{*this, u"linTop"};
  PictureBox picOpen{*this, u"picOpen"}, picX{*this, u"picX"};
  ComboBox cboKind{*this, u"cboKind"};
  TreeView tvwAll{*this, u"tvwAll"};
  ListView lvwRows{*this, u"lvwRows"};
  ListBox lstFew{*this, u"lstFew"};
  TabStrip tabPages{*this, u"tabPages"};
  CodePane codText{*this, u"codText"};
  StatusBar staBelow{*this, u"staBelow"};
  ControlArray<Label> lblMore{*this, u"lblMore"};
  ControlArray<CheckBox> chkMore{*this, u"chkMore"};
  Chooser choKind{*this, u"choKind"};
  Timer tmrOnce{*this, u"tmrOnce"};

 private:
  void Design() override;
  void DesignMenus(), DesignDetails(), DesignLists();
};

}  // namespace Forms
