#include "HeadlessRenderer.h"

#include <algorithm>
#include <cmath>

#include "Form.h"
#include "Timer.h"

namespace Forms {

/// Counts paints, and keeps the time of timers.
class HeadlessRenderer::Peer : public IPeer {
 public:
  Peer(HeadlessRenderer& oRenderer, Component& oComponent)
      : moRenderer(oRenderer), moComponent(oComponent) {
    if (oComponent.Kind() == ComponentKind::Timer) SetTimer();
  }
  ~Peer() override {
    moRenderer.moTimers.erase(mpoTimer);
    moRenderer.moRefreshes.erase(&moComponent);
  }
  void Changed(Property eProperty, std::int32_t) override {
    if (eProperty == Property::Interval && moComponent.Kind() == ComponentKind::Timer) SetTimer();
  }
  void Focus() override {}
  void Refresh() override { ++moRenderer.moRefreshes[&moComponent]; }

 private:
  void SetTimer() {
    mpoTimer = static_cast<Timer*>(&moComponent);
    moRenderer.moTimers.erase(mpoTimer);
    if (mpoTimer->Running()) {
      moRenderer.moTimers[mpoTimer] = {moRenderer.mlNow + mpoTimer->Interval(),
                                       ++moRenderer.mlOrder};
    }
  }

  HeadlessRenderer& moRenderer;
  Component& moComponent;
  Timer* mpoTimer = nullptr;
};

std::unique_ptr<IPeer> HeadlessRenderer::MakePeer(Component& oComponent) {
  return std::make_unique<Peer>(*this, oComponent);
}

void HeadlessRenderer::Advance(std::int32_t lMilliseconds) {
  const std::int64_t lEnd = mlNow + lMilliseconds;
  const auto Earlier = [](const auto& o, const auto& oOther) { return o.second < oOther.second; };
  for (;;) {
    const auto it = std::min_element(moTimers.begin(), moTimers.end(), Earlier);
    if (it == moTimers.end() || it->second.first > lEnd) break;
    Timer& oTimer = *it->first;
    mlNow = it->second.first;
    it->second = {mlNow + oTimer.Interval(), ++mlOrder};
    oTimer.Fire();
  }
  mlNow = lEnd;
}

std::int32_t HeadlessRenderer::Refreshes(const Component& oComponent) const {
  const auto it = moRefreshes.find(&oComponent);
  return it == moRefreshes.end() ? 0 : it->second;
}

std::int32_t HeadlessRenderer::TextWidth(const FontSpec& oFont, TextView sText) const {
  const double dPixels = std::round(oFont.dSize * 0.75) + (oFont.bBold ? 1 : 0);
  return static_cast<std::int32_t>(dPixels) * 15 * static_cast<std::int32_t>(sText.size());
}

std::int32_t HeadlessRenderer::TextHeight(const FontSpec& oFont) const {
  return static_cast<std::int32_t>(std::round(oFont.dSize * 13 / 8.25)) * 15;
}

Edges HeadlessRenderer::FormEdges(const Form& oForm) const {
  const std::int32_t lMenuBar = oForm.Menus().empty() ? 0 : 285;
  if (oForm.BorderStyle() == FormBorder::None) return {0, lMenuBar, 0, 0};
  return {60, 60 + 345 + lMenuBar, 60, 60};
}

void HeadlessRenderer::SetClipboardText(TextView sText) {
  msClipboard = sText;
  msClipboardPicture.clear();
}

void HeadlessRenderer::SetClipboardPicture(TextView sPictureKey) {
  msClipboard.clear();
  msClipboardPicture = sPictureKey;
}

bool HeadlessRenderer::Open(TextView sTarget) {
  masOpened.emplace_back(sTarget);
  return true;
}

bool HeadlessRenderer::ShowHelp(TextView sFile, HelpCommand eCommand, std::int32_t lContext,
                                Form*) {
  masOpened.push_back(Text(sFile) + u"|" + ToText(static_cast<std::int32_t>(eCommand)) + u"|" +
                      ToText(lContext));
  return true;
}

}  // namespace Forms
