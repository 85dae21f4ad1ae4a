// Showing, loading and leaving the window; the commands that open other windows.
#include "FAbout.h"
#include "FMain.h"
#include "FOptions.h"
#include "FRules.h"
#include "MOptions.h"
#include "MQuillon.h"
#include "MRules.h"
#include "MXFile.h"
#include "MXForm.h"
#include "MXHTMLHelp.h"
#include "MXRegistry.h"
#include "NodeKey.h"
#include "Toolkit.h"

using namespace Forms;

namespace {

constexpr std::int32_t SupportTopic = 1800;  ///< its number in the contents of the help
// Twips, both choices: a pane keeps an icon and a few letters; a window that was kept smaller would
// show nothing but its frame and the toolbar.
constexpr std::int32_t SplitMargin = 600, LeastSize = 2400;

std::int32_t OpenKey(TextView sKey) {
  return MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER,
                                Text(MXRegistry::RootKey).append(u"FMain").append(sKey),
                                MXRegistry::KEY_ALL_ACCESS);
}

/// Ignores the failure of one font property (such as a face that isn't installed), so that the
/// others are still set.
template <class Set>
void IgnoringFailure(Set&& oSet) {
  try {
    oSet();
  } catch (const Failure&) {
  }
}

template <class Pane>
void TakeFace(Pane& oPane, const MOptions::Font& oFont) {
  IgnoringFailure([&] { oPane.SetFontName(oFont.sFace); });
  IgnoringFailure([&] { oPane.SetFontSize(oFont.lSize); });
}

template <class Pane>
void TakeFont(Pane& oPane, const MOptions::Font& oFont) {
  TakeFace(oPane, oFont);
  oPane.SetFontBold(oFont.bBold);
  oPane.SetFontItalic(oFont.bItalic);
}

}  // namespace

void FMain::Display(VBE& VBInst, Connect& oConnect) {
  if (!moVBInst) {
    moVBInst = &VBInst;
    moConnect = &oConnect;
    Load();
    meState = State::NoTemplate;
    ManageControls();
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
        OpenKeys();
        oRecentFiles.Initialize(oMenu.mnuFileRecent, mhRegRecent);
        MXHTMLHelp::poOwner = this;
        TakeFont(txtCode, MOptions::oCodeFont);
        TakeFace(srlResults, MOptions::oResultsFont);
        TakeFace(srlErrors, MOptions::oErrorFont);
        oToolbar.LayOut();
        for (auto* po : {&lblProperties, &lblCode, &lblResults}) po->SetBorder(false);
        RestorePlaces();
        PlacePanes();
        MakeSplitters();
        HideErrors();
        MakeLists();
        for (const std::int32_t i : {1, 2, 3, 11, 12, 13, 14, 15, 16})
          prlProperties.SetTip(i, MQuillon::StringResource(200 + i));
      },
      ErrorIds::SeverityFatal);
}

void FMain::OpenKeys() {
  mhRegForm = OpenKey(u"");
  // The key stays open: the recent list belongs to the process and uses it after the window is
  // closed.
  if (mhRegRecent == 0) mhRegRecent = OpenKey(u"\\Recent Files");
  mhRegSplit1 = OpenKey(u"\\Split1");
  mhRegSplit2 = OpenKey(u"\\Split2");
  mhRegSplit3 = OpenKey(u"\\Split3");
  mhRegModList = OpenKey(u"\\ModList");
  mhRegProcList = OpenKey(u"\\ProcList");
}

void FMain::CloseKeys() {
  for (std::int32_t* ph :
       {&mhRegForm, &mhRegSplit1, &mhRegSplit2, &mhRegSplit3, &mhRegModList, &mhRegProcList}) {
    if (*ph != 0) MXRegistry::CloseRegKey(*ph);
    *ph = 0;
  }
}

void FMain::RestorePlaces() {
  MXForm::FitToScreen(*this);
  MXForm::RestorePosition(*this, mhRegForm, true);
  if (Width() < LeastSize || Height() < LeastSize) MXForm::FitToScreen(*this);
  // A window that was closed minimised is shown in its normal state, since a minimised modal window
  // would seem to hang.
  const auto eState =
      static_cast<Forms::WindowState>(MXRegistry::GetRegLong(mhRegForm, u"State", 0));
  if (eState == Forms::WindowState::Maximized) SetWindowState(eState);
  picSplit1.SetLeft(ScaleWidth() / 3);
  picSplit2.SetLeft(ScaleWidth() / 3 * 2);
  picSplit3.SetTop(ScaleHeight() / 3 * 2);
  const Rect oBar1 = picSplit1.Bounds(), oBar2 = picSplit2.Bounds(), oBar3 = picSplit3.Bounds();
  IgnoringFailure([&] { MXForm::RestorePosition(picSplit1, mhRegSplit1, true); });
  IgnoringFailure([&] { MXForm::RestorePosition(picSplit2, mhRegSplit2, true); });
  IgnoringFailure([&] { MXForm::RestorePosition(picSplit3, mhRegSplit3, true); });
  HoldBars(oBar1, oBar2, oBar3);
}

void FMain::MakeSplitters() {
  moSplitLinks.clear();
  for (auto* poSplit : {&oSplit1, &oSplit2, &oSplit3}) {
    CXSplit& o = poSplit->emplace();
    o.SetMargin(SplitMargin);
    o.SetMarginSnap(false);
    o.SetRealTime(false);
  }
  moSplitLinks.push_back(oSplit1->AfterSplit.Connect([this] { oSplit2_AfterSplit(); }));
  moSplitLinks.push_back(oSplit2->AfterSplit.Connect([this] { oSplit2_AfterSplit(); }));
  moSplitLinks.push_back(oSplit3->AfterSplit.Connect([this] { oSplit3_AfterSplit(); }));
  for (Control* po : std::initializer_list<Control*>{&lblTree, &tvwProjects})
    oSplit1->AddASide(*po);
  for (Control* po : std::initializer_list<Control*>{
           &lblList, &lvwProcs, &lvwMods, &lblListViewSurrogate, &picSplit3, &fraErrors}) {
    oSplit1->AddBSide(*po);
    oSplit2->AddASide(*po);
  }
  oSplit2->AddBSide(picContainer);
  for (Control* po : std::initializer_list<Control*>{&lvwProcs, &lvwMods, &lblListViewSurrogate})
    oSplit3->AddASide(*po);
  oSplit3->AddBSide(fraErrors);
  oSplit1->Split(picSplit1, SplitBar::Vertical);
  oSplit2->Split(picSplit2, SplitBar::Vertical);
  oSplit3->Split(picSplit3, SplitBar::Horizontal);
}

void FMain::MakeLists() {
  moModList = CXListView();
  moModList.SetListView(lvwMods);
  moModList.SethRegNode(mhRegModList);
  moModList.SetLayout(u"ModList");
  for (const TextView sHeading : {u"Name", u"Type", u"Instancing", u"ReadOnly"})
    moModList.AddHeading(sHeading, 1500);
  moModList.AddHeading(u"Modified", 2000);
  moModList.AddHeading(u"FileName", 4000);
  moProcList = CXListView();
  moProcList.SetListView(lvwProcs);
  moProcList.SethRegNode(mhRegProcList);
  moProcList.SetLayout(u"ProcList");
  moProcList.AddHeading(u"Procedure", 2000);
  for (const TextView sHeading :
       {u"Type", u"Scope", u"Template", u"Locked", u"Boundary", u"Severity"})
    moProcList.AddHeading(sHeading, 1000);
  for (const TextView sHeading : {u"Retry", u"Trace"}) moProcList.AddHeading(sHeading, 800);
}

void FMain::tmrStartUp_Timer() {
  OnEvent(u"tmrStartUp_Timer", [&] {
    tmrStartUp.SetEnabled(false);
    mlLastNode = 0;
    mhProject = {};
    mhComponent = {};
    mbReadOnly = false;
    Text sFile = oRecentFiles.Item(1);
    if (sFile.empty()) sFile = TemplateBesideProgram();
    if (!MXFile::FileExists(sFile)) return mnuFileOpenTemplate_Click();
    OpenAsRecent(sFile);
  });
}

bool FMain::MayDiscard() {
  if (!oIDEHandler || !oIDEHandler->GroupIsDirty()) return true;
  return App().MsgBox(u"Discard Pending Properties?", MsgBoxButtons::OkCancel, MsgBoxIcon::Question,
                      u"Tarvane Quillon") == MsgBoxResult::Ok;
}

void FMain::Form_QueryUnload(bool& bCancel, UnloadMode eMode) {
  OnEvent(u"Form_QueryUnload", [&] {
    if (eMode != UnloadMode::Code && !MayDiscard()) bCancel = true;
    MXForm::SavePosition(*this, mhRegForm, true);
    MXForm::SavePosition(picSplit1, mhRegSplit1, true);
    MXForm::SavePosition(picSplit2, mhRegSplit2, true);
    MXForm::SavePosition(picSplit3, mhRegSplit3, true);
    MXHTMLHelp::poOwner = nullptr;
  });
}

void FMain::mnuFileExit_Click() {
  OnEvent(u"mnuFileExit_Click", [&] {
    if (!MayDiscard()) return;
    Hide();
    Unload();
  });
}

void FMain::Form_Unload() {
  OnEvent(u"Form_Unload", [&] {
    CloseTemplate();
    MQuillon::ReleaseLookups();
  });
  // Also after a failure above, so that the next Display starts from the beginning.
  moSplitLinks.clear();
  CloseKeys();
  moVBInst = nullptr;
}

void FMain::mnuRulesDefine_Click() {
  OnEvent(u"mnuRulesDefine_Click", [&] {
    if (FRules(App()).Display()) {
      Refresh();
      oIDEHandler->RefreshSuggestions();
      if (ShowsProcs()) ProcessProcListSelection();
    }
    App().Screen().SetMousePointer(Pointer::Default);
  });
}

void FMain::mnuToolsOptions_Click() {
  OnEvent(u"mnuToolsOptions_Click", [&] {
    if (FOptions(App()).Display()) {
      Refresh();
      TakeFont(txtCode, MOptions::oCodeFont);
      TakeFont(srlResults, MOptions::oResultsFont);
      TakeFont(srlErrors, MOptions::oErrorFont);
    }
    App().Screen().SetMousePointer(Pointer::Default);
  });
}

void FMain::mnuToolsProve_Click() {
  OnEvent(u"mnuToolsProve_Click", [&] {
    MRules::oRules.bProve = !MRules::oRules.bProve;
    if (oIDEHandler) oIDEHandler->bProve = MRules::oRules.bProve;
    MRules::SetRules();
  });
}

void FMain::mnuHelpTopics_Click() {
  OnEvent(u"mnuHelpTopics_Click", [&] { MXHTMLHelp::ShowHelpTOC(App(), 0); });
}

void FMain::mnuHelpIndex_Click() {
  OnEvent(u"mnuHelpIndex_Click", [&] { MXHTMLHelp::ShowHelpIndex(App()); });
}

void FMain::mnuHelpSearch_Click() {
  OnEvent(u"mnuHelpSearch_Click", [&] { MXHTMLHelp::ShowHelpSearch(App()); });
}

void FMain::mnuHelpSupport_Click() {
  OnEvent(u"mnuHelpSupport_Click", [&] { MXHTMLHelp::ShowHelpTOC(App(), SupportTopic); });
}

void FMain::mnuHelpWeb_Click() {
  OnEvent(u"mnuHelpWeb_Click", [&] {
    if (App().Open(MQuillon::VendorAddress)) return;
    App().MsgBox(u"No browser could be started. The address is " + Text(MQuillon::VendorAddress),
                 MsgBoxButtons::OkOnly, MsgBoxIcon::Exclamation, u"Tarvane Quillon");
  });
}

void FMain::mnuHelpAbout_Click() {
  OnEvent(u"mnuHelpAbout_Click", [&] { FAbout(App()).Display(); });
}
