// Where the parts of the window stand and how they follow its size. All lengths are twips; no width
// or height becomes negative.
#include "FMain.h"
#include "MXForm.h"
#include "Toolkit.h"

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

std::int32_t AtLeast0(std::int32_t lSize) {
  return MXForm::MaskNegative(lSize, 0);
}

bool IsInside(std::int32_t lPlace, std::int32_t lLow, std::int32_t lHigh) {
  return lPlace >= lLow && lPlace <= lHigh;
}

}  // namespace

void FMain::HoldBars(const Rect& oBar1, const Rect& oBar2, const Rect& oBar3) {
  const Screen& oScreen = App().Screen();
  const bool bSane = IsInside(picSplit1.Left(), 0, picSplit2.Left() - oBar1.lWidth) &&
                     IsInside(picSplit2.Left(), 0, oScreen.Width());
  const std::int32_t lLeft1 = bSane ? picSplit1.Left() : oBar1.lLeft;
  const std::int32_t lLeft2 = bSane ? picSplit2.Left() : oBar2.lLeft;
  const std::int32_t lTop3 =
      IsInside(picSplit3.Top(), ListTop, oScreen.Height()) ? picSplit3.Top() : oBar3.lTop;
  picSplit1.Move(lLeft1, BarTop, oBar1.lWidth, oBar1.lHeight);
  picSplit2.Move(lLeft2, BarTop, oBar2.lWidth, oBar2.lHeight);
  picSplit3.Move(oBar3.lLeft, lTop3, oBar3.lWidth, oBar3.lHeight);
}

void FMain::PlacePanes() {
  const std::int32_t lList = picSplit1.Left() + picSplit1.Width();
  const std::int32_t lListWidth = AtLeast0(picSplit2.Left() - lList);
  const std::int32_t lPanes = picSplit2.Left() + picSplit2.Width();
  lblTree.Move(0, TitleTop);
  tvwProjects.Move(0, ListTop);
  lblList.Move(lList, TitleTop, lListWidth, lblList.Height());
  for (Control* po : std::initializer_list<Control*>{&lvwMods, &lvwProcs, &lblListViewSurrogate})
    po->Move(lList, ListTop, lListWidth, po->Height());
  picSplit3.Move(lList, picSplit3.Top(), lListWidth, picSplit3.Height());
  const std::int32_t lErrors = picSplit3.Top() + picSplit3.Height();
  fraErrors.Move(lList, lErrors, lListWidth,
                 AtLeast0(ScaleHeight() - lErrors - StatusBar1.Height()));
  picContainer.Move(lPanes, ContainerTop, AtLeast0(ScaleWidth() - lPanes), picContainer.Height());
}

void FMain::Form_Resize() {
  OnEvent(u"Form_Resize", [&] {
    if (WindowState() == Forms::WindowState::Minimized) return;
    picProgress.SetTop(ScaleHeight() - StatusBar1.Height() + 45);
    oToolbar.Span(ScaleWidth());
    picContainer.SetWidth(AtLeast0(ScaleWidth() - picContainer.Left()));
    const std::int32_t lRest = StatusBar1.Width() - StatusBar1.Panels(1).Width();
    StatusBar1.Panels(2).SetWidth(MXForm::MaskNegative(lRest, LeastPath));
    FitPath();
    if (ScaleHeight() > LeastVertical) LayOutVertically();
  });
}

void FMain::LayOutVertically() {
  const std::int32_t lBottom = ScaleHeight() - StatusBar1.Height();
  picSplit2.SetHeight(AtLeast0(lBottom - BarMargin));
  picContainer.SetHeight(AtLeast0(lBottom - picContainer.Top()));
  tvwProjects.SetHeight(AtLeast0(lBottom - tvwProjects.Top()));
  picSplit1.SetHeight(tvwProjects.Height() + ListTop - BarTop + Pixel);
  if (mbErrors) {
    fraErrors.SetHeight(AtLeast0(lBottom - fraErrors.Top()));
    return oSplit3_AfterSplit();
  }
  for (Control* po : std::initializer_list<Control*>{&lvwMods, &lvwProcs, &lblListViewSurrogate})
    po->SetHeight(tvwProjects.Height());
}

void FMain::picContainer_Resize() {
  OnEvent(u"picContainer_Resize", [&] {
    tabView.Move(0, 0, picContainer.ScaleWidth(), picContainer.ScaleHeight());
    // The size is read again for each part: painting a part can let a further resize in.
    for (Control* po : std::initializer_list<Control*>{&lblProperties, &lblCode, &lblResults}) {
      const Rect o = tabView.ClientArea();
      po->Move(o.lLeft, o.lTop + 30, AtLeast0(o.lWidth), po->Height());
    }
    for (Control* po : std::initializer_list<Control*>{&prlProperties, &txtCode, &srlResults}) {
      const Rect o = tabView.ClientArea();
      po->Move(o.lLeft, o.lTop + PaneTop, AtLeast0(o.lWidth), AtLeast0(o.lHeight - PaneTop));
    }
  });
}

void FMain::oSplit2_AfterSplit() {
  const std::int32_t lWidth = fraErrors.Width();
  lblErrors(0).SetWidth(lWidth);
  srlErrors.SetWidth(lWidth);
  cmdHideErrors.SetLeft(lWidth - CloseButton);
}

void FMain::oSplit3_AfterSplit() {
  srlErrors.SetHeight(AtLeast0(fraErrors.Height() - ErrorsTitle));
}
