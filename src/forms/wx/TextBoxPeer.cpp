#include "TextBoxPeer.h"

#include <wx/textctrl.h>

#include "NativeText.h"
#include "Surface.h"
#include "TextBox.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

long StyleOf(const TextBox& oBox) {
  long nStyle = oBox.BorderStyle() == BorderStyle::None ? wxBORDER_NONE : 0;
  if (!oBox.MultiLine()) return nStyle;
  nStyle |= wxTE_MULTILINE;
  const bool bAcross =
      oBox.ScrollBars() == ScrollBars::Horizontal || oBox.ScrollBars() == ScrollBars::Both;
  return nStyle | (bAcross ? wxHSCROLL | wxTE_DONTWRAP : wxTE_WORDWRAP);
}

}  // namespace

TextBoxPeer::TextBoxPeer(WxRenderer& oRenderer, TextBox& oBox)
    : ControlPeer(oRenderer, oBox),
      moBox(oBox),
      moNative(*new wxTextCtrl(&Ground(), wxID_ANY, wxString(), wxDefaultPosition, {1, 1},
                               StyleOf(oBox))) {
  Adopt(moNative);
  Listen(moNative, wxEVT_TEXT, [this](wxCommandEvent&) { OnText(); });
  // The native field selects all of its text when it gets the focus; restore the object's
  // selection.
  Listen(moNative, wxEVT_SET_FOCUS, [this](wxFocusEvent& o) {
    o.Skip();
    Later(Property::Selection);
  });
  Listen(moNative, wxEVT_KEY_UP, [this](wxKeyEvent& o) {
    o.Skip();
    BeforeKey();
  });
}

Text TextBoxPeer::NativeValue() const {
  return FromField(moNative.GetValue());
}

void TextBoxPeer::OnText() {
  const Text sText = NativeValue();
  const auto lStart = FromFieldPosition(sText, moNative.GetInsertionPoint());
  moBox.UserText(sText, lStart);
}

void TextBoxPeer::BeforeKey() {
  moRenderer.CatchUp();
  long nFrom, nTo;
  moNative.GetSelection(&nFrom, &nTo);
  const TextView sText = moBox.Text();
  const auto lFrom = FromFieldPosition(sText, nFrom), lTo = FromFieldPosition(sText, nTo);
  if (lFrom != moBox.SelStart() || lTo - lFrom != moBox.SelLength()) {
    moBox.UserSelection(lFrom, lTo - lFrom);
  }
}

void TextBoxPeer::OnMouse(wxMouseEvent& oEvent) {
  const auto pLife = Life();
  ControlPeer::OnMouse(oEvent);
  if (pLife.expired() || !oEvent.LeftUp()) return;
  BeforeKey();
  moBox.UserClick();
}

void TextBoxPeer::InsertCharacter(std::int32_t nCharacter) {
  if (!moBox.Locked()) moNative.WriteText(wxUniChar(nCharacter));
}

void TextBoxPeer::Apply(const Changes& oChanges) {
  ControlPeer::Apply(oChanges);
  if (oChanges.Has(Property::Locked)) {
    moNative.SetEditable(!moBox.Locked());
    if (!moBox.MultiLine()) {
      moNative.SetMaxLength(static_cast<unsigned long>(moBox.MaxLength()));
    }
  }
  if (oChanges.Has(Property::Text)) ApplyText();
  if (oChanges.Has(Property::Text) || oChanges.Has(Property::Selection)) ApplySelection();
}

void TextBoxPeer::ApplyText() {
  const wxString sNew = ToField(moBox.Text()), sOld = moNative.GetValue();
  if (sNew == sOld) return;
  // Text at the end is appended: setting the whole text again would take time for all of it.
  if (!sOld.empty() && sNew.StartsWith(sOld)) {
    moNative.SetEvtHandlerEnabled(false);
    moNative.AppendText(sNew.Mid(sOld.length()));
    moNative.SetEvtHandlerEnabled(true);
  } else {
    moNative.ChangeValue(sNew);
  }
}

void TextBoxPeer::ApplySelection() {
  const TextView sText = moBox.Text();
  const long nFrom = ToFieldPosition(sText, moBox.SelStart());
  const long nTo = ToFieldPosition(sText, moBox.SelStart() + moBox.SelLength());
  long nNowFrom, nNowTo;
  moNative.GetSelection(&nNowFrom, &nNowTo);
  if (nFrom == nNowFrom && nTo == nNowTo) return;
  moNative.SetSelection(nFrom, nTo);
  moNative.ShowPosition(nFrom);
}

}  // namespace Forms
