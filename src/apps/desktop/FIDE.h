// The stand-in IDE: a window over the project files of a group, from which an add-in runs as it
// does in the IDE. It shows projects and components in a tree, the code of one of them, and how
// that differs from its file; its menu "Add-Ins" and its tool bars are those of the object model,
// so that what an add-in puts there appears, and clicks reach it.
//
//   FIDE oIDE(oToolkit, oFaces, [&] { return std::make_unique<Connect>(oToolkit, oPrinters); });
//   oIDE.Start({u"/src/Orders.vbg", 1});   // returns at once; the rest comes with the main loop
//
// Nothing on disk changes before Save All. Files that other programs change meanwhile are read
// again, when the window comes to the front and around everything that the add-in does; one with
// unsaved changes is a conflict: the user is told, and Save All refuses to overwrite it.
//
// Subjects: FIDE (design and layout), FIDE_Menus (the commands), FIDE_Group (opening, saving,
// leaving), FIDE_Runs (a save as a run, and taking one back), FIDE_AddIn (the add-in and its bars),
// FIDE_View (tree, code and changes).
#pragma once

#include <functional>
#include <memory>
#include <set>

#include "ButtonFaces.h"
#include "CXRecent.h"
#include "CXSplit.h"
#include "CodePane.h"
#include "DiskIDE.h"
#include "Form.h"
#include "GroupTree.h"
#include "Guard.h"
#include "MenuTable.h"
#include "StatusBar.h"
#include "TabStrip.h"
#include "Timer.h"
#include "ToolBars.h"

class WritingRun;

class FIDE : public Forms::Form {
 public:
  using MakeAddIn = std::function<std::unique_ptr<IDTExtensibility>()>;

  struct Setup {
    /// Full path of a group, a project or a folder; empty: the one that was open last, and
    /// without one the user is asked.
    Text sGroup;
    ConnectMode nConnectMode = ConnectMode::Startup;
    /// Folders below which components may be written, besides the work tree of the group.
    std::vector<std::string> roots{};
  };

  /// oFaces: where the toolkit's pictures of buttons come from; it outlives this object.
  FIDE(Forms::Toolkit& oToolkit, ButtonFaces& oFaces, MakeAddIn oMakeAddIn);
  ~FIDE() override;

  /// Shows the window. A moment later it opens the group and connects the add-in, so that
  /// questions stand above a window that is there.
  void Start(const Setup& oSetup);
  /// Asks about unsaved changes first. A path that can't be opened is told, and the group that is
  /// open stays. True when it is open.
  bool OpenGroup(TextView sPath);
  /// Tells what couldn't be saved, and why. True when nothing is left to save.
  bool SaveAll();

  /// Menus by their names, such as `mnuFileSave`. Arrays: of mnuFileRecent, 1 to 9 are the groups
  /// that were opened last and 10 is the separator below them; mnuViewToolBar has one from 1 for
  /// each tool bar, mnuAddInsItem one for each entry of an add-in.
  MenuTable oMenu;

  Forms::ImageList imlGroup{*this, u"imlGroup"};
  Forms::Timer tmrStart{*this, u"tmrStart"};
  /// From 1: the buttons of the tool bars.
  Forms::ControlArray<Forms::CommandButton> cmdTool{*this, u"cmdTool"};
  Forms::TreeView tvwGroup{*this, u"tvwGroup"};
  Forms::PictureBox picSplit{*this, u"picSplit"};
  Forms::PictureBox picRight{*this, u"picRight"};
  Forms::TabStrip tabView{picRight, u"tabView"};
  Forms::CodePane paneCode{picRight, u"paneCode"}, paneChanges{picRight, u"paneChanges"};
  Forms::StatusBar staBar{*this, u"staBar"};

 private:
  /// A handler of an event: no failure leaves it.
  template <class Work>
  void Handle(TextView sProcedure, Work&& oWork) {
    Guard({u"FIDE", sProcedure, ErrorIds::BoundaryVB}, [&](GuardScope&) { oWork(); });
  }

  // FIDE.
  std::vector<CommandMenu> Menus();
  void ConnectEvents();
  void Design() override;
  void DesignPanes();
  void Form_Load();
  void RestorePlaces();
  void Form_Resize();
  void LayOutRight();

  // FIDE_Group.
  void tmrStart_Tick();
  void mnuFileOpen_Click();
  void ShowRecent();
  /// Reads a group; asks about folders outside of its work tree, once for each.
  std::unique_ptr<DiskIDE> ReadGroup(const std::string& path);
  bool MayWriteIn(const std::vector<std::string>& folders);
  /// Takes the group over in place of the one that is open.
  void TakeGroup(std::unique_ptr<DiskIDE> pNew, TextView sPath);
  void TellNotes();
  /// Asks what becomes of unsaved changes. False: the group has to stay.
  bool MayLeaveGroup();
  void Form_QueryUnload(bool& bCancel);
  void Form_Unload();

  // FIDE_Runs.
  /// Failure when nothing could be saved at all.
  DiskIDE::SaveResult SaveAsRun();
  void OfferToMend(const std::string& group);
  void TellRun(const std::vector<std::string>& messages);
  void mnuFileUndo_Click();
  void TakeBackLast(WritingRun& own);

  // FIDE_AddIn.
  void ConnectAddIn(ConnectMode nConnectMode);
  void DisconnectAddIn();
  void Clicked(CommandBarControl* poControl);
  /// Runs something that may lead into the add-in, and shows what has become of the group.
  template <class Work>
  void InAddIn(Work&& oWork);
  void ShowBars();
  void mnuViewToolBar_Click(std::int32_t lIndex);

  // FIDE_View.
  void ShowGroup();
  void tvwGroup_NodeClick();
  void ShowView(TextView sKey);
  void ShowCode();
  void ShowComponentCode(VBComponent& oComponent);
  void ShowChanges();
  /// Marks, what can be saved, and the changes of the component that is selected.
  void ShowGroupState();
  /// Reads files that changed on disk, and reports new conflicts.
  void Refresh();
  void TellConflicts(const std::vector<std::string>& asConflict);
  void TellProjects(const std::vector<std::string>& asProject);
  void Tell(TextView sText);
  bool IsYes(TextView question);

  ButtonFaces& moFaces;
  MakeAddIn moMakeAddIn;
  Setup moSetup;
  Text msGroup;  ///< full path; empty while none is open
  // The add-in ends before the IDE that it is connected to.
  std::unique_ptr<DiskIDE> mpIDE;
  std::unique_ptr<IDTExtensibility> mpAddIn;
  GroupTree moTree{tvwGroup, imlGroup};
  BarMenu moBarMenu{oMenu.Array(u"mnuAddInsItem")};
  ToolBars moToolBars{cmdTool, moFaces};
  CXRecent moRecent;
  std::unique_ptr<CXSplit> mpSplit;
  Connection moSplitLink;
  std::set<std::string> masConflict;  ///< conflicts that the user knows of
  bool mbInAddIn = false;
  std::int32_t mhReg = 0, mhRegSplit = 0, mhRegRecent = 0;
};
