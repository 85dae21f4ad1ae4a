// The main window's parts and their values of design time; what they do is FMain's.
//
// From left to right: the project tree, one of the two lists, the tabs with their panes; bars to
// drag between them; below the lists the pane of modules that can't be read, hidden at first.
#pragma once

#include <array>

#include "Caption.h"
#include "CodePane.h"
#include "CommandButton.h"
#include "Form.h"
#include "Frame.h"
#include "ListView.h"
#include "MainToolbar.h"
#include "MenuTable.h"
#include "PropertyList.h"
#include "Scroller.h"
#include "StatusBar.h"
#include "TabStrip.h"
#include "Timer.h"
#include "TreeView.h"

class MainForm : public Forms::Form {
 public:
  MenuTable oMenu;
  MainToolbar oToolbar{*this};
  Forms::ImageList imlProjects{*this, u"imlProjects"};
  Forms::Timer tmrStartUp{*this, u"tmrStartUp"};

  ::Caption lblTree{*this, u"lblTree"};
  Forms::TreeView tvwProjects{*this, u"tvwProjects"};
  Forms::PictureBox picSplit1{*this, u"picSplit1"};
  ::Caption lblList{*this, u"lblList"};
  Forms::Label lblListViewSurrogate{*this, u"lblListViewSurrogate"};
  Forms::ListView lvwMods{*this, u"lvwMods"}, lvwProcs{*this, u"lvwProcs"};
  Forms::PictureBox picSplit3{*this, u"picSplit3"};
  Forms::Frame fraErrors{*this, u"fraErrors"};
  Forms::ControlArray<Forms::Label> lblErrors{fraErrors, u"lblErrors", 2};
  Forms::CommandButton cmdHideErrors{fraErrors, u"cmdHideErrors"};
  Scroller srlErrors{fraErrors, u"srlErrors"};
  Forms::PictureBox picSplit2{*this, u"picSplit2"};
  Forms::PictureBox picContainer{*this, u"picContainer"};
  Forms::TabStrip tabView{picContainer, u"tabView"};
  ::Caption lblProperties{picContainer, u"lblProperties"}, lblCode{picContainer, u"lblCode"},
      lblResults{picContainer, u"lblResults"};
  PropertyList prlProperties{picContainer, u"prlProperties"};
  Forms::CodePane txtCode{picContainer, u"txtCode"};
  Scroller srlResults{picContainer, u"srlResults"};
  Forms::StatusBar StatusBar1{*this, u"StatusBar1"};
  Forms::PictureBox picProgress{*this, u"picProgress"};

  /// What stands between the bars: both lists, and the label in their place while they are hidden.
  std::array<Forms::Control*, 3> Lists() { return {&lvwMods, &lvwProcs, &lblListViewSurrogate}; }

 protected:
  /// run: for the commands, which come with the window.
  MainForm(Forms::Toolkit& oToolkit, MenuTable::Runner run);

  /// The title of the errors' pane looks as that of a window with the focus, or without.
  void ColorErrorsTitle(bool bFocus);

 private:
  void Design() override;
  void DesignBrowser();
  void DesignBars();
  void DesignErrors();
  void DesignPanes();
};
