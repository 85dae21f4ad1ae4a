#include "WxPeer.h"

#include <utility>

#include "WxRenderer.h"

namespace Forms {

WxPeer::WxPeer(WxRenderer& oRenderer) : moRenderer(oRenderer) {}

WxPeer::~WxPeer() {
  moRenderer.Forget(*this);
}

void WxPeer::Changed(Property eProperty, std::int32_t lIndex) {
  if (eProperty == Property::Scroll) mlScroll = lIndex;
  Later(eProperty);
}

void WxPeer::Later(Property eProperty) {
  if (!moChanges.Any()) moRenderer.Later(*this);
  moChanges.Note(eProperty);
}

void WxPeer::LaterAll() {
  if (!moChanges.Any()) moRenderer.Later(*this);
  moChanges = Changes::All();
}

void WxPeer::Refresh() {
  const auto pLife = Life();
  moRenderer.CatchUp();
  if (!pLife.expired()) PaintNow();
}

void WxPeer::CatchUp() {
  const Changes oChanges = std::exchange(moChanges, {});
  const auto pLife = Life();
  if (oChanges.Any()) Apply(oChanges);
  if (!pLife.expired()) mlScroll = -1;
}

}  // namespace Forms
