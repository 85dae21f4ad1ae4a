#include "FEverything.h"

#include "TableRows.h"

using namespace Forms;

namespace {

/// Controls, their captions, and their places in twips.
constexpr const char* Places = R"(
    lblName    | &Name && address: | 120 120 2400 195
    txtName    |          | 2640 75 2400 300
    txtResults |          | 120 480 4920 1200
    fraKinds   | &Kinds   | 5200 60 2600 1620
    chkLocked  | &Locked  | 120 240 2300 255
    optFirst   | F&irst   | 120 540 1800 255
    optSecond  | &Second  | 120 840 1800 255
    chkOff     | Not now  | 120 1140 1800 255
    cmdOK      | OK       | 7920 120 1215 375
    cmdCancel  | Cancel   | 7920 600 1215 375
    cmdApply   | &Apply   | 7920 1080 1215 375
    picOpen    |          | 9300 120 375 375
    picX       |          | 9800 120 375 375
    cboKind    |          | 9300 600 1700 315
    tvwAll     |          | 120 1900 2600 2900
    lvwRows    |          | 2800 1900 5000 2900
    lstFew     |          | 7900 1900 1500 2900
    choKind    |          | 9500 1900 1600 1500
    lblMore(0) | More     | 9500 3500 1500 195
    chkMore(0) |          | 9500 3750 1500 255
    tabPages   |          | 120 4900 5000 2300
    codText    |          | 5300 4900 5800 2300)";

template <class... Kinds>
void SetCaptionOf(Control& control, TextView caption) {
  const auto Give = [&](auto* po) {
    if (po) po->SetCaption(caption);
  };
  (Give(dynamic_cast<Kinds*>(&control)), ...);
}

}  // namespace

Chooser::Chooser(ControlContainer& container, TextView name) : UserControl(container, name) {
  On(cmdDrop.MouseDown, [this](auto...) {
    lstChoices.SetVisible(true);
    lstChoices.SetFocus();
  });
  On(lstChoices.KeyDown, [this](std::int32_t key, std::int32_t) {
    if (key != Key::Return && key != Key::Escape) return;
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
  for (const auto* kind : {u"None", u"VB", u"Firewall", u"ActiveX"}) lstChoices.AddItem(kind);
  // A pixel around entries of 195 twips each.
  const std::int32_t pixel = Kit().Screen().TwipsPerPixelY();
  lstChoices.Move(0, 240, 1515, 2 * pixel + 195 * lstChoices.ListCount());
}

FEverything::FEverything(Toolkit& toolkit, EventLog& log) : Form(toolkit, u"FEverything") {
  for (Control* po : ControlsOf(*this)) log.Watch(po->Click, NameOf(*po));
  log.Watch(mnuOpen.Click, "Open");
  log.Watch(mnuProof.Click, "Proof");
  log.Watch(txtName.Change, "Change");
  log.Watch(tvwAll.NodeClick, "Node");
  log.Watch(tvwAll.Expand, "Expand");
  log.Watch(tvwAll.Collapse, "Collapse");
  log.Watch(lvwRows.ItemClick, "Item");
  log.Watch(lvwRows.ColumnClick, "Column");
  log.Watch(lvwRows.DblClick, "DblClick");
  log.Watch(choKind.KeyDown, "Key");
  log.Watch(tmrOnce.Tick, "Tick");
  log.Watch(Resize, "Resize");
}

void FEverything::Design() {
  SetCaption(u"Everything");
  SetIcon(u"Quillon");
  Move(300, 300, 11400, 8400);
  for (const auto& row : Rows(Places)) {
    Control& control = Find(*this, row[0]);
    SetCaptionOf<Label, Frame, CheckBox, OptionButton, CommandButton>(control, FromUtf8(row[1]));
    const Deed at(row[2]);
    control.Move(at.Number(0), at.Number(1), at.Number(2), at.Number(3));
  }
  DesignMenus();
  DesignDetails();
  DesignLists();
}

void FEverything::DesignMenus() {
  mnuFile.SetCaption(u"&File");
  mnuOpen.SetCaption(u"&Open...");
  mnuOpen.SetShortcut('O', Shift::Ctrl);
  mnuProof.SetCaption(u"&Proof");
  mnuRecent(0).SetCaption(u"&1 First");
  mnuLine.SetCaption(u"-");
  mnuExit.SetCaption(u"E&xit");
}

void FEverything::DesignDetails() {
  txtResults.SetMultiLine(true);
  txtResults.SetScrollBars(ScrollBars::Both);
  chkOff.SetEnabled(false);
  cmdOK.SetDefault(true);
  cmdCancel.SetCancel(true);
  linTop.SetPoints(0, 1770, 11400, 1770);
  linTop.SetBorderColor(SystemColor::ButtonShadow);
  picOpen.SetPicture(u"Open");
  picX.SetPicture(u"PrintX");
  picX.SetBorderStyle(BorderStyle::None);
  tabPages.Tabs().Add(0, u"g", u"&General");
  tabPages.Tabs().Add(0, u"b", u"&Boundary");
  codText.SetText(u"Private Sub Load()\r\n  Dim x As Long\r\n\tx = 1\r\nEnd Sub\r\n");
  codText.SetMark(2, LineMark::Removed);
  codText.SetMark(3, LineMark::Added);
  staBelow.SetPanelCount(2);
  staBelow.Panels(1).SetText(u"40 Object(s)");
  staBelow.Panels(2).SetWidth(5000);
  staBelow.Panels(2).SetText(u"C:\\Work\\Orders.vbp");
}

void FEverything::DesignLists() {
  for (const auto* kind : {u"Firewall", u"ActiveX", u"None"}) cboKind.AddItem(kind);
  for (const auto* line : {u"One", u"Two", u"Three"}) lstFew.AddItem(line);
  for (const auto* key : {u"Standard EXE", u"Form Module", u"Method"}) imgIcons.Add(key);
  tvwAll.SetImages(&imgIcons);
  Node& root = tvwAll.Nodes().Add(u"p", u"Orders", u"Standard EXE");
  root.SetExpanded(true);
  Node& module = tvwAll.Nodes().Add(root, u"f", u"FMain", u"Form Module");
  tvwAll.Nodes().Add(root, u"c", u"COrder", u"Form Module");
  tvwAll.Nodes().Add(module, u"m", u"Load", u"Method");
  lvwRows.SetSmallIcons(&imgIcons);
  lvwRows.SetMultiSelect(true);
  lvwRows.ColumnHeaders().Add(u"Name", 1500);
  lvwRows.ColumnHeaders().Add(u"Template", 1500);
  for (std::int32_t i = 1; i <= 40; ++i)
    lvwRows.ListItems().Add(u"Row " + ToText(i), u"Method").SetSubItems(1, u"Standard");
}
