#include "Robot.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/dialog.h>
#include <wx/image.h>
#include <wx/modalhook.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>
#include <wx/toplevel.h>

#include <memory>

#include "ContainerPeer.h"
#include "Form.h"
#include "FormPeer.h"
#include "Toolkit.h"
#include "WxRenderer.h"

using namespace Forms;

bool Robot::Until(const std::function<bool()>& oHolds) {
  wxStopWatch oWatch;
  while (!oHolds()) {
    if (oWatch.Time() > 3000) return false;
    moToolkit.DoEvents();
    wxMilliSleep(5);
  }
  return true;
}

void Robot::Settle() {
  for (int i = 0; i < 12; ++i) {
    moToolkit.DoEvents();
    wxMilliSleep(5);
  }
}

wxTopLevelWindow& Robot::FrameOf(Form& oForm) const {
  return dynamic_cast<FormPeer&>(*oForm.Peer()).Frame();
}

wxPoint Robot::ScreenPlace(Control& oControl, const wxPoint& oPlace) const {
  auto* const poForm = dynamic_cast<Form*>(&oControl);
  Control& oOn = poForm ? oControl : oControl.Container();
  Surface& oArea = dynamic_cast<IContainerPeer&>(*oOn.Peer()).Area();
  const Units& oUnits = static_cast<WxRenderer&>(moToolkit.Renderer()).Unit();
  const wxPoint oCorner =
      poForm ? wxPoint() : oUnits.Pixels(oControl.Bounds()).GetTopLeft() + oArea.Origin();
  return oArea.ClientToScreen(oCorner + oPlace);
}

void Robot::GoTo(const wxPoint& place) {
  moHands.MouseMove(place);
  Settle();
}

void Robot::Click(Control& oControl) {
  const Units& oUnits = static_cast<WxRenderer&>(moToolkit.Renderer()).Unit();
  ClickAt(oControl, {oUnits.Pixels(oControl.Width()) / 2, oUnits.Pixels(oControl.Height()) / 2});
}

void Robot::Click(wxWindow& oWindow) {
  const wxRect o = oWindow.GetScreenRect();
  Settle();
  ClickThere(o.GetPosition() + wxPoint(o.width / 2, o.height / 2));
}

void Robot::ClickThere(const wxPoint& place) {
  GoTo(place);
  moHands.MouseDown();
  Settle();
  moHands.MouseUp();
  Settle();
}

void Robot::ClickAt(Control& oControl, const wxPoint& oPlace) {
  Settle();
  ClickThere(ScreenPlace(oControl, oPlace));
}

void Robot::DoubleClickAt(Control& oControl, const wxPoint& oPlace) {
  Settle();
  GoTo(ScreenPlace(oControl, oPlace));
  moHands.MouseDblClick();
  Settle();
}

void Robot::Drag(Control& oControl, const wxPoint& oFrom, const wxPoint& oTo) {
  Settle();
  GoTo(ScreenPlace(oControl, oFrom));
  moHands.MouseDown();
  Settle();
  GoTo(ScreenPlace(oControl, oTo) - wxPoint(1, 0));
  GoTo(ScreenPlace(oControl, oTo));
  moHands.MouseUp();
  Settle();
}

void Robot::Key(int nKey, int nModifiers) {
  Settle();
  moHands.Char(nKey, nModifiers);
  Settle();
}

void Robot::Type(const std::string& sText) {
  for (const char c : sText) {
    const bool bUpper = c >= 'A' && c <= 'Z';
    moHands.Char(c, bUpper ? wxMOD_SHIFT : wxMOD_NONE);
    Settle();
  }
}

namespace {

/// Asks until there is an act, does it, and ends itself.
class Later : public wxTimer {
 public:
  using Deed = std::function<void()>;
  Later(int wait, std::function<Deed()> find) : ready(std::move(find)) { Start(wait); }

 private:
  void Notify() override {
    const Deed act = ready();
    if (!act) return;
    Stop();
    act();
    delete this;
  }
  std::function<Deed()> ready;
};

/// Presses a key a moment after the next box or dialog comes up, and ends itself.
class KeyInto : public wxModalDialogHook {
 public:
  explicit KeyInto(std::function<void()> press) : act(std::move(press)) { Register(); }

 private:
  int Enter(wxDialog*) override {
    new Later(400, [press = act] { return press; });
    delete this;
    return wxID_NONE;
  }
  std::function<void()> act;
};

}  // namespace

void Robot::KeyIntoBox(int key, int modifiers) {
  new KeyInto([=] { wxUIActionSimulator().Char(key, modifiers); });
}

void Robot::WhenModal(std::function<void(Form&)> act) {
  new Later(20, [this, act, before = moToolkit.ModalForm()]() -> Later::Deed {
    Form* const po = moToolkit.ModalForm();
    if (!po || po == before) return nullptr;
    return [act, po] { act(*po); };
  });
}

void Robot::WhenDialog(std::function<void(wxDialog&)> act) {
  new Later(20, [act]() -> Later::Deed {
    for (wxWindow* po : wxTopLevelWindows) {
      auto* const dialog = dynamic_cast<wxDialog*>(po);
      if (dialog && dialog->IsModal() && dialog->IsShownOnScreen()) return [=] { act(*dialog); };
    }
    return nullptr;
  });
}

void Robot::Photograph(const std::string& sPath) {
  wxScreenDC oScreen;
  const wxSize oSize = oScreen.GetSize();
  wxBitmap oBitmap(oSize);
  wxMemoryDC oMemory(oBitmap);
  oMemory.Blit({0, 0}, oSize, &oScreen, {0, 0});
  oMemory.SelectObject(wxNullBitmap);
  oBitmap.ConvertToImage().SaveFile(wxString::FromUTF8(sPath), wxBITMAP_TYPE_PNG);
}
