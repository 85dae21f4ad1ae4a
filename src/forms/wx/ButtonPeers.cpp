#include "ButtonPeers.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>

#include "CheckBox.h"
#include "CommandButton.h"
#include "NativeText.h"
#include "OptionButton.h"
#include "Surface.h"
#include "Toolkit.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// The place in a box's own height or, where the window system needs a little more, in that: from
/// the middle to both sides, so that rows stay in line.
wxRect WithBestHeight(wxRect oPlace, const wxWindow& oNative) {
  const int nMore = oNative.GetBestSize().y - oPlace.height;
  return nMore > 0 ? oPlace.Inflate(0, (nMore + 1) / 2) : oPlace;
}

}  // namespace

CommandButtonPeer::CommandButtonPeer(WxRenderer& oRenderer, CommandButton& oButton)
    : ControlPeer(oRenderer, oButton),
      moButton(oButton),
      moNative(*new wxButton(&Ground(), wxID_ANY, wxString(), wxDefaultPosition, {1, 1},
                             wxBU_EXACTFIT)) {
  Adopt(moNative);
  Listen(moNative, wxEVT_BUTTON, [this](wxCommandEvent&) {
    moButton.UserClick();
    // Behind the click nothing is touched: it may have unloaded the form.
  });
}

void CommandButtonPeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Caption)) moNative.SetLabel(ToWx(moButton.Caption()));
  if (oChanges.Has(Property::Picture) && !moButton.Picture().empty()) {
    const int nPixels = moRenderer.Unit().Scaled(16);
    const wxBitmap& oBitmap =
        moRenderer.Pictures().Get(moButton.Kit(), moButton.Picture(), nPixels);
    if (oBitmap.IsOk()) moNative.SetBitmap(oBitmap);
  }
  ControlPeer::Apply(oChanges);
  if (oChanges.Has(Property::Value) && moButton.Default()) moNative.SetDefault();
}

CheckBoxPeer::CheckBoxPeer(WxRenderer& oRenderer, CheckBox& oBox)
    : ControlPeer(oRenderer, oBox),
      moBox(oBox),
      moNative(*new wxCheckBox(&Ground(), wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxCHK_3STATE)) {
  Adopt(moNative);
  Listen(moNative, wxEVT_CHECKBOX, [this](wxCommandEvent&) {
    Later(Property::Value);  // the object may have another value, or none for this user
    moBox.UserClick();
  });
}

wxRect CheckBoxPeer::NativePlace() const {
  return WithBestHeight(Place(), moNative);
}

void CheckBoxPeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Caption)) moNative.SetLabel(ToWx(moBox.Caption()));
  ControlPeer::Apply(oChanges);
  if (oChanges.Has(Property::Value)) {
    moNative.Set3StateValue(static_cast<wxCheckBoxState>(moBox.Value()));
  }
}

OptionButtonPeer::OptionButtonPeer(WxRenderer& oRenderer, OptionButton& oOption)
    : ControlPeer(oRenderer, oOption),
      moOption(oOption),
      moNative(*new wxRadioButton((Ground().NoOption(), &Ground()), wxID_ANY, wxString())) {
  Adopt(moNative);
  Listen(moNative, wxEVT_RADIOBUTTON, [this](wxCommandEvent&) {
    for (OptionButton* po : moOption.Group()) {
      if (po->Peer()) po->Peer()->Changed(Property::Value, 0);
    }
    moOption.UserClick();
  });
}

wxRect OptionButtonPeer::NativePlace() const {
  return WithBestHeight(Place(), moNative);
}

void OptionButtonPeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Caption)) moNative.SetLabel(ToWx(moOption.Caption()));
  ControlPeer::Apply(oChanges);
  if (!oChanges.Has(Property::Value)) return;
  if (moOption.Value()) {
    moNative.SetValue(true);
  } else if (moNative.GetValue()) {
    Ground().NoOption().SetValue(true);
  }
}

}  // namespace Forms
