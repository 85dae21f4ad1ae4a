#include "FormPeer.h"

#include <wx/app.h>
#include <wx/dc.h>
#include <wx/iconbndl.h>

#include "NativeDetails.h"
#include "NativeLook.h"
#include "NativeText.h"
#include "Toolkit.h"
#include "WxRenderer.h"

namespace Forms {

namespace {

long StyleOf(const Form& oForm) {
  long nStyle = wxCLIP_CHILDREN;
  if (oForm.BorderStyle() == FormBorder::None) return nStyle | wxBORDER_NONE;
  nStyle |= wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX;
  if (oForm.BorderStyle() == FormBorder::FixedDialog) return nStyle;
  nStyle |= wxRESIZE_BORDER;
  if (oForm.MaxButton()) nStyle |= wxMAXIMIZE_BOX;
  if (oForm.MinButton()) nStyle |= wxMINIMIZE_BOX;
  return nStyle;
}

/// Alt with a letter or digit, or F10: opens a menu unless the form uses the key itself.
bool LeadsToMenus(const Stroke& o) {
  const bool bCharacter = o.nKeyCode >= '0' && o.nKeyCode <= 'Z';
  return o.nShift == Shift::Alt ? bCharacter : o.nKeyCode == Key::F1 + 9;
}

}  // namespace

FormPeer::FormPeer(WxRenderer& oRenderer, Form& oForm)
    : WxPeer(oRenderer),
      moForm(oForm),
      moFrame(*new wxFrame(nullptr, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                           StyleOf(oForm))),
      moArea(*new Surface(&moFrame, oForm, oRenderer)),
      moMenus(oForm, moFrame) {
  Listen(moFrame, wxEVT_CHAR_HOOK, [this](wxKeyEvent& o) { OnKey(o); });
  Listen(moFrame, wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& o) { OnClose(o); });
  Listen(moFrame, wxEVT_ACTIVATE, [this](wxActivateEvent& o) { OnActivate(o); });
  Listen(moFrame, wxEVT_SIZE, [this](wxSizeEvent& o) { o.Skip(), OnPlace(); });
  Listen(moFrame, wxEVT_MOVE, [this](wxMoveEvent& o) { o.Skip(), OnPlace(); });
  Listen(moFrame, wxEVT_MAXIMIZE, [this](wxMaximizeEvent& o) { o.Skip(), OnPlace(); });
  Listen(moFrame, wxEVT_ICONIZE, [this](wxIconizeEvent& o) { o.Skip(), OnPlace(); });
  Listen(moFrame, wxEVT_MENU_OPEN, [this](wxMenuEvent& o) { o.Skip(), moMenus.Opened(o); });
  Listen(moFrame, wxEVT_MENU_CLOSE, [this](wxMenuEvent& o) { o.Skip(), moMenus.Closed(o); });
  Listen(moFrame, wxEVT_MENU, [this](wxCommandEvent& o) {
    const auto pLife = Life();
    moMenus.Picked(o);
    if (!pLife.expired())
      Later(Property::Menu);  // the native menu toggled its check mark; set it as the form has it
  });
  LaterAll();
  // Now and not with the other changes: the form's inner size depends on the menu bar.
  moMenus.Update();
}

FormPeer::~FormPeer() {
  moArea.Leave();
  NativeDetails::ModalInput::EndAheadOf(moFrame);
  moFrame.Hide();
  moFrame.Destroy();
}

void FormPeer::Changed(Property eProperty, std::int32_t lIndex) {
  WxPeer::Changed(eProperty, lIndex);
  if (eProperty == Property::Visible) moRenderer.EndLoops();
}

void FormPeer::DrawGround(wxDC& oDC, const wxSize&) {
  oDC.SetBackground(NativeColor(moForm.BackColor()));
  oDC.Clear();
}

Edges FormPeer::MeasuredEdges() const {
  const wxSize oBorder = moFrame.GetSize() - moFrame.GetClientSize();
  const Units& oUnits = moRenderer.Unit();
  const int nSide = oBorder.x / 2;
  return {oUnits.Twips(nSide), oUnits.Twips(oBorder.y - nSide), oUnits.Twips(oBorder.x - nSide),
          oUnits.Twips(nSide)};
}

void FormPeer::PaintNow() {
  moArea.Refresh();
  moArea.Update();
}

void FormPeer::Apply(const Changes& oChanges) {
  if (oChanges.Has(Property::Menu)) moMenus.Update();
  if (oChanges.Has(Property::Caption)) moFrame.SetTitle(ToWx(moForm.Caption()));
  if (oChanges.Has(Property::Icon)) ApplyIcon();
  if (oChanges.Has(Property::MousePointer)) {
    moArea.SetCursor(NativeCursor(moForm.MousePointer()));
  }
  if (oChanges.Has(Property::Bounds)) ApplyBounds();
  if (oChanges.Has(Property::WindowState)) ApplyWindowState();
  if (oChanges.Has(Property::Enabled)) moFrame.Enable(moForm.Enabled());
  if (oChanges.Has(Property::Visible)) ApplyVisible();
  if (oChanges.Has(Property::Colors)) moArea.Refresh();
  TellPlace();
}

void FormPeer::ApplyIcon() {
  wxIconBundle oIcons;
  for (const int nPixels : {16, 32, 48}) {
    const wxBitmap& oBitmap = moRenderer.Pictures().Get(moForm.Kit(), moForm.Icon(), nPixels);
    wxIcon oIcon;
    if (!oBitmap.IsOk()) continue;
    oIcon.CopyFromBitmap(oBitmap);
    oIcons.AddIcon(oIcon);
  }
  if (!oIcons.IsEmpty()) moFrame.SetIcons(oIcons);
}

void FormPeer::ApplyBounds() {
  if (moForm.WindowState() != WindowState::Normal) return;
  const wxRect oPlace = moRenderer.Unit().Pixels(moForm.Bounds());
  if (const int nLeast = moRenderer.Unit().Pixels(moForm.LeastSize()); nLeast > 0)
    moFrame.SetMinSize({nLeast, nLeast});
  if (oPlace != moFrame.GetRect()) moFrame.SetSize(oPlace);
}

void FormPeer::ApplyVisible() {
  if (moForm.Visible() == moFrame.IsShown()) return;
  if (!moForm.Visible()) {
    NativeDetails::ModalInput::EndAheadOf(moFrame);
    moFrame.Hide();
    return;
  }
  auto* const poOwner = moForm.Owner() ? static_cast<FormPeer*>(moForm.Owner()->Peer()) : nullptr;
  NativeDetails::SetOwner(moFrame, poOwner ? &poOwner->Frame() : nullptr);
  moFrame.Show();
  moFrame.Raise();
}

void FormPeer::ApplyWindowState() {
  const WindowState eState = moForm.WindowState();
  if (eState == WindowState::Maximized) {
    moFrame.Maximize();
  } else if (eState == WindowState::Minimized) {
    moFrame.Iconize();
  } else if (mbMaximized || mbMinimized) {
    moFrame.Restore();
  }
}

void FormPeer::OnKey(wxKeyEvent& oEvent) {
  WxRenderer& oRenderer = moRenderer;  // outlives the peer, which a handler may end
  // The frame gets the keys though a menu that was opened by the mouse is in front of it.
  if (wxMenu* const poMenu = moMenus.Dropped(); poMenu && NativeDetails::GiveKey(*poMenu)) return;
  oRenderer.CatchUp();
  const Stroke oStroke = StrokeOf(oEvent);
  if (oStroke.nKeyCode == 0) return oEvent.Skip();
  Control* const poActive = moForm.ActiveControl();
  auto* const poPeer = poActive ? dynamic_cast<ControlPeer*>(poActive->Peer()) : nullptr;
  if (poPeer) poPeer->BeforeKey();
  if (poPeer && poPeer->OwnsKey(oStroke) && !LeadsToMenus(oStroke)) {
    poPeer->UseKey(oStroke);
  } else if (!moForm.UserKey(oStroke.nKeyCode, oStroke.nShift)) {
    oEvent.Skip();
  }
  oRenderer.CatchUp();
}

void FormPeer::OnClose(wxCloseEvent& oEvent) {
  WxRenderer& oRenderer = moRenderer;
  if (oEvent.CanVeto()) oEvent.Veto();
  moForm.UserClose();
  oRenderer.CatchUp();
}

void FormPeer::OnActivate(wxActivateEvent& oEvent) {
  oEvent.Skip();
  if (oEvent.GetActive()) moForm.UserActivate();
}

void FormPeer::OnPlace() {
  if (moRenderer.CatchingUp()) return;
  TellPlace();
}

void FormPeer::TellWindowState() {
  const bool bMaximized = moFrame.IsMaximized(), bMinimized = moFrame.IsIconized();
  if (bMaximized == mbMaximized && bMinimized == mbMinimized) return;
  mbMaximized = bMaximized;
  mbMinimized = bMinimized;
  moForm.UserWindowState(bMinimized   ? WindowState::Minimized
                         : bMaximized ? WindowState::Maximized
                                      : WindowState::Normal);
}

void FormPeer::TellPlace() {
  if (!moFrame.IsShown()) return;
  const auto pLife = Life();
  TellWindowState();
  if (pLife.expired() || moFrame.IsIconized()) return;
  const Units& oUnits = moRenderer.Unit();
  const wxRect oOwn = oUnits.Pixels(moForm.Bounds()), oNow = moFrame.GetRect();
  if (oOwn.GetPosition() != oNow.GetPosition()) {
    moForm.UserMove(oUnits.Twips(oNow.x), oUnits.Twips(oNow.y));
  }
  if (pLife.expired()) return;
  const wxSize oInner = std::exchange(moInner, moFrame.GetClientSize());
  if (oOwn.GetSize() != oNow.GetSize()) {
    moForm.UserResize(oUnits.Twips(oNow.width), oUnits.Twips(oNow.height));
  } else if (oInner != moInner) {
    // The size of the frame became known only now: the inner size changed, the outer one didn't.
    moForm.Resized();
  }
}

}  // namespace Forms
