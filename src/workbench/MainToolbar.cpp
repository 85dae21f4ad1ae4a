#include "MainToolbar.h"

#include "Form.h"

using namespace Forms;

namespace {

// Twips. A button is a picture of 16 pixels with two on each side, 300; buttons of a group stand
// three pixels apart. A groove is four pixels behind the last button of a group, the next group
// five behind that.
constexpr std::int32_t ButtonTop = 60, ButtonSize = 300, FirstLeft = 15, NextInGroup = 345,
                       NextGroup = 435, Groove = 360, Grooves = 4, OnePixel = 15;

constexpr Color Shadow = SystemColor::ButtonShadow, Light = SystemColor::Highlight3D;

std::size_t At(std::int32_t nIndex) {
  return static_cast<std::size_t>(nIndex);
}

}  // namespace

MainToolbar::MainToolbar(Form& oForm)
    : moForm(oForm),
      imlToolbar(oForm, u"imlToolbar"),
      picButton(oForm, u"picButton", lButtons),
      linLeft(oForm, u"linLeft"),
      linTop(oForm, u"linTop"),
      linBottom(oForm, u"linBottom"),
      linRight(oForm, u"linRight"),
      linSep1(oForm, u"linSep1", Grooves),
      linSep2(oForm, u"linSep2", Grooves),
      linToolbarTop(oForm, u"linToolbarTop", 2) {
  picButton.OnElement([this](PictureBox& o) {
    const std::int32_t i = o.Index();
    o.On(o.MouseDown, [this, i](auto nButton, auto, auto, auto) { MouseDown(i, nButton); });
    o.On(o.MouseUp, [this, i](auto nButton, auto, auto, auto) { MouseUp(i, nButton); });
    o.On(o.MouseMove,
         [this, i](auto nButton, auto, auto lX, auto lY) { MouseMove(i, nButton, lX, lY); });
  });
}

void MainToolbar::Design(const std::vector<const Command*>& rows) {
  mbButtonTracking = mbButtonDown = false;
  for (std::int32_t i = 0; i < lButtons; ++i) {
    const ToolButton& row = *rows[At(i)]->button;
    endsGroup[At(i)] = row.endsGroup;
    imlToolbar.Add(row.picture);
    imlToolbar.Add(Text(row.picture) + u"X");
    picButton(i).SetBorderStyle(BorderStyle::None);
    picButton(i).SetToolTipText(row.tip);
    picButton(i).SetTag(row.picture);
    picButton(i).SetTabStop(false);
    picButton(i).Move(FirstLeft, ButtonTop, ButtonSize, ButtonSize);
  }
  linToolbarTop(0).SetBorderColor(Shadow);
  linToolbarTop(1).SetBorderColor(Light);
  ButtonFrameHide();
  ColorFrame(Light, Shadow);
}

void MainToolbar::LayOut() {
  mlButtonTop = ButtonTop;
  std::int32_t lLeft = FirstLeft, nGroove = 0;
  for (std::int32_t i = 0; i < lButtons; ++i) {
    malButtonLeft[At(i)] = lLeft;
    picButton(i).Move(lLeft, mlButtonTop);
    if (endsGroup[At(i)]) {
      const std::int32_t lX = lLeft + Groove, lBottom = mlButtonTop + ButtonSize;
      linSep1(nGroove).SetPoints(lX, mlButtonTop, lX, lBottom);
      linSep1(nGroove).SetBorderColor(Shadow);
      linSep2(nGroove).SetPoints(lX + OnePixel, mlButtonTop, lX + OnePixel, lBottom);
      linSep2(nGroove++).SetBorderColor(Light);
    }
    lLeft += endsGroup[At(i)] ? NextGroup : NextInGroup;
    SetButtonEnabled(i, true);
  }
}

void MainToolbar::Span(std::int32_t lWidth) {
  linToolbarTop(0).SetPoints(0, 0, lWidth, 0);
  linToolbarTop(1).SetPoints(0, OnePixel, lWidth, OnePixel);
}

void MainToolbar::SetButtonEnabled(std::int32_t nIndex, bool bEnabled) {
  PictureBox& oButton = picButton(nIndex);
  oButton.SetEnabled(bEnabled);
  oButton.SetPicture(imlToolbar.Picture(bEnabled ? oButton.Tag() : oButton.Tag() + u"X"));
}

void MainToolbar::MouseDown(std::int32_t nIndex, std::int32_t nButton) {
  if (nButton != Button::Left) return;
  mbButtonTracking = mbButtonDown = true;
  ButtonDown(nIndex);
}

void MainToolbar::MouseUp(std::int32_t nIndex, std::int32_t nButton) {
  if (nButton != Button::Left) return;
  mbButtonTracking = false;
  if (!mbButtonDown) return;
  ButtonClick(nIndex);
  // The command may have closed the window; drawing would load it again.
  if (moForm.Loaded()) ButtonUp(nIndex);
}

void MainToolbar::MouseMove(std::int32_t nIndex, std::int32_t nButton, std::int32_t lX,
                            std::int32_t lY) {
  const PictureBox& oButton = picButton(nIndex);
  const bool bTracking = mbButtonTracking && (nButton & Button::Left) != 0;
  // A pressed picture stands one pixel to the right and below its place.
  const std::int32_t lShift = bTracking && mbButtonDown ? OnePixel : 0;
  const bool bOutside = lX < -lShift || lY < -lShift || lX > oButton.Width() - lShift ||
                        lY > oButton.Height() - lShift;
  if (bTracking) return Track(nIndex, bOutside);
  bOutside ? ButtonFrameHide() : ButtonFrameShow(nIndex);
}

void MainToolbar::Track(std::int32_t nIndex, bool bOutside) {
  if (bOutside != mbButtonDown) return;
  mbButtonDown = !bOutside;
  mbButtonDown ? ButtonDown(nIndex) : ButtonUp(nIndex);
}

void MainToolbar::ButtonDown(std::int32_t nIndex) {
  ColorFrame(Shadow, Light);
  picButton(nIndex).Move(malButtonLeft[At(nIndex)] + OnePixel, mlButtonTop + OnePixel);
}

void MainToolbar::ButtonUp(std::int32_t nIndex) {
  ColorFrame(Light, Shadow);
  picButton(nIndex).Move(malButtonLeft[At(nIndex)], mlButtonTop);
}

void MainToolbar::ColorFrame(Color lUpperLeft, Color lLowerRight) {
  for (Line* po : {&linLeft, &linTop}) po->SetBorderColor(lUpperLeft);
  for (Line* po : {&linBottom, &linRight}) po->SetBorderColor(lLowerRight);
}

void MainToolbar::ButtonFrameShow(std::int32_t nIndex) {
  const std::int32_t lLeft = malButtonLeft[At(nIndex)], lTop = mlButtonTop;
  const std::int32_t lRight = lLeft + ButtonSize + OnePixel, lBottom = lTop + ButtonSize;
  linLeft.SetPoints(lLeft - OnePixel, lTop - OnePixel, lLeft - OnePixel, lBottom);
  linRight.SetPoints(lRight, lTop - OnePixel, lRight, lBottom);
  linTop.SetPoints(lLeft - OnePixel, lTop - OnePixel, lRight, lTop - OnePixel);
  linBottom.SetPoints(lLeft - OnePixel, lBottom, lRight + OnePixel, lBottom);
  for (Line* po : {&linLeft, &linTop, &linBottom, &linRight}) po->SetVisible(true);
}

void MainToolbar::ButtonFrameHide() {
  for (Line* po : {&linLeft, &linTop, &linBottom, &linRight}) po->SetVisible(false);
}
