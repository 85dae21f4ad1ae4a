#include "ControlContainer.h"

#include <algorithm>

#include "Form.h"
#include "Toolkit.h"

namespace Forms {

std::int32_t ControlContainer::TextWidth(TextView sText) const {
  return Kit().Renderer().TextWidth(Font(), sText);
}

std::int32_t ControlContainer::TextHeight(TextView sText) const {
  const auto lBreaks = std::count(sText.begin(), sText.end(), u'\n');
  return Kit().Renderer().TextHeight(Font()) * static_cast<std::int32_t>(lBreaks + 1);
}

void ControlContainer::Remove(Control& oControl) {
  std::erase(moControls, &oControl);
}

void ControlContainer::BringToFront(Control& oControl) {
  Remove(oControl);
  moControls.push_back(&oControl);
}

void ControlContainer::Reset() {
  Control::Reset();
  std::sort(moControls.begin(), moControls.end(), [](const Control* po, const Control* poOther) {
    return po->mlOrder < poOther->mlOrder;
  });
}

void ControlContainer::Resized() {
  Raise(Resize);
}

}  // namespace Forms
