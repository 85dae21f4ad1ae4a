// Keys that belong to the form and not to the control with the focus.
#include <algorithm>

#include "CheckBox.h"
#include "CommandButton.h"
#include "Form.h"
#include "Frame.h"
#include "Label.h"
#include "Menu.h"
#include "OptionButton.h"
#include "TabStrip.h"
#include "TextBox.h"

namespace Forms {

namespace {

/// The caption with the control's access key; empty for kinds that have none.
TextView CaptionOf(const Control& oControl) {
  switch (oControl.Kind()) {
    case ComponentKind::Label: {
      const auto& oLabel = static_cast<const Label&>(oControl);
      return oLabel.UseMnemonic() ? TextView(oLabel.Caption()) : TextView();
    }
    case ComponentKind::Frame:
      return static_cast<const Frame&>(oControl).Caption();
    case ComponentKind::CheckBox:
      return static_cast<const CheckBox&>(oControl).Caption();
    case ComponentKind::OptionButton:
      return static_cast<const OptionButton&>(oControl).Caption();
    case ComponentKind::CommandButton:
      return static_cast<const CommandButton&>(oControl).Caption();
    default:
      return {};
  }
}

/// The tab with that access key, from 1; 0 for none.
std::int32_t TabWith(const Control& oControl, char16_t cKey) {
  if (oControl.Kind() != ComponentKind::TabStrip) return 0;
  const auto& oTabs = static_cast<const TabStrip&>(oControl).Tabs();
  for (std::int32_t i = 1; i <= oTabs.Count(); ++i) {
    if (AccessKey(oTabs.Item(i).Caption()) == cKey) return i;
  }
  return 0;
}

bool IsMultiLine(const Control* po) {
  return po && po->Kind() == ComponentKind::TextBox && static_cast<const TextBox*>(po)->MultiLine();
}

}  // namespace

bool Form::UserKey(std::int32_t nKeyCode, std::int32_t nShift) {
  if (!UserEnabled()) return false;
  if (UseShortcut(moMenus, nKeyCode, nShift)) return true;
  const char16_t cKey = LowerCase(static_cast<char16_t>(nKeyCode));
  if (nShift == Shift::Alt && !IsKeyOfMenu(cKey) && UseAccessKey(cKey)) return true;
  if (UseDialogKey(nKeyCode, nShift)) return true;
  Control* po = mpoActive ? mpoActive : this;
  return po->UserKeyDown(nKeyCode, nShift) == 0 || UseArrowInGroup(nKeyCode);
}

bool Form::UseShortcut(const std::vector<Menu*>& oMenus, std::int32_t nKeyCode,
                       std::int32_t nShift) {
  return std::any_of(oMenus.begin(), oMenus.end(), [&](Menu* po) {
    const bool bIts = nKeyCode != 0 && po->Shortcut() == Shortcut{nKeyCode, nShift};
    return bIts ? po->UserPick() : UseShortcut(po->Items(), nKeyCode, nShift);
  });
}

bool Form::IsKeyOfMenu(char16_t cKey) const {
  return cKey != 0 && std::any_of(moMenus.begin(), moMenus.end(), [&](const Menu* po) {
           return po->Reachable() && AccessKey(po->Caption()) == cKey;
         });
}

bool Form::TurnTabs(bool bForward) {
  for (Control* po : TabOrder()) {
    if (po->Kind() != ComponentKind::TabStrip || !po->UserEnabled()) continue;
    auto& oStrip = static_cast<TabStrip&>(*po);
    const std::int32_t lCount = oStrip.Tabs().Count();
    const Tab* const poNow = oStrip.SelectedItem();
    if (!poNow || lCount < 2) continue;
    const std::int32_t lNext = (poNow->Index() - 1 + (bForward ? 1 : lCount - 1)) % lCount + 1;
    return oStrip.UserSelect(lNext);
  }
  return false;
}

bool Form::UseAccessKey(char16_t cKey) {
  auto oOrder = TabOrder();
  // From the control with the focus on, so that a key that several have goes from one to the next.
  const auto it = std::find(oOrder.begin(), oOrder.end(), mpoActive);
  if (it != oOrder.end()) std::rotate(oOrder.begin(), it + 1, oOrder.end());
  for (Control* po : oOrder) {
    if (!po->UserEnabled()) continue;
    if (const std::int32_t lTab = TabWith(*po, cKey))
      return static_cast<TabStrip*>(po)->UserSelect(lTab);
    if (cKey == 0 || AccessKey(CaptionOf(*po)) != cKey) continue;
    if (po->CanFocus()) return po->UserClick();
    ChangeFocus(NextInTabOrder(po));
    return true;
  }
  return false;
}

bool Form::PressButton(CommandButton* poButton) {
  if (!poButton || !poButton->UserEnabled()) return false;
  const auto pHold = poButton->Hold();
  poButton->Click();
  return true;
}

bool Form::UseDialogKey(std::int32_t nKeyCode, std::int32_t nShift) {
  if (nKeyCode == Key::Tab && (nShift & ~Shift::Shift) == Shift::Ctrl)
    return TurnTabs(nShift == Shift::Ctrl);
  if (nKeyCode == Key::Tab && (nShift & ~Shift::Shift) == 0) {
    ChangeFocus(NextInTabOrder(mpoActive, nShift == Shift::None));
    return true;
  }
  if (nShift != Shift::None) return false;
  if (nKeyCode == Key::Escape) return PressButton(mpoCancel);
  if (nKeyCode != Key::Return || IsMultiLine(mpoActive)) return false;
  const bool bButton = mpoActive && mpoActive->Kind() == ComponentKind::CommandButton;
  return PressButton(bButton ? static_cast<CommandButton*>(mpoActive) : mpoDefault);
}

bool Form::UseArrowInGroup(std::int32_t nKeyCode) {
  if (!mpoActive || mpoActive->Kind() != ComponentKind::OptionButton) return false;
  const bool bBack = nKeyCode == Key::Up || nKeyCode == Key::Left;
  if (!bBack && nKeyCode != Key::Down && nKeyCode != Key::Right) return false;
  auto oGroup = static_cast<OptionButton*>(mpoActive)->Group();
  if (bBack) std::reverse(oGroup.begin(), oGroup.end());
  std::rotate(oGroup.begin(), std::find(oGroup.begin(), oGroup.end(), mpoActive) + 1, oGroup.end());
  const auto it = std::find_if(oGroup.begin(), oGroup.end(), [](auto* po) { return po->Usable(); });
  if (it != oGroup.end()) (*it)->UserClick();
  return true;
}

}  // namespace Forms
