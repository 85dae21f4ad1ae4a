// A user at the screen: moves the mouse to controls, presses keys, and lets the program answer.
#pragma once

#include <wx/uiaction.h>
#include <wx/window.h>

#include <functional>
#include <string>

#include "Control.h"

class wxDialog;
class wxTopLevelWindow;

namespace Forms {
class Form;
class Toolkit;
}  // namespace Forms

class Robot {
 public:
  explicit Robot(Forms::Toolkit& oToolkit) : moToolkit(oToolkit) {}

  /// Runs events until the condition holds; false when it doesn't within three seconds.
  bool Until(const std::function<bool()>& oHolds);
  /// Runs the events that wait, and those that they lead to.
  void Settle();

  /// Presses and releases in the middle of a control, or at a place in pixels from its corner.
  void Click(Forms::Control& oControl);
  /// A window that no control stands behind.
  void Click(wxWindow& oWindow);
  void ClickAt(Forms::Control& oControl, const wxPoint& oPlace);
  void DoubleClickAt(Forms::Control& oControl, const wxPoint& oPlace);
  void Drag(Forms::Control& oControl, const wxPoint& oFrom, const wxPoint& oTo);
  /// A key with modifiers (wxMOD_...).
  void Key(int nKey, int nModifiers = 0);
  void Type(const std::string& sText);
  /// Runs oAct once another form is modal than now.
  void WhenModal(std::function<void(Forms::Form&)> oAct);
  /// Runs oAct once a dialog of the window library shows.
  static void WhenDialog(std::function<void(wxDialog&)> oAct);

  /// Presses a key once a native box or dialog had the time to come up.
  void KeyIntoBox(int nKey, int nModifiers = 0);

  wxPoint ScreenPlace(Forms::Control& oControl, const wxPoint& oPlace) const;
  wxTopLevelWindow& FrameOf(Forms::Form& oForm) const;
  /// Writes the whole screen to a PNG file.
  static void Photograph(const std::string& sPath);

 private:
  void GoTo(const wxPoint& place);
  void ClickThere(const wxPoint& place);

  Forms::Toolkit& moToolkit;
  wxUIActionSimulator moHands;
};
