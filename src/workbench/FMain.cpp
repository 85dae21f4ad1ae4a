// Which event goes to which handler.
#include "FMain.h"

#include "FAbout.h"
#include "MQuillon.h"
#include "MXHTMLHelp.h"

using namespace Forms;

FMain::FMain(Toolkit& oToolkit, Paper::Printers& oPrinters)
    : MainForm(oToolkit), moPrinters(oPrinters) {
  ConnectWindow();
  ConnectMenus();
  ConnectBrowser();
  ConnectPanes();
}

FMain::~FMain() = default;

void FMain::ConnectWindow() {
  On(OnLoad, [this] { Form_Load(); });
  On(QueryUnload, [this](bool& bCancel, UnloadMode eMode) { Form_QueryUnload(bCancel, eMode); });
  On(OnUnload, [this](bool&) { Form_Unload(); });
  On(Resize, [this] { Form_Resize(); });
  On(MouseMove, [this](auto, auto, auto, auto) { oToolbar.ButtonFrameHide(); });
  On(tmrStartUp.Tick, [this] { tmrStartUp_Timer(); });
  On(oToolbar.ButtonClick, [this](ToolbarButton eButton) { ButtonClick(eButton); });
}

void FMain::ConnectMenus() {
  const auto Runs = [this](Menu& oItem, void (FMain::*Command)()) {
    On(oItem.Click, [this, Command] { (this->*Command)(); });
  };
  Runs(oMenu.mnuFile, &FMain::mnuFile_Click);
  Runs(oMenu.mnuFileOpenTemplate, &FMain::mnuFileOpenTemplate_Click);
  Runs(oMenu.mnuFilePrint, &FMain::mnuFilePrint_Click);
  Runs(oMenu.mnuFilePageSetup, &FMain::mnuFilePageSetup_Click);
  oMenu.mnuFileRecent.OnElement(
      [this](Menu& o) { o.On(o.Click, [this, &o] { mnuFileRecent_Click(o.Index()); }); });
  Runs(oMenu.mnuFileExit, &FMain::mnuFileExit_Click);

  Runs(oMenu.mnuView, &FMain::mnuView_Click);
  Runs(oMenu.mnuViewProjectTree, &FMain::mnuViewProjectTree_Click);
  Runs(oMenu.mnuViewProjectList, &FMain::mnuViewProjectList_Click);
  Runs(oMenu.mnuViewProperties, &FMain::mnuViewProperties_Click);
  Runs(oMenu.mnuViewCode, &FMain::mnuViewCode_Click);
  Runs(oMenu.mnuViewResults, &FMain::mnuViewResults_Click);
  Runs(oMenu.mnuViewErrors, &FMain::mnuViewErrors_Click);
  Runs(oMenu.mnuEditClearResults, &FMain::mnuEditClearResults_Click);
  Runs(oMenu.mnuEditClearErrors, &FMain::mnuEditClearErrors_Click);
  Runs(oMenu.mnuViewPending, &FMain::mnuViewPending_Click);

  Runs(oMenu.mnuSelect, &FMain::mnuSelect_Click);
  Runs(oMenu.mnuSelectAll, &FMain::mnuSelectAll_Click);
  Runs(oMenu.mnuSelectNone, &FMain::mnuSelectNone_Click);
  Runs(oMenu.mnuSelectInvert, &FMain::mnuSelectInvert_Click);
  Runs(oMenu.mnuSelectCustom, &FMain::mnuSelectCustom_Click);

  Runs(oMenu.mnuRulesDefine, &FMain::mnuRulesDefine_Click);

  Runs(oMenu.mnuProps, &FMain::mnuProps_Click);
  Runs(oMenu.mnuPropsCopySuggest, &FMain::mnuPropsCopySuggest_Click);
  Runs(oMenu.mnuPropsUndoPending, &FMain::mnuPropsUndoPending_Click);

  Runs(oMenu.mnuTools, &FMain::mnuTools_Click);
  Runs(oMenu.mnuToolsApplyPending, &FMain::mnuToolsApplyPending_Click);
  Runs(oMenu.mnuToolsLineAdd, &FMain::mnuToolsLineAdd_Click);
  Runs(oMenu.mnuToolsLineRemove, &FMain::mnuToolsLineRemove_Click);
  Runs(oMenu.mnuToolsRefresh, &FMain::mnuToolsRefresh_Click);
  Runs(oMenu.mnuToolsOptions, &FMain::mnuToolsOptions_Click);
  Runs(oMenu.mnuToolsProve, &FMain::mnuToolsProve_Click);

  Runs(oMenu.mnuHelp, &FMain::mnuHelp_Click);
  Runs(oMenu.mnuHelpTopics, &FMain::mnuHelpTopics_Click);
  Runs(oMenu.mnuHelpIndex, &FMain::mnuHelpIndex_Click);
  Runs(oMenu.mnuHelpSearch, &FMain::mnuHelpSearch_Click);
  Runs(oMenu.mnuHelpSupport, &FMain::mnuHelpSupport_Click);
  Runs(oMenu.mnuHelpWeb, &FMain::mnuHelpWeb_Click);
  Runs(oMenu.mnuHelpAbout, &FMain::mnuHelpAbout_Click);
}

void FMain::ConnectBrowser() {
  On(tvwProjects.NodeClick, [this](Node&) { tvwProjects_NodeClick(); });
  const auto Selects = [this](ListView& oList, TextView sName, void (FMain::*Process)()) {
    const auto Run = [this, sName, Process] { Busy(sName, [&] { (this->*Process)(); }); };
    On(oList.MouseUp, [Run](auto, auto, auto, auto) { Run(); });
    On(oList.KeyUp, [Run](std::int32_t& nKeyCode, auto) {
      if (nKeyCode == Key::Up || nKeyCode == Key::Down) Run();
    });
    On(oList.ColumnClick, [this, &oList](ColumnHeader& o) { SortBy(oList, o); });
  };
  Selects(lvwMods, u"lvwMods_Select", &FMain::ProcessModListSelection);
  Selects(lvwProcs, u"lvwProcs_Select", &FMain::ProcessProcListSelection);
  On(lvwMods.DblClick, [this] { lvwMods_DblClick(); });
}

void FMain::ConnectPanes() {
  On(picContainer.Resize, [this] { picContainer_Resize(); });
  On(tabView.Click, [this] { tabView_Click(); });
  On(prlProperties.PropertyChange,
     [this](TextView sName, TextView sValue) { prlProperties_PropertyChange(sName, sValue); });
  On(cmdHideErrors.Click, [this] { OnEvent(u"cmdHideErrors_Click", [&] { HideErrors(); }); });
  lblErrors.OnElement([this](Label& o) {
    o.On(o.MouseDown, [this](auto, auto, auto, auto) {
      OnEvent(u"lblErrors_MouseDown", [&] { srlErrors.SetFocus(); });
    });
  });
  On(srlErrors.GotFocus, [this] { ColorErrorsTitle(true); });
  On(srlErrors.LostFocus, [this] { ColorErrorsTitle(false); });
}

void FMain::ConnectModel() {
  CIDEHandler& o = *oIDEHandler;
  auto& oLinks = moModelLinks;
  oLinks.push_back(o.ProgressStart.Connect([this] {
    if (!mbRowProgress) ProgressStart();
  }));
  oLinks.push_back(o.ProgressEnd.Connect([this] {
    if (!mbRowProgress) ProgressEnd();
  }));
  oLinks.push_back(o.Progress.Connect([this](std::int16_t nPercent, TextView sCaption) {
    if (!mbRowProgress) Progress(nPercent, sCaption);
  }));
  oLinks.push_back(o.EnumProjectsProc.Connect([this](ProjectHandle h, TextView sTitle, auto nType) {
    EnumProjectsProc(h, sTitle, nType);
  }));
  oLinks.push_back(o.EnumComponentsProc.Connect(
      [this](ProjectHandle hP, ComponentHandle hC, TextView sName, auto nType) {
        EnumComponentsProc(hP, hC, sName, nType);
      }));
  oLinks.push_back(o.EnumComponentsEOF.Connect([this](ProjectHandle h) { EnumComponentsEOF(h); }));
  oLinks.push_back(o.EnumComponentsExBOF.Connect([this] {
    mMissing.clear();
    HideLists();
  }));
  oLinks.push_back(o.EnumProceduresBOF.Connect([this] { HideLists(); }));
  oLinks.push_back(o.EnumComponentsExProc.Connect(
      [this](const ComponentRow& oRow) { EnumComponentsExProc(oRow); }));
  oLinks.push_back(
      o.EnumProceduresProc.Connect([this](const ProcedureRow& oRow) { EnumProceduresProc(oRow); }));
  oLinks.push_back(o.EnumComponentsExEOF.Connect([this] {
    TellMissingFiles();
    ShowList(lvwMods);
  }));
  oLinks.push_back(o.EnumProceduresEOF.Connect([this] { ShowList(lvwProcs); }));
  oLinks.push_back(o.EnumProceduresError.Connect(
      [this](ComponentHandle h, const LoadError& oError) { EnumProceduresError(h, oError); }));
}
