// The main window: a browser over the open projects, the property sheet of what is selected, and
// every command. The add-in's connection makes one and shows it modally above the IDE:
//
//   FMain oMain(oToolkit, oPrinters);
//   oMain.Display(oVBE, oConnect);  // returns when the user has left the window
//
// It owns the template and the model of the group while a template is open, and turns menus, the
// toolbar and selections into calls on them; the model answers by events, one per row, which fill
// the tree and the lists. Everything in here refers to the model by handles only.
//
// Subjects, each in a file of its own: FMain_Shell (showing, loading, leaving), _Commands (which
// are enabled), _Template (opening and closing one), _Tree, _Lists, _Sheet, _Code, _Bulk (commands
// on many procedures), _Select, _Guard (the hourglass and progress), _Layout, _Panes, _Print.
#pragma once

#include <memory>
#include <optional>

#include "CIDEHandler.h"
#include "CXListView.h"
#include "CXRecentFiles.h"
#include "CXSplit.h"
#include "FAction.h"
#include "Guard.h"
#include "MainForm.h"

class Connect;
namespace Paper {
class Printers;
}
namespace PropertySheet {
struct Subject;
}

class FMain : public MainForm {
 public:
  /// The printers outlive the window.
  FMain(Forms::Toolkit& oToolkit, Paper::Printers& oPrinters);
  ~FMain() override;

  /// Shows the window modally. The first call, and the first after the window was closed, takes
  /// the arguments, which outlive the window, and opens a template once the window is there.
  void Display(VBE& VBInst, Connect& oConnect);
  /// The caller of Display; null before.
  Connect* poConnect() const { return moConnect; }

  /// Counts operations that may run inside one another: the outermost sets the pointer of the
  /// screen, and its end gives the normal one back. Blocks nothing.
  void EventPush(std::int32_t MousePointer);
  void EventPop();
  /// Ends all operations that a failure left open.
  void EventFlush();
  /// True inside at least two operations.
  void CascadedEvent(bool& bCascaded) const { bCascaded = miEventDepth >= 2; }

  /// What the tree's selected node stands for; none and none without one, no component for a
  /// project or a folder.
  void SelectedNode(ProjectHandle& ihProject, ComponentHandle& ihComponent) const;
  /// Selects the node of a component, or of a project, and shows what is in it.
  void SelectNode(ProjectHandle ihProject, ComponentHandle ihComponent);

  /// null while no template is open, or one with errors is.
  CIDEHandler* Model() const { return oIDEHandler.get(); }

 private:
  enum class State : std::int32_t { NoTemplate = 0, Ready = 1, TemplateErrors = 2 };

  /// A handler of an event: no failure leaves it. True when it came to its end.
  template <class Work>
  bool OnEvent(TextView sProcedure, Work&& oWork,
               std::int32_t eSeverity = ErrorIds::SeverityNormal) {
    return Guard({u"FMain", sProcedure, ErrorIds::BoundaryVB, eSeverity},
                 [&](GuardScope&) { oWork(); });
  }
  /// The same for one that takes its time. A failure leaves the hourglass to the next EventFlush.
  template <class Work>
  void Busy(TextView sProcedure, Work&& oWork) {
    OnEvent(sProcedure, [&] {
      EventPush(Forms::Pointer::Hourglass);
      oWork();
      EventPop();
    });
  }
  void ConnectWindow();
  void ConnectMenus();
  void ConnectBrowser();
  void ConnectPanes();
  void ConnectModel();

  // FMain_Shell.
  void Form_Load();
  void OpenKeys();
  void CloseKeys();
  void RestorePlaces();
  void MakeSplitters();
  void MakeLists();
  void Form_QueryUnload(bool& bCancel, Forms::UnloadMode eMode);
  void Form_Unload();
  bool MayDiscard();
  void tmrStartUp_Timer();
  void mnuFileExit_Click();
  void mnuRulesDefine_Click();
  void mnuToolsOptions_Click();
  void mnuToolsProve_Click();
  void mnuHelpTopics_Click();
  void mnuHelpIndex_Click();
  void mnuHelpSearch_Click();
  void mnuHelpSupport_Click();
  void mnuHelpWeb_Click();
  void mnuHelpAbout_Click();

  // FMain_Commands.
  void ManageControls();
  bool HasTemplate() const { return meState == State::Ready; }
  bool HasProjects();
  bool HasPrinter();
  void mnuFile_Click();
  void mnuView_Click();
  void mnuSelect_Click();
  void mnuProps_Click();
  void mnuTools_Click();
  void mnuHelp_Click();
  void ButtonClick(ToolbarButton eButton);

  // FMain_Template.
  void mnuFileOpenTemplate_Click();
  void mnuFileRecent_Click(std::int32_t Index);
  /// False: an event that was let through meanwhile opened another template, or left the window.
  bool OpenTemplate(TextView sTemplateFile);
  /// The same, and puts the file on top of the recent ones.
  void OpenAsRecent(const Text& file);
  bool LoadTemplate(TextView sTemplateFile);
  void BuildModel();
  void LoadLookups();
  void ChooseFirstNode();
  void AddTabs();
  void CloseTemplate();
  Text TemplateBesideProgram() const;

  // FMain_Tree.
  void EnumProjectsProc(ProjectHandle hProject, TextView sTitle, ProjectType nType);
  void EnumComponentsProc(ProjectHandle hProject, ComponentHandle hComponent, TextView sName,
                          ComponentType nComponentType);
  void EnumComponentsEOF(ProjectHandle hProject);
  void tvwProjects_NodeClick();
  void ProcessNode(Forms::Node& oNode);
  /// False: the template was closed meanwhile, or another node clicked.
  bool ShowComponent(TextView sNode);
  bool ShowModules(TextView sNode, std::int32_t lFolder);
  void mnuViewProjectTree_Click() { SwitchView(u"mnuViewProjectTree_Click", u"Tree"); }
  void mnuViewProjectList_Click() { SwitchView(u"mnuViewProjectList_Click", u"List"); }
  void SwitchView(TextView sProcedure, TextView sView);
  void RefreshProjectTree();

  // FMain_Lists.
  void HideLists();
  void ShowList(Forms::ListView& oList);
  void EnumComponentsExProc(const ComponentRow& oRow);
  /// At the end of the list: names the missing files in the Errors pane, once each time they
  /// change.
  void TellMissingFiles();
  void EnumProceduresProc(const ProcedureRow& oRow);
  void EnumProceduresError(ComponentHandle hComponent, const LoadError& oError);
  void RefreshModList(bool bSelectedOnly);
  void RefreshProcList(bool bSelectedOnly, bool bReprocess);
  void RefreshCurrentList(bool bSelectedOnly);
  void RefreshProcRow(Forms::ListItem& oRow);
  void MarkRow(Forms::ListItem& oRow, bool bDirty);
  void lvwMods_DblClick();
  void SortBy(Forms::ListView& oList, const Forms::ColumnHeader& oColumn);
  void ShowObjectCount(Forms::ListView& oList);
  void ShowPath(TextView sPath);
  void FitPath();
  /// The list in front; null while none is.
  Forms::ListView* ListInFront();
  bool ShowsProcs() const { return msListType == u"Procs"; }
  bool ShowsMods() const { return msListType == u"Mods"; }

  // FMain_Sheet.
  void ProcessProcListSelection();
  void ProcessModListSelection();
  void ListSelectionExists(bool& bExists);
  void ClearSheet();
  void ShowOne(const Forms::ListItem& oRow);
  void ShowSeveral();
  void ShowSheet(PropertySheet::Subject& oSubject);
  void prlProperties_PropertyChange(TextView sName, TextView sValue);
  void SetPending(const Forms::ListItem& oRow, TextView sName, TextView sValue);

  // FMain_Code.
  void ShowCode(ProcedureHandle hProcedure);
  void ShowPendingCode(ProcedureHandle hProcedure, TextView sPresent);
  void mnuViewPending_Click();

  // FMain_Bulk.
  bool HasScope() const;
  template <class Dialog>
  eAction AskScope();
  template <class Visit>
  void WalkScope(eAction eScope, Visit&& oVisit);
  void RefreshAfter(eAction eScope);
  template <class Dialog>
  void RunRefresh(TextView sProcedure, MQuillon::LineNumAction LineNumAction);
  void DoRefresh(eAction eScope, MQuillon::LineNumAction LineNumAction);
  void mnuToolsApplyPending_Click();
  void mnuPropsCopySuggest_Click();
  void mnuPropsUndoPending_Click();
  void mnuToolsLineAdd_Click();
  void mnuToolsLineRemove_Click();
  void mnuToolsRefresh_Click();

  // FMain_Select.
  template <class Choice>
  void SelectRows(TextView sProcedure, Choice&& oChoice);
  void mnuSelectAll_Click();
  void mnuSelectNone_Click();
  void mnuSelectInvert_Click();
  void mnuSelectCustom_Click();

  // FMain_Guard.
  void ProgressStart();
  void ProgressEnd();
  void Progress(std::int16_t Percent, TextView Caption);
  /// Shows progress over the rows of a list, if they are many. Until its end the model's own
  /// progress events aren't shown.
  class RowProgress;

  // FMain_Layout.
  /// Moves the bars to the given places if their stored ones are damaged.
  void HoldBars(const Forms::Rect& oBar1, const Forms::Rect& oBar2, const Forms::Rect& oBar3);
  void PlacePanes();
  void Form_Resize();
  void LayOutVertically();
  void picContainer_Resize();
  void oSplit2_AfterSplit();
  void oSplit3_AfterSplit();

  // FMain_Panes.
  void tabView_Click();
  void SelectTab(TextView sKey);
  void ShowErrors();
  void HideErrors();
  void mnuViewProperties_Click();
  void mnuViewCode_Click();
  void mnuViewResults_Click();
  void mnuViewErrors_Click();
  void mnuEditClearResults_Click();
  void mnuEditClearErrors_Click();

  // FMain_Print.
  void mnuFilePrint_Click();
  void mnuFilePageSetup_Click();

  Paper::Printers& moPrinters;
  VBE* moVBInst = nullptr;
  Connect* moConnect = nullptr;
  CXRecentFiles oRecentFiles;

  // The template outlives the model, which refers to it. The model is shared, because it
  // handles events while it enumerates: the loop keeps it alive if an event closes the template.
  std::shared_ptr<CTemplate> oTemplate;
  std::shared_ptr<CIDEHandler> oIDEHandler;
  Connection moReportLink;
  std::vector<Connection> moModelLinks, moSplitLinks;

  std::optional<CXSplit> oSplit1, oSplit2, oSplit3;
  CXListView moModList, moProcList;

  State meState = State::NoTemplate;
  ProjectHandle mhProject;
  ComponentHandle mhComponent;
  bool mbReadOnly = false;
  std::int32_t mlLastNode = 0;
  std::uint32_t mnNodesShown = 0;  ///< counts ProcessNode, so that one notices another inside it
  Text msListType;
  std::int32_t mlSelectedCount = 0;
  bool mbErrors = false;
  TextArray mMissing, mMissingTold;  ///< components of the module list whose file isn't there
  bool mbPendingCode = false;
  bool mbRowProgress = false;
  std::int16_t miEventDepth = 0;
  bool mbPanelsSaved = false;
  Text msSavedPanel1, msSavedPanel2;
  std::int32_t mhRegForm = 0, mhRegRecent = 0, mhRegSplit1 = 0, mhRegSplit2 = 0, mhRegSplit3 = 0,
               mhRegModList = 0, mhRegProcList = 0;
};
