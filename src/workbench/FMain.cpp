#include "FMain.h"

#include "MQuillon.h"
#include "MXHTMLHelp.h"
#include "MainCommands.h"
#include "NodeKey.h"

using namespace Forms;

FMain::FMain(Toolkit& oToolkit, Paper::Printers& oPrinters)
    : MainForm(oToolkit,
               [this](TextView routine, bool takesTime, const std::function<void()>& work) {
                 takesTime ? window.events.Busy(routine, work) : void(OnEvent(routine, work));
               }),
      window(*this, oPrinters) {
  for (const auto table : {FileCommands, ViewCommands, SelectCommands, RulesCommands, PropsCommands,
                           ToolsCommands, HelpCommands})
    oMenu.Add(table(window));
  ConnectWindow();
  ConnectBrowser();
  ConnectPanes();
}

FMain::~FMain() = default;

void FMain::ConnectWindow() {
  On(OnLoad, [this] { Form_Load(); });
  On(QueryUnload, [this](bool& bCancel, UnloadMode eMode) { Form_QueryUnload(bCancel, eMode); });
  On(OnUnload, [this](bool&) { Form_Unload(); });
  On(Resize, [this] { OnEvent(u"Form_Resize", [&] { window.layout.Resize(); }); });
  On(MouseMove, [this](auto, auto, auto, auto) { oToolbar.ButtonFrameHide(); });
  On(tmrStartUp.Tick, [this] { tmrStartUp_Timer(); });
  On(oToolbar.ButtonClick, [this](std::int32_t nIndex) { ButtonClick(nIndex); });
}

void FMain::ConnectList(ListView& oList, TextView sSelect, void (*Process)(Workbench&)) {
  const auto Select = [this, sSelect, Process] {
    window.events.Busy(sSelect, [&] { Process(window); });
  };
  On(oList.MouseUp, [Select](auto, auto, auto, auto) { Select(); });
  // Whichever key moved the selection; what the sheet names must be what its edits change.
  On(oList.ItemClick, [Select](ListItem&) { Select(); });
  On(oList.ColumnClick, [this, &oList](ColumnHeader& oColumn) {
    window.events.Busy(oList.Name() + u"_ColumnClick",
                       [&] { window.lists.SortBy(oList, oColumn); });
  });
}

void FMain::ConnectBrowser() {
  On(tvwProjects.NodeClick, [this](Node&) { window.tree.NodeClick(); });
  ConnectList(lvwMods, u"lvwMods_Select", [](Workbench& o) { o.lists.ProcessModListSelection(); });
  ConnectList(lvwProcs, u"lvwProcs_Select",
              [](Workbench& o) { o.sheet.ProcessProcListSelection(); });
  On(lvwMods.DblClick,
     [this] { OnEvent(u"lvwMods_DblClick", [&] { window.lists.OpenSelectedModule(); }); });
}

void FMain::ConnectPanes() {
  On(picContainer.Resize,
     [this] { OnEvent(u"picContainer_Resize", [&] { window.layout.ResizeTabs(); }); });
  On(tabView.Click, [this] { OnEvent(u"tabView_Click", [&] { window.panes.TabClick(); }); });
  On(prlProperties.PropertyChange, [this](TextView sName, TextView sValue) {
    OnEvent(u"prlProperties_PropertyChange",
            [&] { window.sheet.PropertyChange(Text(sName), Text(sValue)); });
  });
  On(cmdHideErrors.Click,
     [this] { OnEvent(u"cmdHideErrors_Click", [&] { window.panes.HideErrors(); }); });
  lblErrors.OnElement([this](Label& o) {
    o.On(o.MouseDown, [this](auto, auto, auto, auto) {
      OnEvent(u"lblErrors_MouseDown", [&] { srlErrors.SetFocus(); });
    });
  });
  On(srlErrors.GotFocus, [this] { ColorErrorsTitle(true); });
  On(srlErrors.LostFocus, [this] { ColorErrorsTitle(false); });
}

void FMain::Display(VBE& VBInst, Connect& oConnect) {
  if (!window.session.IDE()) {
    window.session.SetIDE(&VBInst);
    moConnect = &oConnect;
    Load();
    window.ManageControls();
    tvwProjects.SetTag(NodeKey::Tree);
    tmrStartUp.SetEnabled(true);
  }
  EventFlush();
  Show(ShowMode::Modal);
}

void FMain::Form_Load() {
  OnEvent(
      u"Form_Load",
      [&] {
        window.keys.Open();
        window.session.ReadRecent();
        MXHTMLHelp::poOwner = this;
        window.panes.TakeFonts(false);
        oToolbar.LayOut();
        for (auto* po : {&lblProperties, &lblCode, &lblResults}) po->SetBorder(false);
        window.layout.Restore();
        window.layout.MakeSplitters();
        window.panes.HideErrors();
        window.lists.MakeLists();
        for (const std::int32_t i : {1, 2, 3, 11, 12, 13, 14, 15, 16})
          prlProperties.SetTip(i, MQuillon::StringResource(200 + i));
      },
      ErrorIds::SeverityFatal);
}

void FMain::tmrStartUp_Timer() {
  OnEvent(u"tmrStartUp_Timer", [&] {
    tmrStartUp.SetEnabled(false);
    window.session.OpenFirst();
  });
}

void FMain::Form_QueryUnload(bool& bCancel, UnloadMode eMode) {
  OnEvent(u"Form_QueryUnload", [&] {
    if (eMode != UnloadMode::Code && !window.session.MayDiscard()) bCancel = true;
    window.layout.Save();
    MXHTMLHelp::poOwner = nullptr;
  });
}

void FMain::Form_Unload() {
  OnEvent(u"Form_Unload", [&] {
    window.session.CloseTemplate();
    MQuillon::ReleaseLookups();
  });
  // Also after a failure above, so that the next Display starts from the beginning.
  window.layout.EndSplitters();
  window.keys.Close();
  window.session.SetIDE(nullptr);
}

void FMain::ButtonClick(std::int32_t Index) {
  window.events.Busy(u"ButtonClick",
                     [&] { oMenu.Run(*oMenu.Buttons()[static_cast<std::size_t>(Index)]); });
}
