#include "FEverything.h"

using namespace Forms;

Chooser::Chooser(ControlContainer& oContainer, TextView sName) : UserControl(oContainer, sName) {
  On(cmdDrop.MouseDown, [this](auto...) {
    lstChoices.SetVisible(true);
    lstChoices.SetFocus();
  });
  On(lstChoices.KeyDown, [this](std::int32_t nKeyCode, std::int32_t) {
    if (nKeyCode != Key::Return && nKeyCode != Key::Escape) return;
    txtEntry.SetText(lstChoices.Text());
    txtEntry.SetFocus();
    lstChoices.SetVisible(false);
  });
}

void Chooser::Design() {
  SetKeyPreview(true);
  txtEntry.Move(0, 0, 1260, 240);
  cmdDrop.Move(1260, 0, 255, 240);
  cmdDrop.SetTabStop(false);
  lstChoices.SetVisible(false);
  lstChoices.SetTabStop(false);
  for (const auto* psKind : {u"None", u"VB", u"Firewall", u"ActiveX"}) lstChoices.AddItem(psKind);
  // A pixel around entries of 195 twips each.
  const std::int32_t lPixel = Kit().Screen().TwipsPerPixelY();
  lstChoices.Move(0, 240, 1515, 2 * lPixel + 195 * lstChoices.ListCount());
}

FEverything::FEverything(Toolkit& oToolkit) : Form(oToolkit, u"FEverything") {
  oLog.Watch(mnuOpen.Click, "Open");
  oLog.Watch(mnuProof.Click, "Proof");
  oLog.Watch(lblName.Click, "Label");
  oLog.Watch(txtName.Change, "Change");
  oLog.Watch(chkLocked.Click, "Locked");
  oLog.Watch(chkOff.Click, "Off");
  oLog.Watch(optFirst.Click, "First");
  oLog.Watch(optSecond.Click, "Second");
  oLog.Watch(cmdOK.Click, "OK");
  oLog.Watch(cmdCancel.Click, "Cancel");
  oLog.Watch(cmdApply.Click, "Apply");
  oLog.Watch(picOpen.Click, "Picture");
  oLog.Watch(cboKind.Click, "Kind");
  oLog.Watch(tvwAll.NodeClick, "Node");
  oLog.Watch(tvwAll.Expand, "Expand");
  oLog.Watch(tvwAll.Collapse, "Collapse");
  oLog.Watch(lvwRows.ItemClick, "Item");
  oLog.Watch(lvwRows.ColumnClick, "Column");
  oLog.Watch(lvwRows.DblClick, "DblClick");
  oLog.Watch(lstFew.Click, "Few");
  oLog.Watch(tabPages.Click, "Page");
  oLog.Watch(choKind.cmdDrop.Click, "Drop");
  oLog.Watch(choKind.KeyDown, "Key");
  oLog.Watch(tmrOnce.Tick, "Tick");
  oLog.Watch(Resize, "Resize");
}

void FEverything::Design() {
  SetCaption(u"Everything");
  SetIcon(u"Quillon");
  Move(300, 300, 11400, 8400);
  DesignTop();
  DesignLists();
  DesignBottom();
}

void FEverything::DesignTop() {
  mnuFile.SetCaption(u"&File");
  mnuOpen.SetCaption(u"&Open...");
  mnuOpen.SetShortcut('O', Shift::Ctrl);
  mnuProof.SetCaption(u"&Proof");
  mnuRecent(0).SetCaption(u"&1 First");
  mnuLine.SetCaption(u"-");
  mnuExit.SetCaption(u"E&xit");
  lblName.SetCaption(u"&Name && address:");
  lblName.Move(120, 120, 2400, 195);
  txtName.Move(2640, 75, 2400, 300);
  txtResults.SetMultiLine(true);
  txtResults.SetScrollBars(ScrollBars::Both);
  txtResults.Move(120, 480, 4920, 1200);
  fraKinds.SetCaption(u"&Kinds");
  fraKinds.Move(5200, 60, 2600, 1620);
  chkLocked.SetCaption(u"&Locked");
  chkLocked.Move(120, 240, 2300, 255);
  optFirst.SetCaption(u"F&irst");
  optFirst.Move(120, 540, 1800, 255);
  optSecond.SetCaption(u"&Second");
  optSecond.Move(120, 840, 1800, 255);
  chkOff.SetCaption(u"Not now");
  chkOff.Move(120, 1140, 1800, 255);
  chkOff.SetEnabled(false);
  cmdOK.SetCaption(u"OK");
  cmdOK.Move(7920, 120, 1215, 375);
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(u"Cancel");
  cmdCancel.Move(7920, 600, 1215, 375);
  cmdCancel.SetCancel(true);
  cmdApply.SetCaption(u"&Apply");
  cmdApply.Move(7920, 1080, 1215, 375);
  linTop.SetPoints(0, 1770, 11400, 1770);
  linTop.SetBorderColor(SystemColor::ButtonShadow);
  picOpen.Move(9300, 120, 375, 375);
  picOpen.SetPicture(u"Open");
  picX.Move(9800, 120, 375, 375);
  picX.SetPicture(u"PrintX");
  picX.SetBorderStyle(BorderStyle::None);
  cboKind.Move(9300, 600, 1700, 315);
  for (const auto* psKind : {u"Firewall", u"ActiveX", u"None"}) cboKind.AddItem(psKind);
}

void FEverything::DesignLists() {
  imgIcons.Add(u"Standard EXE");
  imgIcons.Add(u"Form Module");
  imgIcons.Add(u"Method");
  tvwAll.Move(120, 1900, 2600, 2900);
  tvwAll.SetImages(&imgIcons);
  Node& oRoot = tvwAll.Nodes().Add(u"p", u"Orders", u"Standard EXE");
  oRoot.SetExpanded(true);
  Node& oForm = tvwAll.Nodes().Add(oRoot, u"f", u"FMain", u"Form Module");
  tvwAll.Nodes().Add(oRoot, u"c", u"COrder", u"Form Module");
  tvwAll.Nodes().Add(oForm, u"m", u"Load", u"Method");
  lvwRows.Move(2800, 1900, 5000, 2900);
  lvwRows.SetSmallIcons(&imgIcons);
  lvwRows.SetMultiSelect(true);
  lvwRows.ColumnHeaders().Add(u"Name", 1500);
  lvwRows.ColumnHeaders().Add(u"Template", 1500);
  for (std::int32_t i = 1; i <= 40; ++i) {
    lvwRows.ListItems().Add(u"Row " + ToText(i), u"Method").SetSubItems(1, u"Standard");
  }
  choKind.Move(9500, 1900, 1600, 1500);
  lblMore(0).SetCaption(u"More");
  lblMore(0).Move(9500, 3500, 1500, 195);
  chkMore(0).Move(9500, 3750, 1500, 255);
  lstFew.Move(7900, 1900, 1500, 2900);
  for (const auto* psLine : {u"One", u"Two", u"Three"}) lstFew.AddItem(psLine);
}

void FEverything::DesignBottom() {
  tabPages.Move(120, 4900, 5000, 2300);
  tabPages.Tabs().Add(0, u"g", u"&General");
  tabPages.Tabs().Add(0, u"b", u"&Boundary");
  codText.Move(5300, 4900, 5800, 2300);
  codText.SetText(u"Private Sub Load()\r\n  Dim x As Long\r\n\tx = 1\r\nEnd Sub\r\n");
  codText.SetMark(2, LineMark::Removed);
  codText.SetMark(3, LineMark::Added);
  staBelow.SetPanelCount(2);
  staBelow.Panels(1).SetText(u"40 Object(s)");
  staBelow.Panels(2).SetWidth(5000);
  staBelow.Panels(2).SetText(u"C:\\Work\\Orders.vbp");
}
