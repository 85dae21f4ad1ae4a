#include "StatusBar.h"

#include <algorithm>

#include "ControlContainer.h"
#include "Failure.h"

namespace Forms {

void Panel::SetText(TextView sText) {
  msText = sText;
  moBar.PanelChanged(*this);
}

void Panel::SetWidth(std::int32_t lWidth) {
  if (lWidth < 0) throw Failure(380);
  mlWidth = lWidth;
  moBar.PanelChanged(*this);
}

ControlState StatusBar::DefaultState() const {
  ControlState oState;
  oState.oBounds.lHeight = lDefaultHeight;
  return oState;
}

void StatusBar::SetPanelCount(std::int32_t lCount) {
  Touch();
  if (lCount < 0) throw Failure(380);
  moPanels.clear();
  while (PanelCount() < lCount) moPanels.push_back(std::make_unique<Panel>(*this));
  Changed(Property::Items);
}

Panel& StatusBar::Panels(std::int32_t lIndex) {
  Touch();
  if (lIndex < 1 || lIndex > PanelCount()) {
    throw Failure(35600, u"There is no panel with the number " + ToText(lIndex));
  }
  return *moPanels[static_cast<std::size_t>(lIndex) - 1];
}

void StatusBar::PanelChanged(const Panel& oPanel) {
  Touch();
  const auto it = std::find_if(moPanels.begin(), moPanels.end(),
                               [&](const auto& p) { return p.get() == &oPanel; });
  Changed(Property::Items, static_cast<std::int32_t>(it - moPanels.begin()) + 1);
}

void StatusBar::ContainerResized() {
  const auto& oContainer = Container();
  Move(0, oContainer.ScaleHeight() - Height(), oContainer.ScaleWidth(), Height());
}

void StatusBar::Reset() {
  Control::Reset();
  moPanels.clear();
}

}  // namespace Forms
