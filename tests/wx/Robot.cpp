#include "Robot.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/dialog.h>
#include <wx/image.h>
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

void Robot::MoveTo(Control& oControl, const wxPoint& oPlace) {
  Settle();
  moHands.MouseMove(ScreenPlace(oControl, oPlace));
  Settle();
}

void Robot::Click(Control& oControl) {
  const Units& oUnits = static_cast<WxRenderer&>(moToolkit.Renderer()).Unit();
  ClickAt(oControl, {oUnits.Pixels(oControl.Width()) / 2, oUnits.Pixels(oControl.Height()) / 2});
}

void Robot::Click(wxWindow& oWindow) {
  const wxRect o = oWindow.GetScreenRect();
  Settle();
  moHands.MouseMove(o.GetPosition() + wxPoint(o.width / 2, o.height / 2));
  Settle();
  moHands.MouseClick();
  Settle();
}

void Robot::ClickAt(Control& oControl, const wxPoint& oPlace, int nButton) {
  MoveTo(oControl, oPlace);
  moHands.MouseDown(nButton);
  Settle();
  moHands.MouseUp(nButton);
  Settle();
}

void Robot::DoubleClickAt(Control& oControl, const wxPoint& oPlace) {
  MoveTo(oControl, oPlace);
  moHands.MouseDblClick();
  Settle();
}

void Robot::Drag(Control& oControl, const wxPoint& oFrom, const wxPoint& oTo) {
  MoveTo(oControl, oFrom);
  moHands.MouseDown();
  Settle();
  moHands.MouseMove(ScreenPlace(oControl, oTo) - wxPoint(1, 0));
  Settle();
  moHands.MouseMove(ScreenPlace(oControl, oTo));
  Settle();
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

/// Waits for the form, acts, and ends itself.
class ModalAct : public wxTimer {
 public:
  ModalAct(Toolkit& oToolkit, std::function<void(Form&)> oAct)
      : moToolkit(oToolkit), mpoBefore(oToolkit.ModalForm()), moAct(std::move(oAct)) {
    Start(20);
  }

 private:
  void Notify() override {
    Form* const po = moToolkit.ModalForm();
    if (!po || po == mpoBefore) return;
    Stop();
    moAct(*po);
    delete this;
  }

  Toolkit& moToolkit;
  Form* mpoBefore;
  std::function<void(Form&)> moAct;
};

class DialogAct : public wxTimer {
 public:
  explicit DialogAct(std::function<void(wxDialog&)> oAct) : moAct(std::move(oAct)) { Start(20); }

 private:
  void Notify() override {
    for (wxWindow* po : wxTopLevelWindows) {
      auto* const poDialog = dynamic_cast<wxDialog*>(po);
      if (!poDialog || !poDialog->IsModal() || !poDialog->IsShownOnScreen()) continue;
      Stop();
      moAct(*poDialog);
      delete this;
      return;
    }
  }

  std::function<void(wxDialog&)> moAct;
};

class LateKey : public wxTimer {
 public:
  LateKey(int nKey, int nModifiers) : mnKey(nKey), mnModifiers(nModifiers) { StartOnce(400); }

 private:
  void Notify() override {
    wxUIActionSimulator().Char(mnKey, mnModifiers);
    delete this;
  }

  int mnKey, mnModifiers;
};

}  // namespace

void Robot::KeyIntoBox(int nKey, int nModifiers) {
  new LateKey(nKey, nModifiers);
}

void Robot::WhenModal(std::function<void(Form&)> oAct) {
  new ModalAct(moToolkit, std::move(oAct));
}

void Robot::WhenDialog(std::function<void(wxDialog&)> oAct) {
  new DialogAct(std::move(oAct));
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
