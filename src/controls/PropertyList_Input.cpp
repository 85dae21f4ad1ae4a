// Selecting rows of the property sheet, and what the user does to them.
#include "Guard.h"
#include "PropertyList.h"

using namespace Forms;

namespace {

constexpr std::int32_t LineHeight = 195;  ///< of the default font, 8.25 points
constexpr std::int32_t FarAway = -3000;   ///< left of any visible part
/// From the line below a row up to the bottom of a list that opens above it.
/// A row, 240, without the pixel that it shares with its line.
constexpr std::int32_t FlipOffset = 225;
/// An id that no lookup has, so that a row's value is found by its text only.
constexpr std::int32_t NoId = -1;

template <class Work>
void Event(TextView sName, Work&& oWork) {
  Guard({u"PropertyList", sName, ErrorIds::BoundaryVB}, [&](GuardScope&) { oWork(); });
}

}  // namespace

void PropertyList::ConnectParts() {
  lblName.OnElement([this](Label& lblRow) {
    lblRow.On(lblRow.MouseDown, [this, &lblRow](auto...) {
      Event(u"lblName_MouseDown", [&] { SelectRow(lblRow.Index()); });
    });
  });
  lblValue.OnElement([this](Label& lblRow) {
    lblRow.On(lblRow.MouseDown, [this, &lblRow](std::int32_t nButton, auto...) {
      Event(u"lblValue_MouseDown", [&] { PressValue(lblRow.Index(), nButton); });
    });
    lblRow.On(lblRow.DblClick,
              [this, &lblRow] { Event(u"lblValue_DblClick", [&] { NextValue(lblRow.Index()); }); });
  });
  On(txtValue.Change, [this] { Event(u"txtValue_Change", [this] { ValueChanged(); }); });
  On(cmdPopup.MouseDown,
     [this](auto...) { Event(u"cmdPopup_MouseDown", [this] { TogglePopup(); }); });
  On(lstPopup.Click,
     [this] { Event(u"lstPopup_Click", [this] { txtValue.SetText(lstPopup.Text()); }); });
  On(lstPopup.KeyDown, [this](std::int32_t nKeyCode, std::int32_t) {
    Event(u"lstPopup_KeyDown", [&] { PressInList(nKeyCode); });
  });
  On(lstPopup.MouseUp, [this](auto...) { Event(u"lstPopup_MouseUp", [this] { ClosePopup(); }); });
  On(KeyDown, [this](std::int32_t& nKeyCode, std::int32_t) {
    Event(u"UserControl_KeyDown", [&] { MoveRow(nKeyCode); });
  });
  On(EnterFocus, [this] { ColorName(SystemColor::Highlight, SystemColor::HighlightText); });
  On(ExitFocus, [this] { ColorName(SystemColor::ButtonFace, SystemColor::ButtonText); });
}

void PropertyList::SetRow(std::int16_t nRow) {
  if (nRow >= 1 && nRow <= mlShown) SelectRow(nRow);
}

void PropertyList::SelectRow(std::int32_t lRow) {
  mbSuspendChange = true;
  KeepFocus();
  if (mlRow != 0) ColorName(SystemColor::WindowBackground, NameColor(mlRow));
  txtValue.SetVisible(false);
  lstPopup.SetVisible(false);
  mlRow = lRow;
  ColorName(SystemColor::Highlight, SystemColor::HighlightText);
  const SheetRow& oRow = RowAt(lRow);
  cmdPopup.SetVisible(oRow.nType == PropertyType::List && !oRow.bDisabled);
  if (oRow.nType == PropertyType::FreeText) EditText();
  if (oRow.nType == PropertyType::List) OfferList();
  ShowTip();
  mbSuspendChange = false;
}

void PropertyList::KeepFocus() {
  if (HasFocus() && Usable()) Control::SetFocus();
}

Color PropertyList::NameColor(std::int32_t lRow) const {
  const SheetRow& oRow = RowAt(lRow);
  return oRow.nType == PropertyType::List && oRow.bDisabled ? SystemColor::GrayText
                                                            : SystemColor::WindowText;
}

void PropertyList::ColorName(Color lBack, Color lFore) {
  if (mlRow == 0) return;
  lblName(mlRow).SetBackColor(lBack);
  lblName(mlRow).SetForeColor(lFore);
}

void PropertyList::EditText() {
  const bool bEnabled = !RowAt(mlRow).bDisabled;
  const Rect oPlace = lblValue(mlRow).Bounds();
  txtValue.Move(oPlace.lLeft, oPlace.lTop, oPlace.lWidth, oPlace.lHeight);
  txtValue.SetText(lblValue(mlRow).Caption());
  txtValue.SetLocked(!bEnabled);
  txtValue.SetEnabled(bEnabled);
  txtValue.SetVisible(bEnabled);
  TakeFocus();
}

void PropertyList::OfferList() {
  const SheetRow& oRow = RowAt(mlRow);
  txtValue.SetTop(FarAway);
  txtValue.SetText(lblValue(mlRow).Caption());
  txtValue.SetLocked(true);
  txtValue.SetEnabled(true);
  txtValue.SetVisible(true);
  TakeFocus();
  cmdPopup.SetTop(RowTop(mlRow));
  oRow.poLookup->LoadListBox(lstPopup, txtValue.Text(), NoId);
  lstPopup.SetHeight(2 * mnPixelY + LineHeight * lstPopup.ListCount());
}

void PropertyList::TakeFocus() {
  if (!Usable()) return;
  txtValue.Usable() ? txtValue.SetFocus() : Control::SetFocus();
}

void PropertyList::ShowTip() {
  const SheetRow& oRow = RowAt(mlRow);
  lblTip(1).SetCaption(oRow.lTipId != 0 ? TextView(oRow.sName) : TextView());
  lblTip(2).SetCaption(Tip(oRow.lTipId));
}

void PropertyList::PressValue(std::int32_t lRow, std::int32_t nButton) {
  SelectRow(lRow);
  if (nButton == Button::Right) TogglePopup();
}

void PropertyList::TogglePopup() {
  if (lstPopup.Visible()) return ClosePopup();
  if (mlRow == 0 || RowAt(mlRow).nType != PropertyType::List) return;
  std::int32_t lTop = linHorz(mlRow).Y1();
  if (lTop + lstPopup.Height() > ScaleHeight()) lTop -= lstPopup.Height() + FlipOffset;
  lstPopup.SetTop(lTop);
  lstPopup.SetVisible(true);
  lstPopup.SetFocus();
}

void PropertyList::ClosePopup() {
  // The focus is moved first: hiding the list while it has the focus would pass it to another
  // control for a moment.
  TakeFocus();
  lstPopup.SetVisible(false);
}

void PropertyList::NextValue(std::int32_t lRow) {
  if (RowAt(lRow).nType != PropertyType::List) return;
  if (lRow != mlRow) SelectRow(lRow);
  if (lstPopup.ListCount() > 0) {
    lstPopup.SetListIndex((lstPopup.ListIndex() + 1) % lstPopup.ListCount());
  }
}

void PropertyList::PressInList(std::int32_t nKeyCode) {
  if (nKeyCode == Key::Return || nKeyCode == Key::Escape) ClosePopup();
}

void PropertyList::MoveRow(std::int32_t& nKeyCode) {
  if (lstPopup.Visible() || (nKeyCode != Key::Up && nKeyCode != Key::Down)) return;
  const std::int32_t lRow = mlRow + (nKeyCode == Key::Up ? -1 : 1);
  nKeyCode = 0;
  if (lRow >= 1 && lRow <= mlShown) SelectRow(lRow);
}

void PropertyList::ValueChanged() {
  if (mbSuspendChange || mlRow == 0) return;
  // Copies, because the handler may remove the row.
  const Text sName = RowAt(mlRow).sName, sValue = txtValue.Text();
  lblValue(mlRow).SetCaption(sValue);
  PropertyChange(sName, sValue);
}
