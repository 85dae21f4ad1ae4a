#include "MainForm.h"

#include "Icons.h"
#include "NodeKey.h"

using namespace Forms;

namespace {

// Twips, 15 to a pixel of 96 dpi. A title has a line of the default font, 195, with three pixels
// above and below it; one within a pane has a single pixel. The bar is as wide as a pointer still
// hits, and the panel holds "9999 Object(s) Selected".
constexpr std::int32_t TitleHeight = 195 + 90, PaneTitleHeight = 195 + 30, BarWidth = 45,
                       CountWidth = 2145;
/// Milliseconds: long enough for the window to be painted first, and too short to be seen.
constexpr std::int32_t StartDelay = 100;

void DesignBar(PictureBox& oBar, std::int32_t nPointer) {
  oBar.SetBorderStyle(BorderStyle::None);
  oBar.SetMousePointer(nPointer);
  oBar.SetTabStop(false);
}

}  // namespace

MainForm::MainForm(Toolkit& oToolkit, MenuTable::Runner run)
    : Form(oToolkit, u"FMain"), oMenu(*this, std::move(run)) {
  On(oMenu.ButtonEnabled,
     [this](std::int32_t nIndex, bool bEnabled) { oToolbar.SetButtonEnabled(nIndex, bEnabled); });
}

void MainForm::Design() {
  SetCaption(u"Tarvane Quillon");
  SetIcon(u"Quillon");
  Move(0, 0, 10800, 7200);
  SetLeastSize(2400);
  oMenu.Design();
  oToolbar.Design(oMenu.Buttons());
  Icons::Fill(imlProjects);
  tmrStartUp.SetEnabled(false);
  tmrStartUp.SetInterval(StartDelay);
  DesignBrowser();
  DesignBars();
  DesignErrors();
  DesignPanes();
}

void MainForm::DesignBrowser() {
  lblTree.Move(0, 0, 3000, TitleHeight);
  lblList.Move(3045, 0, 3000, TitleHeight);
  tvwProjects.Move(0, 0, 3000, 3000);
  tvwProjects.SetImages(&imlProjects);
  tvwProjects.SetTag(NodeKey::Tree);
  tvwProjects.SetHideSelection(false);
  lblListViewSurrogate.SetBorderStyle(BorderStyle::Single);
  lblListViewSurrogate.SetBackColor(SystemColor::WindowBackground);
  lblListViewSurrogate.Move(3045, 0, 3000, 3000);
  for (ListView* po : {&lvwMods, &lvwProcs}) {
    po->Move(3045, 0, 3000, 3000);
    po->SetSmallIcons(&imlProjects);
    po->SetMultiSelect(true);
    po->SetSorted(true);
    po->SetVisible(false);
  }
}

void MainForm::DesignBars() {
  DesignBar(picSplit1, Pointer::SizeWE);
  DesignBar(picSplit2, Pointer::SizeWE);
  DesignBar(picSplit3, Pointer::SizeNS);
  picSplit1.Move(3000, 0, BarWidth, 3000);
  picSplit2.Move(6045, 0, BarWidth, 3000);
  picSplit3.Move(3045, 3000, 3000, BarWidth);
  StatusBar1.SetPanelCount(2);
  StatusBar1.Panels(1).SetWidth(CountWidth);
  picProgress.SetBorderStyle(BorderStyle::None);
  picProgress.SetBackColor(SystemColor::Highlight);
  picProgress.SetVisible(false);
  picProgress.SetTabStop(false);
  picProgress.Move(30, 0, 0, StatusBar1.Height() - 75);
}

void MainForm::DesignErrors() {
  fraErrors.SetBorder(false);
  fraErrors.Move(3045, 3045, 3000, 1500);
  lblErrors(0).Move(0, 0, 3000, 255);
  lblErrors(1).Move(45, 30, 2400, 195);
  lblErrors(1).SetTransparent(true);
  lblErrors(1).SetCaption(u"VBIDE Errors");
  lblErrors(1).SetFontBold(true);
  cmdHideErrors.Move(2745, 15, 240, 225);
  cmdHideErrors.SetCaption(u"\u00D7");
  cmdHideErrors.SetToolTipText(u"Close Errors");
  srlErrors.Move(0, 270, 3000, 1230);
  ColorErrorsTitle(false);
}

void MainForm::DesignPanes() {
  picContainer.SetBorderStyle(BorderStyle::None);
  picContainer.Move(6090, 0, 3000, 3000);
  tabView.Tabs().Add(1, u"Results", u"&Results");
  for (auto* po : {&lblProperties, &lblCode, &lblResults}) po->Move(0, 0, 3000, PaneTitleHeight);
  txtCode.SetLineNumbers(false);
  for (Control* po :
       std::initializer_list<Control*>{&lblProperties, &prlProperties, &lblCode, &txtCode}) {
    po->SetVisible(false);
  }
}

void MainForm::ColorErrorsTitle(bool bFocus) {
  lblErrors(0).SetBackColor(bFocus ? SystemColor::ActiveTitleBar : SystemColor::InactiveTitleBar);
  lblErrors(1).SetForeColor(bFocus ? SystemColor::TitleBarText : SystemColor::InactiveTitleBarText);
}
