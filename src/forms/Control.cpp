#include "Control.h"

#include <algorithm>

#include "Failure.h"
#include "Form.h"
#include "Toolkit.h"
#include "UserControl.h"

namespace Forms {

namespace {

/// The character that a stroke gives to KeyPress; 0 for keys without one.
std::int32_t CharacterOf(std::int32_t nKeyCode, std::int32_t nShift) {
  const bool bLetter = nKeyCode >= u'A' && nKeyCode <= u'Z';
  if ((nShift & Shift::Alt) != 0) return 0;
  if ((nShift & Shift::Ctrl) != 0) return bLetter ? nKeyCode - u'A' + 1 : 0;
  if (bLetter) return (nShift & Shift::Shift) != 0 ? nKeyCode : nKeyCode + 32;
  const bool bDigit = nKeyCode >= u'0' && nKeyCode <= u'9' && nShift == Shift::None;
  const bool bControl = nKeyCode == Key::Back || nKeyCode == Key::Return ||
                        nKeyCode == Key::Escape || nKeyCode == Key::Space;
  return bDigit || bControl ? nKeyCode : 0;
}

bool Previews(const Control& oControl) {
  if (oControl.Kind() == ComponentKind::Form)
    return static_cast<const Form&>(oControl).KeyPreview();
  return oControl.Kind() == ComponentKind::UserControl &&
         static_cast<const UserControl&>(oControl).KeyPreview();
}

}  // namespace

ControlState FieldDefaults() {
  ControlState oState;
  oState.lBackColor = SystemColor::WindowBackground;
  oState.lForeColor = SystemColor::WindowText;
  return oState;
}

Control::Control(ControlContainer& oContainer, TextView sName)
    : Component(oContainer.Parent(), sName),
      mpoContainer(&oContainer),
      mlOrder(oContainer.Parent().NextTabIndex()),
      mlTabIndex(mlOrder) {
  oContainer.Add(*this);
}

// The peer is destroyed first, because it reads the control until then.
Control::~Control() {
  Unrealize();
  if (!mpoContainer) return;
  Kit().ControlGone(*this);
  Parent().ForgetControl(*this);
  mpoContainer->Remove(*this);
}

ControlContainer& Control::Container() const {
  if (!mpoContainer) throw Failure(91);
  return *mpoContainer;
}

void Control::SetLeft(std::int32_t lLeft) {
  Touch();
  Move(lLeft, Top(), Width(), Height());
}
void Control::SetTop(std::int32_t lTop) {
  Touch();
  Move(Left(), lTop, Width(), Height());
}
void Control::SetWidth(std::int32_t lWidth) {
  Touch();
  Move(Left(), Top(), lWidth, Height());
}
void Control::SetHeight(std::int32_t lHeight) {
  Touch();
  Move(Left(), Top(), Width(), lHeight);
}
void Control::Move(std::int32_t lLeft, std::int32_t lTop) {
  Touch();
  Move(lLeft, lTop, Width(), Height());
}

void Control::Move(std::int32_t lLeft, std::int32_t lTop, std::int32_t lWidth,
                   std::int32_t lHeight) {
  if (lWidth < 0 || lHeight < 0) throw Failure(380);
  Touch();
  ChangeBounds({lLeft, lTop, lWidth, lHeight});
}

void Control::ChangeBounds(const Rect& oBounds) {
  const Rect oOld = moControl.oBounds;
  if (!Set(moControl.oBounds, oBounds, Property::Bounds)) return;
  if (oOld.lWidth != oBounds.lWidth || oOld.lHeight != oBounds.lHeight) Resized();
}

void Control::SetVisible(bool bVisible) {
  if (Set(moControl.bVisible, bVisible, Property::Visible) && !bVisible) Parent().PassFocus(*this);
}

void Control::SetEnabled(bool bEnabled) {
  if (Set(moControl.bEnabled, bEnabled, Property::Enabled) && !bEnabled) Parent().PassFocus(*this);
}

bool Control::Showing() const {
  const Control* po = this;
  while (po->Visible() && po->mpoContainer) po = po->mpoContainer;
  return po->Visible();
}

bool Control::Usable() const {
  const Control* po = this;
  while (po->Enabled() && po->mpoContainer) po = po->mpoContainer;
  return po->Enabled() && Showing();
}

bool Control::UserEnabled() const {
  return Usable() && !Kit().Blocked(Parent());
}

void Control::SetFont(const FontSpec& oFont) {
  Touch();
  if (!Kit().Renderer().HasFont(oFont.sName)) throw Failure(380);
  Set(moControl.oFont, oFont, Property::Font);
}

void Control::SetFontName(TextView sName) {
  Touch();
  FontSpec oFont = moControl.oFont;
  oFont.sName = sName;
  SetFont(oFont);
}

void Control::SetFontSize(double dPoints) {
  Set(moControl.oFont.dSize, dPoints, Property::Font);
}

void Control::SetFontBold(bool bBold) {
  Touch();
  FontSpec oFont = moControl.oFont;
  oFont.bBold = bBold;
  oFont.lWeight = bBold ? 700 : 400;
  Set(moControl.oFont, oFont, Property::Font);
}

void Control::SetFontItalic(bool b) {
  Set(moControl.oFont.bItalic, b, Property::Font);
}

void Control::SetTabIndex(std::int32_t lIndex) {
  Set(mlTabIndex, lIndex, Property::Focusable);
}

void Control::SetFocus() {
  Touch();
  if (!CanFocus() || !Usable()) throw Failure(5);
  Parent().ChangeFocus(this);
}

bool Control::HasFocus() const {
  const Control* po = Parent().ActiveControl();
  while (po && po != this) po = po->mpoContainer;
  return po != nullptr;
}

void Control::Refresh() {
  Touch();
  if (IPeer* po = Peer()) po->Refresh();
}

void Control::ZOrder() {
  Touch();
  if (mpoContainer) mpoContainer->BringToFront(*this);
  Changed(Property::ZOrder);
}

bool Control::UserMouseDown(std::int32_t nButton, std::int32_t nShift, std::int32_t lX,
                            std::int32_t lY) {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserFocus();
  MouseDown(nButton, nShift, lX, lY);
  return true;
}

bool Control::UserMouseMove(std::int32_t nButton, std::int32_t nShift, std::int32_t lX,
                            std::int32_t lY) {
  if (!UserEnabled()) return false;
  Raise(MouseMove, nButton, nShift, lX, lY);
  return true;
}

bool Control::UserMouseUp(std::int32_t nButton, std::int32_t nShift, std::int32_t lX,
                          std::int32_t lY) {
  if (!UserEnabled()) return false;
  Raise(MouseUp, nButton, nShift, lX, lY);
  return true;
}

bool Control::UserClick() {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  UserFocus();
  Click();
  return true;
}

bool Control::UserDblClick() {
  if (!UserEnabled()) return false;
  Raise(DblClick);
  return true;
}

bool Control::UserFocus() {
  if (!CanFocus() || !UserEnabled()) return false;
  if (!HasFocus()) SetFocus();
  return true;
}

bool Control::UserKey(std::int32_t nKeyCode, std::int32_t nShift) {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  Form& oForm = Parent();
  UserFocus();
  if (!oForm.UserKey(nKeyCode, nShift)) {
    std::int32_t nCharacter = CharacterOf(nKeyCode, nShift);
    const bool bDropped = nCharacter != 0 && (nCharacter = UserKeyPress(nCharacter)) == 0;
    if (!bDropped && UserEnabled()) KeyAction(nKeyCode, nShift);
    if (nCharacter != 0 && UserEnabled()) CharAction(nCharacter);
  }
  // A handler may have moved the focus: KeyUp goes to the control that has it now.
  if (Control* poNow = oForm.ActiveControl()) poNow->UserKeyUp(nKeyCode, nShift);
  return true;
}

bool Control::UserType(TextView sText) {
  auto pHold = Hold();
  for (const char16_t cUnit : sText) {
    if (cUnit == u'\n') continue;  // the second half of a line end
    if (!UserEnabled()) return false;
    UserFocus();
    const std::int32_t nCharacter = UserKeyPress(cUnit);
    if (nCharacter != 0 && UserEnabled()) CharAction(nCharacter);
  }
  return UserEnabled();
}

std::vector<Control*> Control::Previewers() const {
  std::vector<Control*> oFound;
  for (Control* po = mpoContainer; po; po = po->mpoContainer) {
    if (Previews(*po)) oFound.push_back(po);
  }
  std::reverse(oFound.begin(), oFound.end());
  return oFound;
}

std::int32_t Control::UserKeyDown(std::int32_t nKeyCode, std::int32_t nShift) {
  if (!UserEnabled()) return 0;
  auto pHold = Hold();
  for (Control* po : Previewers()) {
    if (nKeyCode != 0) po->KeyDown(nKeyCode, nShift);
  }
  if (nKeyCode != 0) KeyDown(nKeyCode, nShift);
  return nKeyCode;
}

std::int32_t Control::UserKeyPress(std::int32_t nKeyAscii) {
  if (!UserEnabled()) return 0;
  auto pHold = Hold();
  for (Control* po : Previewers()) {
    if (nKeyAscii != 0) po->KeyPress(nKeyAscii);
  }
  if (nKeyAscii != 0) KeyPress(nKeyAscii);
  return nKeyAscii;
}

bool Control::UserKeyUp(std::int32_t nKeyCode, std::int32_t nShift) {
  if (!UserEnabled()) return false;
  auto pHold = Hold();
  for (Control* po : Previewers()) {
    if (nKeyCode != 0) po->KeyUp(nKeyCode, nShift);
  }
  if (nKeyCode != 0) KeyUp(nKeyCode, nShift);
  return true;
}

void Control::Reset() {
  Component::Reset();
  moControl = DefaultState();
  mlTabIndex = mlOrder;
}

void Control::CopyFrom(const Component& oOther) {
  Component::CopyFrom(oOther);
  moControl = static_cast<const Control&>(oOther).moControl;
}

}  // namespace Forms
