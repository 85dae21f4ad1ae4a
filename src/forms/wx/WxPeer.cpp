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
  // Painting at once takes milliseconds, and a loop may ask for it thousands of times. So it
  // happens at most every 30 ms, about 30 times a second (a choice: a progress bar still moves
  // smoothly); what is asked for sooner is painted with the next events.
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
