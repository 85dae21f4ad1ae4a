#include "Robot.h"

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>

#include <memory>

#include "ContainerPeer.h"
#include "WxRenderer.h"

using namespace Forms;

wxPoint Robot::ScreenPlace(Control& oControl, const wxPoint& oPlace) const {
  auto* const poForm = dynamic_cast<Form*>(&oControl);
  Control& oOn = poForm ? oControl : oControl.Container();
  Surface& oArea = dynamic_cast<IContainerPeer&>(*oOn.Peer()).Area();
  const Units& oUnits = static_cast<WxRenderer&>(moToolkit.Renderer()).Unit();
  const wxPoint oCorner =
      poForm ? wxPoint() : oUnits.Pixels(oControl.Bounds()).GetTopLeft() + oArea.Origin();
  return oArea.ClientToScreen(oCorner + oPlace);
}

void Robot::Click(Control& oControl) {
  const Units& oUnits = static_cast<WxRenderer&>(moToolkit.Renderer()).Unit();
  ClickAt(oControl, {oUnits.Pixels(oControl.Width()) / 2, oUnits.Pixels(oControl.Height()) / 2});
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
