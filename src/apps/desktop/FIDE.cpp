#include "FIDE.h"

#include <algorithm>

#include "Failure.h"
#include "MXForm.h"
#include "MXRegistry.h"
#include "Toolkit.h"

namespace {

using namespace Forms;

// Twips; all are choices. The bar is five pixels wide, easy to hit; a pane keeps a hundred pixels,
// and the panel holds the number of changed files. A window that was kept smaller than the
// least one is given the usual size, which fits a screen of 1024 by 768 pixels.
constexpr std::int32_t lBarWidth = 75, lLeastPane = 1500, lStatusPanel = 3000, lLeastWindow = 2400;
constexpr std::int32_t lUsualWidth = 12000, lUsualHeight = 8400;
constexpr std::int32_t lRecentCount = 9;

std::int32_t OpenKey(TextView sName) {
  return MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER,
                                Text(MXRegistry::RootKey).append(sName),
                                MXRegistry::KEY_ALL_ACCESS);
}

/// The first of the usual fixed-pitch fonts that the machine has.
void SetCodeFont(Forms::CodePane& oPane) {
  for (const TextView sName : {u"Courier New", u"Liberation Mono", u"DejaVu Sans Mono"}) try {
      oPane.SetFontName(sName);
      return;
    } catch (const Failure&) {
      continue;
    }
}

}  // namespace

FIDE::FIDE(Forms::Toolkit& oToolkit, ButtonFaces& oFaces, MakeAddIn oMakeAddIn)
    : Form(oToolkit, u"FIDE"),
      oMenu(
          *this, [this](TextView routine, bool, const auto& work) { Handle(routine, work); },
          Menus()),
      moFaces(oFaces),
      moMakeAddIn(std::move(oMakeAddIn)),
      mpIDE(DiskIDE::Open(std::vector<std::string>(), {})) {
  ConnectEvents();
}

FIDE::~FIDE() = default;

void FIDE::ConnectEvents() {
  On(OnLoad, [this] { Handle(u"Form_Load", [&] { Form_Load(); }); });
  On(Resize, [this] { Handle(u"Form_Resize", [&] { Form_Resize(); }); });
  On(Activate, [this] { Handle(u"Form_Activate", [&] { Refresh(); }); });
  On(QueryUnload, [this](bool& bCancel, UnloadMode) {
    Handle(u"Form_QueryUnload", [&] { Form_QueryUnload(bCancel); });
  });
  On(OnUnload, [this](bool&) { Handle(u"Form_Unload", [&] { Form_Unload(); }); });
  On(tmrStart.Tick, [this] { Handle(u"tmrStart_Timer", [&] { tmrStart_Tick(); }); });
  On(picRight.Resize, [this] { Handle(u"picRight_Resize", [&] { LayOutRight(); }); });
  On(tvwGroup.NodeClick,
     [this](Node&) { Handle(u"tvwGroup_NodeClick", [&] { tvwGroup_NodeClick(); }); });
  On(tabView.Click,
     [this] { Handle(u"tabView_Click", [&] { ShowView(tabView.SelectedItem()->Key()); }); });
  cmdTool.OnElement([this](CommandButton& o) {
    o.On(o.Click, [this, &o] {
      Handle(u"cmdTool_Click", [&] { Clicked(moToolBars.ControlOf(o.Index())); });
    });
  });
}

void FIDE::Design() {
  SetCaption(u"Tarvane Quillon");
  SetIcon(u"Quillon");
  Move(0, 0, lUsualWidth, lUsualHeight);
  tmrStart.SetEnabled(false);
  tmrStart.SetInterval(10);
  oMenu.Design();
  DesignPanes();
  moTree.DesignImages();
  tvwGroup.SetImages(&imlGroup);
  cmdTool(0).SetVisible(false);
}

void FIDE::DesignPanes() {
  tvwGroup.SetHideSelection(false);
  picSplit.SetBorderStyle(BorderStyle::None);
  picSplit.SetMousePointer(Pointer::SizeWE);
  picSplit.Move(3600, 0, lBarWidth, 1500);
  picRight.SetBorderStyle(BorderStyle::None);
  tabView.Tabs().Add(1, u"Code", u"Code");
  tabView.Tabs().Add(2, u"Changes", u"Changes");
  SetCodeFont(paneCode);
  SetCodeFont(paneChanges);
  paneChanges.SetVisible(false);
  staBar.SetPanelCount(2);
  staBar.Panels(2).SetWidth(lStatusPanel);
}

void FIDE::Form_Load() {
  mhReg = OpenKey(u"FIDE");
  mhRegSplit = OpenKey(u"FIDE\\Split");
  mhRegRecent = OpenKey(u"FIDE\\Recent Groups");
  RestorePlaces();
  moRecent.Initialize(mhRegRecent);
  auto& recent = oMenu.Array(u"mnuFileRecent");
  for (std::int32_t i = 1; i <= lRecentCount + 1; ++i) recent.Load(i);
  recent(lRecentCount + 1).SetCaption(u"-");
  ShowRecent();
  mpSplit = std::make_unique<CXSplit>();
  mpSplit->AddASide(tvwGroup);
  mpSplit->AddBSide(picRight);
  mpSplit->SetMargin(lLeastPane);
  mpSplit->SetMarginSnap(false);
  mpSplit->Split(picSplit, SplitBar::Vertical);
  ShowBars();
  ShowGroup();
}

void FIDE::RestorePlaces() {
  MXForm::Center(*this);
  const Rect oUsual = Bounds();
  // If the stored place is damaged, the default one is used.
  const auto TakeUsual = [&] { Move(oUsual.lLeft, oUsual.lTop, oUsual.lWidth, oUsual.lHeight); };
  try {
    MXForm::RestorePosition(*this, mhReg, true);
    MXForm::RestorePosition(picSplit, mhRegSplit, false);
  } catch (const Failure&) {
    TakeUsual();
  }
  if (Width() < lLeastWindow || Height() < lLeastWindow) TakeUsual();
  if (MXRegistry::GetRegLong(mhReg, u"State", 0) ==
      static_cast<std::int32_t>(Forms::WindowState::Maximized))
    SetWindowState(Forms::WindowState::Maximized);
}

void FIDE::Form_Resize() {
  const std::int32_t lWidth = ScaleWidth();
  const std::int32_t lTop = moToolBars.Layout(lWidth);
  const std::int32_t lHeight = std::max(0, ScaleHeight() - lTop - staBar.Height());
  const std::int32_t lBar = std::max(0, std::min(picSplit.Left(), lWidth - lLeastPane));
  tvwGroup.Move(0, lTop, lBar, lHeight);
  picSplit.Move(lBar, lTop, lBarWidth, lHeight);
  picRight.Move(lBar + lBarWidth, lTop, std::max(0, lWidth - lBar - lBarWidth), lHeight);
  staBar.Panels(1).SetWidth(std::max(0, lWidth - lStatusPanel));
}

void FIDE::LayOutRight() {
  tabView.Move(0, 0, picRight.ScaleWidth(), picRight.ScaleHeight());
  const Rect oArea = tabView.ClientArea();
  for (Forms::CodePane* po : {&paneCode, &paneChanges})
    po->Move(oArea.lLeft, oArea.lTop, std::max(0, oArea.lWidth), std::max(0, oArea.lHeight));
}
