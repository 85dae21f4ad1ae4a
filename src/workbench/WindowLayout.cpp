#include "WindowLayout.h"

#include <algorithm>

#include "MXForm.h"
#include "MXRegistry.h"
#include "Toolkit.h"
#include "Workbench.h"

using namespace Forms;

namespace {

constexpr std::int32_t Pixel = 15;
// From the lower edge of the toolbar's buttons (60 + 300) down, a pixel further each; the lists
// begin a pixel below the titles, which are 285 high.
constexpr std::int32_t ContainerTop = 360, BarTop = ContainerTop + Pixel, TitleTop = BarTop + Pixel,
                       ListTop = TitleTop + 285 + Pixel;
/// The right bar begins at BarTop and ends three pixels above the status bar.
constexpr std::int32_t BarMargin = BarTop + 3 * Pixel;
/// The title of a pane, 225, with two pixels above it; that of the errors' pane, 255, and a pixel;
/// its close button, 240, and a pixel.
constexpr std::int32_t PaneTop = 2 * Pixel + 225, ErrorsTitle = 255 + Pixel,
                       CloseButton = 240 + Pixel;
// Choices: below the one the lists would have no lines left; the other holds a file's name.
constexpr std::int32_t LeastVertical = 3000, LeastPath = 2000;
// Both choices: a pane keeps an icon and a few letters; a window that was kept smaller would show
// nothing but its frame and the toolbar.
constexpr std::int32_t SplitMargin = 600, LeastSize = 2400;
/// What each side of a bar keeps of a window that is made smaller: a quarter of it, and no more
/// than shows names with their values.
constexpr std::int32_t LeastPart = 3000;

std::int32_t AtLeast0(std::int32_t size) {
  return MXForm::MaskNegative(size, 0);
}

bool IsInside(std::int32_t place, std::int32_t low, std::int32_t high) {
  return place >= low && place <= high;
}

/// The place stays as it is when the kept one can't be read.
void RestoreBar(Control& bar, std::int32_t key) {
  try {
    MXForm::RestorePosition(bar, key, true);
  } catch (const Failure&) {
  }
}

}  // namespace

void WindowKeys::Open() {
  const auto key = [](TextView name) {
    return MXRegistry::OpenRegKey(MXRegistry::HKEY_CURRENT_USER,
                                  Text(MXRegistry::RootKey).append(u"FMain").append(name),
                                  MXRegistry::KEY_ALL_ACCESS);
  };
  mhRegForm = key(u"");
  if (mhRegRecent == 0) mhRegRecent = key(u"\\Recent Files");
  mhRegSplit1 = key(u"\\Split1");
  mhRegSplit2 = key(u"\\Split2");
  mhRegSplit3 = key(u"\\Split3");
  mhRegModList = key(u"\\ModList");
  mhRegProcList = key(u"\\ProcList");
}

void WindowKeys::Close() {
  for (std::int32_t* key :
       {&mhRegForm, &mhRegSplit1, &mhRegSplit2, &mhRegSplit3, &mhRegModList, &mhRegProcList}) {
    if (*key != 0) MXRegistry::CloseRegKey(*key);
    *key = 0;
  }
}

void WindowLayout::Restore() {
  RestoreWindow();
  RestoreBars();
  PlacePanes();
}

void WindowLayout::RestoreWindow() {
  MainForm& form = window.form;
  const std::int32_t key = window.keys.mhRegForm;
  MXForm::FitToScreen(form);
  MXForm::RestorePosition(form, key, true);
  if (form.Width() < LeastSize || form.Height() < LeastSize)
    form.Move(form.Left(), form.Top(), std::max(form.Width(), LeastSize),
              std::max(form.Height(), LeastSize));
  // A window that was closed minimised is shown in its normal state, since a minimised modal window
  // would seem to hang.
  const auto state = static_cast<WindowState>(MXRegistry::GetRegLong(key, u"State", 0));
  if (state == WindowState::Maximized) form.SetWindowState(state);
}

void WindowLayout::RestoreBars() {
  MainForm& form = window.form;
  form.picSplit1.SetLeft(form.ScaleWidth() / 3);
  form.picSplit2.SetLeft(form.ScaleWidth() / 3 * 2);
  form.picSplit3.SetTop(form.ScaleHeight() / 3 * 2);
  const Rect bar1 = form.picSplit1.Bounds(), bar2 = form.picSplit2.Bounds(),
             bar3 = form.picSplit3.Bounds();
  RestoreBar(form.picSplit1, window.keys.mhRegSplit1);
  RestoreBar(form.picSplit2, window.keys.mhRegSplit2);
  RestoreBar(form.picSplit3, window.keys.mhRegSplit3);
  HoldBars(bar1, bar2, bar3);
  KeepBarsInside();
}

bool WindowLayout::KeepBarsInside() {
  MainForm& form = window.form;
  const std::int32_t width = form.ScaleWidth(), bar = form.picSplit2.Width();
  const std::int32_t part = std::clamp(width / 4, SplitMargin, LeastPart);
  const std::int32_t old1 = form.picSplit1.Left(), old2 = form.picSplit2.Left();
  const std::int32_t right = AtLeast0(std::min(old2, width - bar - part));
  form.picSplit2.SetLeft(right);
  form.picSplit1.SetLeft(AtLeast0(right == old2 ? old1 : std::min(old1, right - bar - part)));
  return right != old2;
}

void WindowLayout::ShowTabs() {
  MainForm& form = window.form;
  if (form.picContainer.Width() >= std::min(LeastPart, form.ScaleWidth() / 4)) return;
  form.picSplit2.SetLeft(form.ScaleWidth() / 3 * 2);
  KeepBarsInside();
  split1->DoSplit();
  split2->DoSplit();
}

void WindowLayout::HoldBars(const Rect& bar1, const Rect& bar2, const Rect& bar3) {
  MainForm& form = window.form;
  const Screen& screen = form.App().Screen();
  const bool sane = IsInside(form.picSplit1.Left(), 0, form.picSplit2.Left() - bar1.lWidth) &&
                    IsInside(form.picSplit2.Left(), 0, screen.Width());
  const std::int32_t left1 = sane ? form.picSplit1.Left() : bar1.lLeft;
  const std::int32_t left2 = sane ? form.picSplit2.Left() : bar2.lLeft;
  const std::int32_t top3 =
      IsInside(form.picSplit3.Top(), ListTop, screen.Height()) ? form.picSplit3.Top() : bar3.lTop;
  form.picSplit1.Move(left1, BarTop, bar1.lWidth, bar1.lHeight);
  form.picSplit2.Move(left2, BarTop, bar2.lWidth, bar2.lHeight);
  form.picSplit3.Move(bar3.lLeft, top3, bar3.lWidth, bar3.lHeight);
}

void WindowLayout::Save() {
  MXForm::SavePosition(window.form, window.keys.mhRegForm, true);
  MXForm::SavePosition(window.form.picSplit1, window.keys.mhRegSplit1, true);
  MXForm::SavePosition(window.form.picSplit2, window.keys.mhRegSplit2, true);
  MXForm::SavePosition(window.form.picSplit3, window.keys.mhRegSplit3, true);
}

void WindowLayout::MakeSplitters() {
  MainForm& form = window.form;
  EndSplitters();
  for (auto* split : {&split1, &split2, &split3}) {
    CXSplit& o = split->emplace();
    o.SetMargin(SplitMargin);
    o.SetMarginSnap(false);
    o.SetRealTime(false);
  }
  links.push_back(split1->AfterSplit.Connect([this] { AfterSplit2(); }));
  links.push_back(split2->AfterSplit.Connect([this] { AfterSplit2(); }));
  links.push_back(split3->AfterSplit.Connect([this] { AfterSplit3(); }));
  for (Control* side : std::initializer_list<Control*>{&form.lblTree, &form.tvwProjects})
    split1->AddASide(*side);
  for (Control* side : std::initializer_list<Control*>{&form.lblList, &form.lvwProcs, &form.lvwMods,
                                                       &form.lblListViewSurrogate, &form.picSplit3,
                                                       &form.fraErrors}) {
    split1->AddBSide(*side);
    split2->AddASide(*side);
  }
  split2->AddBSide(form.picContainer);
  for (Control* list : form.Lists()) split3->AddASide(*list);
  split3->AddBSide(form.fraErrors);
  split1->Split(form.picSplit1, SplitBar::Vertical);
  split2->Split(form.picSplit2, SplitBar::Vertical);
  split3->Split(form.picSplit3, SplitBar::Horizontal);
}

void WindowLayout::PlacePanes() {
  MainForm& form = window.form;
  const std::int32_t list = form.picSplit1.Left() + form.picSplit1.Width();
  const std::int32_t listWidth = AtLeast0(form.picSplit2.Left() - list);
  const std::int32_t panes = form.picSplit2.Left() + form.picSplit2.Width();
  form.lblTree.Move(0, TitleTop);
  form.tvwProjects.Move(0, ListTop);
  form.lblList.Move(list, TitleTop, listWidth, form.lblList.Height());
  for (Control* o : form.Lists()) o->Move(list, ListTop, listWidth, o->Height());
  form.picSplit3.Move(list, form.picSplit3.Top(), listWidth, form.picSplit3.Height());
  const std::int32_t errors = form.picSplit3.Top() + form.picSplit3.Height();
  form.fraErrors.Move(list, errors, listWidth,
                      AtLeast0(form.ScaleHeight() - errors - form.StatusBar1.Height()));
  form.picContainer.Move(panes, ContainerTop, AtLeast0(form.ScaleWidth() - panes),
                         form.picContainer.Height());
}

void WindowLayout::Resize() {
  MainForm& form = window.form;
  if (form.WindowState() == WindowState::Minimized) return;
  form.picProgress.SetTop(form.ScaleHeight() - form.StatusBar1.Height() + 45);
  form.oToolbar.Span(form.ScaleWidth());
  if (!links.empty() && KeepBarsInside()) {
    split1->DoSplit();
    split2->DoSplit();
  }
  form.picContainer.SetWidth(AtLeast0(form.ScaleWidth() - form.picContainer.Left()));
  const std::int32_t rest = form.StatusBar1.Width() - form.StatusBar1.Panels(1).Width();
  form.StatusBar1.Panels(2).SetWidth(MXForm::MaskNegative(rest, LeastPath));
  window.panes.FitPath();
  if (form.ScaleHeight() > LeastVertical) LayOutVertically();
}

void WindowLayout::LayOutVertically() {
  MainForm& form = window.form;
  const std::int32_t bottom = form.ScaleHeight() - form.StatusBar1.Height();
  form.picSplit2.SetHeight(AtLeast0(bottom - BarMargin));
  form.picContainer.SetHeight(AtLeast0(bottom - form.picContainer.Top()));
  form.tvwProjects.SetHeight(AtLeast0(bottom - form.tvwProjects.Top()));
  form.picSplit1.SetHeight(form.tvwProjects.Height() + ListTop - BarTop + Pixel);
  if (window.panes.ShowsErrors()) {
    form.fraErrors.SetHeight(AtLeast0(bottom - form.fraErrors.Top()));
    return AfterSplit3();
  }
  for (Control* list : form.Lists()) list->SetHeight(form.tvwProjects.Height());
}

void WindowLayout::ResizeTabs() {
  MainForm& form = window.form;
  form.tabView.Move(0, 0, form.picContainer.ScaleWidth(), form.picContainer.ScaleHeight());
  // The size is read again for each part: painting a part can let a further resize in.
  for (Control* title :
       std::initializer_list<Control*>{&form.lblProperties, &form.lblCode, &form.lblResults}) {
    const Rect area = form.tabView.ClientArea();
    title->Move(area.lLeft, area.lTop + 30, AtLeast0(area.lWidth), title->Height());
  }
  for (Control* pane :
       std::initializer_list<Control*>{&form.prlProperties, &form.txtCode, &form.srlResults}) {
    const Rect area = form.tabView.ClientArea();
    pane->Move(area.lLeft, area.lTop + PaneTop, AtLeast0(area.lWidth),
               AtLeast0(area.lHeight - PaneTop));
  }
}

void WindowLayout::FitErrors() {
  MainForm& form = window.form;
  split3->DoSplit();
  form.fraErrors.SetHeight(
      AtLeast0(form.ScaleHeight() - form.fraErrors.Top() - form.StatusBar1.Height()));
  split3->DoSplit();
}

void WindowLayout::AfterSplit2() {
  MainForm& form = window.form;
  const std::int32_t width = form.fraErrors.Width();
  form.lblErrors(0).SetWidth(width);
  form.srlErrors.SetWidth(width);
  form.cmdHideErrors.SetLeft(width - CloseButton);
}

void WindowLayout::AfterSplit3() {
  window.form.srlErrors.SetHeight(AtLeast0(window.form.fraErrors.Height() - ErrorsTitle));
}
