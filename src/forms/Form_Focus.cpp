// Who has the focus, and where Tab leads.
#include <algorithm>

#include "Form.h"
#include "OptionButton.h"
#include "UserControl.h"

namespace Forms {

namespace {

using ControlList = std::vector<Control*>;

/// The user controls that hold the control, itself included, from the inside out.
std::vector<UserControl*> UserControlsAround(Control* poControl) {
  std::vector<UserControl*> oFound;
  for (Control* po = poControl; po && po->Kind() != ComponentKind::Form; po = &po->Container()) {
    if (po->Kind() == ComponentKind::UserControl) oFound.push_back(static_cast<UserControl*>(po));
  }
  return oFound;
}

bool Contains(const std::vector<UserControl*>& oList, const UserControl* po) {
  return std::find(oList.begin(), oList.end(), po) != oList.end();
}

/// The controls whose tab order is one: those on the container, and on frames and picture boxes
/// there.
void Collect(const ControlContainer& oContainer, ControlList& oFound) {
  for (Control* po : oContainer.Controls()) {
    oFound.push_back(po);
    const bool bPlain =
        po->Kind() == ComponentKind::Frame || po->Kind() == ComponentKind::PictureBox;
    if (bPlain) Collect(static_cast<ControlContainer&>(*po), oFound);
  }
}

/// In tab order; the parts of a user control follow it.
void Append(const ControlContainer& oContainer, ControlList& oOrder) {
  ControlList oScope;
  Collect(oContainer, oScope);
  std::stable_sort(oScope.begin(), oScope.end(),
                   [](auto* po, auto* poOther) { return po->TabIndex() < poOther->TabIndex(); });
  for (Control* po : oScope) {
    oOrder.push_back(po);
    if (po->Kind() == ComponentKind::UserControl) Append(static_cast<UserControl&>(*po), oOrder);
  }
}

/// Of a group of option buttons Tab stops at the one that is on, or at the first that can be used.
bool IsGroupStop(const OptionButton& oOption) {
  const OptionButton* poFirst = nullptr;
  for (const OptionButton* po : oOption.Group()) {
    if (!po->Usable()) continue;
    if (po->Value()) return po == &oOption;
    if (!poFirst) poFirst = po;
  }
  return poFirst == &oOption;
}

bool IsStop(const Control& oControl) {
  if (!oControl.CanFocus() || !oControl.Usable()) return false;
  for (const Control* po = &oControl; po->Kind() != ComponentKind::Form; po = &po->Container()) {
    if (!po->TabStop()) return false;
  }
  if (oControl.Kind() == ComponentKind::UserControl) {
    return !oControl.Parent().FirstInside(static_cast<const UserControl&>(oControl));
  }
  return oControl.Kind() != ComponentKind::OptionButton ||
         IsGroupStop(static_cast<const OptionButton&>(oControl));
}

}  // namespace

std::vector<Control*> Form::TabOrder() const {
  ControlList oOrder;
  Append(*this, oOrder);
  return oOrder;
}

Control* Form::FirstInside(const ControlContainer& oContainer) const {
  ControlList oOrder;
  Append(oContainer, oOrder);
  const auto it = std::find_if(oOrder.begin(), oOrder.end(), [](auto* po) { return IsStop(*po); });
  return it == oOrder.end() ? nullptr : *it;
}

Control* Form::NextInTabOrder(const Control* poFrom, bool bForward) const {
  ControlList oOrder = TabOrder();
  if (!bForward) std::reverse(oOrder.begin(), oOrder.end());
  const auto it = std::find(oOrder.begin(), oOrder.end(), poFrom);
  if (it != oOrder.end()) std::rotate(oOrder.begin(), it + 1, oOrder.end());
  const auto itStop =
      std::find_if(oOrder.begin(), oOrder.end(), [](auto* po) { return IsStop(*po); });
  return itStop == oOrder.end() ? nullptr : *itStop;
}

void Form::ChangeFocus(Control* poControl) {
  if (poControl == mpoActive) return;
  mpoActive = poControl;
  // A handler of one of these events may move the focus again. That inner call raises the events
  // that are still due, so this one stops when the number of moves has changed.
  const auto lMove = ++mlFocusMoves;
  RaiseLeft(poControl, lMove);
  if (lMove == mlFocusMoves) RaiseEntered(poControl, lMove);
}

void Form::RaiseLeft(Control* poControl, std::int64_t lMove) {
  if (Control* const poOld = std::exchange(mpoGotFocus, nullptr)) {
    const auto pHold = poOld->Hold();
    poOld->LostFocus();
  }
  const auto oAround = UserControlsAround(poControl);
  while (lMove == mlFocusMoves && !moEntered.empty() && !Contains(oAround, moEntered.back())) {
    UserControl* const po = moEntered.back();
    moEntered.pop_back();
    po->ExitFocus();
    po->LostFocus();
  }
}

void Form::RaiseEntered(Control* poControl, std::int64_t lMove) {
  const auto oAround = UserControlsAround(poControl);
  for (auto it = oAround.rbegin(); it != oAround.rend(); ++it) {
    if (Contains(moEntered, *it)) continue;
    moEntered.push_back(*it);
    (*it)->EnterFocus();
    if (lMove == mlFocusMoves) (*it)->GotFocus();
    if (lMove != mlFocusMoves) return;
  }
  if (!poControl) return;
  if (IPeer* poPeer = poControl->Peer()) poPeer->Focus();
  if (poControl->Kind() == ComponentKind::UserControl) return;
  mpoGotFocus = poControl;
  poControl->GotFocus();
}

void Form::PassFocus(const Control& oControl) {
  if (mpoActive && oControl.HasFocus()) ChangeFocus(NextInTabOrder(mpoActive));
}

void Form::ForgetControl(const Control& oControl) {
  if (mpoActive == &oControl) mpoActive = nullptr, ++mlFocusMoves;
  if (mpoGotFocus == &oControl) mpoGotFocus = nullptr;
  std::erase(moEntered, &oControl);
}

}  // namespace Forms
