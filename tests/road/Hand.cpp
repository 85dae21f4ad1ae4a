#include "Hand.h"

#include <wx/app.h>
#include <wx/menu.h>
#include <wx/uiaction.h>

#include <cstdio>
#include <cstdlib>

#include "ContainerPeer.h"
#include "Form.h"
#include "FormPeer.h"
#include "FrontWindow.h"
#include "Menu.h"
#include "NativeText.h"
#include "RowsPane.h"
#include "ScreenPicture.h"
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

/// There is no timer before the window system has started.
class Hand::Clock : public wxTimer {
 public:
  explicit Clock(Hand& oHand) : moHand(oHand) {
    wxTheApp->Bind(wxEVT_MENU_OPEN, &Clock::OnMenu, this);
    wxTheApp->Bind(wxEVT_MENU_CLOSE, &Clock::OnMenu, this);
    StartOnce(lTickMilliseconds);
  }
  ~Clock() override {
    wxTheApp->Unbind(wxEVT_MENU_OPEN, &Clock::OnMenu, this);
    wxTheApp->Unbind(wxEVT_MENU_CLOSE, &Clock::OnMenu, this);
  }
  bool MenuShows() const { return mbMenu; }

 private:
  // The next tick comes a while behind this one, however long it took: in between the program
  // paints and catches up, on a busy machine too. A step may lead into a loop that the ticks go on
  // in.
  void Notify() override {
    StartOnce(lTickMilliseconds);
    moHand.Tick();
    StartOnce(lTickMilliseconds);
  }
  void OnMenu(wxMenuEvent& o) {
    o.Skip();
    mbMenu = o.GetEventType() == wxEVT_MENU_OPEN;
  }

  Hand& moHand;
  bool mbMenu = false;
};

Hand::Hand(std::string sName) : msName(std::move(sName)) {}

Hand::~Hand() = default;

void Hand::Start() {
  mpClock = std::make_unique<Clock>(*this);
}

void Hand::Stop() {
  mpClock.reset();
}

void Hand::Step(std::string sWhat, std::function<bool()> oReady, std::function<void()> oAct) {
  moSteps.push_back({std::move(sWhat), std::move(oReady), std::move(oAct)});
}

void Hand::KeyUntil(std::string sWhat, int nKey, std::function<bool()> oHolds) {
  constexpr int nPresses = 50;
  moSteps.push_back(KeyStep(std::move(sWhat), nKey, std::move(oHolds), nPresses));
}

Hand::OneStep Hand::KeyStep(std::string sWhat, int nKey, std::function<bool()> oHolds,
                            int nPresses) {
  return {sWhat, [] { return true; },
          [=, this] {
            if (oHolds()) return;
            if (nPresses == 0) Fail(sWhat);
            Key(nKey);
            moSteps.push_front(KeyStep(sWhat, nKey, oHolds, nPresses - 1));
          }};
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

bool Hand::MenuShows() const {
  return mpClock->MenuShows();
}

// The window library tells no places of menus: they are reckoned from texts and the theme that the
// tests run with.
std::pair<int, const Menu*> Hand::FindMenu(const Form& oForm, char16_t cAccessKey) const {
  auto& oFrame = dynamic_cast<FormPeer&>(*oForm.Peer()).Frame();
  constexpr int nPadding = 14;
  int nLeft = 0;
  for (const Menu* poMenu : oForm.Menus()) {
    if (AccessKey(poMenu->Caption()) == cAccessKey) return {nLeft, poMenu};
    const wxString sTitle = ToWx(PlainCaption(poMenu->Caption()));
    nLeft += oFrame.GetMenuBar()->GetTextExtent(sTitle).x + nPadding;
  }
  return {0, nullptr};
}

void Hand::ClickMenu(const Form& oForm, char16_t cAccessKey) {
  auto& oFrame = dynamic_cast<FormPeer&>(*oForm.Peer()).Frame();
  ClickAt(oFrame.GetPosition() + wxPoint(FindMenu(oForm, cAccessKey).first + 15, 10), wxMOD_NONE);
}

void Hand::ClickItem(const Form& oForm, char16_t cMenuKey, char16_t cItemKey) {
  auto& oFrame = dynamic_cast<FormPeer&>(*oForm.Peer()).Frame();
  const auto [nLeft, poMenu] = FindMenu(oForm, cMenuKey);
  constexpr double dFirst = 33, dRow = 23.5;
  int nRow = 0;
  for (const Menu* poItem : poMenu->Items()) {
    if (!poItem->Visible() || poItem->Separator()) continue;
    if (AccessKey(poItem->Caption()) == cItemKey) break;
    ++nRow;
  }
  ClickAt(oFrame.GetPosition() + wxPoint(nLeft + 50, static_cast<int>(dFirst + dRow * nRow)),
          wxMOD_NONE);
}

void Hand::TakePicture(const std::string& sName) const {
  SaveScreen(QUILLON_BIN_DIR "/" + sName + ".png");
}

Form* FormOf(const Toolkit& oToolkit, TextView sName) {
  for (Form* po : oToolkit.LoadedForms())
    if (po->Name() == sName && po->Visible()) return po;
  return nullptr;
}

Control* ControlOf(const Form& oForm, TextView sName, std::int32_t lIndex) {
  for (Component* po : oForm.Components())
    if (po->Name() == sName && po->Index() == lIndex)
      if (auto* poControl = dynamic_cast<Control*>(po)) return poControl;
  return nullptr;
}
