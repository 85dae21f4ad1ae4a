// The main window's toolbar: seven flat pictures, the grooves between their groups, and the frame
// of four lines that shows which one the pointer is over and whether it is pressed.
//
// All lengths are twips. A button counts from 0.
#pragma once

#include <array>

#include "ImageList.h"
#include "Line.h"
#include "MenuTable.h"
#include "PictureBox.h"

class MainToolbar {
 public:
  static constexpr std::int32_t lButtons = 7;

  /// Connects the events of the mouse; sets nothing.
  explicit MainToolbar(Forms::Form& oForm);

  /// Values of design time: pictures, tips, sizes. rows: a command for each button, with its
  /// picture.
  void Design(const std::vector<const Command*>& rows);
  /// Puts buttons and grooves in their places, with all buttons enabled.
  void LayOut();
  /// Runs the grooves' edge over the window's width.
  void Span(std::int32_t lWidth);

  bool ButtonEnabled(std::int32_t nIndex) const { return picButton(nIndex).Enabled(); }
  /// Changes the picture with it.
  void SetButtonEnabled(std::int32_t nIndex, bool bEnabled);
  void ButtonFrameHide();

  /// The button was pressed and let go over itself. It stays drawn pressed while the event runs.
  Signal<std::int32_t> ButtonClick;

 private:
  Forms::Form& moForm;

 public:
  Forms::ImageList imlToolbar;
  Forms::ControlArray<Forms::PictureBox> picButton;
  Forms::Line linLeft, linTop, linBottom, linRight;
  Forms::ControlArray<Forms::Line> linSep1, linSep2, linToolbarTop;

 private:
  void MouseDown(std::int32_t nIndex, std::int32_t nButton);
  void MouseMove(std::int32_t nIndex, std::int32_t nButton, std::int32_t lX, std::int32_t lY);
  void MouseUp(std::int32_t nIndex, std::int32_t nButton);
  void Track(std::int32_t nIndex, bool bOutside);
  void ButtonDown(std::int32_t nIndex);
  void ButtonUp(std::int32_t nIndex);
  void ColorFrame(Forms::Color lUpperLeft, Forms::Color lLowerRight);
  void ButtonFrameShow(std::int32_t nIndex);

  std::array<std::int32_t, lButtons> malButtonLeft{};
  std::array<bool, lButtons> endsGroup{};
  std::int32_t mlButtonTop = 0;
  bool mbButtonTracking = false, mbButtonDown = false;
};
