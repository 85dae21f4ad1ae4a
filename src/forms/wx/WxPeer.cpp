#include "WxPeer.h"

#include <wx/window.h>

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
  // A painting at once takes milliseconds, and a loop may ask for thousands. Nobody sees more than
  // some thirty pictures a second: what comes sooner shows with the next events.
  constexpr std::chrono::milliseconds oPicture(30);
  const auto oNow = std::chrono::steady_clock::now();
  if (oNow < moNextPicture) {
    if (wxWindow* const po = Drawn()) po->Refresh();
    return;
  }
  moNextPicture = oNow + oPicture;
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
