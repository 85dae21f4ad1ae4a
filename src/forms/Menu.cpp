#include "Menu.h"

#include <algorithm>

#include "Form.h"

namespace Forms {

Menu::Menu(Form& oForm, TextView sName) : WithState(oForm, sName) {
  Siblings().push_back(this);
}

Menu::Menu(Menu& oParent, TextView sName) : WithState(oParent.Parent(), sName), mpoAbove(&oParent) {
  Siblings().push_back(this);
}

Menu::~Menu() {
  std::erase(Siblings(), this);
  TellForm();
}

std::vector<Menu*>& Menu::Siblings() {
  return mpoAbove ? mpoAbove->moItems : Parent().MenuBar();
}

void Menu::TellForm() {
  Parent().MenuChanged();
}

void Menu::SetElement(std::int32_t lIndex, const std::shared_ptr<Component>& pSelf) {
  WithState::SetElement(lIndex, pSelf);
  auto& oAll = Siblings();
  std::erase(oAll, this);
  const auto it = std::find_if(oAll.rbegin(), oAll.rend(), [&](Menu* po) {
    return po->Name() == Name() && po->Index() < lIndex;
  });
  oAll.insert(it == oAll.rend() ? oAll.end() : it.base(), this);
}

void Menu::SetShortcut(std::int32_t nKeyCode, std::int32_t nShift) {
  SetField(mo.oShortcut, Forms::Shortcut{nKeyCode, nShift});
}

bool Menu::Reachable() const {
  const Menu* po = this;
  while (po && po->Visible() && po->Enabled()) po = po->mpoAbove;
  return !po;
}

bool Menu::UserDrop() {
  if (moItems.empty() || !Parent().UserEnabled() || !Reachable()) return false;
  Raise(Click);
  return true;
}

bool Menu::UserPick() {
  if (!moItems.empty() || Separator() || !Parent().UserEnabled()) return false;
  std::vector<Menu*> oAbove;
  for (Menu* po = mpoAbove; po; po = po->mpoAbove) oAbove.push_back(po);
  const auto pHold = Hold();
  for (auto it = oAbove.rbegin(); it != oAbove.rend(); ++it) {
    if (!(*it)->UserDrop()) return false;
  }
  if (!Reachable() || !Parent().UserEnabled()) return false;
  Raise(Click);
  return true;
}

}  // namespace Forms
