#include "ButtonPeers.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dcclient.h>
#include <wx/radiobut.h>

#include "CheckBox.h"
#include "CommandButton.h"
#include "Drawing.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "OptionButton.h"
#include "Surface.h"
#include "Toolkit.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

/// The box's place, enlarged where the window system's control needs more height: by the same
/// amount above and below, so that rows of boxes stay aligned.
wxRect WithBestHeight(wxRect oPlace, const wxWindow& oNative) {
  const int nMore = oNative.GetBestSize().y - oPlace.height;
  return nMore > 0 ? oPlace.Inflate(0, (nMore + 1) / 2) : oPlace;
}

/// The caption of a box, broken at blanks where it is wider than the room behind the box.
wxString CaptionInside(wxWindow& oNative, const Control& oControl, TextView sCaption,
                       const Units& oUnit) {
  constexpr int nBox = 22;  // pixels of the box and the gap behind it; a choice
  const int nRoom = oUnit.Pixels(oControl.Width()) - oUnit.Scaled(nBox);
  const wxString sText = ToWx(sCaption);
  wxClientDC oDC(&oNative);
  oDC.SetFont(NativeFont(oControl.Font()));
  if (nRoom <= 0 || oDC.GetTextExtent(sText).x <= nRoom) return sText;
  wxString sLines;
  for (const wxString& sLine : Wrap(oDC, sText, nRoom)) {
    sLines += (sLines.empty() ? wxString() : wxString("\n")) + sLine;
  }
  return sLines;
}

bool ChangeCaption(const Changes& o) {
  return o.Has(Property::Caption) || o.Has(Property::Bounds) || o.Has(Property::Font);
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
    // Nothing may be touched after the click: its handler may have unloaded the form.
  });
}

// If a handler of MouseDown moved the focus away, the native button must not see the press: it
// would take the focus back and raise a click at the release.
void CommandButtonPeer::OnMouse(wxMouseEvent& oEvent) {
  const auto pLife = Life();
  ControlPeer::OnMouse(oEvent);
  if (!pLife.expired() && oEvent.LeftDown() && !moButton.HasFocus()) oEvent.Skip(false);
}

void CommandButtonPeer::Apply(const Changes& oChanges) {
  // A native button that ever had a label, even an empty one, isn't drawn as a button for a
  // picture.
  const wxString sCaption = ToWx(moButton.Caption());
  if (moButton.Picture().empty() && moNative.GetLabel() != sCaption) moNative.SetLabel(sCaption);
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
    Later(Property::Value);  // the object may refuse the change or take another value
    moBox.UserClick();
  });
}

wxRect CheckBoxPeer::NativePlace() const {
  return WithBestHeight(Place(), moNative);
}

void CheckBoxPeer::Apply(const Changes& oChanges) {
  if (ChangeCaption(oChanges)) {
    moNative.SetLabel(CaptionInside(moNative, moBox, moBox.Caption(), moRenderer.Unit()));
  }
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
  if (ChangeCaption(oChanges)) {
    moNative.SetLabel(CaptionInside(moNative, moOption, moOption.Caption(), moRenderer.Unit()));
  }
  ControlPeer::Apply(oChanges);
  if (!oChanges.Has(Property::Value)) return;
  if (moOption.Value()) {
    moNative.SetValue(true);
  } else if (moNative.GetValue()) {
    Ground().NoOption().SetValue(true);
  }
}

}  // namespace Forms
