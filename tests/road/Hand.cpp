#include "Hand.h"

#include <wx/app.h>
#include <wx/menu.h>
#include <wx/uiaction.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "ContainerPeer.h"
#include "FrontWindow.h"
#include "RowsPane.h"
#include "Units.h"

using namespace Forms;

namespace {

wxRect PlaceOf(const Control& oControl) {
  const Units oUnits(1440.0 / oControl.Kit().Screen().TwipsPerPixelX());
  Surface& oArea = dynamic_cast<IContainerPeer&>(*oControl.Container().Peer()).Area();
  wxRect oPlace = oUnits.Pixels(oControl.Bounds());
  oPlace.SetPosition(oArea.ClientToScreen(oPlace.GetPosition() + oArea.Origin()));
  return oPlace;
}

}  // namespace

Hand::Hand(std::string sName) : msName(std::move(sName)) {}

// There is no timer before the window system has started.
void Hand::Start() {
  mpClock = std::make_unique<wxTimer>();
  // The next tick comes a while behind this one, however long it took: in between the program
  // paints and catches up, on a busy machine too. A step may lead into a loop that the ticks go on
  // in.
  mpClock->Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
    mpClock->StartOnce(lTickMilliseconds);
    Tick();
    mpClock->StartOnce(lTickMilliseconds);
  });
  const auto oOnMenu = [this](wxMenuEvent& o) {
    o.Skip();
    mbMenu = o.GetEventType() == wxEVT_MENU_OPEN;
  };
  wxTheApp->Bind(wxEVT_MENU_OPEN, oOnMenu);
  wxTheApp->Bind(wxEVT_MENU_CLOSE, oOnMenu);
  mpClock->StartOnce(lTickMilliseconds);
}

void Hand::Step(std::string sWhat, std::function<bool()> oReady, std::function<void()> oAct) {
  moSteps.push_back({std::move(sWhat), std::move(oReady), std::move(oAct)});
}

// The presses are apart from each other as steps are.
void Hand::KeyUntil(std::string sWhat, int nKey, std::function<bool()> oHolds) {
  Await(std::move(sWhat), [=, this, n = 0]() mutable {
    if (oHolds()) return true;
    if (n++ % (lSettling + 1) == 0) Key(nKey);
    return false;
  });
}

// A step may lead into a modal loop in which the next one comes: it is taken off the list first.
void Hand::Tick() {
  if (moSteps.empty()) {
    if (++mnWaited > lPatience) Fail("the end of the program");
    return;
  }
  // What the condition sees may be ahead of what is on the screen, and that ahead of the server.
  mnReady = FocusFrontWindow() && moSteps.front().oReady() ? mnReady + 1 : 0;
  if (mnReady > lSettling) {
    const OneStep oStep = std::move(moSteps.front());
    moSteps.pop_front();
    mnWaited = mnReady = 0;
    if (std::getenv("QUILLON_PICTURES")) TakePicture(msName + '-' + std::to_string(++mnPicture));
    oStep.oAct();
  } else if (++mnWaited > lPatience) {
    Fail(moSteps.front().sWhat);
  }
}

void Hand::Fail(const std::string& sWhat) const {
  std::fprintf(stderr, "Waited in vain: %s\n", sWhat.c_str());
  TakePicture(msName + "-failure");
  std::_Exit(1);
}

void Hand::ClickAt(const wxPoint& oPlace, int nModifier) {
  wxUIActionSimulator oMouse;
  oMouse.MouseMove(oPlace);
  if (nModifier == wxMOD_CONTROL) oMouse.KeyDown(WXK_CONTROL);
  oMouse.MouseClick();
  if (nModifier == wxMOD_CONTROL) oMouse.KeyUp(WXK_CONTROL);
}

void Hand::Click(const Control& oControl) {
  const wxRect oPlace = PlaceOf(oControl);
  ClickAt(oPlace.GetPosition() + wxPoint(oPlace.width / 2, oPlace.height / 2), wxMOD_NONE);
}

void Hand::ClickRow(const Control& oControl, int nRow, int nModifier) {
  auto& oPane = dynamic_cast<RowsPane&>(dynamic_cast<ControlPeer&>(*oControl.Peer()).Native());
  oPane.ShowRow(nRow);
  int nY = 0;
  while (oPane.RowAt(nY) < nRow) ++nY;
  ClickAt(oPane.ClientToScreen(wxPoint(60, nY + oPane.RowHeight() / 2)), nModifier);
}

void Hand::Key(int nKey, int nModifiers) {
  wxUIActionSimulator().Char(nKey, nModifiers);
}

// Where no screen is kept in a file there is none to copy.
void Hand::TakePicture(const std::string& sName) const {
  std::error_code oNone;
  if (const char* const psScreen = std::getenv("SCREEN_FILE"))
    std::filesystem::copy_file(psScreen, QUILLON_BIN_DIR "/" + sName + ".xwd",
                               std::filesystem::copy_options::overwrite_existing, oNone);
}
