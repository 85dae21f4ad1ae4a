#include "ListPeers.h"

#include <wx/choice.h>
#include <wx/dc.h>

#include <algorithm>

#include "ComboBox.h"
#include "Drawing.h"
#include "Form.h"
#include "ListBox.h"
#include "MouseFeed.h"
#include "NativeDetails.h"
#include "NativeText.h"
#include "Surface.h"
#include "WxRenderer.h"

namespace Forms {

ListBoxPeer::ListBoxPeer(WxRenderer& oRenderer, ListBox& oList)
    : RowsPeer(oRenderer, oList), moList(oList) {}

int ListBoxPeer::RowCount() const {
  return moList.ListCount();
}

void ListBoxPeer::DrawRow(wxDC& oDC, int nRow, const wxRect& oRect) {
  DrawRowGround(oDC, oRect, moList.Selected(nRow));
  DrawTextIn(oDC, ToWx(moList.List(nRow)), wxRect(oRect).Deflate(3, 0), wxALIGN_LEFT);
}

void ListBoxPeer::PressRow(int nRow, const wxMouseEvent& oEvent) {
  if (nRow < RowCount() && oEvent.LeftDown()) moList.UserSelect(nRow, ShiftOf(oEvent));
}

void ListBoxPeer::DragRow(int nRow) {
  const bool bSingle = moList.MultiSelect() == MultiSelect::None;
  if (bSingle && nRow != FocusRow()) moList.UserSelect(nRow);
}

int ListBoxPeer::FocusRow() const {
  return moList.ListIndex();
}

void ListBoxPeer::GoToRow(int nRow, std::int32_t nShift) {
  moList.UserSelect(nRow, nShift);
}

wxRect ListBoxPeer::NativePlace() const {
  // Forms are laid out for lines of 195 twips at 8.25 points, as Windows has them; here lines may
  // be higher. A list that was to show all of its rows grows, so that it still does.
  constexpr double dTwipsPerPoint = 195 / 8.25;
  wxRect o = RowsPeer::NativePlace();
  const double dEntries = RowCount() * moList.Font().dSize * dTwipsPerPoint;
  if (moRenderer.Unit().Pixels(static_cast<std::int32_t>(dEntries)) <= o.height)
    o.height = std::max(o.height, RowCount() * RowPixels());
  return o;
}

void ListBoxPeer::Apply(const Changes& oChanged) {
  Changes oChanges = oChanged;
  if (oChanges.Has(Property::Items)) oChanges.Note(Property::Bounds);
  RowsPeer::Apply(oChanges);
  if (oChanges.Has(Property::Selection) && FocusRow() >= 0) Pane().ShowRow(FocusRow());
}

ComboBoxPeer::ComboBoxPeer(WxRenderer& oRenderer, ComboBox& oCombo)
    : ControlPeer(oRenderer, oCombo),
      moCombo(oCombo),
      moNative(*new wxChoice(&Ground(), wxID_ANY, wxDefaultPosition, {1, 1})) {
  Adopt(moNative);
  Listen(moNative, wxEVT_CHOICE, [this](wxCommandEvent& o) {
    Later(Property::Selection);  // the object may have refused the change
    moCombo.UserSelect(o.GetSelection());
  });
}

bool ComboBoxPeer::OwnsKey(const Stroke& o) const {
  // Space opens and closes the native list.
  return o.nKeyCode != 0 && o.nKeyCode != Key::Space;
}

void ComboBoxPeer::UseKey(const Stroke& o) {
  const bool bDown = o.nKeyCode == Key::Down && o.nShift == Shift::Alt;
  if (!bDown && o.nKeyCode != Key::F4) return ControlPeer::UseKey(o);
  const auto pLife = Life();
  if (moCombo.Parent().UserKey(o.nKeyCode, o.nShift) || pLife.expired()) return;
  NativeDetails::DropDown(moNative);
}

wxRect ComboBoxPeer::NativePlace() const {
  wxRect o = Place();
  // The native list doesn't become lower than its best height, whatever the form says.
  const int nBest = moNative.GetBestSize().y;
  if (nBest > o.height) o.y -= (nBest - o.height) / 2;
  o.height = std::max(nBest, o.height);
  return o;
}

void ComboBoxPeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Items)) {
    wxArrayString asLine;
    for (std::int32_t i = 0; i < moCombo.ListCount(); ++i) asLine.Add(ToWx(moCombo.List(i)));
    moNative.Set(asLine);
  }
  ControlPeer::Apply(oChanges);
  if (oChanges.Has(Property::Items) || oChanges.Has(Property::Selection)) {
    moNative.SetSelection(moCombo.ListIndex());
  }
}

}  // namespace Forms
