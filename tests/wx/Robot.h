// A user at the screen: moves the mouse to controls, presses keys, and lets the program answer.
#pragma once

#include <wx/toplevel.h>
#include <wx/uiaction.h>
#include <wx/window.h>

#include <functional>
#include <string>

#include "Control.h"
#include "Form.h"
#include "FormPeer.h"
#include "Toolkit.h"

class wxDialog;

class Robot {
 public:
  explicit Robot(Forms::Toolkit& oToolkit) : moToolkit(oToolkit) {}

  /// Runs the events that wait, and those that they lead to.
  void Settle() {
    for (int i = 0; i < 12; ++i) {
      moToolkit.DoEvents();
      wxMilliSleep(5);
    }
  }

  /// Presses and releases in the middle of a control, or at a place in pixels from its corner.
  void Click(Forms::Control& oControl);
  /// A window that no control stands behind.
  void Click(wxWindow& oWindow) {
    const wxRect o = oWindow.GetScreenRect();
    Settle();
    ClickThere(o.GetPosition() + wxPoint(o.width / 2, o.height / 2));
  }
  void ClickAt(Forms::Control& oControl, const wxPoint& oPlace) {
    Settle();
    ClickThere(ScreenPlace(oControl, oPlace));
  }
  void DoubleClickAt(Forms::Control& oControl, const wxPoint& oPlace) {
    Settle();
    GoTo(ScreenPlace(oControl, oPlace));
    moHands.MouseDblClick();
    Settle();
  }
  void Drag(Forms::Control& oControl, const wxPoint& oFrom, const wxPoint& oTo) {
    Settle();
    GoTo(ScreenPlace(oControl, oFrom));
    moHands.MouseDown();
    Settle();
    GoTo(ScreenPlace(oControl, oTo) - wxPoint(1, 0));
    GoTo(ScreenPlace(oControl, oTo));
    moHands.MouseUp();
    Settle();
  }
  /// A key with modifiers (wxMOD_...).
  void Key(int nKey, int nModifiers = 0) {
    Settle();
    moHands.Char(nKey, nModifiers);
    Settle();
  }
  void Type(const std::string& sText) {
    for (const char c : sText) Key(c, c >= 'A' && c <= 'Z' ? wxMOD_SHIFT : wxMOD_NONE);
  }
  /// Runs oAct once another form is modal than now.
  void WhenModal(std::function<void(Forms::Form&)> oAct);
  /// Runs oAct once a dialog of the window library shows.
  static void WhenDialog(std::function<void(wxDialog&)> oAct);

  /// Presses a key once a native box or dialog had the time to come up.
  void KeyIntoBox(int nKey, int nModifiers = 0);

  wxPoint ScreenPlace(Forms::Control& oControl, const wxPoint& oPlace) const;
  wxTopLevelWindow& FrameOf(Forms::Form& oForm) const {
    return dynamic_cast<Forms::FormPeer&>(*oForm.Peer()).Frame();
  }

  /// At a place of the screen.
  void ClickThere(const wxPoint& place) {
    GoTo(place);
    moHands.MouseDown();
    Settle();
    moHands.MouseUp();
    Settle();
  }

 private:
  void GoTo(const wxPoint& place) {
    moHands.MouseMove(place);
    Settle();
  }

  Forms::Toolkit& moToolkit;
  wxUIActionSimulator moHands;
};
