#include "UserControl.h"

#include "Form.h"

namespace Forms {

void UserControl::SetFocus() {
  if (HasFocus()) return;
  Touch();
  Control* const poPart = Parent().FirstInside(*this);
  poPart ? poPart->SetFocus() : ControlContainer::SetFocus();
}

}  // namespace Forms
